// The checks of data and their rules.
#include <iterator>

#include "zelaccess/DataCheck.h"

namespace zel {
namespace {

constexpr ZelDataCheck kChecks[] = {
    {"cas", "a component has a CAS number with a valid check digit", findingWarning},
    {"cas-shared", "no two components have the same CAS number", findingWarning},
    {"cas-formula", "components with the same CAS number have the same formula", findingError},
    {"identity",
     "components of several banks or libraries with the same number, ID or CAS number have the "
     "same CAS number and the same formula",
     findingError},
    {"repeated",
     "no two components have the same coefficients except for rounding, or the same TC and PC; no "
     "four have the same constant of five or more digits",
     findingWarning},
    {"equation",
     "the equation of a correlation is known, has the coefficients that it needs and a value "
     "within its range; an error if it has none",
     findingWarning},
    {"formula-weight", "MW agrees with the formula within 0.05 %", findingWarning},
    {"bounds",
     "constants are possible: MW, temperatures, pressures, volumes, densities and heats of phase "
     "changes are above 0, ACENTRIC is above -1, DIELECTRIC is at least 1, flammability limits are "
     "0 to 1",
     findingError},
    {"temperatures", "melting, triple and boiling point, critical point and ranges are in order",
     findingWarning},
    {"critical", "TC, PC and VC agree with ZC, which is between 0.15 and 0.40", findingWarning},
    {"acentric", "ACENTRIC agrees with the vapor pressure at 0.7 TC within 0.02", findingWarning},
    {"vapor-pressure", "101.325 kPa at NBP within 2 %, PC at TC within 5 %", findingWarning},
    {"critical-density", "the liquid density at TC is 1/VC within 10 %", findingWarning},
    {"latent-heat", "the latent heat at NBP is HVAPNBP within 3 %", findingWarning},
    {"monotony",
     "vapor pressure and vapor viscosity rise, surface tension falls to 0, heat capacities are "
     "positive",
     findingWarning},
    {"source", "each constant and correlation has a reference code", findingWarning},
    {"pair-twice", "a pair stored in both orders has the same values in both", findingWarning},
    {"group-use", "groups have interactions, and the groups of components exist", findingWarning},
    {"magnitude", "a constant is the same in two libraries within a factor of 1.5", findingWarning},
    {"boiling-point",
     "the vapor pressure of one library is 101.325 kPa within 5 % at the NBP of another",
     findingWarning}};

}  // namespace

ZelDataCheck const* GetDataChecks(std::int32_t& count) {
  count = static_cast<std::int32_t>(std::size(kChecks));
  return kChecks;
}

}  // namespace zel
