// Pair banks of activity-coefficient models but WILSON, and heats of mixing.
#include <cstddef>
#include <iterator>
#include <tuple>
#include <utility>

#include "banks/typed_bank.h"

namespace zel {
namespace {

// --- NRTL, NRTLLL --------------------------------------------------------------------------------

struct NrtlItem {
  double tMin;
  double tMax;
  double pMin;
  double pMax;
  double aij;
  double bij;
  double cij;
  double dij;
  double eij;
  double fij;
  double aji;
  double bji;
  double cji;
  double dji;
  double eji;
  double fji;
  double alphaij;
  double betaij;
  std::int32_t refCode;
};

constexpr FieldRow kNrtlRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(NrtlItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(NrtlItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(NrtlItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(NrtlItem, pMax)},
    {"aij", "aij", kReal, 1, "", 20, 1, offsetof(NrtlItem, aij)},
    {"bij", "bij", kReal, 1, "", 24, 1, offsetof(NrtlItem, bij)},
    {"cij", "cij", kReal, 1, "", 28, 1, offsetof(NrtlItem, cij)},
    {"dij", "dij", kReal, 1, "", 56, 2, offsetof(NrtlItem, dij)},
    {"eij", "eij", kReal, 1, "", 60, 2, offsetof(NrtlItem, eij)},
    {"fij", "fij", kReal, 1, "", 64, 2, offsetof(NrtlItem, fij)},
    {"aji", "aji", kReal, 1, "", 32, 1, offsetof(NrtlItem, aji)},
    {"bji", "bji", kReal, 1, "", 36, 1, offsetof(NrtlItem, bji)},
    {"cji", "cji", kReal, 1, "", 40, 1, offsetof(NrtlItem, cji)},
    {"dji", "dji", kReal, 1, "", 68, 2, offsetof(NrtlItem, dji)},
    {"eji", "eji", kReal, 1, "", 72, 2, offsetof(NrtlItem, eji)},
    {"fji", "fji", kReal, 1, "", 76, 2, offsetof(NrtlItem, fji)},
    {"alphaij", "alphaij", kReal, 1, "", 44, 1, offsetof(NrtlItem, alphaij)},
    {"betaij", "betaij", kReal, 1, "", 48, 1, offsetof(NrtlItem, betaij)},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(NrtlItem, refCode)},
};

constexpr auto kNrtlArguments = std::make_tuple(
    &NrtlItem::aij, &NrtlItem::bij, &NrtlItem::cij, &NrtlItem::dij, &NrtlItem::eij, &NrtlItem::fij,
    &NrtlItem::aji, &NrtlItem::bji, &NrtlItem::cji, &NrtlItem::dji, &NrtlItem::eji, &NrtlItem::fji,
    &NrtlItem::alphaij, &NrtlItem::betaij, Bound(&NrtlItem::tMin), Bound(&NrtlItem::tMax),
    Bound(&NrtlItem::pMin), Bound(&NrtlItem::pMax), &NrtlItem::refCode);
constexpr auto kNrtlPairs = std::make_tuple(
    std::pair(&NrtlItem::aij, &NrtlItem::aji), std::pair(&NrtlItem::bij, &NrtlItem::bji),
    std::pair(&NrtlItem::cij, &NrtlItem::cji), std::pair(&NrtlItem::dij, &NrtlItem::dji),
    std::pair(&NrtlItem::eij, &NrtlItem::eji), std::pair(&NrtlItem::fij, &NrtlItem::fji));

template <typename Interface>
class NrtlBank final : public TypedBank<NrtlItem, Interface> {
 public:
  NrtlBank(BankType const& type, ZelIid const& id)
      : TypedBank<NrtlItem, Interface>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* eij, double* fij,
                    double* aji, double* bji, double* cji, double* dji, double* eji, double* fji,
                    double* alphaij, double* betaij, double* tMin, double* tMax, double* pMin,
                    double* pMax, std::int32_t* refCode) override {
    return GiveData(this->item_, kNrtlArguments, aij, bij, cij, dij, eij, fij, aji, bji, cji, dji,
                    eji, fji, alphaij, betaij, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus GetDataDefaulted(double* aij, double* bij, double* cij, double* dij, double* eij,
                             double* fij, double* aji, double* bji, double* cji, double* dji,
                             double* eji, double* fji, double* alphaij, double* betaij,
                             double* tMin, double* tMax, double* pMin, double* pMax,
                             std::int32_t* refCode) override {
    return GiveDefaulted(this->item_, kNrtlArguments, aij, bij, cij, dij, eij, fij, aji, bji, cji,
                         dji, eji, fji, alphaij, betaij, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus PutData(double aij, double bij, double cij, double dij, double eij, double fij,
                    double aji, double bji, double cji, double dji, double eji, double fji,
                    double alphaij, double betaij, double tMin, double tMax, double pMin,
                    double pMax, std::int32_t refCode) override {
    return TakeData(this->item_, kNrtlArguments, aij, bij, cij, dij, eij, fij, aji, bji, cji, dji,
                    eji, fji, alphaij, betaij, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kNrtlPairs); }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(2, std::size(kNrtlRows), kNrtlRows);
    return fields;
  }
};
using Nrtl_i = NrtlBank<IZelNrtl>;
using NrtlLL_i = NrtlBank<IZelNrtlLL>;

// --- UNIQUAC, UNIQLL -----------------------------------------------------------------------------

struct UniquacItem {
  double tMin;
  double tMax;
  double pMin;
  double pMax;
  double aij;
  double aji;
  double bij;
  double bji;
  double cij;
  double cji;
  double dij;
  double dji;
  std::int32_t refCode;
};

constexpr FieldRow kUniquacRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(UniquacItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(UniquacItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(UniquacItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(UniquacItem, pMax)},
    {"aij", "aij", kReal, 1, "", 20, 1, offsetof(UniquacItem, aij)},
    {"aji", "aji", kReal, 1, "", 24, 1, offsetof(UniquacItem, aji)},
    {"bij", "bij", kReal, 1, "", 28, 1, offsetof(UniquacItem, bij)},
    {"bji", "bji", kReal, 1, "", 32, 1, offsetof(UniquacItem, bji)},
    {"cij", "cij", kReal, 1, "", 36, 1, offsetof(UniquacItem, cij)},
    {"cji", "cji", kReal, 1, "", 40, 1, offsetof(UniquacItem, cji)},
    {"dij", "dij", kReal, 1, "", 44, 1, offsetof(UniquacItem, dij)},
    {"dji", "dji", kReal, 1, "", 48, 1, offsetof(UniquacItem, dji)},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(UniquacItem, refCode)},
};

constexpr auto kUniquacArguments =
    std::make_tuple(&UniquacItem::aij, &UniquacItem::bij, &UniquacItem::cij, &UniquacItem::dij,
                    &UniquacItem::aji, &UniquacItem::bji, &UniquacItem::cji, &UniquacItem::dji,
                    Bound(&UniquacItem::tMin), Bound(&UniquacItem::tMax), Bound(&UniquacItem::pMin),
                    Bound(&UniquacItem::pMax), &UniquacItem::refCode);
constexpr auto kUniquacPairs = std::make_tuple(std::pair(&UniquacItem::aij, &UniquacItem::aji),
                                               std::pair(&UniquacItem::bij, &UniquacItem::bji),
                                               std::pair(&UniquacItem::cij, &UniquacItem::cji),
                                               std::pair(&UniquacItem::dij, &UniquacItem::dji));

template <typename Interface>
class UniquacBank final : public TypedBank<UniquacItem, Interface> {
 public:
  UniquacBank(BankType const& type, ZelIid const& id)
      : TypedBank<UniquacItem, Interface>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* aji, double* bji,
                    double* cji, double* dji, double* tMin, double* tMax, double* pMin,
                    double* pMax, std::int32_t* refCode) override {
    return GiveData(this->item_, kUniquacArguments, aij, bij, cij, dij, aji, bji, cji, dji, tMin,
                    tMax, pMin, pMax, refCode);
  }
  ZelStatus PutData(double aij, double bij, double cij, double dij, double aji, double bji,
                    double cji, double dji, double tMin, double tMax, double pMin, double pMax,
                    std::int32_t refCode) override {
    return TakeData(this->item_, kUniquacArguments, aij, bij, cij, dij, aji, bji, cji, dji, tMin,
                    tMax, pMin, pMax, refCode);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kUniquacPairs); }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kUniquacRows), kUniquacRows);
    return fields;
  }
};
using Uniquac_i = UniquacBank<IZelUniquac>;
using UniquacLL_i = UniquacBank<IZelUniquacLL>;

