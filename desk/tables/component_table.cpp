#include "desk/tables/component_table.h"

#include <algorithm>
#include <map>
#include <set>

#include "desk/files/input_file.h"
#include "desk/open/members.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

void AddMatching(PreferenceList const& list, std::string const& pattern,
                 std::vector<std::string>& words) {
  std::set<std::int32_t> seen;
  PureComponent const component;
  std::size_t const before = words.size();
  for (std::size_t i = 0; i < list.Count(); ++i) {
    zel::LibMaint& maint = list.Libraries()[list.LibraryOf(i)].Maint();
    std::int32_t key[10] = {};
    maint.BeginItemWalk(kPureType, list.BankOf(i).c_str());
    while (maint.NextItem(key, component.Def())) {
      Identity const identity = component.ReadIdentity();
      bool const fits = Matches(pattern, identity.name) ||
                        std::any_of(identity.ids.begin(), identity.ids.end(),
                                    [&](std::string const& id) { return Matches(pattern, id); });
      if (!fits || !seen.insert(identity.number).second) continue;
      words.push_back(identity.ids.empty() ? std::to_string(identity.number) : identity.FirstId());
    }
    maint.EndItemWalk();
  }
  if (words.size() == before) throw Failure("no component matches " + pattern);
}

void AddFromFile(std::string const& path, std::vector<std::string>& words) {
  std::error_code none;
  std::ifstream file = OpenInput(path);
  if (!file || std::filesystem::is_directory(path, none)) {
    throw Failure(path + ": cannot be read");
  }
  for (std::string line; std::getline(file, line);) {
    std::size_t const first = line.find_first_not_of(" \t\r");
    if (first == std::string::npos || line[first] == '#') continue;
    words.push_back(line.substr(first, line.find_last_not_of(" \t\r") - first + 1));
  }
}

// A constant or a correlation.
struct Datum {
  zel::ZelConstantInfo const* constant = nullptr;
  zel::ZelCorrelationInfo const* curve = nullptr;
};

Datum DatumNamed(std::string const& word) {
  Datum const datum = {FindConstant(word), FindCorrelation(word)};
  if (datum.constant == nullptr && datum.curve == nullptr) {
    throw Failure("\"" + word + "\" is neither a constant nor a correlation" +
                  DidYouMeanDatum(word) + " `zel types " + kPureType + "` lists them");
  }
  return datum;
}

void AddDatum(PureComponent const& component, Datum const& datum, DisplayUnits const& units,
              bool withSource, std::vector<Cell>& row) {
  if (datum.constant != nullptr) {
    double const value = component.Completed(datum.constant->index);
    row.push_back(Number(value));
    if (withSource) {
      row.push_back(zel::gen_IsUndefDouble(value)
                        ? Cell()
                        : Text(component.ConstantSource(datum.constant->index)));
    }
    return;
  }
  Curve const curve = component.ReadCurve(IndexOf(*datum.curve));
  Cell const range = RangeOf(curve, units);
  bool const isOpen = std::holds_alternative<std::monostate>(range);
  row.push_back(curve.present ? Cell("equation " + std::to_string(curve.equation) +
                                     (isOpen ? "" : ", " + CellText(range)))
                              : Cell());
  if (withSource) row.push_back(Text(curve.source));
}

}  // namespace

std::vector<std::string> ChosenComponents(PreferenceList const& list,
                                          ComponentChoice const& choice) {
  std::vector<std::string> words = choice.words;
  if (!choice.path.empty()) AddFromFile(choice.path, words);
  if (!choice.pattern.empty()) AddMatching(list, choice.pattern, words);
  if (words.empty())
    throw WrongUsage("no component is chosen; name some, or use --filter or --all");
  std::set<std::string> seen;
  auto const isAgain = [&](std::string const& word) {
    return !seen.insert(UpperCase(word)).second;
  };
  words.erase(std::remove_if(words.begin(), words.end(), isAgain), words.end());
  return words;
}

