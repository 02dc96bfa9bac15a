// Pair banks of equations of state whose parameters are the same for (i, j) and (j, i).
#include <cstddef>
#include <iterator>
#include <tuple>

#include "banks/typed_bank.h"

namespace zel {
namespace {

// --- PRO, SRKO -----------------------------------------------------------------------------------

struct PrOItem {
  double tMin;
  double tMax;
  double pMin;
  double pMax;
  double kij[4];
  std::int32_t refCode;
};

constexpr FieldRow kPrORows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(PrOItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(PrOItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(PrOItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(PrOItem, pMax)},
    {"kij", "kij", kReal, 4, "", 20, 1, offsetof(PrOItem, kij)},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(PrOItem, refCode)},
};

constexpr auto kPrOArguments =
    std::make_tuple(&PrOItem::kij, Bound(&PrOItem::tMin), Bound(&PrOItem::tMax),
                    Bound(&PrOItem::pMin), Bound(&PrOItem::pMax), &PrOItem::refCode);

template <typename Interface>
class PrOBank final : public TypedBank<PrOItem, Interface> {
 public:
  PrOBank(BankType const& type, ZelIid const& id)
      : TypedBank<PrOItem, Interface>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* kij, double* tMin, double* tMax, double* pMin, double* pMax,
                    std::int32_t* refCode) override {
    return GiveData(this->item_, kPrOArguments, kij, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus GetDataDefaulted(double* kij, double* tMin, double* tMax, double* pMin, double* pMax,
                             std::int32_t* refCode) override {
    return GiveDefaulted(this->item_, kPrOArguments, kij, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus PutData(double const* kij, double tMin, double tMax, double pMin, double pMax,
                    std::int32_t refCode) override {
    return TakeData(this->item_, kPrOArguments, kij, tMin, tMax, pMin, pMax, refCode);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kPrORows), kPrORows);
    return fields;
  }
};
using PrO_i = PrOBank<IZelPrO>;
using SrkO_i = PrOBank<IZelSrkO>;

// --- BWRS ----------------------------------------------------------------------------------------

struct BwrsItem {
  double tMin;
  double tMax;
  double pMin;
  double pMax;
  double aij;
  double bij;
  std::int32_t refCode;
};

constexpr FieldRow kBwrsRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(BwrsItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(BwrsItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(BwrsItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(BwrsItem, pMax)},
    {"aij", "aij", kReal, 1, "", 20, 1, offsetof(BwrsItem, aij)},
    {"bij", "bij", kReal, 1, "", 24, 1, offsetof(BwrsItem, bij)},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(BwrsItem, refCode)},
};

constexpr auto kBwrsArguments =
    std::make_tuple(&BwrsItem::aij, &BwrsItem::bij, Bound(&BwrsItem::tMin), Bound(&BwrsItem::tMax),
                    Bound(&BwrsItem::pMin), Bound(&BwrsItem::pMax), &BwrsItem::refCode);

class Bwrs_i final : public TypedBank<BwrsItem, IZelBwrs> {
 public:
  Bwrs_i(BankType const& type, ZelIid const& id)
      : TypedBank<BwrsItem, IZelBwrs>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* aij, double* bij, double* tMin, double* tMax, double* pMin,
                    double* pMax, std::int32_t* refCode) override {
    return GiveData(this->item_, kBwrsArguments, aij, bij, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus GetDataDefaulted(double* aij, double* bij, double* tMin, double* tMax, double* pMin,
                             double* pMax, std::int32_t* refCode) override {
    return GiveDefaulted(this->item_, kBwrsArguments, aij, bij, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus PutData(double aij, double bij, double tMin, double tMax, double pMin, double pMax,
                    std::int32_t refCode) override {
    return TakeData(this->item_, kBwrsArguments, aij, bij, tMin, tMax, pMin, pMax, refCode);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kBwrsRows), kBwrsRows);
    return fields;
  }
};

// --- LKP -----------------------------------------------------------------------------------------

struct LkpItem {
  double kij;
  std::int32_t refCode;
};

constexpr FieldRow kLkpRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"kij", "kij", kReal, 1, "", 0, 1, offsetof(LkpItem, kij)},
    {"refCode", "Reference code", kInteger, 1, "", 4, 1, offsetof(LkpItem, refCode)},
};

constexpr auto kLkpArguments = std::make_tuple(&LkpItem::kij, &LkpItem::refCode);

class Lkp_i final : public TypedBank<LkpItem, IZelLkp> {
 public:
  Lkp_i(BankType const& type, ZelIid const& id) : TypedBank<LkpItem, IZelLkp>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* kij, std::int32_t* refCode) override {
    return GiveData(this->item_, kLkpArguments, kij, refCode);
  }
  ZelStatus PutData(double kij, std::int32_t refCode) override {
    return TakeData(this->item_, kLkpArguments, kij, refCode);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kLkpRows), kLkpRows);
    return fields;
  }
};

// --- PCSAFT --------------------------------------------------------------------------------------

struct PcSaftItem {
  double tMin;
  double tMax;
  double kij[4];
  std::int32_t refCode;
};

constexpr FieldRow kPcSaftRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(PcSaftItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(PcSaftItem, tMax)},
    {"kij", "kij", kReal, 4, "", 12, 1, offsetof(PcSaftItem, kij)},
    {"refCode", "Reference code", kInteger, 1, "", 44, 1, offsetof(PcSaftItem, refCode)},
};

constexpr auto kPcSaftArguments = std::make_tuple(&PcSaftItem::kij, Bound(&PcSaftItem::tMin),
                                                  Bound(&PcSaftItem::tMax), &PcSaftItem::refCode);

class PcSaft_i final : public TypedBank<PcSaftItem, IZelPcSaft> {
 public:
  PcSaft_i(BankType const& type, ZelIid const& id)
      : TypedBank<PcSaftItem, IZelPcSaft>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* kij, double* tMin, double* tMax, std::int32_t* refCode) override {
    return GiveData(this->item_, kPcSaftArguments, kij, tMin, tMax, refCode);
  }
  ZelStatus GetDataDefaulted(double* kij, double* tMin, double* tMax,
                             std::int32_t* refCode) override {
    return GiveDefaulted(this->item_, kPcSaftArguments, kij, tMin, tMax, refCode);
  }
  ZelStatus PutData(double const* kij, double tMin, double tMax, std::int32_t refCode) override {
    return TakeData(this->item_, kPcSaftArguments, kij, tMin, tMax, refCode);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, 6, kPcSaftRows);
    return fields;
  }
};

}  // namespace

IZelBankDef* NewPrO() { return MakeBank<PrO_i>("PRO", IID_IZelPrO); }
IZelBankDef* NewSrkO() { return MakeBank<SrkO_i>("SRKO", IID_IZelSrkO); }
IZelBankDef* NewBwrs() { return MakeBank<Bwrs_i>("BWRS", IID_IZelBwrs); }
IZelBankDef* NewLkp() { return MakeBank<Lkp_i>("LKP", IID_IZelLkp); }
IZelBankDef* NewPcSaft() { return MakeBank<PcSaft_i>("PCSAFT", IID_IZelPcSaft); }

}  // namespace zel
