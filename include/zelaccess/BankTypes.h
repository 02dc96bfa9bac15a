/// \file
/// The typed interfaces of the bank types: all fields of a type in one call.
///
/// GetData returns an item's values as they are, undefined values included; PutData sets the same
/// list, scalars by value, arrays and texts by pointer. GetDataDefaulted returns 0.0 for every
/// undefined model coefficient (1.0 for `rmw` and `sigma` of PCSAFTPU) and leaves bounds and
/// integers as they are. All of these return kStatusOk, except where a null pointer is a failure.
///
/// Temperatures are in K, pressures in kPa; a value that is not there is undefined (Types.h). The
/// library computes nothing from coefficients. Each array has the length that its parameter says.
/// Texts are buffers of 21 characters, bank names 9, the name of ORWMAP 13.
///
/// A pair of an asymmetric type that is requested in reverse order is swapped by
/// IZelBankIO::SwapPair before it is returned. That exchanges the ij and ji members; HMIX negates
/// bij, dij, fij and hij, and AZEOTROP computes 1 - x1. None of these tests for undefined values:
/// they are swapped like others, so that an undefined bij of HMIX or x1 of AZEOTROP is returned as
/// 1e35.
///
/// **Threads.** One object belongs to one thread at a time; different objects share nothing.
///
/// **Null pointers.** Every pointer may be null. An output that is null is skipped, and a call
/// whose outputs are all null returns kStatusFailed. A null input array returns kStatusFailed and
/// changes nothing, unless none of its elements would be used; a null text is the empty text.
#ifndef ZELACCESS_BANKTYPES_H
#define ZELACCESS_BANKTYPES_H

#include "zelaccess/BankDef.h"

