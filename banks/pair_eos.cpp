// Pair banks of equations of state whose parameters depend on the order of the pair.
#include <cstddef>
#include <iterator>
#include <tuple>
#include <utility>

#include "banks/typed_bank.h"

namespace zel {
namespace {

// --- PRH, SRKH -----------------------------------------------------------------------------------

struct PrHItem {
  double tMin;
  double tMax;
  double pMin;
  double pMax;
  double aij;
  double bij;
  double cij;
  double aji;
  double bji;
  double cji;
  double alphaCij;
  double alphaTij;
  std::int32_t refCode;
};

constexpr FieldRow kPrHRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(PrHItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(PrHItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(PrHItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(PrHItem, pMax)},
    {"aij", "aij", kReal, 1, "", 20, 1, offsetof(PrHItem, aij)},
    {"bij", "bij", kReal, 1, "", 24, 1, offsetof(PrHItem, bij)},
    {"cij", "cij", kReal, 1, "", 28, 1, offsetof(PrHItem, cij)},
    {"aji", "aji", kReal, 1, "", 32, 1, offsetof(PrHItem, aji)},
    {"bji", "bji", kReal, 1, "", 36, 1, offsetof(PrHItem, bji)},
    {"cji", "cji", kReal, 1, "", 40, 1, offsetof(PrHItem, cji)},
    {"alphaCij", "alphaCij", kReal, 1, "", 44, 1, offsetof(PrHItem, alphaCij)},
    {"alphaTij", "alphaTij", kReal, 1, "", 48, 1, offsetof(PrHItem, alphaTij)},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(PrHItem, refCode)},
};

constexpr auto kPrHArguments = std::make_tuple(
    &PrHItem::aij, &PrHItem::bij, &PrHItem::cij, &PrHItem::aji, &PrHItem::bji, &PrHItem::cji,
    &PrHItem::alphaCij, &PrHItem::alphaTij, Bound(&PrHItem::tMin), Bound(&PrHItem::tMax),
    Bound(&PrHItem::pMin), Bound(&PrHItem::pMax), &PrHItem::refCode);
constexpr auto kPrHPairs = std::make_tuple(std::pair(&PrHItem::aij, &PrHItem::aji),
                                           std::pair(&PrHItem::bij, &PrHItem::bji),
                                           std::pair(&PrHItem::cij, &PrHItem::cji));

template <typename Interface>
class PrHBank final : public TypedBank<PrHItem, Interface> {
 public:
  PrHBank(BankType const& type, ZelIid const& id)
      : TypedBank<PrHItem, Interface>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* aij, double* bij, double* cij, double* aji, double* bji, double* cji,
                    double* alphaCij, double* alphaTij, double* tMin, double* tMax, double* pMin,
                    double* pMax, std::int32_t* refCode) override {
    return GiveData(this->item_, kPrHArguments, aij, bij, cij, aji, bji, cji, alphaCij, alphaTij,
                    tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus PutData(double aij, double bij, double cij, double aji, double bji, double cji,
                    double alphaCij, double alphaTij, double tMin, double tMax, double pMin,
                    double pMax, std::int32_t refCode) override {
    return TakeData(this->item_, kPrHArguments, aij, bij, cij, aji, bji, cji, alphaCij, alphaTij,
                    tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kPrHPairs); }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kPrHRows), kPrHRows);
    return fields;
  }
};
using PrH_i = PrHBank<IZelPrH>;
using SrkH_i = PrHBank<IZelSrkH>;

// --- PRM, SRKS -----------------------------------------------------------------------------------

struct PrMItem {
  double tMin;
  double tMax;
  double pMin;
  double pMax;
  double kij[4];
  double kji[4];
  std::int32_t refCode;
};

constexpr FieldRow kPrMRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(PrMItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(PrMItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(PrMItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(PrMItem, pMax)},
    {"kij", "kij", kReal, 4, "", 20, 1, offsetof(PrMItem, kij)},
    {"kji", "kji", kReal, 4, "", 36, 1, offsetof(PrMItem, kji)},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(PrMItem, refCode)},
};

constexpr auto kPrMArguments =
    std::make_tuple(&PrMItem::kij, &PrMItem::kji, Bound(&PrMItem::tMin), Bound(&PrMItem::tMax),
                    Bound(&PrMItem::pMin), Bound(&PrMItem::pMax), &PrMItem::refCode);
constexpr auto kPrMPairs = std::make_tuple(std::pair(&PrMItem::kij, &PrMItem::kji));

template <typename Interface>
class PrMBank final : public TypedBank<PrMItem, Interface> {
 public:
  PrMBank(BankType const& type, ZelIid const& id)
      : TypedBank<PrMItem, Interface>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* kij, double* kji, double* tMin, double* tMax, double* pMin,
                    double* pMax, std::int32_t* refCode) override {
    return GiveData(this->item_, kPrMArguments, kij, kji, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus GetDataDefaulted(double* kij, double* kji, double* tMin, double* tMax, double* pMin,
                             double* pMax, std::int32_t* refCode) override {
    return GiveDefaulted(this->item_, kPrMArguments, kij, kji, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus PutData(double const* kij, double const* kji, double tMin, double tMax, double pMin,
                    double pMax, std::int32_t refCode) override {
    return TakeData(this->item_, kPrMArguments, kij, kji, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kPrMPairs); }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kPrMRows), kPrMRows);
    return fields;
  }
};
using PrM_i = PrMBank<IZelPrM>;
using SrkS_i = PrMBank<IZelSrkS>;

