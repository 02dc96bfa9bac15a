// Interactions of groups whose blocks are coded by hand.
#include "banks/block_words.h"
#include "banks/field_bank.h"

namespace zel {
namespace {

// --- UNIFAC --------------------------------------------------------------------------------------

// After the four numbers the arrays alternate, three elements of "Tij", three of "Tji", and so on.
constexpr FieldTable kUnifacFields({
    // name, label, type, count, unit, block offset, format, rule
    {"vlij", "vlij", kReal, 1, "", 0, 1, ExchangedWith("vlji")},
    {"vlji", "vlji", kReal, 1, "", 4, 1},
    {"llij", "llij", kReal, 1, "", 8, 1, ExchangedWith("llji")},
    {"llji", "llji", kReal, 1, "", 12, 1},
    {"Tij", "Tij", kReal, 9, "", Runs(16, 3, 24), 1, ExchangedWith("Tji")},
    {"Tji", "Tji", kReal, 9, "", Runs(28, 3, 24), 1},
});
constexpr Arguments kUnifacArguments(kUnifacFields, {"vlij", "vlji", "llij", "llji", "Tij", "Tji"});

using Unifac_i = FieldBank<IZelUnifac, kUnifacFields, kUnifacArguments>;

// --- PPR78 ---------------------------------------------------------------------------------------

constexpr FieldTable kPpr78Fields({
    // name, label, type, count, unit, block offset, format, rule
    {"aij", "AIJ", kReal, 1, "", ByHand(0), 1},
    {"bij", "BIJ", kReal, 1, "", ByHand(4), 1},
});
constexpr Arguments kPpr78Arguments(kPpr78Fields, {"aij", "bij"});

// The stored numbers are on another scale: 1.5 plus the square root of 2. An undefined value is
// scaled like any other, and stays undefined.
constexpr double kStoredScale = 2.914213562373095;

class Ppr78_i final : public FieldBank<IZelPpr78, kPpr78Fields, kPpr78Arguments> {
 public:
  using FieldBank::FieldBank;

  ZelStatus ReadBlock(std::int32_t const* block, std::int32_t format) override {
    if (!HasFormat(format) || block == nullptr) return kStatusFailed;
    for (Field const& field : kPpr78Fields.Rows()) DecodeColumn(field, block, format, Reals(field));
    return kStatusOk;
  }
  void DecodeColumn(Field const& field, std::int32_t const* record, std::int32_t,
                    void* to) const override {
    *static_cast<double*>(to) = RealOfWord(record[field.firstWord]) / kStoredScale;
  }
  ZelStatus WriteBlock(std::int32_t* block, std::int32_t format) override {
    if (!HasFormat(format) || block == nullptr) return kStatusFailed;
    for (Field const& field : kPpr78Fields.Rows()) {
      block[field.firstWord] = WordOfReal(*Reals(field) * kStoredScale);
    }
    return kStatusOk;
  }
};

}  // namespace

IZelBankDef* NewUnifac() { return MakeBank<Unifac_i>("UNIFAC", IID_IZelUnifac); }
IZelBankDef* NewPpr78() { return MakeBank<Ppr78_i>("PPR78", IID_IZelPpr78); }

}  // namespace zel
