#include "desk/words/display_units.h"

#include <zelaccess/Types.h>
#include <zelaccess/Units.h>
#include <zelaccess/Verify.h>
#include <zelaccess/ZelAccess.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>
#include <string_view>

#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/mass_units.h"
#include "desk/words/nearest_word.h"
#include "desk/words/number_range.h"

namespace zel::desk {
namespace {

constexpr char kInternal[] = "QRInternal";
constexpr char kTemperature[] = "Temp";
constexpr char kTemperatureLetters[] = "KCRF";

// Sets that are not unit systems of the table.
struct OwnSet {
  char const* name;
  std::vector<std::string> words;
};
std::vector<OwnSet> const& OwnSets() {
  static std::vector<OwnSet> const sets = {{"engineering", {"C", "bar"}}, {"us", {"English"}}};
  return sets;
}

OwnSet const* OwnSetNamed(std::string const& word) {
  auto const at = std::find_if(OwnSets().begin(), OwnSets().end(),
                               [&](OwnSet const& set) { return LowerCase(word) == set.name; });
  return at == OwnSets().end() ? nullptr : &*at;
}

std::string FoundUnit(std::string const& dimension, std::string const& word) {
  char text[zel::kUnitTextSize] = {};
  bool const found =
      word.size() + 1 < sizeof(text) && zel::FindUnit(dimension.c_str(), word.c_str(), text);
  return found ? text : "";
}

std::vector<std::string> Dimensions() {
  std::vector<std::string> names;
  char name[zel::kUnitTextSize] = {};
  for (std::int32_t i = 0; zel::GetDimension(i, name); ++i) names.emplace_back(name);
  return names;
}

bool IsUnitSystem(std::string const& word) {
  char name[zel::kUnitTextSize] = {};
  for (std::int32_t i = 0; zel::GetUnitSystem(i, name); ++i) {
    if (LowerCase(name) == LowerCase(word)) return true;
  }
  return false;
}

std::string_view WithoutBlanks(std::string_view text) {
  std::size_t const first = std::min(text.find_first_not_of(' '), text.size());
  text.remove_prefix(first);
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

bool IsTemperatureLetter(std::string const& unit) {
  return unit.size() == 1 && std::string_view(kTemperatureLetters).find(unit) != std::string::npos;
}

std::int32_t TemperatureCode(std::string const& unit) {
  return kKelvin +
         static_cast<std::int32_t>(std::string_view(kTemperatureLetters).find(unit.front()));
}

double Converted(double value, std::string const& dimension, std::string const& from,
                 std::string const& to) {
  if (zel::gen_IsUndefDouble(value)) return value;
  // This keeps the limits of records round numbers.
  if (dimension == kTemperature && IsTemperatureLetter(from) && IsTemperatureLetter(to)) {
    return zel::ConvertTemperature(value, TemperatureCode(from), TemperatureCode(to));
  }
  if (!zel::ConvertUnits(dimension.c_str(), from.c_str(), to.c_str(), &value, 1)) {
    throw Failure(Digits(value) + " " + from + " has no counterpart in " + to);
  }
  return value;
}

// The dimension of an internal unit, or of a temperature of a record.
std::string DimensionOf(std::string const& unit) {
  if (IsTemperatureLetter(unit)) return kTemperature;
  return zel::GetDimensionOfUnit(unit.c_str());
}

// The unit of molecular weights has no dimension: it is not converted, but has several spellings.
constexpr char kWeight[] = "kg/kg-mol";
constexpr char const* kWeights[] = {"g/mol", "g/g-mol", "kg/kmol", "lb/lb-mol", "lb/lbmol"};

bool IsWeightUnit(std::string const& word) {
  return word == kWeight ||
         std::find(std::begin(kWeights), std::end(kWeights), word) != std::end(kWeights);
}

}  // namespace

std::vector<std::string> UnitWords() {
  zel::InitZelAccess();
  std::set<std::string> dimensions;
  std::int32_t count = 0;
  zel::ZelConstantInfo const* const constants = zel::GetConstantCatalogue(count);
  for (std::int32_t i = 0; i < count; ++i) {
    dimensions.insert(zel::GetDimensionOfUnit(constants[i].unit));
  }
  zel::ZelCorrelationInfo const* const correlations = zel::GetCorrelationCatalogue(count);
  for (std::int32_t i = 0; i < count; ++i) {
    dimensions.insert(zel::GetDimensionOfUnit(correlations[i].unit));
  }
  std::vector<std::string> words = {"engineering", "US"};
  char text[zel::kUnitTextSize] = {};
  for (std::int32_t i = 0; zel::GetUnitSystem(i, text); ++i) words.emplace_back(text);
  for (std::string const& dimension : dimensions) {
    for (std::int32_t i = 0; zel::GetUnit(dimension.c_str(), i, text); ++i) {
      words.emplace_back(text);
    }
  }
  return words;
}

bool IsUnitOrSet(std::string const& word) {
  zel::InitZelAccess();
  if (OwnSetNamed(word) != nullptr || IsUnitSystem(word) || IsWeightUnit(word)) return true;
  std::vector<std::string> const dimensions = Dimensions();
  return std::any_of(dimensions.begin(), dimensions.end(), [&](std::string const& dimension) {
    return !FoundUnit(dimension, word).empty();
  });
}

DisplayUnits::DisplayUnits(std::string const& words, UnitSets const& own) {
  if (words.empty()) return;
  zel::InitZelAccess();
  AddWords(words, own);
}

void DisplayUnits::AddWords(std::string const& words, UnitSets const& own) {
  std::string_view rest = words;
  while (true) {
    std::size_t const comma = std::min(rest.find(','), rest.size());
    std::string const word(WithoutBlanks(rest.substr(0, comma)));
    OwnSet const* const set = OwnSetNamed(word);
    auto const ofUser = own.find(LowerCase(word));
    if (ofUser != own.end()) {
      AddWords(ofUser->second, own);
    } else if (set != nullptr) {
      words_.insert(words_.end(), set->words.begin(), set->words.end());
    } else if (IsUnitOrSet(word)) {
      words_.push_back(word);
    } else {
      std::vector<std::string> candidates = UnitWords();
      for (auto const& one : own) candidates.push_back(one.first);
      throw WrongUsage(
          "\"" + word + "\" is neither a unit nor a set of units" + DidYouMean(word, candidates) +
          " units are words such as bar,degC,J/mol; sets are engineering, US, SI, Metric, ...");
    }
    if (comma == rest.size()) break;
    rest.remove_prefix(comma + 1);
  }
}

DisplayUnits::Change const& DisplayUnits::ChangeOf(std::string const& unit) const {
  auto const known = changes_.find(unit);
  if (known != changes_.end()) return known->second;
  return changes_.emplace(unit, MakeChange(unit)).first->second;
}

DisplayUnits::Change DisplayUnits::ChangeInDimension(std::string const& unit,
                                                     std::string const& dimension) const {
  Change change{unit, dimension, unit, 1.0};
  if (!IsTemperatureLetter(unit)) change.from = kInternal;
  std::string const internal = FoundUnit(dimension, kInternal);
  std::string shown = internal;
  for (std::string const& word : words_) {
    std::string const found = FoundUnit(dimension, word);
    if (!found.empty()) {
      shown = found;
      notUsed_.erase(unit);
    } else if (IsPerMassOf(word, unit) && !IsUnitSystem(word)) {
      notUsed_[unit] = word;
    }
  }
  // Internal units keep the spelling of the catalogue.
  bool const isSame = shown == internal && !IsTemperatureLetter(unit);
  if (shown.empty() || isSame || shown == unit) return {unit, "", "", 1.0};
  change.unit = shown;
  return change;
}

DisplayUnits::Change DisplayUnits::MakeChange(std::string const& unit) const {
  Change change{unit, "", "", 1.0};
  if (words_.empty() || unit.empty()) return change;
  if (unit == kWeight) {
    for (std::string const& word : words_) {
      if (IsWeightUnit(word)) change.unit = word;
    }
    return change;
  }
  std::string const dimension = DimensionOf(unit);
  if (!dimension.empty()) return ChangeInDimension(unit, dimension);
  MakeSlope(unit, change);
  return change;
}

// The factor by which a difference of values in `unit` is multiplied to be shown.
double DisplayUnits::FactorOf(std::string const& unit) const {
  Change const& change = ChangeOf(unit);
  if (change.dimension.empty()) return 1.0;
  bool const isTemperature = change.dimension == kTemperature;
  std::string const difference = isTemperature                ? "TempDiff"
                                 : change.dimension == "Pres" ? "PresDiff"
                                                              : change.dimension;
  double factor = 1.0;
  char const* const from = change.from.c_str();
  char const* const to = change.unit.c_str();
  if (zel::ConvertUnits(difference.c_str(), from, to, &factor, 1)) return factor;
  // Gauge pressures are not units of differences.
  double ends[] = {0.0, 1.0};
  if (!zel::ConvertUnits(change.dimension.c_str(), from, to, ends, 2)) {
    throw Failure("differences in " + unit + " cannot be shown in " + change.unit);
  }
  return ends[1] - ends[0];
}

// "kPa/K2" is a unit, the letter of a temperature and a power.
bool DisplayUnits::MakeSlope(std::string const& unit, Change& change) const {
  std::size_t const line = unit.rfind('/');
  if (line == std::string::npos || line + 1 == unit.size()) return false;
  std::string const above = unit.substr(0, line);
  std::string const letter = unit.substr(line + 1, 1);
  std::string const power = unit.substr(line + 2);
  if (!IsTemperatureLetter(letter) || (!power.empty() && power != "2" && power != "3")) {
    return false;
  }
  change.unit = UnitFor(above) + "/" + UnitFor(letter) + power;
  int const times = power.empty() ? 1 : power[0] - '0';
  change.factor = FactorOf(above) / std::pow(FactorOf(letter), times);
  return true;
}

DisplayUnits DisplayUnits::With(std::string const& word) const {
  DisplayUnits both;
  both.words_ = words_;
  both.AddWords(word, {});
  return both;
}

std::string DisplayUnits::UnitFor(std::string const& unit) const { return ChangeOf(unit).unit; }

double DisplayUnits::Shown(double value, std::string const& unit) const {
  Change const& change = ChangeOf(unit);
  if (zel::gen_IsUndefDouble(value)) return value;
  if (change.dimension.empty()) return change.factor == 1.0 ? value : value * change.factor;
  return Converted(value, change.dimension, change.from, change.unit);
}

std::string UnitNamed(std::string const& word, std::string const& unit) {
  if (word == unit) return unit;
  if (unit == kWeight) return IsWeightUnit(word) ? unit : "";
  std::string const dimension = DimensionOf(unit);
  if (dimension.empty()) return "";
  zel::InitZelAccess();
  return FoundUnit(dimension, word);
}

std::string SameUnit(std::string const& word, std::vector<std::string> const& names) {
  zel::InitZelAccess();
  if (IsUnitSystem(word)) return "";
  for (std::string const& dimension : Dimensions()) {
    std::string const unit = FoundUnit(dimension, word);
    if (unit.empty()) continue;
    auto const at = std::find_if(names.begin(), names.end(), [&](std::string const& name) {
      return FoundUnit(dimension, name) == unit;
    });
    if (at != names.end()) return *at;
  }
  return "";
}

double ToInternal(double value, std::string const& word, std::string const& unit) {
  std::string const named = UnitNamed(word, unit);
  if (named == unit) return value;
  if (named.empty()) throw Failure("\"" + word + "\" is not a unit for values in " + unit);
  std::string const dimension = DimensionOf(unit);
  std::string const to = IsTemperatureLetter(unit) ? unit : FoundUnit(dimension, kInternal);
  return Converted(value, dimension, named, to);
}

namespace {

bool IsBelowAbsoluteZero(double value, std::string const& unit) {
  if (DimensionOf(unit) != kTemperature) return false;
  std::int32_t const code = IsTemperatureLetter(unit) ? TemperatureCode(unit) : kKelvin;
  return zel::ConvertTemperature(value, code, kKelvin) < 0.0;
}

}  // namespace

double DisplayUnits::Read(std::string const& word, std::string const& unit,
                          std::string const& what) const {
  std::string const expected = "\"" + word + "\" is not " + what;
  std::size_t const sign = word.size() > 1 && word[0] == '+' && word[1] != '-' ? 1 : 0;
  char const* const last = word.data() + word.size();
  double value = 0.0;
  auto const [end, error] = std::from_chars(word.data() + sign, last, value);
  if (error != std::errc() || !std::isfinite(value)) throw WrongUsage(expected);
  std::string const suffix(WithoutBlanks({end, static_cast<std::size_t>(last - end)}));
  std::string const named = UnitNamed(suffix.empty() ? UnitFor(unit) : suffix, unit);
  if (!suffix.empty() && named.empty()) {
    if (suffix.front() == ',') throw WrongUsage(expected + HintForNumber(word));
    if (IsPerMassOf(suffix, unit)) throw WrongUsage(expected + ": " + WhyNotPerMass(suffix, unit));
    throw WrongUsage(expected + ": " + suffix + " is not a unit for values in " +
                     (unit.empty() ? "pure numbers" : unit));
  }
  auto const notUsed = notUsed_.find(unit);
  if (suffix.empty() && notUsed != notUsed_.end()) {
    throw WrongUsage(expected + ": it has no unit, and " + WhyNotPerMass(notUsed->second, unit));
  }
  double const read = named.empty() || named == unit ? value : ToInternal(value, named, unit);
  if (IsBelowAbsoluteZero(read, unit)) {
    throw WrongUsage(expected + ": it is below absolute zero");
  }
  return read;
}

namespace {

// A list of numbers such as "0.1 - 3"; nothing for any other text.
Cell ShownList(std::string const& text, DisplayUnits const& units, std::string const& unit) {
  std::string shown;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t const end = std::min(text.find(' ', at), text.size());
    std::string const word = text.substr(at, end - at);
    double value = 0.0;
    auto const [rest, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    bool const isNumber = error == std::errc() && rest == word.data() + word.size();
    if (!isNumber && word != "-") return {};
    shown += (shown.empty() ? "" : " ") + (isNumber ? Digits(units.Shown(value, unit)) : word);
    at = end + 1;
  }
  return Text(shown);
}

}  // namespace

Cell ShownCell(Cell const& cell, DisplayUnits const& units, std::string const& unit) {
  if (units.UnitFor(unit) == unit) return cell;
  if (auto const* number = std::get_if<double>(&cell)) return units.Shown(*number, unit);
  if (auto const* whole = std::get_if<std::int64_t>(&cell)) {
    return units.Shown(static_cast<double>(*whole), unit);
  }
  if (auto const* text = std::get_if<std::string>(&cell)) {
    Cell list = ShownList(*text, units, unit);
    if (!std::holds_alternative<std::monostate>(list)) return list;
  }
  return cell;
}

Table InDisplayUnits(Table const& table, DisplayUnits const& units) {
  if (units.AreInternal()) return table;
  std::vector<Column> columns = table.Columns();
  std::size_t unitColumn = columns.size();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].name == "unit") unitColumn = i;
    if (!columns[i].fixedUnit) columns[i].unit = units.UnitFor(columns[i].unit);
  }
  Table shown(table.Name(), std::move(columns));
  for (std::size_t at = 0; at < table.Rows().size(); ++at) {
    std::vector<Cell> const& row = table.Rows()[at];
    if (table.IsAsIs(at)) {
      shown.AddAsIs(row);
      continue;
    }
    auto const* const named =
        unitColumn < row.size() ? std::get_if<std::string>(&row[unitColumn]) : nullptr;
    std::vector<Cell> cells = row;
    bool any = false;
    for (std::size_t i = 0; i < row.size(); ++i) {
      Column const& column = table.Columns()[i];
      bool const isOfRow =
          column.unit.empty() && named && (column.name == "value" || column.unitInRow);
      any = any || isOfRow;
      if (isOfRow) cells[i] = ShownCell(row[i], units, *named);
      bool const isOfColumn = !column.unit.empty() && !column.fixedUnit;
      if (isOfColumn) cells[i] = ShownCell(row[i], units, column.unit);
    }
    if (any) cells[unitColumn] = Text(units.UnitFor(*named));
    shown.Add(std::move(cells));
  }
  return shown;
}

}  // namespace zel::desk
