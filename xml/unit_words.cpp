#include "xml/unit_words.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "frame/ascii.h"
#include "frame/units/unit_system.h"

namespace zel {

namespace {

constexpr std::size_t kLongestWord = 29;
constexpr std::int32_t kMostWarnings = 10;

// A word that is replaced. An obsolete one is the word itself; an ambiguous one, with a second
// candidate, is any beginning of both.
struct Mending {
  std::string_view dimension;
  std::string_view label;
  std::string_view word;
  std::string_view second;
  std::string_view becomes;

  bool Fits(std::string_view itsDimension, std::string_view itsWord) const noexcept {
    if (dimension != itsDimension) return false;
    if (second.empty()) return SameText(word, itsWord);
    auto const begins = [&](std::string_view candidate) {
      return SameText(candidate.substr(0, itsWord.size()), itsWord);
    };
    return begins(word) && begins(second);
  }
};
constexpr Mending kMendingRows[UnitWords::kMendings] = {
    {"cond", "Thermal conductivity", "w/mk", "", "w/m-k"},
    {"cond", "Thermal conductivity", "kc/h", "", "kcal/hr-m-c"},
    {"cond", "Thermal conductivity", "btu/hr-ft-f", "btu/hr-in-f", "btu/hr-ft-f"},
    {"cond", "Thermal conductivity", "cal/sec-cm-c", "cal/sec-cm-k", "cal/sec-cm-c"},
    {"visc", "Viscosity", "lbs/f", "", "lb-sec/ft2"},
    {"surf", "Surface tension", "d/cm", "", "dyne/cm"},
};

struct CodeRow {
  std::string_view word;
  std::int32_t code;
};

// Words of the dimension "vols", which the unit table does not have as such.
constexpr CodeRow kMolarVolumes[] = {{"liter/kg-mole", 22012}, {"liter/g-mole", 22014},
                                     {"m3/g-mole", 22016},     {"gal/lb-mole", 22018},
                                     {"cm3/kg-mole", 22020},   {"cm3/g-mole", 22022},
                                     {"m3/kg-mole", 22024},    {"in3/lb-mole", 22026},
                                     {"ft3/lb-mole", 22028},   {"bbl/lb-mole", 22034}};

// What the unit table shows of a unit.
// clang-format off
constexpr CodeRow kDisplayWords[] = {
    // temperature
    {"K", 1010}, {"C", 1011}, {"R", 1012}, {"F", 1013},
    // pressure
    {"dyne/cm2", 4010}, {"N/m2", 4012}, {"Pa", 4014}, {"kPa", 4015}, {"MPa", 4016}, {"bar", 4017},
    {"mm Hg", 4019}, {"kg/cm2", 4021}, {"atm", 4025}, {"psia", 4026}, {"in Hg", 4032}, {"mbar", 4033},
    // density
    {"g/liter", 19012}, {"kg/liter", 19018}, {"lb/gal", 19026}, {"lb/bbl", 19030}, {"g/cm3", 19063},
    {"g/m3", 19067}, {"kg/cm3", 19073}, {"kg/m3", 19081}, {"lb/in3", 19089}, {"lb/ft3", 19091},
    // specific energy
    {"J/g", 28010}, {"J/kg", 28012}, {"kJ/g", 28016}, {"kJ/kg", 28018}, {"cal/g", 28028},
    {"cal/kg", 28030}, {"kcal/g", 28034}, {"kcal/kg", 28036}, {"BTU/lb", 28070},
    // specific entropy
    {"J/K-g", 30010}, {"J/K-kg", 30012}, {"kJ/K-g", 30014}, {"kJ/K-kg", 30016}, {"cal/K-g", 30022},
    {"cal/K-kg", 30024}, {"kcal/K-g", 30026}, {"kcal/K-kg", 30028}, {"BTU/F-lb", 30030},
    // conductivity
    {"W/m-K", 35010}, {"kW/m-K", 35014}, {"cal/sec-cm-C", 35018}, {"cal/hr-m-C", 35020},
    {"kcal/hr-m-C", 35022}, {"BTU/hr-ft-F", 35024},
    // viscosity
    {"CP", 40010}, {"Pa-sec", 40012}, {"lb-sec/ft2", 40029},
    // surface tension
    {"dyne/cm", 42012}, {"N/m", 42015},
};
// clang-format on

template <std::size_t N>
std::int32_t CodeIn(CodeRow const (&rows)[N], std::string_view word) {
  auto const row = std::find_if(std::begin(rows), std::end(rows),
                                [&](CodeRow const& r) { return SameText(r.word, word); });
  return row == std::end(rows) ? 0 : row->code;
}

// An entropy with its temperature at the end gets it in front: "j/kg-k" becomes "j/k-kg".
std::string TemperatureInFront(std::string const& word) {
  constexpr std::size_t kLeast = 5;
  std::size_t const slash = word.find('/');
  if (slash == std::string::npos || word.size() < kLeast) return word;
  std::string_view const end = std::string_view(word).substr(word.size() - 2);
  if (end[0] != '-' || std::string_view("KCRF").find(ToUpper(end[1])) == std::string_view::npos) {
    return word;
  }
  std::size_t const below = slash + 1;  // at most where the ending begins, which has no slash
  return word.substr(0, below) + end[1] + "-" +
         word.substr(below, word.size() - end.size() - below);
}

struct UnitCloser {
  void operator()(uom_Unit* unit) const noexcept { uom_Free(&unit); }
};

}  // namespace

// Says once of each kind that it was mended, and again until enough was said in all.
void UnitWords::Tell(std::size_t mending, std::string const& word) {
  Mending const& row = kMendingRows[mending];
  if (told_[mending] && warnings_ >= kMostWarnings) {
    if (warnings_ == kMostWarnings) {
      log_.ReportWarning(
          "Ten unit warnings encountered - additional duplicate warnings will be suppressed");
    }
    ++warnings_;
    return;
  }
  std::string text = std::string(row.label) + " unit \"" + word + "\" is ";
  if (row.second.empty()) {
    text += "obsolete and should be replaced with \"" + std::string(row.becomes) + "\"";
  } else {
    text += "ambiguous - \"" + std::string(row.becomes) + "\" has been assumed";
  }
  log_.ReportWarning(text);
  ++warnings_;
  told_[mending] = true;
}

std::string UnitWords::Mended(std::string_view dimension, std::string word) {
  for (std::size_t i = 0; i < kMendings; ++i) {
    if (!kMendingRows[i].Fits(dimension, word)) continue;
    Tell(i, word);
    word = kMendingRows[i].becomes;
  }
  return word;
}

std::int32_t UnitWords::CodeOf(std::string_view dimension, std::string_view word) {
  std::string const asWritten(word.substr(0, kLongestWord));
  std::string text = Mended(dimension, asWritten);
  if (dimension == "vols") return CodeIn(kMolarVolumes, asWritten);
  if (dimension == "spentropy") text = TemperatureInFront(text);
  std::unique_ptr<uom_Unit, UnitCloser> const unit(
      OpenUnit(std::string(dimension).c_str(), text.c_str()));
  char display[kLongestWord + 1];
  if (!unit || uom_GetDisplayUnits(unit.get(), display, sizeof display, 1) != 0) return 0;
  return CodeIn(kDisplayWords, display);
}

}  // namespace zel