namespace zel {

// --- pairs of components -------------------------------------------------------------------------

/// WILSON: VLE data of pairs for the Wilson equation.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelWilson : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param form                     unit of the coefficients: 1010 K, 24013 KCAL, 24011 KJ, 0
  ///                                 NODIME
  /// \param eqnForm                  form of the equation: 1 EXTWILSON, 0 WILSON
  /// \param volRatio                 ratio of volumes: 1 STD25C, 2 RACKETT, 0 NOVOL
  /// \param aij,bij,cij,dij,eij,fij  coefficients from i to j
  /// \param aji,bji,cji,dji,eji,fji  coefficients from j to i
  /// \param tMin,tMax                range of temperatures, K
  /// \param pMin,pMax                range of pressures, kPa
  /// \param refCode                  reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(std::int32_t* form, std::int32_t* eqnForm, std::int32_t* volRatio,
                            double* aij, double* aji, double* bij, double* bji, double* cij,
                            double* cji, double* dij, double* dji, double* eij, double* eji,
                            double* fij, double* fji, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  /// Copies all fields, with 0.0 for undefined coefficients; bounds and integers are as in GetData.
  /// \copydetails GetData
  virtual ZelStatus GetDataDefaulted(std::int32_t* form, std::int32_t* eqnForm,
                                     std::int32_t* volRatio, double* aij, double* aji, double* bij,
                                     double* bji, double* cij, double* cji, double* dij,
                                     double* dji, double* eij, double* eji, double* fij,
                                     double* fji, double* tMin, double* tMax, double* pMin,
                                     double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(std::int32_t form, std::int32_t eqnForm, std::int32_t volRatio,
                            double aij, double aji, double bij, double bji, double cij, double cji,
                            double dij, double dji, double eij, double eji, double fij, double fji,
                            double tMin, double tMax, double pMin, double pMax,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelWilson() = default;
};

/// NRTL: VLE data of pairs for the NRTL equation.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelNrtl : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aij,bij,cij,dij,eij,fij  coefficients from i to j
  /// \param aji,bji,cji,dji,eji,fji  coefficients from j to i
  /// \param alphaij,betaij           non-randomness coefficients
  /// \param tMin,tMax                range of temperatures, K
  /// \param pMin,pMax                range of pressures, kPa
  /// \param refCode                  reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* eij,
                            double* fij, double* aji, double* bji, double* cji, double* dji,
                            double* eji, double* fji, double* alphaij, double* betaij, double* tMin,
                            double* tMax, double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Copies all fields, with 0.0 for undefined coefficients; bounds and integers are as in GetData.
  /// \copydetails GetData
  virtual ZelStatus GetDataDefaulted(double* aij, double* bij, double* cij, double* dij,
                                     double* eij, double* fij, double* aji, double* bji,
                                     double* cji, double* dji, double* eji, double* fji,
                                     double* alphaij, double* betaij, double* tMin, double* tMax,
                                     double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aij, double bij, double cij, double dij, double eij, double fij,
                            double aji, double bji, double cji, double dji, double eji, double fji,
                            double alphaij, double betaij, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelNrtl() = default;
};

/// NRTLLL: LLE data of pairs for the NRTL equation.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelNrtlLL : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aij,bij,cij,dij,eij,fij  coefficients from i to j
  /// \param aji,bji,cji,dji,eji,fji  coefficients from j to i
  /// \param alphaij,betaij           non-randomness coefficients
  /// \param tMin,tMax                range of temperatures, K
  /// \param pMin,pMax                range of pressures, kPa
  /// \param refCode                  reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* eij,
                            double* fij, double* aji, double* bji, double* cji, double* dji,
                            double* eji, double* fji, double* alphaij, double* betaij, double* tMin,
                            double* tMax, double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Copies all fields, with 0.0 for undefined coefficients; bounds and integers are as in GetData.
  /// \copydetails GetData
  virtual ZelStatus GetDataDefaulted(double* aij, double* bij, double* cij, double* dij,
                                     double* eij, double* fij, double* aji, double* bji,
                                     double* cji, double* dji, double* eji, double* fji,
                                     double* alphaij, double* betaij, double* tMin, double* tMax,
                                     double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aij, double bij, double cij, double dij, double eij, double fij,
                            double aji, double bji, double cji, double dji, double eji, double fji,
                            double alphaij, double betaij, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelNrtlLL() = default;
};

/// UNIQUAC: VLE data of pairs for the UNIQUAC equation.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelUniquac : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aij,bij,cij,dij  coefficients from i to j
  /// \param aji,bji,cji,dji  coefficients from j to i
  /// \param tMin,tMax        range of temperatures, K
  /// \param pMin,pMax        range of pressures, kPa
  /// \param refCode          reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* aji,
                            double* bji, double* cji, double* dji, double* tMin, double* tMax,
                            double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aij, double bij, double cij, double dij, double aji, double bji,
                            double cji, double dji, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelUniquac() = default;
};

/// UNIQLL: LLE data of pairs for the UNIQUAC equation.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelUniquacLL : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aij,bij,cij,dij  coefficients from i to j
  /// \param aji,bji,cji,dji  coefficients from j to i
  /// \param tMin,tMax        range of temperatures, K
  /// \param pMin,pMax        range of pressures, kPa
  /// \param refCode          reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* aji,
                            double* bji, double* cji, double* dji, double* tMin, double* tMax,
                            double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aij, double bij, double cij, double dij, double aji, double bji,
                            double cji, double dji, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelUniquacLL() = default;
};

/// MARGULES: VLE data of pairs for the Margules equation.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelMargules : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aij,aji    coefficients from i to j and from j to i
  /// \param dij        coefficient of both directions
  /// \param tMin,tMax  range of temperatures, K
  /// \param pMin,pMax  range of pressures, kPa
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aij, double* aji, double* dij, double* tMin, double* tMax,
                            double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aij, double aji, double dij, double tMin, double tMax,
                            double pMin, double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelMargules() = default;
};

