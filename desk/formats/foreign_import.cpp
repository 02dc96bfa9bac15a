#include "desk/formats/foreign_import.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "desk/annotate/references.h"
#include "desk/formats/foreign_identity.h"
#include "desk/formats/foreign_units.h"
#include "desk/open/curve_record.h"
#include "desk/open/field_text.h"
#include "desk/open/item_key.h"
#include "desk/open/storable.h"
#include "desk/tables/row_form.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

constexpr std::uint32_t kGreatestCode = 32000;

// The code with this citation, else the next free one.
std::uint32_t CodeFor(Library const& library, std::string const& citation) {
  std::set<std::uint32_t> used;
  for (auto const& [bank, counts] : UsesIn(library)) {
    for (auto const& [code, count] : counts) used.insert(code);
  }
  Table const references = ReferenceTable(library);
  for (std::vector<Cell> const& row : references.Rows()) {
    auto const code = static_cast<std::uint32_t>(std::get<std::int64_t>(row.front()));
    if (CellText(row.back()) == citation) return code;
    used.insert(code);
  }
  std::uint32_t next = used.empty() ? 1 : std::min(*used.rbegin(), kGreatestCode) + 1;
  if (next > kGreatestCode) {
    for (next = 1; used.count(next) != 0; ++next) {
    }
  }
  if (next > kGreatestCode)
    throw Failure("all reference codes up to 32000 are used; name one with --code");
  return next;
}

bool IsCited(Library const& library, std::uint32_t code) {
  Table const references = ReferenceTable(library);
  return std::any_of(references.Rows().begin(), references.Rows().end(),
                     [&](std::vector<Cell> const& row) {
                       return std::get<std::int64_t>(row.front()) == std::int64_t{code} &&
                              std::holds_alternative<std::string>(row.back());
                     });
}

// The rows of a table that are applied one at a time.
class Rows {
 public:
  Rows(TableTarget const& target, std::vector<std::string> const& heads) : count_(heads.size()) {
    std::vector<TableColumn> columns;
    for (std::size_t i = 0; i < heads.size(); ++i) {
      at_[heads[i]] = i;
      columns.emplace_back(heads[i], i);
    }
    form_ = FormOf(target, std::move(columns));
  }

  void Begin(std::size_t line) {
    row_ = {};
    row_.line = line;
    row_.cells.resize(count_);
  }
  void Put(std::string const& head, std::string const& cell) { row_.cells[at_.at(head)] = cell; }
  // Throws Failure if the row is refused.
  RowResult Apply() {
    try {
      return form_->Apply(row_);
    } catch (WrongUsage const& error) {
      throw Failure(error.what());
    }
  }
  RowForm const& Form() const { return *form_; }

 private:
  std::size_t count_;
  std::map<std::string, std::size_t> at_;
  std::unique_ptr<RowForm> form_;
  TextRow row_;
};

std::vector<std::string> ConstantHeads(ForeignFile const& file) {
  std::vector<std::string> heads = {"number", "cas", "ids", "name", "formula", "smiles", "refCode"};
  std::set<std::string> keywords;
  for (ForeignComponent const& component : file.components) {
    for (ForeignConstant const& one : component.constants) keywords.insert(one.info->keyword);
  }
  for (std::string const& keyword : keywords) {
    heads.push_back(keyword);
    heads.push_back(keyword + " code");
  }
  return heads;
}

std::vector<std::string> const& CurveHeads() {
  static std::vector<std::string> const heads = {
      "number",      "correlation", "equation", "tempUnit", "propUnit",    "logBasis",
      "moleWtBasis", "tMin",        "tMax",     "refCode",  "coefficients"};
  return heads;
}

class Import {
 public:
  Import(ForeignTarget const& target, ForeignFile const& file)
      : target_(target),
        table_{target.library, target.bank, {}},
        file_(file),
        identities_(*target.library, target.bank, file),
        constants_(table_, ConstantHeads(file)),
        curves_(table_, CurveHeads()) {}

