// The equation forms by number.
#pragma once

#include <type_traits>

#include "purecomp/form_implicit.h"
#include "purecomp/forms_critical.h"
#include "purecomp/forms_enthalpy.h"
#include "purecomp/forms_exponential.h"
#include "purecomp/forms_polynomial.h"
#include "purecomp/forms_viscosity.h"

namespace zel {

// A number of a form that is known at compile time.
template <int N>
using Number = std::integral_constant<int, N>;

// Calls `use` with the number and the form of an equation, and returns what it returns; false for a
// number without a form. One line each, as in docs/equations.md. What `use` does with a form is
// compiled within its case, so that its results stay in registers and loops are about one form.
template <typename Use>
bool WithForm(int equation, Use const& use) {
  using namespace forms;  // NOLINT(google-build-using-namespace): the list below
  switch (equation) {
    case 1: return use(Number<1>(), [](auto const& s) { return Eq1(s); });
    case 2: return use(Number<2>(), [](auto const& s) { return Eq2(s); });
    case 3: return use(Number<3>(), [](auto const& s) { return Eq3(s); });
    case 4: return use(Number<4>(), [](auto const& s) { return Eq4(s); });
    case 5: return use(Number<5>(), [](auto const& s) { return Eq5(s); });
    case 6: return use(Number<6>(), [](auto const& s) { return Eq6(s); });
    case 12: return use(Number<12>(), [](auto const& s) { return Eq12(s); });
    case 13: return use(Number<13>(), [](auto const& s) { return Eq13(s); });
    case 14: return use(Number<14>(), [](auto const& s) { return Eq14(s); });
    case 15: return use(Number<15>(), [](auto const& s) { return Eq15(s); });
    case 16: return use(Number<16>(), [](auto const& s) { return Eq16(s); });
    case 17: return use(Number<17>(), [](auto const& s) { return Eq17(s); });
    case 18: return use(Number<18>(), [](auto const& s) { return Eq18(s); });
    case 19: return use(Number<19>(), [](auto const& s) { return Eq19(s); });
    case 20: return use(Number<20>(), [](auto const& s) { return Eq20(s); });
    case 21: return use(Number<21>(), [](auto const& s) { return Eq21(s); });
    case 22: return use(Number<22>(), [](auto const& s) { return Eq22(s); });
    case 23: return use(Number<23>(), [](auto const& s) { return Eq23(s); });
    case 24: return use(Number<24>(), [](auto const& s) { return Eq24(s); });
    case 25: return use(Number<25>(), [](auto const& s) { return Eq25(s); });
    case 26: return use(Number<26>(), [](auto const& s) { return Eq26(s); });
    case 27: return use(Number<27>(), [](auto const& s) { return Eq27(s); });
    case 28: return use(Number<28>(), [](auto const& s) { return Eq28(s); });
    case 29: return use(Number<29>(), [](auto const& s) { return Eq29(s); });
    case 30: return use(Number<30>(), [](auto const& s) { return Eq30(s); });
    case 31: return use(Number<31>(), [](auto const& s) { return Eq31(s); });
    case 32: return use(Number<32>(), [](auto const& s) { return Eq32(s); });
    case 33: return use(Number<33>(), [](auto const& s) { return Eq33(s); });
    case 34: return use(Number<34>(), [](auto const& s) { return Eq34(s); });
    case 35: return use(Number<35>(), [](auto const& s) { return Eq35(s); });
    case 36: return use(Number<36>(), [](auto const& s) { return Eq36(s); });
    case 37: return use(Number<37>(), [](auto const& s) { return Eq37(s); });
    case 38: return use(Number<38>(), [](auto const& s) { return Eq38(s); });
    case 39: return use(Number<39>(), [](auto const& s) { return Eq39(s); });
    case 40: return use(Number<40>(), [](auto const& s) { return Eq40(s); });
    case 41: return use(Number<41>(), [](auto const& s) { return Eq41(s); });
    case 42: return use(Number<42>(), [](auto const& s) { return Eq42(s); });
    case 43: return use(Number<43>(), [](auto const& s) { return Eq43(s); });
    case 44: return use(Number<44>(), [](auto const& s) { return Eq44(s); });
    case 45: return use(Number<45>(), [](auto const& s) { return Eq45(s); });
    case 46: return use(Number<46>(), [](auto const& s) { return Eq46(s); });
    case 47: return use(Number<47>(), [](auto const& s) { return Eq47(s); });
    case 48: return use(Number<48>(), [](auto const& s) { return Eq48(s); });
    case 49: return use(Number<49>(), [](auto const& s) { return Eq49(s); });
    case 51: return use(Number<51>(), [](auto const& s) { return Eq51(s); });
    case 52: return use(Number<52>(), [](auto const& s) { return Eq52(s); });
    case 53: return use(Number<53>(), [](auto const& s) { return Eq53(s); });
    case 54: return use(Number<54>(), [](auto const& s) { return Eq54(s); });
    case 117: return use(Number<117>(), [](auto const& s) { return Eq117(s); });
    case 126: return use(Number<126>(), [](auto const& s) { return Eq126(s); });
    case 134: return use(Number<134>(), [](auto const& s) { return Eq134(s); });
    default: return false;
  }
}

}  // namespace zel