/// VANLAAR: VLE data of pairs for the van Laar equation.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelVanLaar : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aij,aji    coefficients from i to j and from j to i
  /// \param tMin,tMax  range of temperatures, K
  /// \param pMin,pMax  range of pressures, kPa
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aij, double* aji, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aij, double aji, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelVanLaar() = default;
};

/// HMIX: heats of mixing of pairs.
///
/// Key: a pair of components; one requested in reverse order is swapped. The swap negates bij, dij,
/// fij and hij.
class ZEL_API IZelHMix : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aij,bij,cij,dij,eij,fij,gij,hij  coefficients
  /// \param tMin,tMax                        range of temperatures, K
  /// \param pMin,pMax                        range of pressures, kPa
  /// \param refCode                          reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* eij,
                            double* fij, double* gij, double* hij, double* tMin, double* tMax,
                            double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aij, double bij, double cij, double dij, double eij, double fij,
                            double gij, double hij, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelHMix() = default;
};

/// BWRS: data of pairs for the BWRS equation of state.
///
/// Key: a pair of components in either order.
class ZEL_API IZelBwrs : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aij,bij    interaction coefficients
  /// \param tMin,tMax  range of temperatures, K
  /// \param pMin,pMax  range of pressures, kPa
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aij, double* bij, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  /// Copies all fields, with 0.0 for undefined coefficients; bounds and integers are as in GetData.
  /// \copydetails GetData
  virtual ZelStatus GetDataDefaulted(double* aij, double* bij, double* tMin, double* tMax,
                                     double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aij, double bij, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelBwrs() = default;
};

/// HENRY: data of pairs for Henry's law.
///
/// Key: a pair of components; (i, j) and (j, i) are two items.
class ZEL_API IZelHenry : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param c          5 coefficients
  /// \param tMin,tMax  range of temperatures, K
  /// \param pMin,pMax  range of pressures, kPa
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* c, double* tMin, double* tMax, double* pMin, double* pMax,
                            std::int32_t* refCode) = 0;
  /// Copies all fields, with 0.0 for undefined coefficients; bounds and integers are as in GetData.
  /// \copydetails GetData
  virtual ZelStatus GetDataDefaulted(double* c, double* tMin, double* tMax, double* pMin,
                                     double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(double const* c, double tMin, double tMax, double pMin, double pMax,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelHenry() = default;
};

/// PRH: data of pairs for the equation of state PrH.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelPrH : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aij,bij,cij        coefficients from i to j
  /// \param aji,bji,cji        coefficients from j to i
  /// \param alphaCij,alphaTij  coefficients alphaC and alphaT, the same in both directions
  /// \param tMin,tMax          range of temperatures, K
  /// \param pMin,pMax          range of pressures, kPa
  /// \param refCode            reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* aji, double* bji,
                            double* cji, double* alphaCij, double* alphaTij, double* tMin,
                            double* tMax, double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aij, double bij, double cij, double aji, double bji, double cji,
                            double alphaCij, double alphaTij, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelPrH() = default;
};

/// SRKH: data of pairs for the equation of state SrkH.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelSrkH : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aij,bij,cij        coefficients from i to j
  /// \param aji,bji,cji        coefficients from j to i
  /// \param alphaCij,alphaTij  coefficients alphaC and alphaT, the same in both directions
  /// \param tMin,tMax          range of temperatures, K
  /// \param pMin,pMax          range of pressures, kPa
  /// \param refCode            reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* aji, double* bji,
                            double* cji, double* alphaCij, double* alphaTij, double* tMin,
                            double* tMax, double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aij, double bij, double cij, double aji, double bji, double cji,
                            double alphaCij, double alphaTij, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelSrkH() = default;
};

