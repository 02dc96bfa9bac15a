/// \file
/// Typed interfaces of pairs of components: activity coefficients and heat of mixing. BankTypes.h
/// has the rules for all of them.
#ifndef ZELACCESS_ACTIVITYBANKS_H
#define ZELACCESS_ACTIVITYBANKS_H

#include "zelaccess/BankDef.h"

namespace zel {

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

}  // namespace zel

#endif  // ZELACCESS_ACTIVITYBANKS_H
