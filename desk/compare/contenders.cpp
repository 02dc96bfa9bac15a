#include "desk/compare/contenders.h"

namespace zel::desk {
namespace {

// Calls `read` with the component as each bank has it; `read` fills in what the bank has of the
// datum.
template <typename Read>
std::vector<Contender> Contenders(PreferenceList const& list, std::string const& component,
                                  Read const& read) {
  std::vector<Contender> all;
  bool isWon = false;
  for (std::size_t i = 0; i < list.Count(); ++i) {
    Contender one;
    one.source = list.Name(i);
    PureComponent part;
    one.hasComponent = list.Read(i, component, part);
    if (one.hasComponent) read(part, one);
    one.hasWon = one.hasDatum && !isWon;
    isWon = isWon || one.hasDatum;
    all.push_back(std::move(one));
  }
  return all;
}

}  // namespace

std::vector<Contender> ContendersFor(PreferenceList const& list, std::string const& component,
                                     zel::ZelConstantInfo const& constant) {
  return Contenders(list, component, [&](PureComponent const& part, Contender& one) {
    one.value = part.Constant(constant.index);
    one.code = part.ConstantCode(constant.index);
    one.hasDatum = !zel::gen_IsUndefDouble(one.value);
  });
}

std::vector<Contender> ContendersFor(PreferenceList const& list, std::string const& component,
                                     zel::ZelCorrelationInfo const& correlation) {
  return Contenders(list, component, [&](PureComponent const& part, Contender& one) {
    one.curve = part.ReadCurve(IndexOf(correlation));
    one.code = one.curve.refCode;
    one.hasDatum = one.curve.present;
  });
}

std::string ResultOf(Contender const& one, char const* without) {
  if (!one.hasComponent) return "does not have the component";
  if (!one.hasDatum) return without;
  return one.hasWon ? "won" : "comes later";
}

}  // namespace zel::desk
