// The typed interfaces of the bank types: all fields of a type in one call.
//
// GetData gives an item's values as they stand, undefined values included; PutData takes the same
// list, scalars by value, arrays and texts by pointer. GetDataDefaulted gives 0.0 for every
// undefined model coefficient and leaves bounds and integers as they stand. All of these return
// kStatusOk. Temperatures are in K, pressures in kPa; a value that is not there is undefined
// (Types.h). Arrays are as long as the field has elements: "kij" 4 (3 in PRP and SRKP), "c" 5,
// "coef" 11 (9 in ALPHA), "Tij" and "Tji" 3 (9 in UNIFAC), "mw" and "kij" of MWPR and MWSRK 12,
// "groupNumber" and "groupCount" 10, the fields of PENELOUX 2, "eos", "form" and "deviation" of
// ALPHA 3. Texts are buffers of 21 characters, bank names 9, the name of ORWMAP 13.
//
// A pair of an asymmetric type that is asked for in the other order is turned round by SwapPair
// before it is given. That exchanges the ij and ji members; HMIX negates bij, dij, fij and hij, and
// AZEOTROP takes 1 - x1. None of these tests for undefined values: they turn like others, so that
// an undefined bij of HMIX or x1 of AZEOTROP is given as 1e35.
#ifndef ZELACCESS_BANKTYPES_H
#define ZELACCESS_BANKTYPES_H

#include "zelaccess/BankDef.h"

namespace zel {

// --- pairs of components -------------------------------------------------------------------------

// WILSON: Wilson VLE binary data.
class ZEL_API IZelWilson : public IUnknown {
 public:
  virtual ZelStatus GetData(std::int32_t* form, std::int32_t* eqnForm, std::int32_t* volRatio,
                            double* aij, double* aji, double* bij, double* bji, double* cij,
                            double* cji, double* dij, double* dji, double* eij, double* eji,
                            double* fij, double* fji, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus GetDataDefaulted(std::int32_t* form, std::int32_t* eqnForm,
                                     std::int32_t* volRatio, double* aij, double* aji, double* bij,
                                     double* bji, double* cij, double* cji, double* dij,
                                     double* dji, double* eij, double* eji, double* fij,
                                     double* fji, double* tMin, double* tMax, double* pMin,
                                     double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(std::int32_t form, std::int32_t eqnForm, std::int32_t volRatio,
                            double aij, double aji, double bij, double bji, double cij, double cji,
                            double dij, double dji, double eij, double eji, double fij, double fji,
                            double tMin, double tMax, double pMin, double pMax,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelWilson() = default;
};

// NRTL: Nrtl VLE binary data.
class ZEL_API IZelNrtl : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* eij,
                            double* fij, double* aji, double* bji, double* cji, double* dji,
                            double* eji, double* fji, double* alphaij, double* betaij, double* tMin,
                            double* tMax, double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus GetDataDefaulted(double* aij, double* bij, double* cij, double* dij,
                                     double* eij, double* fij, double* aji, double* bji,
                                     double* cji, double* dji, double* eji, double* fji,
                                     double* alphaij, double* betaij, double* tMin, double* tMax,
                                     double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double aij, double bij, double cij, double dij, double eij, double fij,
                            double aji, double bji, double cji, double dji, double eji, double fji,
                            double alphaij, double betaij, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelNrtl() = default;
};

// NRTLLL: Nrtl LLE binary data.
class ZEL_API IZelNrtlLL : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* eij,
                            double* fij, double* aji, double* bji, double* cji, double* dji,
                            double* eji, double* fji, double* alphaij, double* betaij, double* tMin,
                            double* tMax, double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus GetDataDefaulted(double* aij, double* bij, double* cij, double* dij,
                                     double* eij, double* fij, double* aji, double* bji,
                                     double* cji, double* dji, double* eji, double* fji,
                                     double* alphaij, double* betaij, double* tMin, double* tMax,
                                     double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double aij, double bij, double cij, double dij, double eij, double fij,
                            double aji, double bji, double cji, double dji, double eji, double fji,
                            double alphaij, double betaij, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelNrtlLL() = default;
};

// UNIQUAC: Uniquac VLE binary data.
class ZEL_API IZelUniquac : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* aji,
                            double* bji, double* cji, double* dji, double* tMin, double* tMax,
                            double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double aij, double bij, double cij, double dij, double aji, double bji,
                            double cji, double dji, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelUniquac() = default;
};

// UNIQLL: Uniquac LLE binary data.
class ZEL_API IZelUniquacLL : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* aji,
                            double* bji, double* cji, double* dji, double* tMin, double* tMax,
                            double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double aij, double bij, double cij, double dij, double aji, double bji,
                            double cji, double dji, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelUniquacLL() = default;
};

// MARGULES: Margules VLE binary data.
class ZEL_API IZelMargules : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aij, double* aji, double* dij, double* tMin, double* tMax,
                            double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double aij, double aji, double dij, double tMin, double tMax,
                            double pMin, double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelMargules() = default;
};

// VANLAAR: vanLaar VLE binary data.
class ZEL_API IZelVanLaar : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aij, double* aji, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double aij, double aji, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelVanLaar() = default;
};

