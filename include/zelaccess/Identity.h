// Identity: whether records of a component from several sources are about the same substance.
//
// A number, an ID or a CAS number finds a component in each library by itself, and LibSearch merges
// what it finds. Libraries of different origin can give one number or ID to different substances. A
// host that merges compares first:
//
//   ZelIdentity one, other;
//   if (GetComponentIdentity(a, one) && GetComponentIdentity(b, other) &&
//       CompareIdentities(one, other) != identityAgrees) ...   // two substances
#ifndef ZELACCESS_IDENTITY_H
#define ZELACCESS_IDENTITY_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

class IZelPureComp;

// What a source says about which substance a component is. 0 and an empty text: it does not say.
struct ZelIdentity {
  std::int32_t number = 0;     // component number
  std::int32_t casNumber = 0;  // as one integer, the check digit last
  char ids[12][9] = {};
  char name[41] = {};
  char formula[21] = {};
};

// What contradicts, as bits.
enum zelIdentityConflicts : std::int32_t {
  identityAgrees = 0,
  identityCas = 1,     // both have a CAS number, and they differ
  identityFormula = 2  // both have a formula, and they differ in composition
};

// The identity of a component that was read, set or merged. False, with `identity` empty, for null.
ZEL_API bool GetComponentIdentity(IZelPureComp* component, ZelIdentity& identity);

// Bits of zelIdentityConflicts; identityAgrees when nothing contradicts. Numbers, IDs and names are
// labels of a source and are not compared.
ZEL_API std::int32_t CompareIdentities(ZelIdentity const& one, ZelIdentity const& other);

// True when two formulas have the same atoms, in whatever order they are written: C2H5OH is C2H6O,
// and a hydrate has the atoms of its water. D is not H. Texts that are no formula, "mixture" and
// "petro" among them, agree when they are equal but for the case of letters. An empty or null text
// agrees with everything.
ZEL_API bool FormulasAgree(char const* one, char const* other);

}  // namespace zel

#endif  // ZELACCESS_IDENTITY_H
