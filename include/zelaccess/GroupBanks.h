/// \file
/// Typed interfaces of groups and structures. BankTypes.h has the rules for all of them.
#ifndef ZELACCESS_GROUPBANKS_H
#define ZELACCESS_GROUPBANKS_H

#include "zelaccess/BankDef.h"

namespace zel {

/// GRPDESC: descriptions of UNIFAC groups.
///
/// Key: two plain numbers; one alone means that number twice.
class ZEL_API IZelGroupDes : public IUnknown {
 public:
  /// Copies all fields; a null output is skipped.
  /// \param name,formula,image  name, formula and image of the group, buffers of 21 characters
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(char* name, char* formula, char* image) = 0;
  /// Sets all fields; a text is cut to its buffer, and null is the empty text.
  /// \copydetails GetData
  virtual ZelStatus PutData(char const* name, char const* formula, char const* image) = 0;

 protected:
  ~IZelGroupDes() = default;
};

/// STRUCT: groups of a component.
///
/// Key: one component.
class ZEL_API IZelStruct : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param count        number of groups
  /// \param groupNumber  10 group numbers; 0 beyond the count
  /// \param groupCount   10 numbers of occurrences; 0 beyond the count
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(std::int32_t* count, std::int32_t* groupNumber,
                            std::int32_t* groupCount) = 0;
  /// Sets all fields; a null array is a failure that changes nothing, unless `count` is 0.
  /// \copydetails GetData
  virtual ZelStatus PutData(std::int32_t count, std::int32_t const* groupNumber,
                            std::int32_t const* groupCount) = 0;

 protected:
  ~IZelStruct() = default;
};

/// UNFPURE: pure parameters of UNIFAC groups.
///
/// Key: one plain number, that of the group.
class ZEL_API IZelUnfPure : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param mainGroup  number of the main group
  /// \param area       area, unit class "area"
  /// \param volume     volume, unit class "vol"
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(std::int32_t* mainGroup, double* area, double* volume) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(std::int32_t mainGroup, double area, double volume) = 0;

 protected:
  ~IZelUnfPure() = default;
};

/// UNF2PUR: pure parameters of UNIFAC groups for UFT2.
///
/// Key: one plain number, that of the group.
class ZEL_API IZelUnf2Pure : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param mainGroup  number of the main group
  /// \param area       area, unit class "area"
  /// \param volume     volume, unit class "vol"
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(std::int32_t* mainGroup, double* area, double* volume) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(std::int32_t mainGroup, double area, double volume) = 0;

 protected:
  ~IZelUnf2Pure() = default;
};

/// UNFDORT: a set of Dortmund UNIFAC parameters.
///
/// Key: two plain numbers, the groups of an interaction, which is swapped when requested in reverse
/// order; one group; or none for the set as a whole. The bank does not enforce which fields an item
/// fills; each pair of operations reads and writes its part of the one item.
class ZEL_API IZelUnfDort : public IUnknown {
 public:
  /// Copies the part of the set as a whole; a null output is skipped.
  /// \param structure  bank of structures, a buffer of 9 characters
  /// \param context    context, a buffer of 21 characters
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetContext(char* structure, char* context) = 0;
  /// Sets the part of the set as a whole; a text is cut to its buffer, and null is the empty text.
  /// \copydetails GetContext
  virtual ZelStatus PutContext(char const* structure, char const* context) = 0;
  /// Copies the part of a group, undefined values included; a null output is skipped.
  /// \param mainGroup  number of the main group
  /// \param r,q        volume and area parameter of the group, R and Q
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                             std::int32_t* refCode) = 0;
  /// Sets the part of a group.
  /// \copydetails GetGroup
  virtual ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) = 0;
  /// Copies the part of an interaction, undefined values included; a null output is skipped.
  /// \param tij      3 interaction coefficients from i to j
  /// \param tji      3 interaction coefficients from j to i
  /// \param refCode  reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetInteraction(double* tij, double* tji, std::int32_t* refCode) = 0;
  /// Sets the part of an interaction; a null array is a failure that changes nothing.
  /// \copydetails GetInteraction
  virtual ZelStatus PutInteraction(double const* tij, double const* tji, std::int32_t refCode) = 0;

 protected:
  ~IZelUnfDort() = default;
};