  ForeignImport Run() {
    done_.code = target_.code ? *target_.code : CodeFor(*target_.library, target_.citation);
    bool anyIsWritten = false;
    for (ForeignComponent const& one : file_.components) {
      component_ = one;
      ++done_.read;
      RowState const state = Write();
      Count(state);
      anyIsWritten = anyIsWritten || state == RowState::kNew || state == RowState::kChanged;
      AddData();
    }
    AddTags();
    done_.findings = constants_.Form().Findings();
    if (anyIsWritten && !IsCited(*target_.library, done_.code)) {
      PutReference(*target_.library, {}, MakeCitation(done_.code, target_.citation, ""), false);
      done_.isCited = true;
    }
    return std::move(done_);
  }

 private:
  std::string Shown() const { return !component_.name.empty() ? component_.name : component_.cas; }

  RowState Write() {
    std::vector<Cell> row =
        RowOf(static_cast<std::int64_t>(component_.line), Text(Shown()), Cell(), Cell());
    RowState state = RowState::kRefused;
    std::string what;
    try {
      std::string const word = WriteConstants(state, what);
      WriteCurves(word, state, what);
    } catch (Failure const& failure) {
      what = failure.what();
      for (ForeignDatum& datum : component_.data) Refuse(datum, "its component is refused");
    }
    row[2] = std::string(ToText(state));
    row[3] = Text(what);
    done_.components.Add(std::move(row));
    return state;
  }

  static void Refuse(ForeignDatum& datum, std::string const& why) {
    if (datum.fate == Fate::kNoPlace || datum.fate == Fate::kRefused) return;
    datum.fate = Fate::kRefused;
    datum.what = why;
  }

  // Returns the component's number.
  std::string WriteConstants(RowState& state, std::string& what) {
    std::string number = identities_.NumberOf(component_);
    bool const isNew = number.empty();
    std::string const code = std::to_string(done_.code);
    bool const isInNames = !component_.cas.empty() && identities_.IsInLibrary(component_.cas);
    std::string const id = isNew && !isInNames ? identities_.NewIdFor(component_) : "";
    constants_.Begin(component_.line);
    constants_.Put("number", number);
    constants_.Put("cas", component_.cas);
    constants_.Put("ids", id);
    constants_.Put("name", component_.name);
    constants_.Put("formula", component_.formula);
    constants_.Put("smiles", component_.smiles);
    constants_.Put("refCode", code);
    for (ForeignConstant const& one : component_.constants) {
      constants_.Put(one.info->keyword, AllDigits(one.value));
      constants_.Put(std::string(one.info->keyword) + " code", code);
    }
    RowResult const result = constants_.Apply();
    state = result.state;
    what = result.what;
    std::string const word = !number.empty()           ? number
                             : !component_.cas.empty() ? component_.cas
                                                       : id;
    PureComponent const written;
    ReadComponent(*target_.library, target_.bank, word, written);
    number = std::to_string(written.ReadIdentity().number);
    if (isNew) identities_.Add(written.ReadIdentity());
    if (result.given != 0) done_.given.Add(Shown(), std::int64_t{result.given});
    return number;
  }

  void WriteCurves(std::string const& number, RowState& state, std::string& what) {
    PureComponent const written;
    ReadComponent(*target_.library, target_.bank, number, written);
    bool const hasTc = !zel::gen_IsUndefDouble(written.Constant(zel::propertyTC));
    bool const hasWeight = !zel::gen_IsUndefDouble(written.Constant(zel::propertyMW));
    for (ForeignCurve const& one : component_.curves) {
      ForeignDatum& datum = component_.data[one.origin];
      // An integral is not kept without what it is the integral of.
      if (datum.fate == Fate::kNoPlace || datum.fate == Fate::kRefused) continue;
      try {
        UnitCodeFor(one.unit, 0, *one.info);  // throws if it is not a unit of the correlation
        bool const lacksTc = one.needsTc && !hasTc;
        if (lacksTc || (IsPerMass(one.unit, one.info->unit) && !hasWeight)) {
          datum.fate = Fate::kNoPlace;
          datum.what = lacksTc ? "its form needs TC, which the component does not have"
                               : "values per mass need MW, which the component does not have";
          continue;
        }
        PutCurve(number, one);
        RowResult const result = curves_.Apply();
        if (result.state == RowState::kSame) continue;
        if (state == RowState::kSame) state = RowState::kChanged;
        if (state != RowState::kChanged) continue;
        what += (what.empty() ? "" : "; ") + result.what;
      } catch (Failure const& failure) {
        Refuse(datum, failure.what());
      }
    }
  }