/// PRM: data of pairs for the equation of state PrM.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelPrM : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param kij        4 coefficients from i to j
  /// \param kji        4 coefficients from j to i
  /// \param tMin,tMax  range of temperatures, K
  /// \param pMin,pMax  range of pressures, kPa
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* kij, double* kji, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  /// Copies all fields, with 0.0 for undefined coefficients; bounds and integers are as in GetData.
  /// \copydetails GetData
  virtual ZelStatus GetDataDefaulted(double* kij, double* kji, double* tMin, double* tMax,
                                     double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(double const* kij, double const* kji, double tMin, double tMax,
                            double pMin, double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelPrM() = default;
};

/// SRKS: data of pairs for the equation of state SrkS.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelSrkS : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param kij        4 coefficients from i to j
  /// \param kji        4 coefficients from j to i
  /// \param tMin,tMax  range of temperatures, K
  /// \param pMin,pMax  range of pressures, kPa
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* kij, double* kji, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  /// Copies all fields, with 0.0 for undefined coefficients; bounds and integers are as in GetData.
  /// \copydetails GetData
  virtual ZelStatus GetDataDefaulted(double* kij, double* kji, double* tMin, double* tMax,
                                     double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(double const* kij, double const* kji, double tMin, double tMax,
                            double pMin, double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelSrkS() = default;
};

/// SRKM: data of pairs for the equation of state SrkM.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelSrkM : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param kij        4 coefficients from i to j
  /// \param kji        4 coefficients from j to i
  /// \param kijd,kjid  one more coefficient from i to j and from j to i
  /// \param tMin,tMax  range of temperatures, K
  /// \param pMin,pMax  range of pressures, kPa
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* kij, double* kji, double* kijd, double* kjid, double* tMin,
                            double* tMax, double* pMin, double* pMax, std::int32_t* refCode) = 0;
  /// Copies all fields, with 0.0 for undefined coefficients; bounds and integers are as in GetData.
  /// \copydetails GetData
  virtual ZelStatus GetDataDefaulted(double* kij, double* kji, double* kijd, double* kjid,
                                     double* tMin, double* tMax, double* pMin, double* pMax,
                                     std::int32_t* refCode) = 0;
  /// Sets all fields; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(double const* kij, double const* kji, double kijd, double kjid,
                            double tMin, double tMax, double pMin, double pMax,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelSrkM() = default;
};

/// PRP: data of pairs for the equation of state PrP.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelPrP : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param kij        3 coefficients from i to j
  /// \param kji        3 coefficients from j to i
  /// \param tMin,tMax  range of temperatures, K
  /// \param pMin,pMax  range of pressures, kPa
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* kij, double* kji, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(double const* kij, double const* kji, double tMin, double tMax,
                            double pMin, double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelPrP() = default;
};

/// SRKP: data of pairs for the equation of state SrkP.
///
/// Key: a pair of components; one requested in reverse order is swapped.
class ZEL_API IZelSrkP : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param kij        3 coefficients from i to j
  /// \param kji        3 coefficients from j to i
  /// \param tMin,tMax  range of temperatures, K
  /// \param pMin,pMax  range of pressures, kPa
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* kij, double* kji, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(double const* kij, double const* kji, double tMin, double tMax,
                            double pMin, double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelSrkP() = default;
};

/// PRO: data of pairs for the original PR equation of state.
///
/// Key: a pair of components in either order.
class ZEL_API IZelPrO : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param kij        4 coefficients
  /// \param tMin,tMax  range of temperatures, K
  /// \param pMin,pMax  range of pressures, kPa
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* kij, double* tMin, double* tMax, double* pMin, double* pMax,
                            std::int32_t* refCode) = 0;
  /// Copies all fields, with 0.0 for undefined coefficients; bounds and integers are as in GetData.
  /// \copydetails GetData
  virtual ZelStatus GetDataDefaulted(double* kij, double* tMin, double* tMax, double* pMin,
                                     double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(double const* kij, double tMin, double tMax, double pMin, double pMax,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelPrO() = default;
};

/// SRKO: data of pairs for the original SRK equation of state.
///
/// Key: a pair of components in either order.
class ZEL_API IZelSrkO : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param kij        4 coefficients
  /// \param tMin,tMax  range of temperatures, K
  /// \param pMin,pMax  range of pressures, kPa
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* kij, double* tMin, double* tMax, double* pMin, double* pMax,
                            std::int32_t* refCode) = 0;
  /// Copies all fields, with 0.0 for undefined coefficients; bounds and integers are as in GetData.
  /// \copydetails GetData
  virtual ZelStatus GetDataDefaulted(double* kij, double* tMin, double* tMax, double* pMin,
                                     double* pMax, std::int32_t* refCode) = 0;
  /// Sets all fields; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(double const* kij, double tMin, double tMax, double pMin, double pMax,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelSrkO() = default;
};

