// Pair banks of other data: Henry's law, azeotropes, association.
#include <bit>

#include "banks/field_bank.h"

namespace zel {
namespace {

// --- HENRY ---------------------------------------------------------------------------------------

constexpr FieldTable kHenryFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"c", "c", kReal, 5, "", 20, 1},
    RefCodeAt(52),
});
constexpr Arguments kHenryArguments(kHenryFields, {"c", "tMin", "tMax", "pMin", "pMax", "refCode"});

using Henry_i = FieldBank<IZelHenry, kHenryFields, kHenryArguments>;

// --- AZEOTROP ------------------------------------------------------------------------------------

constexpr FieldTable kAzeoFields({
    // name, label, type, count, unit, block offset, format, rule
    {"temp", "Temperature", kReal, 1, "temp", 0, 1},
    {"pres", "Pressure", kReal, 1, "pres", 4, 1},
    {"x1", "x1", kReal, 1, "", 8, 1, kOneMinus},
    {"basis", "basis", kInteger, 1, "", ByHand(12), 1},
});
constexpr Arguments kAzeoArguments(kAzeoFields, {"temp", "pres", "x1", "basis"});

// "basis" is stored in its word as a float. Reading adds 0.1 and truncates, so that a float
// slightly too small still yields its integer. Values that no integer can hold, and the undefined
// integer, which the sum would change by one, are read as undefined.
std::int32_t BasisFromWord(std::int32_t word) {
  constexpr double kHighest = 2147483647.0;
  double const value = static_cast<double>(std::bit_cast<float>(word)) + 0.1;
  bool const fits = value > -kHighest && value < kHighest + 1.0;
  return fits ? static_cast<std::int32_t>(value) : gen_GetUndefInt();
}

class Azeo_i final : public FieldBank<IZelAzeo, kAzeoFields, kAzeoArguments> {
 public:
  using FieldBank::FieldBank;

  ZelStatus ReadBlock(std::int32_t const* block, std::int32_t format) override {
    ZelStatus const status = BankBase_i::ReadBlock(block, format);
    if (status == kStatusOk) DecodeColumn(kBasis, block, format, Integers(kBasis));
    return status;
  }
  void DecodeColumn(Field const& field, std::int32_t const* record, std::int32_t format,
                    void* to) const override {
    if (!field.codedByHand) return BankBase_i::DecodeColumn(field, record, format, to);
    *static_cast<std::int32_t*>(to) = BasisFromWord(record[field.firstWord]);
  }
  ZelStatus WriteBlock(std::int32_t* block, std::int32_t format) override {
    ZelStatus const status = BankBase_i::WriteBlock(block, format);
    if (status != kStatusOk) return status;
    block[kBasis.firstWord] = std::bit_cast<std::int32_t>(static_cast<float>(*Integers(kBasis)));
    return kStatusOk;
  }

 private:
  static constexpr Field const& kBasis = kAzeoFields["basis"];
};

// --- IDIMER --------------------------------------------------------------------------------------

constexpr FieldTable kIDimerFields({
    // name, label, type, count, unit, block offset, format, rule
    {"Aij", "Aij coefficient", kReal, 1, "", 0, 1},
    {"Bij", "Bij coefficient", kReal, 1, "", 4, 1},
    RefCodeAt(8),
});
constexpr Arguments kIDimerArguments(kIDimerFields, {"Aij", "Bij", "refCode"});

using IDimer_i = FieldBank<IZelIDimer, kIDimerFields, kIDimerArguments>;

// --- HOCV ----------------------------------------------------------------------------------------

constexpr FieldTable kHocVFields({
    // name, label, type, count, unit, block offset, format, rule
    {"eta", "eta", kReal, 1, "", 0, 1},
});
constexpr Arguments kHocVArguments(kHocVFields, {"eta"});

using HocV_i = FieldBank<IZelHocV, kHocVFields, kHocVArguments>;

}  // namespace

IZelBankDef* NewHenry() { return MakeBank<Henry_i>("HENRY", IID_IZelHenry); }
IZelBankDef* NewAzeo() { return MakeBank<Azeo_i>("AZEOTROP", IID_IZelAzeo); }
IZelBankDef* NewIDimer() { return MakeBank<IDimer_i>("IDIMER", IID_IZelIDimer); }
IZelBankDef* NewHocV() { return MakeBank<HocV_i>("HOCV", IID_IZelHocV); }

}  // namespace zel
