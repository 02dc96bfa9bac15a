/// \file
/// Typed interfaces of one component. BankTypes.h has the rules for all of them.
#ifndef ZELACCESS_COMPONENTBANKS_H
#define ZELACCESS_COMPONENTBANKS_H

#include "zelaccess/BankDef.h"

namespace zel {

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

}  // namespace zel

#endif  // ZELACCESS_COMPONENTBANKS_H