  void PutCurve(std::string const& number, ForeignCurve const& one) {
    Curve const& curve = one.curve;
    std::string coefficients;
    for (double const value : curve.coefficients) {
      coefficients += (coefficients.empty() ? "" : " ") + AllDigits(value);
    }
    curves_.Begin(component_.line);
    curves_.Put("number", number);
    curves_.Put("correlation", one.info->name);
    curves_.Put("equation", std::to_string(curve.equation));
    curves_.Put("tempUnit", "K");
    curves_.Put("propUnit", one.unit);
    curves_.Put("logBasis", curve.logBasis == 2 ? "log" : "ln");
    curves_.Put("moleWtBasis", IsPerMass(one.unit, one.info->unit) ? "wt" : "m");
    curves_.Put("tMin", AllDigits(curve.tMin));
    curves_.Put("tMax", AllDigits(curve.tMax));
    curves_.Put("refCode", std::to_string(done_.code));
    curves_.Put("coefficients", coefficients);
  }

  void Count(RowState state) {
    std::int64_t& count = state == RowState::kNew       ? done_.isNew
                          : state == RowState::kChanged ? done_.changed
                          : state == RowState::kSame    ? done_.same
                                                        : done_.refused;
    ++count;
  }

  struct Tag {
    std::string datum;
    std::int64_t counts[4] = {};
    std::vector<std::tuple<Fate, std::string, std::int64_t>> reasons;

    void Add(Fate fate, std::string const& why) {
      for (auto& [oneFate, oneWhy, count] : reasons) {
        if (oneFate == fate && oneWhy == why) return void(++count);
      }
      reasons.emplace_back(fate, why, 1);
    }
  };

  void AddData() {
    std::stable_sort(component_.data.begin(), component_.data.end(),
                     [](ForeignDatum const& a, ForeignDatum const& b) { return a.line < b.line; });
    for (ForeignDatum const& one : component_.data) {
      std::int64_t& count = one.fate == Fate::kTaken       ? done_.taken
                            : one.fate == Fate::kConverted ? done_.converted
                            : one.fate == Fate::kNoPlace   ? done_.noPlace
                                                           : done_.refusedData;
      ++count;
      done_.data.Add(static_cast<std::int64_t>(one.line), Text(Shown()), one.tag,
                     std::string(ToText(one.fate)), Text(one.datum), Text(one.what));
      if (tags_.count(one.tag) == 0) order_.push_back(one.tag);
      Tag& tag = tags_[one.tag];
      if (tag.datum.empty()) tag.datum = one.datum;
      ++tag.counts[static_cast<std::size_t>(one.fate)];
      bool const isMissing = one.fate == Fate::kNoPlace || one.fate == Fate::kRefused;
      if (isMissing) tag.Add(one.fate, one.what);
    }
  }

  void AddTags() {
    for (std::string const& name : order_) {
      Tag const& tag = tags_[name];
      done_.tags.Add(name, Text(tag.datum), tag.counts[0], tag.counts[1], tag.counts[2],
                     tag.counts[3]);
      for (auto const& [fate, why, count] : tag.reasons) {
        done_.leftOut.Add(name, std::string(ToText(fate)), count, Text(why));
      }
    }
  }

  ForeignTarget const& target_;
  TableTarget table_;
  ForeignFile const& file_;
  ForeignIdentities identities_;
  Rows constants_;
  Rows curves_;
  ForeignComponent component_;  // that is being written
  ForeignImport done_;
  std::map<std::string, Tag> tags_;
  std::vector<std::string> order_;
};

}  // namespace

ForeignImport ImportForeign(ForeignTarget const& target, ForeignFile const& file) {
  return Import(target, file).Run();
}

}  // namespace zel::desk