// --- SRKM ----------------------------------------------------------------------------------------

struct SrkMItem {
  double tMin;
  double tMax;
  double pMin;
  double pMax;
  double kij[4];
  double kji[4];
  double kijd;
  double kjid;
  std::int32_t refCode;
};

constexpr FieldRow kSrkMRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(SrkMItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(SrkMItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(SrkMItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(SrkMItem, pMax)},
    {"kij", "kij", kReal, 4, "", 20, 1, offsetof(SrkMItem, kij)},
    {"kji", "kji", kReal, 4, "", 36, 1, offsetof(SrkMItem, kji)},
    {"kijd", "kijd", kReal, 1, "", 56, 2, offsetof(SrkMItem, kijd)},
    {"kjid", "kjid", kReal, 1, "", 60, 2, offsetof(SrkMItem, kjid)},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(SrkMItem, refCode)},
};

constexpr auto kSrkMArguments = std::make_tuple(
    &SrkMItem::kij, &SrkMItem::kji, &SrkMItem::kijd, &SrkMItem::kjid, Bound(&SrkMItem::tMin),
    Bound(&SrkMItem::tMax), Bound(&SrkMItem::pMin), Bound(&SrkMItem::pMax), &SrkMItem::refCode);
constexpr auto kSrkMPairs = std::make_tuple(std::pair(&SrkMItem::kij, &SrkMItem::kji),
                                            std::pair(&SrkMItem::kijd, &SrkMItem::kjid));

class SrkM_i final : public TypedBank<SrkMItem, IZelSrkM> {
 public:
  SrkM_i(BankType const& type, ZelIid const& id)
      : TypedBank<SrkMItem, IZelSrkM>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* kij, double* kji, double* kijd, double* kjid, double* tMin,
                    double* tMax, double* pMin, double* pMax, std::int32_t* refCode) override {
    return GiveData(this->item_, kSrkMArguments, kij, kji, kijd, kjid, tMin, tMax, pMin, pMax,
                    refCode);
  }
  ZelStatus GetDataDefaulted(double* kij, double* kji, double* kijd, double* kjid, double* tMin,
                             double* tMax, double* pMin, double* pMax,
                             std::int32_t* refCode) override {
    return GiveDefaulted(this->item_, kSrkMArguments, kij, kji, kijd, kjid, tMin, tMax, pMin, pMax,
                         refCode);
  }
  ZelStatus PutData(double const* kij, double const* kji, double kijd, double kjid, double tMin,
                    double tMax, double pMin, double pMax, std::int32_t refCode) override {
    return TakeData(this->item_, kSrkMArguments, kij, kji, kijd, kjid, tMin, tMax, pMin, pMax,
                    refCode);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kSrkMPairs); }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(2, std::size(kSrkMRows), kSrkMRows);
    return fields;
  }
};

// --- PRP, SRKP -----------------------------------------------------------------------------------

struct PrPItem {
  double tMin;
  double tMax;
  double pMin;
  double pMax;
  double kij[3];
  double kji[3];
  std::int32_t refCode;
};

constexpr FieldRow kPrPRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(PrPItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(PrPItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(PrPItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(PrPItem, pMax)},
    {"kij", "kij", kReal, 3, "", 20, 1, offsetof(PrPItem, kij)},
    {"kji", "kji", kReal, 3, "", 32, 1, offsetof(PrPItem, kji)},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(PrPItem, refCode)},
};

constexpr auto kPrPArguments =
    std::make_tuple(&PrPItem::kij, &PrPItem::kji, Bound(&PrPItem::tMin), Bound(&PrPItem::tMax),
                    Bound(&PrPItem::pMin), Bound(&PrPItem::pMax), &PrPItem::refCode);
constexpr auto kPrPPairs = std::make_tuple(std::pair(&PrPItem::kij, &PrPItem::kji));

template <typename Interface>
class PrPBank final : public TypedBank<PrPItem, Interface> {
 public:
  PrPBank(BankType const& type, ZelIid const& id)
      : TypedBank<PrPItem, Interface>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* kij, double* kji, double* tMin, double* tMax, double* pMin,
                    double* pMax, std::int32_t* refCode) override {
    return GiveData(this->item_, kPrPArguments, kij, kji, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus PutData(double const* kij, double const* kji, double tMin, double tMax, double pMin,
                    double pMax, std::int32_t refCode) override {
    return TakeData(this->item_, kPrPArguments, kij, kji, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kPrPPairs); }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kPrPRows), kPrPRows);
    return fields;
  }
};
using PrP_i = PrPBank<IZelPrP>;
using SrkP_i = PrPBank<IZelSrkP>;

}  // namespace

IZelBankDef* NewPrH() { return MakeBank<PrH_i>("PRH", IID_IZelPrH); }
IZelBankDef* NewSrkH() { return MakeBank<SrkH_i>("SRKH", IID_IZelSrkH); }
IZelBankDef* NewPrM() { return MakeBank<PrM_i>("PRM", IID_IZelPrM); }
IZelBankDef* NewSrkS() { return MakeBank<SrkS_i>("SRKS", IID_IZelSrkS); }
IZelBankDef* NewSrkM() { return MakeBank<SrkM_i>("SRKM", IID_IZelSrkM); }
IZelBankDef* NewPrP() { return MakeBank<PrP_i>("PRP", IID_IZelPrP); }
IZelBankDef* NewSrkP() { return MakeBank<SrkP_i>("SRKP", IID_IZelSrkP); }

}  // namespace zel