// --- MARGULES ------------------------------------------------------------------------------------

struct MargulesItem {
  double tMin;
  double tMax;
  double pMin;
  double pMax;
  double aij;
  double aji;
  double dij;
  std::int32_t refCode;
};

constexpr FieldRow kMargulesRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(MargulesItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(MargulesItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(MargulesItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(MargulesItem, pMax)},
    {"aij", "aij", kReal, 1, "", 20, 1, offsetof(MargulesItem, aij)},
    {"aji", "aji", kReal, 1, "", 24, 1, offsetof(MargulesItem, aji)},
    {"dij", "dij", kReal, 1, "", 28, 1, offsetof(MargulesItem, dij)},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(MargulesItem, refCode)},
};

constexpr auto kMargulesArguments =
    std::make_tuple(&MargulesItem::aij, &MargulesItem::aji, &MargulesItem::dij,
                    Bound(&MargulesItem::tMin), Bound(&MargulesItem::tMax),
                    Bound(&MargulesItem::pMin), Bound(&MargulesItem::pMax), &MargulesItem::refCode);
constexpr auto kMargulesPairs = std::make_tuple(std::pair(&MargulesItem::aij, &MargulesItem::aji));

class Margules_i final : public TypedBank<MargulesItem, IZelMargules> {
 public:
  Margules_i(BankType const& type, ZelIid const& id)
      : TypedBank<MargulesItem, IZelMargules>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* aij, double* aji, double* dij, double* tMin, double* tMax, double* pMin,
                    double* pMax, std::int32_t* refCode) override {
    return GiveData(this->item_, kMargulesArguments, aij, aji, dij, tMin, tMax, pMin, pMax,
                    refCode);
  }
  ZelStatus PutData(double aij, double aji, double dij, double tMin, double tMax, double pMin,
                    double pMax, std::int32_t refCode) override {
    return TakeData(this->item_, kMargulesArguments, aij, aji, dij, tMin, tMax, pMin, pMax,
                    refCode);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kMargulesPairs); }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kMargulesRows), kMargulesRows);
    return fields;
  }
};