/// PCSAFT: data of pairs for the PC-SAFT equation of state.
///
/// Key: a pair of components in either order.
class ZEL_API IZelPcSaft : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param kij        4 coefficients
  /// \param tMin,tMax  range of temperatures, K
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* kij, double* tMin, double* tMax, std::int32_t* refCode) = 0;
  /// Copies all fields, with 0.0 for undefined coefficients; bounds and integers are as in GetData.
  /// \copydetails GetData
  virtual ZelStatus GetDataDefaulted(double* kij, double* tMin, double* tMax,
                                     std::int32_t* refCode) = 0;
  /// Sets all fields; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(double const* kij, double tMin, double tMax, std::int32_t refCode) = 0;

 protected:
  ~IZelPcSaft() = default;
};

/// AZEOTROP: azeotropes of pairs.
///
/// Key: a pair of components; one requested in reverse order is swapped. The swap makes
/// x1 the fraction of the other component, 1 - x1.
class ZEL_API IZelAzeo : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param temp   temperature, K
  /// \param pres   pressure, kPa
  /// \param x1     fraction of the first component
  /// \param basis  basis, as stored
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* temp, double* pres, double* x1, std::int32_t* basis) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double temp, double pres, double x1, std::int32_t basis) = 0;

 protected:
  ~IZelAzeo() = default;
};

/// LKP: data of pairs for the LKP equation of state.
///
/// Key: a pair of components in either order.
class ZEL_API IZelLkp : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param kij      interaction parameter
  /// \param refCode  reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* kij, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double kij, std::int32_t refCode) = 0;

 protected:
  ~IZelLkp() = default;
};

/// IDIMER: data of pairs for the IDimer model.
///
/// Key: a pair of components in either order; one component means the pair with itself.
class ZEL_API IZelIDimer : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aij,bij  coefficients A and B
  /// \param refCode  reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aij, double* bij, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aij, double bij, std::int32_t refCode) = 0;

 protected:
  ~IZelIDimer() = default;
};

/// HOCV: data of pairs for the Hayden-O'Connell method.
///
/// Key: a pair of components in either order; one component means the pair with itself.
class ZEL_API IZelHocV : public IUnknown {
 public:
  /// Copies the field as it is, also when undefined; a null output is a failure.
  /// \param eta  parameter eta
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* eta) = 0;
  /// Sets the field.
  /// \copydetails GetData
  virtual ZelStatus PutData(double eta) = 0;

 protected:
  ~IZelHocV() = default;
};

// --- one component -------------------------------------------------------------------------------

/// ALPHA: alpha coefficients of equations of state, up to three sets.
///
/// Key: one component. On file an undefined one of `eos` and `form` counts as 0 where the other is
/// defined.
class ZEL_API IZelAlpha : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param eos        3 equations of state, one of each set
  /// \param form       3 forms, one of each set, below 100
  /// \param deviation  3 deviations, one of each set
  /// \param coef       9 coefficients, 3 of each set
  /// \param refCode    reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(std::int32_t* eos, std::int32_t* form, double* deviation, double* coef,
                            std::int32_t* refCode) = 0;
  /// Sets all fields; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(std::int32_t const* eos, std::int32_t const* form,
                            double const* deviation, double const* coef, std::int32_t refCode) = 0;

 protected:
  ~IZelAlpha() = default;
};