/// UNFLYNG: a set of Lyngby UNIFAC parameters.
///
/// Key: two plain numbers, the groups of an interaction, which is swapped when requested in reverse
/// order; one group; or none for the set as a whole. The bank does not enforce which fields an item
/// fills; each pair of operations reads and writes its part of the one item.
class ZEL_API IZelUnfLyng : public IUnknown {
 public:
  /// Copies the part of the set as a whole; a null output is skipped.
  /// \param structure  bank of structures, a buffer of 9 characters
  /// \param context    context, a buffer of 21 characters
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetContext(char* structure, char* context) = 0;
  /// Sets the part of the set as a whole; a text is cut to its buffer, and null is the empty text.
  /// \copydetails GetContext
  virtual ZelStatus PutContext(char const* structure, char const* context) = 0;
  /// Copies the part of a group, undefined values included; a null output is skipped.
  /// \param mainGroup  number of the main group
  /// \param r,q        volume and area parameter of the group, R and Q
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                             std::int32_t* refCode) = 0;
  /// Sets the part of a group.
  /// \copydetails GetGroup
  virtual ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) = 0;
  /// Copies the part of an interaction, undefined values included; a null output is skipped.
  /// \param tij      3 interaction coefficients from i to j
  /// \param tji      3 interaction coefficients from j to i
  /// \param refCode  reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetInteraction(double* tij, double* tji, std::int32_t* refCode) = 0;
  /// Sets the part of an interaction; a null array is a failure that changes nothing.
  /// \copydetails GetInteraction
  virtual ZelStatus PutInteraction(double const* tij, double const* tji, std::int32_t refCode) = 0;

 protected:
  ~IZelUnfLyng() = default;
};

/// UNFMOD: a set of modified UNIFAC parameters.
///
/// Key: two plain numbers, the groups of an interaction, which is swapped when requested in reverse
/// order; one group; or none for the set as a whole. The bank does not enforce which fields an item
/// fills; each pair of operations reads and writes its part of the one item.
class ZEL_API IZelUnfMod : public IUnknown {
 public:
  /// Copies the part of the set as a whole; a null output is skipped.
  /// \param structure  bank of structures, a buffer of 9 characters
  /// \param context    context, a buffer of 21 characters
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetContext(char* structure, char* context) = 0;
  /// Sets the part of the set as a whole; a text is cut to its buffer, and null is the empty text.
  /// \copydetails GetContext
  virtual ZelStatus PutContext(char const* structure, char const* context) = 0;
  /// Copies the part of a group, undefined values included; a null output is skipped.
  /// \param mainGroup  number of the main group
  /// \param r,q        volume and area parameter of the group, R and Q
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                             std::int32_t* refCode) = 0;
  /// Sets the part of a group.
  /// \copydetails GetGroup
  virtual ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) = 0;
  /// Copies the part of an interaction, undefined values included; a null output is skipped.
  /// \param tij      3 interaction coefficients from i to j
  /// \param tji      3 interaction coefficients from j to i
  /// \param refCode  reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetInteraction(double* tij, double* tji, std::int32_t* refCode) = 0;
  /// Sets the part of an interaction; a null array is a failure that changes nothing.
  /// \copydetails GetInteraction
  virtual ZelStatus PutInteraction(double const* tij, double const* tji, std::int32_t refCode) = 0;

 protected:
  ~IZelUnfMod() = default;
};

/// UNFORIG: a set of original UNIFAC parameters.
///
/// Key: two plain numbers, the groups of an interaction, which is swapped when requested in reverse
/// order; one group; or none for the set as a whole. The bank does not enforce which fields an item
/// fills; each pair of operations reads and writes its part of the one item.
class ZEL_API IZelUnfOrig : public IUnknown {
 public:
  /// Copies the part of the set as a whole; a null output is skipped.
  /// \param structure  bank of structures, a buffer of 9 characters
  /// \param context    context, a buffer of 21 characters
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetContext(char* structure, char* context) = 0;
  /// Sets the part of the set as a whole; a text is cut to its buffer, and null is the empty text.
  /// \copydetails GetContext
  virtual ZelStatus PutContext(char const* structure, char const* context) = 0;
  /// Copies the part of a group, undefined values included; a null output is skipped.
  /// \param mainGroup  number of the main group
  /// \param r,q        volume and area parameter of the group, R and Q
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                             std::int32_t* refCode) = 0;
  /// Sets the part of a group.
  /// \copydetails GetGroup
  virtual ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) = 0;
  /// Copies the part of an interaction, undefined values included; a null output is skipped.
  /// \param vlij,vlji  vapor-liquid interaction from i to j and from j to i
  /// \param llij,llji  liquid-liquid interaction from i to j and from j to i
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetInteraction(double* vlij, double* vlji, double* llij, double* llji,
                                   std::int32_t* refCode) = 0;
  /// Sets the part of an interaction.
  /// \copydetails GetInteraction
  virtual ZelStatus PutInteraction(double vlij, double vlji, double llij, double llji,
                                   std::int32_t refCode) = 0;

 protected:
  ~IZelUnfOrig() = default;
};

