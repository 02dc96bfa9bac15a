#include "desk/notes/merged_citations.h"

#include <set>

namespace zel::desk {

BankName BankAt(PreferenceList const& list, std::size_t i) { return {kPureType, list.BankOf(i)}; }

Library const& LibraryAt(PreferenceList const& list, std::size_t i) {
  return list.Libraries()[list.LibraryOf(i)];
}

MergedCitations CitationsOf(PreferenceList const& list, std::string const& word,
                            Citations& citations) {
  MergedCitations found;
  bool any = false;
  for (std::size_t i = 0; i < list.Count(); ++i) {
    any = any || citations.HasAny(LibraryAt(list, i), BankAt(list, i));
  }
  if (!any) return found;  // no source is read again
  std::set<std::uint32_t> constants;
  std::set<std::uint32_t> curves;
  for (std::size_t i = 0; i < list.Count(); ++i) {
    PureComponent const part;
    if (!list.Read(i, word, part)) continue;
    auto const put = [&](std::uint32_t index, std::uint32_t code,
                         std::map<std::uint32_t, Citation>& into) {
      Citation const* const citation = citations.Find(LibraryAt(list, i), BankAt(list, i), code);
      if (citation != nullptr) into.emplace(index, *citation);
    };
    for (auto const& row : Constants()) {
      if (zel::gen_IsUndefDouble(part.Constant(row.index))) continue;
      if (!constants.insert(row.index).second) continue;
      put(row.index, part.ConstantCode(row.index), found.constants);
    }
    for (auto const& row : Correlations()) {
      Curve const curve = part.ReadCurve(IndexOf(row));
      if (!curve.present || !curves.insert(IndexOf(row)).second) continue;
      put(IndexOf(row), curve.refCode, found.curves);
    }
  }
  return found;
}

}  // namespace zel::desk
