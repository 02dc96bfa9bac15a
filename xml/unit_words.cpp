#include "xml/unit_words.h"

#include <memory>

#include "frame/ascii.h"
#include "frame/units/unit_system.h"
#include "xml/unit_word_table.h"

namespace zel {

namespace {

constexpr std::size_t kLongestWord = 29;
constexpr std::int32_t kMostWarnings = 10;

// A word that is replaced. If it is obsolete, the row holds the word itself; if it is ambiguous,
// the row has a second candidate, and any common beginning of both is replaced.
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

// Moves the temperature of an entropy unit from the end to the front: "j/kg-k" becomes "j/k-kg".
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

// Warns that a word was replaced: once for each kind, and again until there are enough warnings in
// total.
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
  if (dimension == "vols") return UnitCodeOf(asWritten, true);
  if (dimension == "spentropy") text = TemperatureInFront(text);
  std::unique_ptr<uom_Unit, UnitCloser> const unit(
      OpenUnit(std::string(dimension).c_str(), text.c_str()));
  char display[kLongestWord + 1];
  if (!unit || uom_GetDisplayUnits(unit.get(), display, sizeof display, 1) != 0) return 0;
  return UnitCodeOf(display, false);
}

}  // namespace zel
