#include "desk/pages/page_data.h"

#include <algorithm>

#include "desk/findings/library_check.h"
#include "desk/notes/item_codes.h"
#include "desk/notes/merged_citations.h"
#include "desk/notes/parameter_meanings.h"
#include "desk/open/fields.h"
#include "desk/pages/equation_texts.h"
#include "desk/pages/json_text.h"
#include "desk/pages/sampled_curve.h"
#include "desk/words/number_range.h"

namespace zel::desk {
namespace {

std::string Whole(std::int64_t number) { return std::to_string(number); }

std::string WordOf(Cell const& cell) {
  return std::holds_alternative<std::monostate>(cell) ? "\"\"" : JsonText(CellText(cell));
}

std::string ConstantsOf(PureComponent const& component, DisplayUnits const& units) {
  std::vector<std::string> rows;
  for (std::size_t i = 0; i < Constants().size(); ++i) {
    std::uint32_t const index = Constants()[i].index;
    double const value = component.Constant(index);
    if (zel::gen_IsUndefDouble(value)) continue;
    rows.push_back(JsonList({Whole(static_cast<std::int64_t>(i)),
                             JsonNumber(units.Shown(value, Constants()[i].unit)),
                             Whole(component.ConstantCode(index))}));
  }
  return JsonList(rows);
}

// Constants that are not stored but derived, with the method.
std::string DerivedOf(PureComponent const& merged, DisplayUnits const& units) {
  std::vector<std::string> rows;
  for (std::size_t i = 0; i < Constants().size(); ++i) {
    std::uint32_t const index = Constants()[i].index;
    if (merged.State(index) != zel::constantFilledIn) continue;
    rows.push_back(JsonList({Whole(static_cast<std::int64_t>(i)),
                             JsonNumber(units.Shown(merged.Completed(index), Constants()[i].unit)),
                             JsonText(merged.ConstantSource(index))}));
  }
  return JsonList(rows);
}

// The equation, and field, unit and meaning of each parameter; empty texts for what is not known.
std::string MeaningsOf(ModelMeaning const& model) {
  std::vector<std::string> rows;
  Table table("parameters", MeaningColumns(""));
  AddMeanings(model, "", table);
  for (auto const& row : table.Rows()) {
    rows.push_back(JsonList({WordOf(row[0]), WordOf(row[1]), WordOf(row[2])}));
  }
  return JsonList(rows);
}

// The unit in which the form of a correlation yields its values. Records name a unit per mass and a
// basis of moles apart: "kJ/kg" and "mole" are kJ/kg-mol.
std::string UnitOfForm(Curve const& curve) {
  if (curve.propUnit == 0) return "";
  std::string const unit = CellText(UnitOf(curve));
  return curve.basis == 1 ? UnitPerMole(unit) : unit;
}

}  // namespace

double PageData::SampleFrom(std::uint32_t index, Curve const& curve,
                            PureComponent const& component) {
  if (zel::gen_IsUndefDouble(curve.tMin) || zel::gen_IsUndefDouble(curve.tMax)) return -1;
  bool hasValue = false;
  SampledCurve const sampled = Sample(
      [&](double kelvin) -> std::optional<double> {
        Point const point =
            component.At(index, zel::ConvertTemperature(kelvin, kKelvin, curve.tempUnit));
        if (!point.there) return {};
        hasValue = true;
        return list_.Units().Shown(point.value, Correlations()[index].unit);
      },
      zel::ConvertTemperature(curve.tMin, curve.tempUnit, kKelvin),
      zel::ConvertTemperature(curve.tMax, curve.tempUnit, kKelvin));
  if (sampled.numbers.empty() || !hasValue) return -1;
  auto const at = static_cast<double>(numbers_.size());
  numbers_.insert(numbers_.end(), sampled.numbers.begin(), sampled.numbers.end());
  counts_.error = std::max(counts_.error, sampled.error);
  ++counts_.curves;
  return at;
}

std::string PageData::CurveIn(std::uint32_t index, Curve const& curve,
                              PureComponent const& component) {
  equations_[curve.equation] = true;
  std::vector<std::string> coefficients;
  for (double const value : curve.coefficients) coefficients.push_back(JsonNumber(value));
  std::string const stored = TemperatureUnit(curve.tempUnit);
  DisplayUnits const& units = list_.Units();
  return JsonList({Whole(index), Whole(curve.equation), JsonNumber(units.Shown(curve.tMin, stored)),
                   JsonNumber(units.Shown(curve.tMax, stored)), JsonText(units.UnitFor(stored)),
                   JsonText(UnitOfForm(curve)), JsonText(stored), Whole(curve.refCode),
                   JsonList(coefficients), JsonNumber(SampleFrom(index, curve, component))});
}

void PageData::Cite(std::size_t source, PureComponent const& component) {
  CodeCounts codes;
  AddCodes(*component.Def(), codes);
  for (auto const& [code, count] : codes) {
    Citation const* const citation =
        citations_.Find(LibraryAt(list_, source), BankAt(list_, source), code);
    if (citation != nullptr) cited_.emplace(std::pair(source, code), *citation);
  }
}

std::string PageData::PartOf(std::size_t source, PureComponent const& own,
                             PureComponent const& merged, std::vector<bool>& isTaken) {
  std::vector<std::string> curves;
  for (std::uint32_t index = 0; index < Correlations().size(); ++index) {
    Curve const curve = own.ReadCurve(index);
    if (!curve.present) continue;
    curves.push_back(CurveIn(index, curve, isMerged_ && !isTaken[index] ? merged : own));
    isTaken[index] = true;
  }
  return JsonList({Whole(static_cast<std::int64_t>(source)), ConstantsOf(own, list_.Units()),
                   JsonList(curves)});
}

std::size_t PageData::AddComponent(std::string const& word) {
  PureComponent merged;
  list_.Search(word, merged);
  Identity const identity = merged.ReadIdentity();
  auto const [known, isNew] = places_.emplace(identity.number, components_.size());
  if (!isNew) return known->second;
  std::vector<std::string> parts;
  std::vector<std::size_t> sources;
  std::vector<bool> isTaken(Correlations().size(), false);
  for (std::size_t i = 0; i < list_.Count(); ++i) {
    PureComponent own;
    if (!list_.Read(i, word, own)) continue;
    Cite(i, own);
    parts.push_back(PartOf(i, own, merged, isTaken));
    sources.push_back(i);
  }
  std::vector<std::string> ids;
  for (std::string const& id : identity.ids) ids.push_back(JsonText(id));
  components_.push_back(
      "{\"n\":" + Whole(identity.number) + ",\"ids\":" + JsonList(ids) +
      ",\"name\":" + JsonText(identity.name) + ",\"formula\":" + JsonText(identity.formula) +
      ",\"cas\":" + JsonText(identity.cas) + ",\"smiles\":" + JsonText(merged.Smiles()) +
      ",\"s\":" + JsonList(parts) + ",\"f\":" + DerivedOf(merged, list_.Units()) + "}");
  names_.push_back(identity.name);
  sources_.push_back(std::move(sources));
  ++counts_.components;
  return components_.size() - 1;
}

void PageData::SetColumns(std::vector<std::pair<std::size_t, long>> const& columns) {
  std::vector<std::string> parts;
  parts.reserve(columns.size());
  for (auto const& [component, source] : columns) {
    parts.push_back(JsonList({Whole(static_cast<std::int64_t>(component)), Whole(source)}));
  }
  columns_ = JsonList(parts);
}

void PageData::AddPairs() {
  for (Library const& library : list_.Libraries()) {
    for (BankName const& bank : library.Banks()) {
      zel::Handle<zel::IZelBankDef> const item = BankOrNone(bank.type);
      if (!item) continue;
      BankFacts const facts(*item);
      if (facts.keyKind != 0 || facts.keyWords != 2) continue;
      std::vector<std::string> pairs;
      std::int32_t words[10] = {};
      library.Walk(bank, [&] {
        library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
        while (library.Maint().NextItem(words, item.get())) {
          pairs.push_back(JsonList({Whole(words[0]), Whole(words[1])}));
        }
      });
      counts_.pairs += static_cast<std::int64_t>(pairs.size());
      pairs_.push_back("{\"type\":" + JsonText(bank.type) +
                       ",\"source\":" + JsonText(library.Path() + ":" + bank.name) +
                       ",\"parameters\":" + MeaningsOf(MeaningIn(library, bank, *item)) +
                       ",\"pairs\":" + JsonList(pairs) + "}");
    }
  }
}

void PageData::AddFindings(bool acceptIdentity) {
  Session& session = list_.Libraries().front().InSession();
  CheckOptions options;
  options.acceptIdentity = acceptIdentity;
  for (Finding const& one : CheckLibraries(session, list_.Libraries(), options)) {
    // The page is then not complete, which the host has to report.
    if (one.severity == zel::findingDamage) session.LeaveOut(LineOf(one));
    findings_.push_back(JsonList({JsonText(WordOf(one.severity)), JsonText(one.id),
                                  JsonText(one.library + ": " + one.place), JsonText(one.text)}));
  }
  counts_.findings = static_cast<std::int64_t>(findings_.size());
}

// The temperature of the charts, whose points are in K: its unit, and what a temperature in K is
// multiplied by and then increased by.
std::string PageData::TemperatureScale() const {
  DisplayUnits const& units = list_.Units();
  double const zero = units.Shown(0.0, "K");
  constexpr double kFar = 1000.0;
  double const factor = (units.Shown(kFar, "K") - zero) / kFar;
  return JsonList({JsonText(units.UnitFor("K")), JsonNumber(factor), JsonNumber(zero)});
}

std::string PageData::ToJson(std::string const& maker) const {
  DisplayUnits const& units = list_.Units();
  std::vector<std::string> sources;
  for (std::size_t i = 0; i < list_.Count(); ++i) sources.push_back(JsonText(list_.Name(i)));
  std::vector<std::string> constants;
  for (auto const& row : Constants()) {
    constants.push_back(
        JsonList({JsonText(row.keyword), JsonText(row.label), JsonText(units.UnitFor(row.unit))}));
  }
  std::vector<std::string> correlations;
  for (auto const& row : Correlations()) {
    correlations.push_back(
        JsonList({JsonText(row.name), JsonText(row.label), JsonText(units.UnitFor(row.unit))}));
  }
  std::string equations;
  for (EquationText const& one : EquationTexts()) {
    if (equations_.count(one.number) == 0) continue;
    equations += (equations.empty() ? "" : ",") + ("\"" + Whole(one.number)) +
                 "\":" + JsonList({JsonText(one.name), JsonText(one.form), JsonText(one.end)});
  }
  std::vector<std::string> symbols;
  for (auto const& [symbol, meaning] : EquationSymbols()) {
    symbols.push_back(JsonList({JsonText(symbol), JsonText(meaning)}));
  }
  std::vector<std::string> references;
  for (auto const& [place, citation] : cited_) {
    references.push_back(
        JsonList({Whole(static_cast<std::int64_t>(place.first)), Whole(place.second),
                  JsonText(citation.text), JsonText(citation.doi)}));
  }
  return "{\"maker\":" + JsonText(maker) + ",\"sources\":" + JsonList(sources) +
         ",\"temperature\":" + TemperatureScale() + ",\"constants\":" + JsonList(constants) +
         ",\"correlations\":" + JsonList(correlations) + ",\"equations\":{" + equations +
         "},\"symbols\":" + JsonList(symbols) + ",\"components\":" + JsonList(components_) +
         ",\"pairs\":" + JsonList(pairs_) + ",\"findings\":" + JsonList(findings_) +
         ",\"references\":" + JsonList(references) +
         (columns_.empty() ? "" : ",\"columns\":" + columns_) +
         ",\"error\":" + JsonNumber(counts_.error) + ",\"curves\":\"" + Base64(numbers_) + "\"}";
}

}  // namespace zel::desk
