// Banks of one component whose fields are interleaved in the block: alpha coefficients, and curves
// of an interaction parameter against molecular weight.
#include "banks/field_bank.h"

namespace zel {
namespace {

// --- ALPHA ---------------------------------------------------------------------------------------

// The block: "refCode", then three groups of five words - a packed number, "deviation" and three
// coefficients.
constexpr BlockPlace kAlphaPacked = ByHand(Runs(4, 1, 20));

constexpr FieldTable kAlphaFields({
    // name, label, type, count, unit, block offset, format, rule
    RefCodeAt(0),
    {"eos", "eos", kInteger, 3, "", kAlphaPacked, 1},
    {"form", "form", kInteger, 3, "", kAlphaPacked, 1},
    {"deviation", "deviation", kReal, 3, "", Runs(8, 1, 20), 1},
    {"coef", "coef", kReal, 9, "", Runs(12, 3, 20), 1},
});
constexpr Arguments kAlphaArguments(kAlphaFields, {"eos", "form", "deviation", "coef", "refCode"});

// eos x 100 + form; if only one of the two is undefined, it counts as 0 and is read back as 0.
constexpr std::int32_t kEosFactor = 100;

std::int32_t PackedNumber(std::int32_t eos, std::int32_t form) {
  bool const noEos = gen_IsUndefInt(eos);
  bool const noForm = gen_IsUndefInt(form);
  if (noEos && noForm) return gen_GetUndefInt();
  auto const scaled = noEos ? 0U : static_cast<std::uint32_t>(eos) * kEosFactor;
  return static_cast<std::int32_t>(scaled + (noForm ? 0U : static_cast<std::uint32_t>(form)));
}

struct Numbers {
  std::int32_t eos;
  std::int32_t form;
};
Numbers UnpackedNumber(std::int32_t packed) {
  if (gen_IsUndefInt(packed)) return {packed, packed};
  return {packed / kEosFactor, packed % kEosFactor};
}

class Alpha_i final : public FieldBank<IZelAlpha, kAlphaFields, kAlphaArguments> {
 public:
  using FieldBank::FieldBank;

  ZelStatus ReadBlock(std::int32_t const* block, std::int32_t format) override {
    ZelStatus const status = BankBase_i::ReadBlock(block, format);
    if (status != kStatusOk) return status;
    for (Field const* field : {&kEos, &kForm})
      DecodeColumn(*field, block, format, Integers(*field));
    return kStatusOk;
  }

  void DecodeColumn(Field const& field, std::int32_t const* record, std::int32_t format,
                    void* to) const override {
    if (!field.codedByHand) return BankBase_i::DecodeColumn(field, record, format, to);
    for (std::int32_t group = 0; group < field.count; ++group) {
      Numbers const numbers = UnpackedNumber(record[PackedWord(group)]);
      static_cast<std::int32_t*>(to)[group] = &field == &kEos ? numbers.eos : numbers.form;
    }
  }

  ZelStatus WriteBlock(std::int32_t* block, std::int32_t format) override {
    ZelStatus const status = BankBase_i::WriteBlock(block, format);
    if (status != kStatusOk) return status;
    for (std::int32_t group = 0; group < kEos.count; ++group) {
      block[PackedWord(group)] = PackedNumber(Integers(kEos)[group], Integers(kForm)[group]);
    }
    return kStatusOk;
  }

 private:
  static constexpr Field const& kEos = kAlphaFields["eos"];
  static constexpr Field const& kForm = kAlphaFields["form"];

  static std::int32_t PackedWord(std::int32_t group) {
    return kEos.firstWord + group * kEos.stepWords;
  }
};

// --- MWPR, MWSRK ---------------------------------------------------------------------------------

// The block: "count", then twelve pairs of "mw" and "kij", all twelve whatever "count" is.
constexpr FieldTable kCurveFields({
    // name, label, type, count, unit, block offset, format, rule
    {"count", "count", kInteger, 1, "", 0, 1},
    {"mw", "mw", kReal, 12, "", Runs(4, 1, 8), 1, CountedBy("count")},
    {"kij", "kij", kReal, 12, "", Runs(8, 1, 8), 1, CountedBy("count")},
});
constexpr Arguments kCurveArguments(kCurveFields, {"count", "mw", "kij"});

using MwPr_i = FieldBank<IZelMwPr, kCurveFields, kCurveArguments>;
using MwSrk_i = FieldBank<IZelMwSrk, kCurveFields, kCurveArguments>;

}  // namespace

IZelBankDef* NewAlpha() { return MakeBank<Alpha_i>("ALPHA", IID_IZelAlpha); }
IZelBankDef* NewMwPr() { return MakeBank<MwPr_i>("MWPR", IID_IZelMwPr); }
IZelBankDef* NewMwSrk() { return MakeBank<MwSrk_i>("MWSRK", IID_IZelMwSrk); }

}  // namespace zel