// HMIX: Heat of mixing data.
class ZEL_API IZelHMix : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* eij,
                            double* fij, double* gij, double* hij, double* tMin, double* tMax,
                            double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double aij, double bij, double cij, double dij, double eij, double fij,
                            double gij, double hij, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelHMix() = default;
};

// BWRS: Bwrs binary data.
class ZEL_API IZelBwrs : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aij, double* bij, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus GetDataDefaulted(double* aij, double* bij, double* tMin, double* tMax,
                                     double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double aij, double bij, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelBwrs() = default;
};

// HENRY: Henry's law data.
class ZEL_API IZelHenry : public IUnknown {
 public:
  virtual ZelStatus GetData(double* c, double* tMin, double* tMax, double* pMin, double* pMax,
                            std::int32_t* refCode) = 0;
  virtual ZelStatus GetDataDefaulted(double* c, double* tMin, double* tMax, double* pMin,
                                     double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double const* c, double tMin, double tMax, double pMin, double pMax,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelHenry() = default;
};

// PRH: PrH binary data.
class ZEL_API IZelPrH : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* aji, double* bji,
                            double* cji, double* alphaCij, double* alphaTij, double* tMin,
                            double* tMax, double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double aij, double bij, double cij, double aji, double bji, double cji,
                            double alphaCij, double alphaTij, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelPrH() = default;
};

// SRKH: SrkH binary data.
class ZEL_API IZelSrkH : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aij, double* bij, double* cij, double* aji, double* bji,
                            double* cji, double* alphaCij, double* alphaTij, double* tMin,
                            double* tMax, double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double aij, double bij, double cij, double aji, double bji, double cji,
                            double alphaCij, double alphaTij, double tMin, double tMax, double pMin,
                            double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelSrkH() = default;
};

