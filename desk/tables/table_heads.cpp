#include "desk/tables/table_heads.h"

#include "desk/open/fields.h"
#include "desk/open/pure_component.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr std::uint32_t kConstantsWithCode = 50;

void AddComponentHeads(std::vector<TableHead>& heads) {
  heads.push_back({"number", "", "component number"});
  heads.push_back({"ids", "", "IDs of up to 8 characters, with blanks between them"});
  heads.push_back({"cas", "", "CAS number"});
  heads.push_back({"name", "", "name"});
  heads.push_back({"formula", "", "formula"});
  heads.push_back({"keepFormula", "", "yes if the formula is not normalized"});
  heads.push_back({"smiles", "", "SMILES"});
  heads.push_back({"phase", "", "letters V, L and S"});
  heads.push_back({"refCode", "", "reference code of the identity"});
  for (zel::ZelConstantInfo const& row : Constants()) {
    heads.push_back({row.keyword, row.unit, row.label});
    if (row.index < kConstantsWithCode) {
      heads.push_back({std::string(row.keyword) + " code", "", "its reference code"});
    }
  }
}

void AddCorrelationHeads(std::vector<TableHead>& heads) {
  heads.push_back({"number", "", "component number"});
  heads.push_back({"correlation", "", "its name"});
  heads.push_back({"equation", "", "number of the equation"});
  heads.push_back({"tempUnit", "", "K, C, R or F: unit of temperatures in the equation"});
  heads.push_back({"propUnit", "", "unit of the equation's value"});
  heads.push_back({"propUnitCode", "", "its code, which decides"});
  heads.push_back({"logBasis", "", "ln or log"});
  heads.push_back({"moleWtBasis", "", "m or wt: per mole or per mass"});
  heads.push_back({"tMin", "", "lowest temperature, in tempUnit"});
  heads.push_back({"tMax", "", "highest temperature, in tempUnit"});
  heads.push_back({"refCode", "", "reference code"});
  heads.push_back({"coefficients", "", "with blanks between them"});
}

}  // namespace

std::vector<std::string> HeadsOfKey(std::size_t part, std::size_t parts) {
  std::string const number = std::to_string(part + 1);
  std::string const letter(1, static_cast<char>('i' + part));
  std::vector<std::string> heads;
  if (parts == 1) {
    heads = {"item", "number", "component", "id", "cas", "key", "name"};
  } else {
    for (char const* word : {"item ", "number ", "component ", "id ", "cas ", "key ", "name "}) {
      heads.push_back(word + number);
    }
    heads.push_back(letter);
  }
  return heads;
}

TableKind TableKindNamed(std::string const& word, std::string const& type) {
  std::string const lower = LowerCase(word);
  TableKind const kind = lower == "correlations" ? TableKind::kCorrelations
                         : lower == "groups"     ? TableKind::kGroups
                                                 : TableKind::kItems;
  if (kind == TableKind::kItems && !lower.empty() && lower != "constants") {
    throw WrongUsage("\"" + word + "\" is not constants, correlations or groups");
  }
  if (!lower.empty() && UpperCase(type) != kPureType) {
    throw WrongUsage("only tables of pure components have several kinds");
  }
  return kind;
}

std::vector<TableHead> HeadsOf(std::string const& type, TableKind kind) {
  zel::Handle<zel::IZelBankDef> const bank = BankOfType(UpperCase(type));
  BankFacts const facts(*bank);
  std::vector<TableHead> heads;
  if (facts.type == kPureType) {
    if (kind == TableKind::kItems) AddComponentHeads(heads);
    if (kind == TableKind::kCorrelations) AddCorrelationHeads(heads);
    if (kind == TableKind::kGroups) {
      heads.push_back({"number", "", "component number"});
      heads.push_back({"model", "", "name of the group model"});
      heads.push_back({"groups", "", "groups and counts: 1(2) 14(1)"});
    }
    return heads;
  }
  std::size_t const parts = facts.keyKind == 2 ? 1 : static_cast<std::size_t>(facts.keyWords);
  for (std::size_t i = 0; i < parts; ++i) {
    heads.push_back({HeadsOfKey(i, parts).front(), "", "names the item"});
  }
  for (Field const& field : FieldsOf(*bank)) heads.push_back({field.name, field.unit, field.label});
  return heads;
}

std::string ToText(TableHead const& head) {
  return head.unit.empty() ? head.name : head.name + " [" + head.unit + "]";
}

}  // namespace zel::desk