// --- VANLAAR -------------------------------------------------------------------------------------

struct VanLaarItem {
  double tMin;
  double tMax;
  double pMin;
  double pMax;
  double aij;
  double aji;
  std::int32_t refCode;
};

constexpr FieldRow kVanLaarRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(VanLaarItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(VanLaarItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(VanLaarItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(VanLaarItem, pMax)},
    {"aij", "aij", kReal, 1, "", 20, 1, offsetof(VanLaarItem, aij)},
    {"aji", "aji", kReal, 1, "", 24, 1, offsetof(VanLaarItem, aji)},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(VanLaarItem, refCode)},
};

constexpr auto kVanLaarArguments = std::make_tuple(
    &VanLaarItem::aij, &VanLaarItem::aji, Bound(&VanLaarItem::tMin), Bound(&VanLaarItem::tMax),
    Bound(&VanLaarItem::pMin), Bound(&VanLaarItem::pMax), &VanLaarItem::refCode);
constexpr auto kVanLaarPairs = std::make_tuple(std::pair(&VanLaarItem::aij, &VanLaarItem::aji));

class VanLaar_i final : public TypedBank<VanLaarItem, IZelVanLaar> {
 public:
  VanLaar_i(BankType const& type, ZelIid const& id)
      : TypedBank<VanLaarItem, IZelVanLaar>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* aij, double* aji, double* tMin, double* tMax, double* pMin,
                    double* pMax, std::int32_t* refCode) override {
    return GiveData(this->item_, kVanLaarArguments, aij, aji, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus PutData(double aij, double aji, double tMin, double tMax, double pMin, double pMax,
                    std::int32_t refCode) override {
    return TakeData(this->item_, kVanLaarArguments, aij, aji, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kVanLaarPairs); }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kVanLaarRows), kVanLaarRows);
    return fields;
  }
};