// PRM: PrM binary data.
class ZEL_API IZelPrM : public IUnknown {
 public:
  virtual ZelStatus GetData(double* kij, double* kji, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus GetDataDefaulted(double* kij, double* kji, double* tMin, double* tMax,
                                     double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double const* kij, double const* kji, double tMin, double tMax,
                            double pMin, double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelPrM() = default;
};

// SRKS: SrkS binary data.
class ZEL_API IZelSrkS : public IUnknown {
 public:
  virtual ZelStatus GetData(double* kij, double* kji, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus GetDataDefaulted(double* kij, double* kji, double* tMin, double* tMax,
                                     double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double const* kij, double const* kji, double tMin, double tMax,
                            double pMin, double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelSrkS() = default;
};

// SRKM: SrkM binary data.
class ZEL_API IZelSrkM : public IUnknown {
 public:
  virtual ZelStatus GetData(double* kij, double* kji, double* kijd, double* kjid, double* tMin,
                            double* tMax, double* pMin, double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus GetDataDefaulted(double* kij, double* kji, double* kijd, double* kjid,
                                     double* tMin, double* tMax, double* pMin, double* pMax,
                                     std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double const* kij, double const* kji, double kijd, double kjid,
                            double tMin, double tMax, double pMin, double pMax,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelSrkM() = default;
};

// PRP: PrP binary data.
class ZEL_API IZelPrP : public IUnknown {
 public:
  virtual ZelStatus GetData(double* kij, double* kji, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double const* kij, double const* kji, double tMin, double tMax,
                            double pMin, double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelPrP() = default;
};

// SRKP: SrkP binary data.
class ZEL_API IZelSrkP : public IUnknown {
 public:
  virtual ZelStatus GetData(double* kij, double* kji, double* tMin, double* tMax, double* pMin,
                            double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double const* kij, double const* kji, double tMin, double tMax,
                            double pMin, double pMax, std::int32_t refCode) = 0;

 protected:
  ~IZelSrkP() = default;
};

// PRO: Pr (Original) binary data.
class ZEL_API IZelPrO : public IUnknown {
 public:
  virtual ZelStatus GetData(double* kij, double* tMin, double* tMax, double* pMin, double* pMax,
                            std::int32_t* refCode) = 0;
  virtual ZelStatus GetDataDefaulted(double* kij, double* tMin, double* tMax, double* pMin,
                                     double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double const* kij, double tMin, double tMax, double pMin, double pMax,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelPrO() = default;
};

// SRKO: Srk (Original) binary data.
class ZEL_API IZelSrkO : public IUnknown {
 public:
  virtual ZelStatus GetData(double* kij, double* tMin, double* tMax, double* pMin, double* pMax,
                            std::int32_t* refCode) = 0;
  virtual ZelStatus GetDataDefaulted(double* kij, double* tMin, double* tMax, double* pMin,
                                     double* pMax, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double const* kij, double tMin, double tMax, double pMin, double pMax,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelSrkO() = default;
};

// PCSAFT: PcSaft data.
class ZEL_API IZelPcSaft : public IUnknown {
 public:
  virtual ZelStatus GetData(double* kij, double* tMin, double* tMax, std::int32_t* refCode) = 0;
  virtual ZelStatus GetDataDefaulted(double* kij, double* tMin, double* tMax,
                                     std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double const* kij, double tMin, double tMax, std::int32_t refCode) = 0;

 protected:
  ~IZelPcSaft() = default;
};

// AZEOTROP: Azeotrope binary data.
class ZEL_API IZelAzeo : public IUnknown {
 public:
  virtual ZelStatus GetData(double* temp, double* pres, double* x1, std::int32_t* basis) = 0;
  virtual ZelStatus PutData(double temp, double pres, double x1, std::int32_t basis) = 0;

 protected:
  ~IZelAzeo() = default;
};

// LKP: Lkp binary data.
class ZEL_API IZelLkp : public IUnknown {
 public:
  virtual ZelStatus GetData(double* kij, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double kij, std::int32_t refCode) = 0;

 protected:
  ~IZelLkp() = default;
};

// IDIMER: IDimer binary data.
class ZEL_API IZelIDimer : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aij, double* bij, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double aij, double bij, std::int32_t refCode) = 0;

 protected:
  ~IZelIDimer() = default;
};

// HOCV: Hayden-O'Connell data.
class ZEL_API IZelHocV : public IUnknown {
 public:
  virtual ZelStatus GetData(double* eta) = 0;
  virtual ZelStatus PutData(double eta) = 0;

 protected:
  ~IZelHocV() = default;
};

// --- one component -------------------------------------------------------------------------------

// ALPHA: Alpha coefficients.
class ZEL_API IZelAlpha : public IUnknown {
 public:
  virtual ZelStatus GetData(std::int32_t* eos, std::int32_t* form, double* deviation, double* coef,
                            std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(std::int32_t const* eos, std::int32_t const* form,
                            double const* deviation, double const* coef, std::int32_t refCode) = 0;

 protected:
  ~IZelAlpha() = default;
};

// MWPR: Pr Kij-Mw curves.
class ZEL_API IZelMwPr : public IUnknown {
 public:
  virtual ZelStatus GetData(std::int32_t* count, double* mw, double* kij) = 0;
  virtual ZelStatus PutData(std::int32_t count, double const* mw, double const* kij) = 0;

 protected:
  ~IZelMwPr() = default;
};

// MWSRK: Srk Kij-Mw curves.
class ZEL_API IZelMwSrk : public IUnknown {
 public:
  virtual ZelStatus GetData(std::int32_t* count, double* mw, double* kij) = 0;
  virtual ZelStatus PutData(std::int32_t count, double const* mw, double const* kij) = 0;

 protected:
  ~IZelMwSrk() = default;
};

// PUREBWRS: Bwrs pure component data.
class ZEL_API IZelBwrsPure : public IUnknown {
 public:
  virtual ZelStatus GetData(double* coef) = 0;
  virtual ZelStatus PutData(double const* coef) = 0;

 protected:
  ~IZelBwrsPure() = default;
};

// COSTALD: Costald data.
class ZEL_API IZelCostald : public IUnknown {
 public:
  virtual ZelStatus GetData(double* tc, double* omega, double* charVol) = 0;
  virtual ZelStatus PutData(double tc, double omega, double charVol) = 0;

 protected:
  ~IZelCostald() = default;
};

// RACKETT: Rackett data.
class ZEL_API IZelRackett : public IUnknown {
 public:
  virtual ZelStatus GetData(double* zRa) = 0;
  virtual ZelStatus PutData(double zRa) = 0;

 protected:
  ~IZelRackett() = default;
};

// IDIMPURE: IDimer pure component data.
class ZEL_API IZelIDimPure : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aii, double* bii, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double aii, double bii, std::int32_t refCode) = 0;

 protected:
  ~IZelIDimPure() = default;
};

// OCTANE: Octane number data.
class ZEL_API IZelOctane : public IUnknown {
 public:
  virtual ZelStatus GetData(double* p, double* i, double* a, double* n, double* o, double* mon,
                            double* ron) = 0;
  virtual ZelStatus PutData(double p, double i, double a, double n, double o, double mon,
                            double ron) = 0;

 protected:
  ~IZelOctane() = default;
};

// PCSAFTPU: PcSaft pure component data.
class ZEL_API IZelPcSaftPure : public IUnknown {
 public:
  virtual ZelStatus GetData(double* rmw, double* sigma, double* epsilon, double* epsHB,
                            double* volHB, std::int32_t* refCode) = 0;
  virtual ZelStatus GetDataDefaulted(double* rmw, double* sigma, double* epsilon, double* epsHB,
                                     double* volHB, std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double rmw, double sigma, double epsilon, double epsHB, double volHB,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelPcSaftPure() = default;
};

// PENELOUX: Peneloux pure component data.
class ZEL_API IZelPeneloux : public IUnknown {
 public:
  virtual ZelStatus GetData(std::int32_t* eos, double* penelouxLiq, double* penelouxVap,
                            std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(std::int32_t const* eos, double const* penelouxLiq,
                            double const* penelouxVap, std::int32_t const* refCode) = 0;

 protected:
  ~IZelPeneloux() = default;
};

// VIRIAL: Virial coefficients.
class ZEL_API IZelVirial : public IUnknown {
 public:
  virtual ZelStatus GetData(double* eta, double* virial2, double* virial3, double* virial4,
                            std::int32_t* refCode) = 0;
  virtual ZelStatus PutData(double eta, double virial2, double virial3, double virial4,
                            std::int32_t refCode) = 0;

 protected:
  ~IZelVirial() = default;
};

// --- groups and structures -----------------------------------------------------------------------

// GRPDESC: UNIFAC Group Description bank.
class ZEL_API IZelGroupDes : public IUnknown {
 public:
  virtual ZelStatus GetData(char* name, char* formula, char* image) = 0;
  virtual ZelStatus PutData(char const* name, char const* formula, char const* image) = 0;

 protected:
  ~IZelGroupDes() = default;
};

// STRUCT: Structural data.
class ZEL_API IZelStruct : public IUnknown {
 public:
  virtual ZelStatus GetData(std::int32_t* count, std::int32_t* groupNumber,
                            std::int32_t* groupCount) = 0;
  virtual ZelStatus PutData(std::int32_t count, std::int32_t const* groupNumber,
                            std::int32_t const* groupCount) = 0;

 protected:
  ~IZelStruct() = default;
};

// UNFPURE: Unifac pure group parameters.
class ZEL_API IZelUnfPure : public IUnknown {
 public:
  virtual ZelStatus GetData(std::int32_t* mainGroup, double* area, double* volume) = 0;
  virtual ZelStatus PutData(std::int32_t mainGroup, double area, double volume) = 0;

 protected:
  ~IZelUnfPure() = default;
};

// UNF2PUR: Unifac pure group parameters for UFT2.
class ZEL_API IZelUnf2Pure : public IUnknown {
 public:
  virtual ZelStatus GetData(std::int32_t* mainGroup, double* area, double* volume) = 0;
  virtual ZelStatus PutData(std::int32_t mainGroup, double area, double volume) = 0;

 protected:
  ~IZelUnf2Pure() = default;
};

// UNFDORT: Dortmund Unifac data.
class ZEL_API IZelUnfDort : public IUnknown {
 public:
  virtual ZelStatus GetContext(char* structure, char* context) = 0;
  virtual ZelStatus PutContext(char const* structure, char const* context) = 0;
  virtual ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                             std::int32_t* refCode) = 0;
  virtual ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) = 0;
  virtual ZelStatus GetInteraction(double* tij, double* tji, std::int32_t* refCode) = 0;
  virtual ZelStatus PutInteraction(double const* tij, double const* tji, std::int32_t refCode) = 0;

 protected:
  ~IZelUnfDort() = default;
};

// UNFLYNG: Lyngby Unifac data.
class ZEL_API IZelUnfLyng : public IUnknown {
 public:
  virtual ZelStatus GetContext(char* structure, char* context) = 0;
  virtual ZelStatus PutContext(char const* structure, char const* context) = 0;
  virtual ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                             std::int32_t* refCode) = 0;
  virtual ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) = 0;
  virtual ZelStatus GetInteraction(double* tij, double* tji, std::int32_t* refCode) = 0;
  virtual ZelStatus PutInteraction(double const* tij, double const* tji, std::int32_t refCode) = 0;

 protected:
  ~IZelUnfLyng() = default;
};

// UNFMOD: Modified Unifac data.
class ZEL_API IZelUnfMod : public IUnknown {
 public:
  virtual ZelStatus GetContext(char* structure, char* context) = 0;
  virtual ZelStatus PutContext(char const* structure, char const* context) = 0;
  virtual ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                             std::int32_t* refCode) = 0;
  virtual ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) = 0;
  virtual ZelStatus GetInteraction(double* tij, double* tji, std::int32_t* refCode) = 0;
  virtual ZelStatus PutInteraction(double const* tij, double const* tji, std::int32_t refCode) = 0;

 protected:
  ~IZelUnfMod() = default;
};

// UNFORIG: Original Unifac data.
class ZEL_API IZelUnfOrig : public IUnknown {
 public:
  virtual ZelStatus GetContext(char* structure, char* context) = 0;
  virtual ZelStatus PutContext(char const* structure, char const* context) = 0;
  virtual ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                             std::int32_t* refCode) = 0;
  virtual ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) = 0;
  virtual ZelStatus GetInteraction(double* vlij, double* vlji, double* llij, double* llji,
                                   std::int32_t* refCode) = 0;
  virtual ZelStatus PutInteraction(double vlij, double vlji, double llij, double llji,
                                   std::int32_t refCode) = 0;

