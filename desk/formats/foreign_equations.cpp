#include "desk/formats/foreign_equations.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <sstream>

#include "desk/words/failure.h"

namespace zel::desk {
namespace {

constexpr double kReferenceTemperature = 298.15;  // K
constexpr std::int32_t kNatural = 1;
constexpr std::int32_t kDecimal = 2;

enum class Rule {
  kNone,
  kTc,       // the form reads TC
  kNoFirst,  // only if A is 0: the form has no term outside of the exponential
};

struct Form {
  EquationRow row;
  std::int32_t logBasis = kNatural;
  Rule rule = Rule::kNone;
};

// What each coefficient of the form is: a coefficient of the file, with its sign, or a number.
constexpr Form kForms[] = {
    {{1, 1, "A"}},
    {{2, 1, "A B"}},
    {{3, 1, "A B C"}},
    {{4, 1, "A B C D"}},
    {{5, 1, "A B C D E"}},
    {{10, 21, "A -B C"}},
    {{11, 21, "A 0 0"}},
    {{12, 21, "A 0 0 B"}},
    {{13, 21, "A 0 0 B C"}},
    {{14, 20, "A 0 0 B 1 D 0 0 0 C"}},
    {{16, 21, "C B 0 D E"}, kNatural, Rule::kNoFirst},
    {{17, 20, "B 0 0 C 1 E 0 0 0 D"}, kNatural, Rule::kNoFirst},
    {{100, 1, "A B C D E"}},
    {{101, 20, "A B C D E"}},
    {{102, 19, "A B C D"}},
    {{105, 16, "A B C D"}},
    {{106, 15, "A B C D E"}, kNatural, Rule::kTc},
    {{115, 20, "A B C 0 0 0 0 E 0 D"}},
    {{116, 32, "A B C D E"}, kNatural, Rule::kTc},
    {{119, 31, "A B C D E F G"}, kNatural, Rule::kTc},
    {{120, 18, "A -B -1 C"}},
    {{207, 21, "A -B C"}},
    {{208, 21, "A -B C"}, kDecimal},
    {{210, 21, "A B 0 C D"}, kDecimal},
};

// The heat capacity of Aly and Lee, which has no form here but an integral.
constexpr int kAlyLee = 107;
// The coefficients of that and of a series.
constexpr char kFirstFive[] = "A B C D E";

double Coefficient(ForeignEquation const& from, std::size_t at) {
  return at < from.coefficients.size() ? from.coefficients[at] : 0.0;
}

bool IsLetter(std::string const& term) { return term.back() >= 'A' && term.back() <= 'G'; }

double TermOf(ForeignEquation const& from, std::string const& term) {
  if (!IsLetter(term)) return std::stod(term);
  double const value = Coefficient(from, static_cast<std::size_t>(term.back() - 'A'));
  return term.front() == '-' ? -value : value;
}

// The letters of coefficients other than 0 that the equation does not have.
std::string NotUsed(ForeignEquation const& from, std::string const& terms, Rule rule) {
  std::string letters;
  for (std::size_t i = 0; i < from.coefficients.size(); ++i) {
    char const letter = static_cast<char>('A' + static_cast<int>(i));
    bool const isUsed = terms.find(letter) != std::string::npos;
    if (isUsed || (rule == Rule::kNoFirst && i == 0) || from.coefficients[i] == 0.0) continue;
    letters += (letters.empty() ? "" : ", ") + std::string(1, letter);
  }
  return letters;
}

}  // namespace

std::string ConvertEquation(ForeignEquation const& from, ForeignCurve& to, std::string& what,
                            bool& isSame) {
  std::string const name = "equation " + std::to_string(from.number);
  auto const form = std::find_if(std::begin(kForms), std::end(kForms),
                                 [&](Form const& one) { return one.row.number == from.number; });
  if (form == std::end(kForms)) {
    std::string const other = from.number == kAlyLee ? NotUsed(from, kFirstFive, Rule::kNone) : "";
    if (!other.empty()) return name + " does not have the coefficient " + other;
    return name + " has no form here";
  }
  if (form->rule == Rule::kNoFirst && Coefficient(from, 0) != 0.0) {
    return name + " has no form here unless A is 0";
  }
  std::string const unused = NotUsed(from, form->row.terms, form->rule);
  if (!unused.empty()) return name + " does not have the coefficient " + unused;
  to.curve.present = true;
  to.curve.equation = form->row.form;
  to.curve.logBasis = form->logBasis;
  to.needsTc = form->rule == Rule::kTc;
  to.curve.coefficients.clear();
  isSame = true;
  std::istringstream terms(form->row.terms);
  for (std::string term; terms >> term;) {
    to.curve.coefficients.push_back(TermOf(from, term));
    isSame = isSame && term.front() != '-';
  }
  // A series is as long as its last term.
  std::vector<double>& c = to.curve.coefficients;
  bool const isSeries = form->row.form == 1 || form->row.form == 15;
  std::size_t const fewest = form->row.form == 15 ? 2 : 1;
  while (isSeries && c.size() > fewest && c.back() == 0.0) c.pop_back();
  what = name + " is " + std::to_string(form->row.form);
  if (std::string(form->row.terms).find_first_of("-0") != std::string::npos) {
    what += " with " + std::string(form->row.terms);
  }
  if (form->logBasis == kDecimal) what += ", decimal logarithm";
  return "";
}

bool IntegrateHeatCapacity(ForeignEquation const& cp, Curve& enthalpy) {
  double const at = kReferenceTemperature;
  enthalpy.present = true;
  enthalpy.logBasis = kNatural;
  enthalpy.coefficients = {0.0};
  std::vector<double>& c = enthalpy.coefficients;
  bool const isShort = cp.number >= 1 && cp.number <= 5;
  if (isShort || cp.number == 100) {
    std::string const all = kFirstFive;
    std::string const terms =
        isShort ? all.substr(0, 2 * static_cast<std::size_t>(cp.number)) : all;
    if (!NotUsed(cp, terms, Rule::kNone).empty()) return false;
    enthalpy.equation = 1;
    double power = 1.0;
    for (std::size_t i = 0; i < cp.coefficients.size(); ++i) {
      power *= at;
      c.push_back(cp.coefficients[i] / static_cast<double>(i + 1));
      c.front() -= c.back() * power;
    }
    return true;
  }
  if (cp.number != kAlyLee || !NotUsed(cp, kFirstFive, Rule::kNone).empty()) return false;
  enthalpy.equation = 17;
  for (std::size_t i = 0; i < 5; ++i) c.push_back(Coefficient(cp, i));
  // A term whose temperature is 0 is B T here, and 0 with D.
  double const third = c[3] == 0.0 ? c[2] * at : c[2] * c[3] / std::tanh(c[3] / at);
  c.front() = -(c[1] * at + third - c[4] * c[5] * std::tanh(c[5] / at));
  return true;
}

std::vector<EquationRow> EquationRows() {
  std::vector<EquationRow> rows;
  for (Form const& form : kForms) rows.push_back(form.row);
  return rows;
}

}  // namespace zel::desk
