// A host may run in a locale with a decimal comma and letters beyond ASCII. That has no effect on
// what the library reads, prints and compares.
#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <string>

#include "frame/ascii.h"
#include "frame/number_text.h"
#include "frame/units/unit_system.h"
#include "tests/frame/child.h"
#include "tests/frame/temp_folder.h"

namespace zel {
namespace {

constexpr char kSmall = '\xe4';  // a umlaut, small and capital
constexpr char kCapital = '\xc4';

bool NumbersAreRead() {
  return ParseReal("1.5") == 1.5 && ParseReal("1,5") == 1.0 && ParseReal("1.5e3,2") == 1500.0 &&
         ParseInt("1.234") == 1;
}

bool NumbersArePrinted() {
  // The fast method, and the slow one for values that it does not decide.
  return RealText(1.5, 7) == "1.5" && RealText(-1e35, 7) == "-1e+35" &&
         RealText(1234567.0, 9) == "1234567" && RealText(0.1, 17) == "0.10000000000000001";
}

bool LettersStay() {
  std::string const small(1, kSmall);
  std::string const capital(1, kCapital);
  return ToUpper(kSmall) == kSmall && ToLower(kCapital) == kCapital && !SameText(small, capital) &&
         LowerText("A" + capital) == "a" + capital;
}

bool UnitsConvert() {
  double value = 14.5;
  if (StartUnitSystemFrom(UnitTableResource()) != 0) return false;
  return ConvertToInternal("temp", "C", value) && value == 287.65;
}

int InAForeignLocale() {
  std::locale::global(std::locale("de_DE"));
  bool const foreign = std::localeconv()->decimal_point == std::string(",") &&
                       std::use_facet<std::ctype<char>>(std::locale()).toupper(kSmall) == kCapital;
  if (!foreign) return test::kCannotRun;
  bool const good = NumbersAreRead() && NumbersArePrinted() && LettersStay() && UnitsConvert();
  return good ? test::kHeld : test::kFailed;
}
test::ProgramPart const foreignPart("foreign locale", InAForeignLocale);

class HostLocaleTest : public test::TempFolderTest {};

TEST_F(HostLocaleTest, DoesNotShow) {
  test::ProgramResult const made =
      test::RunProgram("localedef -i de_DE -f ISO-8859-1 '" + Path("de_DE") + "'");
  if (made.status != 0) GTEST_SKIP() << "no locale can be made here: " << made.output;
  test::ProgramResult const result = test::RunProgram(
      "LOCPATH='" + Folder().string() + "' ZEL_TEST_PART='foreign locale' " + test::ThisProgram());
  EXPECT_EQ(result.status, test::kHeld) << result.output;
}

}  // namespace
}  // namespace zel