Table ComponentTable(PreferenceList& list, std::vector<std::string> const& components,
                     std::vector<std::string> const& fields, bool withSources) {
  std::vector<Datum> data;
  std::vector<Column> columns = {{"component", ""}, {"name", "", true}};
  for (std::string const& field : fields) {
    data.push_back(DatumNamed(field));
    Datum const& datum = data.back();
    std::string const name =
        datum.constant != nullptr ? datum.constant->keyword : datum.curve->name;
    columns.push_back({name, datum.constant != nullptr ? datum.constant->unit : ""});
    if (withSources) columns.push_back({name + " from", ""});
  }
  for (Datum const& datum : data) {
    if (datum.curve != nullptr) Append(columns, RecordColumns(datum.curve->name));
  }
  Table table("components", std::move(columns));
  for (std::string const& word : components) {
    PureComponent component;
    list.Search(word, component);
    Identity const identity = component.ReadIdentity();
    std::vector<Cell> row;
    row.push_back(Text(identity.ids.empty() ? word : identity.FirstId()));
    row.push_back(Text(identity.name));
    for (Datum const& datum : data) AddDatum(component, datum, list.Units(), withSources, row);
    for (Datum const& datum : data) {
      if (datum.curve == nullptr) continue;
      Append(row, RecordMembers(component.ReadCurve(IndexOf(*datum.curve)), list.Units()));
    }
    table.Add(std::move(row));
  }
  return table;
}

namespace {

// The correlations of the grid, each once.
std::vector<zel::ZelCorrelationInfo const*> CorrelationsOf(CurveGrid const& grid) {
  std::vector<zel::ZelCorrelationInfo const*> found;
  for (std::string const& name : grid.correlations) {
    zel::ZelCorrelationInfo const* const info = DatumNamed(name).curve;
    if (info == nullptr) throw Failure("\"" + name + "\" is not a correlation");
    if (std::find(found.begin(), found.end(), info) == found.end()) found.push_back(info);
  }
  return found;
}

}  // namespace

Column DerivativeColumn(std::string const& unit, int order) {
  std::string const power = order == 1 ? "" : std::to_string(order);
  std::string name = "d";
  name.append(power).append("/dT").append(power);
  return {std::move(name), std::string(unit).append("/K").append(power)};
}

CurveTables EvaluateGrid(PreferenceList& list, CurveGrid const& grid) {
  std::vector<Column> heads = {
      {"component", ""}, {"correlation", ""}, {"equation", ""}, {"range", ""}, {"from", ""}};
  Append(heads, RangeColumns());
  Table records("records", std::move(heads));
  std::vector<Column> columns = {{"T", "K"}};
  std::vector<std::vector<Cell>> rows;
  std::vector<Curve> curves;
  for (double const kelvin : grid.kelvin) rows.push_back(RowOf(kelvin));
  std::vector<zel::ZelCorrelationInfo const*> const correlations = CorrelationsOf(grid);
  std::set<std::int32_t> numbers;
  for (std::string const& word : grid.components) {
    PureComponent component;
    list.Search(word, component);
    if (!numbers.insert(component.ReadIdentity().number).second) continue;
    for (zel::ZelCorrelationInfo const* const info : correlations) {
      Curve const curve = component.ReadCurve(IndexOf(*info));
      std::string const name = word + " " + info->name;
      columns.push_back({name, info->unit});
      for (int order = 1; order <= grid.derivatives; ++order) {
        columns.push_back(DerivativeColumn(info->unit, order));
        columns.back().name.insert(0, name + " ");
      }
      std::vector<Cell> record = RowOf(word, std::string(info->name),
                                       curve.present ? Cell(std::int64_t{curve.equation}) : Cell(),
                                       RangeOf(curve, list.Units()), Text(curve.source));
      Append(record, RangeMembers(curve, list.Units()));
      records.Add(std::move(record));
      curves.push_back(curve);
      for (std::size_t i = 0; i < rows.size(); ++i) {
        double const temperature = zel::ConvertTemperature(grid.kelvin[i], 10, curve.tempUnit);
        Point const point = component.At(IndexOf(*info), temperature);
        bool const isShown = point.there && (point.status == 0 || grid.extrapolate);
        rows[i].push_back(isShown ? Number(point.value) : Cell());
        for (int order = 1; order <= grid.derivatives; ++order) {
          double const slope = SlopePerKelvin(component, IndexOf(*info), curve, temperature, order);
          rows[i].push_back(isShown ? Number(slope) : Cell());
        }
      }
    }
  }
  Table points("points", std::move(columns));
  for (std::vector<Cell>& row : rows) points.Add(std::move(row));
  return {std::move(points), std::move(records), std::move(curves)};
}

}  // namespace zel::desk
