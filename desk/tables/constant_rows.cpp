// Rows that set the identity and constants of components: one row for each component, or one for
// each constant.
#include <algorithm>
#include <cstring>

#include "desk/open/field_text.h"
#include "desk/open/item_key.h"
#include "desk/open/storable.h"
#include "desk/tables/component_rows.h"
#include "desk/tables/table_heads.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr std::size_t kMostIds = 12;
constexpr std::size_t kIdLength = 8;
constexpr std::size_t kNameLength = 40;
constexpr std::size_t kFormulaLength = 20;
constexpr std::size_t kSmilesLength = 100;

std::uint32_t CodeIn(std::string const& word) {
  std::int32_t const code = WholeNumber(word, "a reference code");
  if (code < 0) throw Failure("\"" + word + "\" is not a reference code");
  return static_cast<std::uint32_t>(code);
}

void SetCode(PureComponent& component, std::uint32_t index, std::string const& word) {
  if (word.empty()) return;
  std::uint32_t const code = CodeIn(word);
  component->SetPropertyRefCode(index, code);
  if (component.ConstantCode(index) != code) {
    throw Failure(word + " cannot be stored as a reference code");
  }
}

void SetConstant(PureComponent& component, zel::ZelConstantInfo const& info,
                 std::string const& word, DisplayUnits const& units) {
  if (word.empty()) return;
  double const value = units.Read(word, info.unit, "a number");
  CheckStorable(value, info.keyword);
  component->SetProperty(info.index, value);
}

std::int32_t PhaseOf(std::string const& word) {
  std::int32_t phase = 0;
  for (std::string const& part : ListWords(LowerCase(word))) {
    bool const isWord = part == "vapor" || part == "liquid" || part == "solid";
    for (char const letter : isWord ? part.substr(0, 1) : part) {
      std::size_t const bit = std::string("vls").find(letter);
      if (bit == std::string::npos) throw Failure("\"" + word + "\" is not phases such as VLS");
      phase |= 1 << bit;
    }
  }
  return phase;
}

bool YesOrNo(std::string const& word) {
  std::string const lower = LowerCase(word);
  if (lower == "yes" || lower == "1" || lower == "true") return true;
  if (lower == "no" || lower == "0" || lower == "false") return false;
  throw Failure("\"" + word + "\" is neither yes nor no");
}

struct ConstantColumn {
  TableColumn column;
  zel::ZelConstantInfo info;
  DisplayUnits units;
  bool isCode = false;
};

// Tables with one row for each component.
class WideRows final : public ComponentRows {
 public:
  WideRows(TableTarget const& target, std::vector<TableColumn> columns)
      : ComponentRows(target, columns),
        name_(TakeColumn(columns, {"name"})),
        formula_(TakeColumn(columns, {"formula"})),
        keepFormula_(TakeColumn(columns, {"keepFormula"})),
        smiles_(TakeColumn(columns, {"smiles"})),
        phase_(TakeColumn(columns, {"phase", "phases"})),
        code_(TakeColumn(columns, {"refCode", "code"})) {
    for (zel::ZelConstantInfo const& info : Constants()) {
      std::string const keyword = info.keyword;
      if (auto value = TakeColumn(columns, {keyword})) {
        DisplayUnits units = value->UnitsFor(info.unit, target.units);
        constants_.push_back({std::move(*value), info, std::move(units), false});
      }
      if (auto code = TakeColumn(columns, {keyword + " code", keyword + " refCode"})) {
        constants_.push_back({std::move(*code), info, {}, true});
      }
    }
    std::vector<std::string> candidates;
    for (TableHead const& head : HeadsOf(kPureType, TableKind::kItems)) {
      candidates.push_back(head.name);
    }
    RefuseRest(columns, candidates);
  }

 protected:
  std::string DatumOf(TextRow const&) const override { return ""; }

  void Set(TextRow const& row, PureComponent& component, bool) override {
    SetIdentity(row, component);
    if (!CellOf(smiles_, row).empty()) {
      CheckText(CellOf(smiles_, row), kSmilesLength, "a SMILES text");
      if (CellOf(smiles_, row) != component.Smiles()) {
        CheckDocument(CellOf(smiles_, row), DocumentPlace::kElement, "a SMILES text");
      }
      component->SetSmiles(CellOf(smiles_, row).c_str());
    }
    if (!CellOf(phase_, row).empty()) component->SetPhase(PhaseOf(CellOf(phase_, row)));
    for (ConstantColumn const& one : constants_) {
      std::string const& word = one.column.In(row);
      try {
        one.isCode ? SetCode(component, one.info.index, word)
                   : SetConstant(component, one.info, word, one.units);
      } catch (std::runtime_error const& error) {
        throw Failure(one.column.Name() + ": " + error.what());
      }
    }
  }

