#include "desk/compare/beyond_documents.h"

#include "desk/open/pure_component.h"
#include "desk/words/table.h"

namespace zel::desk {
namespace {

void AddLibraryTexts(Library const& library, std::vector<std::string>& texts) {
  zel::libTypes kind{};
  zel::accModes mode{};
  library.File().GetLibInfo(kind, mode);
  if (kind != zel::libKind11) texts.push_back("kind " + std::to_string(kind));
  std::int32_t level = 0;
  char password[kMemoSize] = {};
  library.File().GetPassword(level, password);
  if (level != 0) texts.push_back("password level " + std::to_string(level));
  std::int32_t wordA = 0;
  std::int32_t wordB = 0;
  library.File().GetReservedWords(wordA, wordB);
  if (wordA != 0 || wordB != 0) {
    texts.push_back("reserved words " + std::to_string(wordA) + " " + std::to_string(wordB));
  }
}

std::string TextOf(BankName const& bank, std::string const& component, std::string const& name,
                   Curve const& curve) {
  std::string text = ToText(bank) + " " + component + " " + name + ": equation " +
                     std::to_string(curve.equation) + ", units " + std::to_string(curve.tempUnit) +
                     " " + std::to_string(curve.propUnit) + " " + std::to_string(curve.logBasis) +
                     " " + std::to_string(curve.basis) + ", range " + CellText(Number(curve.tMin)) +
                     " " + CellText(Number(curve.tMax)) + ", source " +
                     std::to_string(curve.refCode) + ", coefficients";
  for (double const coefficient : curve.coefficients) text += " " + CellText(Number(coefficient));
  return text;
}

}  // namespace

BeyondDocuments FindBeyondDocuments(Library const& library, BankName const* bank) {
  BeyondDocuments beyond;
  if (bank == nullptr) AddLibraryTexts(library, beyond.texts);
  PureComponent component;
  for (BankName const& one : library.Banks(kPureType)) {
    if (bank != nullptr && ToText(*bank) != ToText(one)) continue;
    std::int32_t words[10] = {};
    library.Walk(one, [&] {
      library.Maint().BeginItemWalk(one.type.c_str(), one.name.c_str());
      while (library.Maint().NextItem(words, component.Def())) {
        for (auto const& row : Correlations()) {
          Curve const curve = component.ReadCurve(IndexOf(row));
          if (!curve.present || curve.given) continue;
          ++beyond.correlations;
          beyond.texts.push_back(TextOf(one, component.ReadIdentity().FirstId(), row.name, curve));
        }
      }
    });
    library.Maint().EndItemWalk();
  }
  return beyond;
}

std::string AsComment(BeyondDocuments const& beyond) {
  if (beyond.texts.empty()) return "";
  std::string comment = "<!-- not part of the document:\n";
  for (std::string text : beyond.texts) {
    // Two hyphens would end the comment.
    for (std::size_t at; (at = text.find("--")) != std::string::npos;) text.replace(at, 2, "- -");
    comment += "  " + text + "\n";
  }
  return comment + "-->\n";
}

}  // namespace zel::desk