/// PSRK: a set of predictive SRK parameters.
///
/// Key: two plain numbers, the groups of an interaction, which is swapped when requested in reverse
/// order; one group; or none for the set as a whole. The bank does not enforce which fields an item
/// fills; each pair of operations reads and writes its part of the one item. An item names the
/// banks of components and of alpha coefficients that it refers to.
class ZEL_API IZelPsrk : public IUnknown {
 public:
  /// Copies the part of the set as a whole; a null output is skipped.
  /// \param structure  bank of structures, a buffer of 9 characters
  /// \param context    context, a buffer of 21 characters
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetContext(char* structure, char* context) = 0;
  /// Sets the part of the set as a whole; a text is cut to its buffer, and null is the empty text.
  /// \copydetails GetContext
  virtual ZelStatus PutContext(char const* structure, char const* context) = 0;
  /// Copies the part of a group, undefined values included; a null output is skipped.
  /// \param mainGroup  number of the main group
  /// \param r,q        volume and area parameter of the group, R and Q
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                             std::int32_t* refCode) = 0;
  /// Sets the part of a group.
  /// \copydetails GetGroup
  virtual ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) = 0;
  /// Copies the part of an interaction, undefined values included; a null output is skipped.
  /// \param tij      3 interaction coefficients from i to j
  /// \param tji      3 interaction coefficients from j to i
  /// \param refCode  reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetInteraction(double* tij, double* tji, std::int32_t* refCode) = 0;
  /// Sets the part of an interaction; a null array is a failure that changes nothing.
  /// \copydetails GetInteraction
  virtual ZelStatus PutInteraction(double const* tij, double const* tji, std::int32_t refCode) = 0;
  /// Sets the name of a bank that the item refers to, as IZelBankDef::SetRefBankName.
  /// \param type  type keyword, PURECOMP or ALPHA; null is the empty text; another type is ignored
  /// \param name  bank name, cut to 8 characters; null is the empty text
  /// \return kStatusOk
  virtual ZelStatus SetRefBankName(char const* type, char const* name) = 0;
  /// Copies the name of a bank that the item refers to, as IZelBankDef::GetRefBankName.
  /// \param type  type keyword; null is the empty text
  /// \param name  buffer of 9 characters, empty for a type other than PURECOMP and ALPHA; null is a
  ///              failure
  /// \return kStatusOk; kStatusFailed for a null buffer
  virtual ZelStatus GetRefBankName(char const* type, char* name) = 0;

 protected:
  ~IZelPsrk() = default;
};

/// UNIFAC: interactions of UNIFAC groups.
///
/// Key: two plain numbers, those of the groups; an item requested in reverse order is swapped.
class ZEL_API IZelUnifac : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param vlij,vlji  vapor-liquid interaction from i to j and from j to i
  /// \param llij,llji  liquid-liquid interaction from i to j and from j to i
  /// \param tij        9 coefficients from i to j
  /// \param tji        9 coefficients from j to i
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* vlij, double* vlji, double* llij, double* llji, double* tij,
                            double* tji) = 0;
  /// Sets all fields; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(double vlij, double vlji, double llij, double llji, double const* tij,
                            double const* tji) = 0;

 protected:
  ~IZelUnifac() = default;
};

/// PPR78: interactions of PPR78 groups.
///
/// Key: two plain numbers in either order, those of the groups.
class ZEL_API IZelPpr78 : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aij,bij  interaction parameters A and B
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aij, double* bij) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aij, double bij) = 0;

 protected:
  ~IZelPpr78() = default;
};

}  // namespace zel

#endif  // ZELACCESS_GROUPBANKS_H