 protected:
  ~IZelUnfOrig() = default;
};

// PSRK: Predictive SRK data.
class ZEL_API IZelPsrk : public IUnknown {
 public:
  virtual ZelStatus GetContext(char* structure, char* context) = 0;
  virtual ZelStatus PutContext(char const* structure, char const* context) = 0;
  virtual ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                             std::int32_t* refCode) = 0;
  virtual ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) = 0;
  virtual ZelStatus GetInteraction(double* tij, double* tji, std::int32_t* refCode) = 0;
  virtual ZelStatus PutInteraction(double const* tij, double const* tji, std::int32_t refCode) = 0;
  // The same two operations as on IZelBankDef.
  virtual ZelStatus SetRefBankName(char const* type, char const* name) = 0;
  virtual ZelStatus GetRefBankName(char const* type, char* name) = 0;

 protected:
  ~IZelPsrk() = default;
};

// UNIFAC: Unifac binary group data.
class ZEL_API IZelUnifac : public IUnknown {
 public:
  virtual ZelStatus GetData(double* vlij, double* vlji, double* llij, double* llji, double* tij,
                            double* tji) = 0;
  virtual ZelStatus PutData(double vlij, double vlji, double llij, double llji, double const* tij,
                            double const* tji) = 0;

 protected:
  ~IZelUnifac() = default;
};