// --- HMIX ----------------------------------------------------------------------------------------

struct HMixItem {
  double tMin;
  double tMax;
  double pMin;
  double pMax;
  double aij;
  double bij;
  double cij;
  double dij;
  double eij;
  double fij;
  double gij;
  double hij;
  std::int32_t refCode;
};

constexpr FieldRow kHMixRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(HMixItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(HMixItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(HMixItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(HMixItem, pMax)},
    {"aij", "aij", kReal, 1, "", 20, 1, offsetof(HMixItem, aij)},
    {"bij", "bij", kReal, 1, "", 24, 1, offsetof(HMixItem, bij)},
    {"cij", "cij", kReal, 1, "", 28, 1, offsetof(HMixItem, cij)},
    {"dij", "dij", kReal, 1, "", 32, 1, offsetof(HMixItem, dij)},
    {"eij", "eij", kReal, 1, "", 36, 1, offsetof(HMixItem, eij)},
    {"fij", "fij", kReal, 1, "", 40, 1, offsetof(HMixItem, fij)},
    {"gij", "gij", kReal, 1, "", 44, 1, offsetof(HMixItem, gij)},
    {"hij", "hij", kReal, 1, "", 48, 1, offsetof(HMixItem, hij)},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(HMixItem, refCode)},
};

constexpr auto kHMixArguments = std::make_tuple(
    &HMixItem::aij, &HMixItem::bij, &HMixItem::cij, &HMixItem::dij, &HMixItem::eij, &HMixItem::fij,
    &HMixItem::gij, &HMixItem::hij, Bound(&HMixItem::tMin), Bound(&HMixItem::tMax),
    Bound(&HMixItem::pMin), Bound(&HMixItem::pMax), &HMixItem::refCode);

class HMix_i final : public TypedBank<HMixItem, IZelHMix> {
 public:
  HMix_i(BankType const& type, ZelIid const& id)
      : TypedBank<HMixItem, IZelHMix>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* aij, double* bij, double* cij, double* dij, double* eij, double* fij,
                    double* gij, double* hij, double* tMin, double* tMax, double* pMin,
                    double* pMax, std::int32_t* refCode) override {
    return GiveData(this->item_, kHMixArguments, aij, bij, cij, dij, eij, fij, gij, hij, tMin, tMax,
                    pMin, pMax, refCode);
  }
  ZelStatus PutData(double aij, double bij, double cij, double dij, double eij, double fij,
                    double gij, double hij, double tMin, double tMax, double pMin, double pMax,
                    std::int32_t refCode) override {
    return TakeData(this->item_, kHMixArguments, aij, bij, cij, dij, eij, fij, gij, hij, tMin, tMax,
                    pMin, pMax, refCode);
  }
  // Negates the odd members and keeps the even ones; undefined values are negated like others.
  ZelStatus SwapPair() override {
    for (double* value : {&item_.bij, &item_.dij, &item_.fij, &item_.hij}) *value = -*value;
    return kStatusOk;
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kHMixRows), kHMixRows);
    return fields;
  }
};

}  // namespace

IZelBankDef* NewNrtl() { return MakeBank<Nrtl_i>("NRTL", IID_IZelNrtl); }
IZelBankDef* NewNrtlLL() { return MakeBank<NrtlLL_i>("NRTLLL", IID_IZelNrtlLL); }
IZelBankDef* NewUniquac() { return MakeBank<Uniquac_i>("UNIQUAC", IID_IZelUniquac); }
IZelBankDef* NewUniquacLL() { return MakeBank<UniquacLL_i>("UNIQLL", IID_IZelUniquacLL); }
IZelBankDef* NewMargules() { return MakeBank<Margules_i>("MARGULES", IID_IZelMargules); }
IZelBankDef* NewVanLaar() { return MakeBank<VanLaar_i>("VANLAAR", IID_IZelVanLaar); }
IZelBankDef* NewHMix() { return MakeBank<HMix_i>("HMIX", IID_IZelHMix); }

}  // namespace zel
