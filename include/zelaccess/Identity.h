/// \file
/// Identity: whether records of a component from several sources are about the same substance.
///
/// A number, an ID or a CAS number finds a component in each library by itself, and LibSearch
/// merges what it finds. Libraries of different origin can use one number or ID for different
/// substances. A host that merges compares first:
///
///     ZelIdentity one, other;
///     if (GetComponentIdentity(a, one) && GetComponentIdentity(b, other) &&
///         CompareIdentities(one, other) != identityAgrees) ...   // two substances
///
/// These functions share nothing between threads; a component belongs to one thread at a time.
#ifndef ZELACCESS_IDENTITY_H
#define ZELACCESS_IDENTITY_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

class IZelPureComp;

/// What a source says about which substance a component is. 0 or an empty text means that it does
/// not say.
struct ZelIdentity {
  std::int32_t number = 0;     ///< Component number.
  std::int32_t casNumber = 0;  ///< CAS number as one integer, the check digit last.
  char ids[12][9] = {};        ///< Character IDs.
  char name[41] = {};          ///< Name.
  char formula[21] = {};       ///< Formula.
};

/// What two identities contradict each other in, as bits.
enum zelIdentityConflicts : std::int32_t {
  identityAgrees = 0,  ///< Nothing contradicts.
  identityCas = 1,     ///< Both have a CAS number, and they differ.
  identityFormula = 2  ///< Both have a formula, and they differ in composition.
};

/// Reports the identity of a component that was read, set or merged.
/// \param component  the component; null is a failure
/// \param identity   receives the identity; empty on failure
/// \return false for null
ZEL_API bool GetComponentIdentity(IZelPureComp* component, ZelIdentity& identity);

/// Writes an identity as a text: "Water (10000326, WATER, 7732-18-5, H2O)", with the first ID,
/// without the parts that the source does not have.
/// \param identity  the identity
/// \param text      buffer of 120 characters; null does nothing
ZEL_API void GetIdentityText(ZelIdentity const& identity, char* text);

/// Compares what two sources say. Numbers, IDs and names are labels of a source and are not
/// compared.
/// \param one,other  the identities
/// \return bits of zelIdentityConflicts; identityAgrees when nothing contradicts
ZEL_API std::int32_t CompareIdentities(ZelIdentity const& one, ZelIdentity const& other);

/// Compares the atoms of two formulas, in whatever order they are written: C2H5OH is C2H6O, and a
/// hydrate has the atoms of its water. D is not H. Texts that are not formulas, "mixture" and
/// "petro" among them, agree when they are equal except for the case of letters.
/// \param one,other  the formulas; an empty or null text agrees with everything
/// \return true when they agree
ZEL_API bool FormulasAgree(char const* one, char const* other);

}  // namespace zel

#endif  // ZELACCESS_IDENTITY_H
