#include "frame/units/everyday_units.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace zel {
namespace {

using Spelling = std::pair<std::string_view, std::string_view>;

template <std::size_t count>
std::string_view Replaced(Spelling const (&spellings)[count], std::string_view word) {
  for (auto const& [everyday, table] : spellings) {
    if (everyday == word) return table;
  }
  return word;
}

// Signs in UTF-8, and two ways to write an exponent.
constexpr Spelling kSigns[] = {
    {"\u00b0", ""},  {"\u00b2", "2"}, {"\u00b3", "3"}, {"\u00b7", "-"},
    {"\u22c5", "-"}, {"\u00d7", "-"}, {"**", ""},      {"^", ""},
};
// One factor of a unit, without its exponent.
constexpr Spelling kFactors[] = {
    {"mol", "g-mol"},    {"mole", "g-mol"},   {"gmol", "g-mol"},   {"kmol", "kg-mol"},
    {"kmole", "kg-mol"}, {"kgmol", "kg-mol"}, {"lbmol", "lb-mol"}, {"degC", "C"},
    {"degF", "F"},       {"degR", "R"},       {"degK", "K"},       {"s", "sec"},
    {"h", "hr"},         {"L", "liter"},      {"l", "liter"},      {"Btu", "BTU"},
    {"D", "DEB"},        {"t", "tonm"},
};
// A whole unit, in the spelling of the factors above.
constexpr Spelling kUnits[] = {
    {"mPa-sec", "cP"}, {"mN/m", "Dyne/cm"},   {"mmHg", "mm Hg"}, {"inHg", "in Hg"},
    {"%", "percent"},  {"kgf/cm2", "kg/cm2"}, {"P", "POIS"},     {"St", "ST"},
    {"cSt", "cST"},    {"mm2/sec", "cST"},    {"\u00c5", "ang"}, {"kWh", "kW-hr"},
};

std::string WithoutSigns(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    auto const* const sign =
        std::find_if(std::begin(kSigns), std::end(kSigns),
                     [text](Spelling const& row) { return text.starts_with(row.first); });
    if (sign != std::end(kSigns)) {
      plain += sign->second;
      text.remove_prefix(sign->first.size());
    } else {
      plain += text.front();
      text.remove_prefix(1);
    }
  }
  return plain;
}

// The factors of one side of a unit; "kg-mol" and the like are one factor.
std::vector<std::string> Factors(std::string_view side) {
  std::vector<std::string> factors;
  std::string factor;
  auto const end = [&] {
    bool const isMole = factor == "mol" || factor == "mole";
    if (isMole && !factors.empty() &&
        (factors.back() == "g" || factors.back() == "kg" || factors.back() == "lb" ||
         factors.back() == "ton")) {
      factors.back() += "-mol";
    } else if (!factor.empty() && factor != "1") {
      factors.push_back(factor);
    }
    factor.clear();
  };
  for (char const c : side) {
    if (std::string_view("-*. ()/").find(c) != std::string_view::npos) {
      end();
    } else {
      factor += c;
    }
  }
  end();
  return factors;
}

std::string SideInTable(std::string_view side) {
  std::string joined;
  for (std::string const& factor : Factors(side)) {
    std::size_t const digits = factor.find_last_not_of("0123456789") + 1;
    if (!joined.empty()) joined += '-';
    joined += Replaced(kFactors, std::string_view(factor).substr(0, digits));
    joined += factor.substr(digits);
  }
  return joined;
}

}  // namespace

std::string TableSpelling(std::string_view text) {
  std::string const plain = WithoutSigns(text);
  std::size_t const line = std::min(plain.find('/'), plain.size());
  std::string above = SideInTable(std::string_view(plain).substr(0, line));
  std::string const below = SideInTable(std::string_view(plain).substr(line));
  if (above.empty()) above = "1";
  std::string const unit = below.empty() ? above : above + "/" + below;
  return std::string(Replaced(kUnits, unit));
}

}  // namespace zel