/// MWPR: curve of the PR interaction parameter over the molecular weight.
///
/// Key: one component.
class ZEL_API IZelMwPr : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param count  number of points in use
  /// \param mw     12 molecular weights; 0 beyond the count
  /// \param kij    12 interaction parameters; 0 beyond the count
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(std::int32_t* count, double* mw, double* kij) = 0;
  /// Sets all fields; a null array is a failure that changes nothing, unless `count` is 0.
  /// \copydetails GetData
  virtual ZelStatus PutData(std::int32_t count, double const* mw, double const* kij) = 0;

 protected:
  ~IZelMwPr() = default;
};

/// MWSRK: curve of the SRK interaction parameter over the molecular weight.
///
/// Key: one component.
class ZEL_API IZelMwSrk : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param count  number of points in use
  /// \param mw     12 molecular weights; 0 beyond the count
  /// \param kij    12 interaction parameters; 0 beyond the count
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(std::int32_t* count, double* mw, double* kij) = 0;
  /// Sets all fields; a null array is a failure that changes nothing, unless `count` is 0.
  /// \copydetails GetData
  virtual ZelStatus PutData(std::int32_t count, double const* mw, double const* kij) = 0;

 protected:
  ~IZelMwSrk() = default;
};

/// PUREBWRS: pure component data for the BWRS equation of state.
///
/// Key: one component.
class ZEL_API IZelBwrsPure : public IUnknown {
 public:
  /// Copies the field as it is, also when undefined; a null output is a failure.
  /// \param coef  11 coefficients
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* coef) = 0;
  /// Sets the field; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(double const* coef) = 0;

 protected:
  ~IZelBwrsPure() = default;
};

/// COSTALD: data for the COSTALD liquid density.
///
/// Key: one component.
class ZEL_API IZelCostald : public IUnknown {
 public:
  /// Copies all fields; a null output is skipped.
  /// \param tc       critical temperature, K
  /// \param omega    acentric factor
  /// \param charVol  characteristic volume, unit class "vol"
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* tc, double* omega, double* charVol) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double tc, double omega, double charVol) = 0;

 protected:
  ~IZelCostald() = default;
};

/// RACKETT: data for the Rackett equation.
///
/// Key: one component.
class ZEL_API IZelRackett : public IUnknown {
 public:
  /// Copies the field as it is, also when undefined; a null output is a failure.
  /// \param zRa  Rackett parameter
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* zRa) = 0;
  /// Sets the field.
  /// \copydetails GetData
  virtual ZelStatus PutData(double zRa) = 0;

 protected:
  ~IZelRackett() = default;
};

/// IDIMPURE: pure component data for the IDimer model.
///
/// Key: one component.
class ZEL_API IZelIDimPure : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param aii,bii  coefficients A and B
  /// \param refCode  reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* aii, double* bii, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double aii, double bii, std::int32_t refCode) = 0;

 protected:
  ~IZelIDimPure() = default;
};

/// OCTANE: octane numbers.
///
/// Key: one component.
class ZEL_API IZelOctane : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param p,i,a,n,o  paraffinic, iso-paraffinic, aromatic, naphthenic and olefinic fraction
  /// \param mon,ron    motor and research octane number
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* p, double* i, double* a, double* n, double* o, double* mon,
                            double* ron) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double p, double i, double a, double n, double o, double mon,
                            double ron) = 0;

 protected:
  ~IZelOctane() = default;
};

