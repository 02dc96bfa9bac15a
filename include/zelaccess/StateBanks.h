/// \file
/// Typed interfaces of pairs of components: equations of state, Henry's law, azeotropes,
/// association. BankTypes.h has the rules for all of them.
#ifndef ZELACCESS_STATEBANKS_H
#define ZELACCESS_STATEBANKS_H

#include "zelaccess/BankDef.h"

namespace zel {

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

}  // namespace zel

#endif  // ZELACCESS_STATEBANKS_H