 private:
  void SetIdentity(TextRow const& row, PureComponent& component) const {
    Identity identity = component.ReadIdentity();
    auto const take = [&](std::optional<TableColumn> const& column, std::string& text,
                          std::size_t longest, DocumentPlace place, char const* what) {
      std::string const cell = CellOf(column, row);
      if (cell.empty()) return;
      CheckText(cell, longest, what);
      if (cell != text) CheckDocument(cell, place, what);
      text = cell;
    };
    // In an exported name, a quotation mark is written as %quot;.
    take(name_, identity.name, kNameLength, DocumentPlace::kElement, "a name");
    take(formula_, identity.formula, kFormulaLength, DocumentPlace::kAttribute, "a formula");
    std::string const keep = CellOf(keepFormula_, row);
    if (!keep.empty()) identity.keepsFormula = YesOrNo(keep);
    if (!CellOf(code_, row).empty()) {
      identity.refCode = static_cast<std::int32_t>(CodeIn(CellOf(code_, row)));
    }
    std::vector<std::string> const ids = ListWords(CellOfIds(row));
    // A single ID that the component has only names it; a list replaces its IDs.
    bool const isOneOfIts = ids.size() == 1 && std::find(identity.ids.begin(), identity.ids.end(),
                                                         ids.front()) != identity.ids.end();
    if (!ids.empty() && !isOneOfIts) {
      for (std::string const& id : ids) {
        bool const isKnown =
            std::find(identity.ids.begin(), identity.ids.end(), id) != identity.ids.end();
        if (!isKnown) CheckDocument(id, DocumentPlace::kElement, "an ID");
      }
      identity.ids = ids;
    }
    if (identity.ids.size() > kMostIds) throw Failure("more than 12 IDs");
    char idTexts[kMostIds][kIdLength + 1] = {};
    for (std::size_t i = 0; i < identity.ids.size(); ++i) {
      CheckText(identity.ids[i], kIdLength, "an ID");
      std::memcpy(idTexts[i], identity.ids[i].c_str(), identity.ids[i].size());
    }
    component->SetIdentity(identity.number, CasOf(row, identity), identity.refCode, idTexts,
                           identity.name.c_str(), identity.formula.c_str(),
                           identity.keepsFormula ? 1 : 0);
  }

  // A row that names a component by number or ID must not turn it into another substance.
  std::int32_t CasOf(TextRow const& row, Identity const& identity) const {
    zel::casn const known(identity.cas.c_str());
    std::string const cell = CellOfCas(row);
    if (cell.empty()) return static_cast<std::int32_t>(static_cast<long>(known));
    zel::casn const given(cell.c_str());
    if (static_cast<long>(given) == 0) {
      throw Failure(cell + " is not a CAS number: its form or its check digit is wrong");
    }
    if (static_cast<long>(known) != 0 && static_cast<long>(known) != static_cast<long>(given)) {
      throw Failure("has the CAS number " + identity.cas + ", not " + cell);
    }
    return static_cast<std::int32_t>(static_cast<long>(given));
  }

  std::optional<TableColumn> name_;
  std::optional<TableColumn> formula_;
  std::optional<TableColumn> keepFormula_;
  std::optional<TableColumn> smiles_;
  std::optional<TableColumn> phase_;
  std::optional<TableColumn> code_;
  std::vector<ConstantColumn> constants_;
};

// Tables with one row for each constant of each component.
class ConstantRows final : public ComponentRows {
 public:
  ConstantRows(TableTarget const& target, std::vector<TableColumn> columns)
      : ComponentRows(target, columns),
        keyword_(TakeColumn(columns, {"keyword", "constant"})),
        value_(TakeColumn(columns, {"value"})),
        unit_(TakeColumn(columns, {"unit"})),
        code_(TakeColumn(columns, {"refCode", "code"})) {
    if (!value_) throw Failure("a table with a column keyword needs a column value");
    RefuseRest(columns, {"keyword", "value", "unit", "refCode", "number", "component"});
  }

 protected:
  std::string DatumOf(TextRow const& row) const override { return CellOf(keyword_, row); }

  void Set(TextRow const& row, PureComponent& component, bool isNew) override {
    if (isNew) throw Failure("is not in bank " + ToText(Target().bank));
    std::string const keyword = CellOf(keyword_, row);
    zel::ZelConstantInfo const* const info = FindConstant(keyword);
    if (info == nullptr) {
      throw Failure("\"" + keyword + "\" is not a constant" + DidYouMeanConstant(keyword) +
                    " `zel types PURECOMP` lists them");
    }
    std::string const unit = CellOf(unit_, row);
    TableColumn const head(unit.empty() ? "value" : "value [" + unit + "]", std::string());
    SetConstant(component, *info, CellOf(value_, row),
                unit.empty() ? value_->UnitsFor(info->unit, Target().units)
                             : head.UnitsFor(info->unit, Target().units));
    SetCode(component, info->index, CellOf(code_, row));
  }

 private:
  std::optional<TableColumn> keyword_;
  std::optional<TableColumn> value_;
  std::optional<TableColumn> unit_;
  std::optional<TableColumn> code_;
};

}  // namespace

std::unique_ptr<RowForm> WideForm(TableTarget const& target, std::vector<TableColumn> columns) {
  return std::make_unique<WideRows>(target, std::move(columns));
}

std::unique_ptr<RowForm> ConstantForm(TableTarget const& target, std::vector<TableColumn> columns) {
  return std::make_unique<ConstantRows>(target, std::move(columns));
}

}  // namespace zel::desk