/// PCSAFTPU: pure component data for the PC-SAFT equation of state.
///
/// Key: one component.
class ZEL_API IZelPcSaftPure : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param rmw      segment number
  /// \param sigma    segment diameter
  /// \param epsilon  dispersion energy
  /// \param epsHB    association energy
  /// \param volHB    association volume
  /// \param refCode  reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* rmw, double* sigma, double* epsilon, double* epsHB,
                            double* volHB, std::int32_t* refCode) = 0;
  /// Copies all fields, with 0.0 for undefined coefficients; undefined `rmw` and `sigma` are 1.0;
  /// integers as they are.
  /// \copydetails GetData
  virtual ZelStatus GetDataDefaulted(double* rmw, double* sigma, double* epsilon, double* epsHB,
                                     double* volHB, std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double rmw, double sigma, double epsilon, double epsHB, double volHB,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelPcSaftPure() = default;
};

/// PENELOUX: volume shifts for up to two equations of state.
///
/// Key: one component.
class ZEL_API IZelPeneloux : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param eos          2 equations of state
  /// \param penelouxLiq  2 volume shifts of the liquid, unit class "vol"
  /// \param penelouxVap  2 volume shifts of the vapor, unit class "vol"
  /// \param refCode      2 reference codes
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(std::int32_t* eos, double* penelouxLiq, double* penelouxVap,
                            std::int32_t* refCode) = 0;
  /// Sets all fields; a null array is a failure that changes nothing.
  /// \copydetails GetData
  virtual ZelStatus PutData(std::int32_t const* eos, double const* penelouxLiq,
                            double const* penelouxVap, std::int32_t const* refCode) = 0;

 protected:
  ~IZelPeneloux() = default;
};

/// VIRIAL: virial coefficients.
///
/// Key: one component.
class ZEL_API IZelVirial : public IUnknown {
 public:
  /// Copies all fields as they are, undefined values included; a null output is skipped.
  /// \param eta                      parameter eta
  /// \param virial2,virial3,virial4  second, third and fourth coefficient
  /// \param refCode                  reference code
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(double* eta, double* virial2, double* virial3, double* virial4,
                            std::int32_t* refCode) = 0;
  /// Sets all fields.
  /// \copydetails GetData
  virtual ZelStatus PutData(double eta, double virial2, double virial3, double virial4,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelVirial() = default;
};

// --- groups and structures -----------------------------------------------------------------------

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

// --- component mapping ---------------------------------------------------------------------------

/// MAPORW: mapping of a client's names to Ordwin component numbers.
///
/// Key: a text of up to 12 characters.
class ZEL_API IZelMapOrw : public IUnknown {
 public:
  /// Copies the field as it is, also when undefined; a null output is a failure.
  /// \param libnum  component number
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(std::int32_t* libnum) = 0;
  /// Sets the field.
  /// \copydetails GetData
  virtual ZelStatus PutData(std::int32_t libnum) = 0;

 protected:
  ~IZelMapOrw() = default;
};

/// OLI: mapping of OLI names to Ordwin component numbers.
///
/// Key: a text of up to 16 characters.
class ZEL_API IZelOli : public IUnknown {
 public:
  /// Copies the field as it is, also when undefined; a null output is a failure.
  /// \param libnum  component number
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(std::int32_t* libnum) = 0;
  /// Sets the field.
  /// \copydetails GetData
  virtual ZelStatus PutData(std::int32_t libnum) = 0;

 protected:
  ~IZelOli() = default;
};

/// ORWMAP: mapping of Ordwin component numbers to a client's names.
///
/// Key: one plain number, that of the component.
class ZEL_API IZelOrwMap : public IUnknown {
 public:
  /// Copies the field; a null output is a failure.
  /// \param name  name, a buffer of 13 characters
  /// \return kStatusOk; kStatusFailed by the rules for null pointers (Banks.h)
  virtual ZelStatus GetData(char* name) = 0;
  /// Sets the field; a text is cut to its buffer, and null is the empty text.
  /// \copydetails GetData
  virtual ZelStatus PutData(char const* name) = 0;

 protected:
  ~IZelOrwMap() = default;
};

}  // namespace zel

#endif  // ZELACCESS_BANKTYPES_H
