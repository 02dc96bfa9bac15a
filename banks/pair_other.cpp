// Pair banks of other data: Henry's law, azeotropes, association.
#include <bit>
#include <cstddef>
#include <iterator>
#include <tuple>
#include <utility>

#include "banks/typed_bank.h"

namespace zel {
namespace {

// --- HENRY ---------------------------------------------------------------------------------------

struct HenryItem {
  double tMin;
  double tMax;
  double pMin;
  double pMax;
  double c[5];
  std::int32_t refCode;
};

constexpr FieldRow kHenryRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(HenryItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(HenryItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(HenryItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(HenryItem, pMax)},
    {"c", "c", kReal, 5, "", 20, 1, offsetof(HenryItem, c)},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(HenryItem, refCode)},
};

constexpr auto kHenryArguments =
    std::make_tuple(&HenryItem::c, Bound(&HenryItem::tMin), Bound(&HenryItem::tMax),
                    Bound(&HenryItem::pMin), Bound(&HenryItem::pMax), &HenryItem::refCode);

class Henry_i final : public TypedBank<HenryItem, IZelHenry> {
 public:
  Henry_i(BankType const& type, ZelIid const& id)
      : TypedBank<HenryItem, IZelHenry>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* c, double* tMin, double* tMax, double* pMin, double* pMax,
                    std::int32_t* refCode) override {
    return GiveData(this->item_, kHenryArguments, c, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus GetDataDefaulted(double* c, double* tMin, double* tMax, double* pMin, double* pMax,
                             std::int32_t* refCode) override {
    return GiveDefaulted(this->item_, kHenryArguments, c, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus PutData(double const* c, double tMin, double tMax, double pMin, double pMax,
                    std::int32_t refCode) override {
    return TakeData(this->item_, kHenryArguments, c, tMin, tMax, pMin, pMax, refCode);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kHenryRows), kHenryRows);
    return fields;
  }
};

// --- AZEOTROP ------------------------------------------------------------------------------------

struct AzeoItem {
  double temp;
  double pres;
  double x1;
  std::int32_t basis;
};

constexpr FieldRow kAzeoRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"temp", "Temperature", kReal, 1, "temp", 0, 1, offsetof(AzeoItem, temp)},
    {"pres", "Pressure", kReal, 1, "pres", 4, 1, offsetof(AzeoItem, pres)},
    {"x1", "x1", kReal, 1, "", 8, 1, offsetof(AzeoItem, x1)},
    {"basis", "basis", kInteger, 1, "", kByHand, 1, offsetof(AzeoItem, basis)},
};

constexpr auto kAzeoArguments =
    std::make_tuple(&AzeoItem::temp, &AzeoItem::pres, &AzeoItem::x1, &AzeoItem::basis);

// "basis" stands in the last word of the block, as a float. Reading adds 0.1 and cuts, so that a
// float slightly too small still gives its integer. What no integer can hold, and the undefined
// integer, which the sum would move by one, read as undefined.
constexpr int kBasisWord = 3;

std::int32_t BasisFromWord(std::int32_t word) {
  constexpr double kHighest = 2147483647.0;
  double const value = static_cast<double>(std::bit_cast<float>(word)) + 0.1;
  bool const fits = value > -kHighest && value < kHighest + 1.0;
  return fits ? static_cast<std::int32_t>(value) : gen_GetUndefInt();
}

class Azeo_i final : public TypedBank<AzeoItem, IZelAzeo> {
 public:
  Azeo_i(BankType const& type, ZelIid const& id)
      : TypedBank<AzeoItem, IZelAzeo>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* temp, double* pres, double* x1, std::int32_t* basis) override {
    return GiveData(this->item_, kAzeoArguments, temp, pres, x1, basis);
  }
  ZelStatus PutData(double temp, double pres, double x1, std::int32_t basis) override {
    return TakeData(this->item_, kAzeoArguments, temp, pres, x1, basis);
  }
  // The mole fraction is that of the first component of the pair.
  ZelStatus SwapPair() override {
    item_.x1 = 1.0 - item_.x1;
    return kStatusOk;
  }
  ZelStatus ReadBlock(std::int32_t const* block, std::int32_t format) override {
    ZelStatus const status = BankBase_i::ReadBlock(block, format);
    if (status == kStatusOk) item_.basis = BasisFromWord(block[kBasisWord]);
    return status;
  }
  ZelStatus WriteBlock(std::int32_t* block, std::int32_t format) override {
    ZelStatus const status = BankBase_i::WriteBlock(block, format);
    if (status != kStatusOk) return status;
    block[kBasisWord] = std::bit_cast<std::int32_t>(static_cast<float>(item_.basis));
    return kStatusOk;
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields = [] {
      FieldTable table(1, std::size(kAzeoRows), kAzeoRows);
      table.SetRecordLength(1, kBasisWord + 1);
      return table;
    }();
    return fields;
  }
};

// --- IDIMER --------------------------------------------------------------------------------------

struct IDimerItem {
  double aij;
  double bij;
  std::int32_t refCode;
};

constexpr FieldRow kIDimerRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"Aij", "Aij coefficient", kReal, 1, "", 0, 1, offsetof(IDimerItem, aij)},
    {"Bij", "Bij coefficient", kReal, 1, "", 4, 1, offsetof(IDimerItem, bij)},
    {"refCode", "Reference code", kInteger, 1, "", 8, 1, offsetof(IDimerItem, refCode)},
};

constexpr auto kIDimerArguments =
    std::make_tuple(&IDimerItem::aij, &IDimerItem::bij, &IDimerItem::refCode);

class IDimer_i final : public TypedBank<IDimerItem, IZelIDimer> {
 public:
  IDimer_i(BankType const& type, ZelIid const& id)
      : TypedBank<IDimerItem, IZelIDimer>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* aij, double* bij, std::int32_t* refCode) override {
    return GiveData(this->item_, kIDimerArguments, aij, bij, refCode);
  }
  ZelStatus PutData(double aij, double bij, std::int32_t refCode) override {
    return TakeData(this->item_, kIDimerArguments, aij, bij, refCode);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kIDimerRows), kIDimerRows);
    return fields;
  }
};

// --- HOCV ----------------------------------------------------------------------------------------

struct HocVItem {
  double eta;
};

constexpr FieldRow kHocVRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"eta", "eta", kReal, 1, "", 0, 1, offsetof(HocVItem, eta)},
};

constexpr auto kHocVArguments = std::make_tuple(&HocVItem::eta);

class HocV_i final : public TypedBank<HocVItem, IZelHocV> {
 public:
  HocV_i(BankType const& type, ZelIid const& id)
      : TypedBank<HocVItem, IZelHocV>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* eta) override { return GiveData(this->item_, kHocVArguments, eta); }
  ZelStatus PutData(double eta) override { return TakeData(this->item_, kHocVArguments, eta); }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kHocVRows), kHocVRows);
    return fields;
  }
};

}  // namespace

IZelBankDef* NewHenry() { return MakeBank<Henry_i>("HENRY", IID_IZelHenry); }
IZelBankDef* NewAzeo() { return MakeBank<Azeo_i>("AZEOTROP", IID_IZelAzeo); }
IZelBankDef* NewIDimer() { return MakeBank<IDimer_i>("IDIMER", IID_IZelIDimer); }
IZelBankDef* NewHocV() { return MakeBank<HocV_i>("HOCV", IID_IZelHocV); }

}  // namespace zel