// PPR78: PPR78 Group Interaction bank.
class ZEL_API IZelPpr78 : public IUnknown {
 public:
  virtual ZelStatus GetData(double* aij, double* bij) = 0;
  virtual ZelStatus PutData(double aij, double bij) = 0;

 protected:
  ~IZelPpr78() = default;
};

// --- component mapping ---------------------------------------------------------------------------

// MAPORW: Client to Ordwin component mapping data.
class ZEL_API IZelMapOrw : public IUnknown {
 public:
  virtual ZelStatus GetData(std::int32_t* libnum) = 0;
  virtual ZelStatus PutData(std::int32_t libnum) = 0;

 protected:
  ~IZelMapOrw() = default;
};

// OLI: Oli to Ordwin component mapping data.
class ZEL_API IZelOli : public IUnknown {
 public:
  virtual ZelStatus GetData(std::int32_t* libnum) = 0;
  virtual ZelStatus PutData(std::int32_t libnum) = 0;

 protected:
  ~IZelOli() = default;
};

// ORWMAP: Ordwin to Client component mapping data.
class ZEL_API IZelOrwMap : public IUnknown {
 public:
  virtual ZelStatus GetData(char* name) = 0;
  virtual ZelStatus PutData(char const* name) = 0;

 protected:
  ~IZelOrwMap() = default;
};

}  // namespace zel

#endif  // ZELACCESS_BANKTYPES_H
