// Interactions of groups whose blocks are coded by hand.
#include <bit>
#include <cstddef>
#include <iterator>
#include <tuple>
#include <utility>

#include "banks/typed_bank.h"
#include "frame/trim7.h"

namespace zel {
namespace {

// --- UNIFAC --------------------------------------------------------------------------------------

struct UnifacItem {
  double vlij;
  double vlji;
  double llij;
  double llji;
  double tij[9];
  double tji[9];
};

constexpr FieldRow kUnifacRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"vlij", "vlij", kReal, 1, "", 0, 1, offsetof(UnifacItem, vlij)},
    {"vlji", "vlji", kReal, 1, "", 4, 1, offsetof(UnifacItem, vlji)},
    {"llij", "llij", kReal, 1, "", 8, 1, offsetof(UnifacItem, llij)},
    {"llji", "llji", kReal, 1, "", 12, 1, offsetof(UnifacItem, llji)},
    {"Tij", "Tij", kReal, 9, "", kByHand, 1, offsetof(UnifacItem, tij)},
    {"Tji", "Tji", kReal, 9, "", kByHand, 1, offsetof(UnifacItem, tji)},
};

constexpr auto kUnifacArguments =
    std::make_tuple(&UnifacItem::vlij, &UnifacItem::vlji, &UnifacItem::llij, &UnifacItem::llji,
                    &UnifacItem::tij, &UnifacItem::tji);
constexpr auto kUnifacPairs = std::make_tuple(std::pair(&UnifacItem::vlij, &UnifacItem::vlji),
                                              std::pair(&UnifacItem::llij, &UnifacItem::llji),
                                              std::pair(&UnifacItem::tij, &UnifacItem::tji));

// Behind the four numbers the arrays alternate, three elements of "Tij", three of "Tji", and so on.
constexpr std::int32_t kUnifacWords = 22;
constexpr std::size_t kFirstArrayWord = 4;

class Unifac_i final : public TypedBank<UnifacItem, IZelUnifac> {
 public:
  Unifac_i(BankType const& type, ZelIid const& id)
      : TypedBank<UnifacItem, IZelUnifac>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* vlij, double* vlji, double* llij, double* llji, double* tij,
                    double* tji) override {
    return GiveData(this->item_, kUnifacArguments, vlij, vlji, llij, llji, tij, tji);
  }
  ZelStatus PutData(double vlij, double vlji, double llij, double llji, double const* tij,
                    double const* tji) override {
    return TakeData(this->item_, kUnifacArguments, vlij, vlji, llij, llji, tij, tji);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kUnifacPairs); }

  ZelStatus ReadBlock(std::int32_t const* block, std::int32_t format) override {
    ZelStatus const status = BankBase_i::ReadBlock(block, format);
    if (status != kStatusOk) return status;
    ForEachElement(
        [&](std::size_t word, double& value) { value = Trim7(std::bit_cast<float>(block[word])); });
    return kStatusOk;
  }
  ZelStatus WriteBlock(std::int32_t* block, std::int32_t format) override {
    ZelStatus const status = BankBase_i::WriteBlock(block, format);
    if (status != kStatusOk) return status;
    ForEachElement([&](std::size_t word, double& value) {
      block[word] = std::bit_cast<std::int32_t>(static_cast<float>(value));
    });
    return kStatusOk;
  }

 private:
  // Visits the elements of both arrays with their words.
  template <typename Visit>
  void ForEachElement(Visit const& visit) {
    std::size_t word = kFirstArrayWord;
    for (std::size_t three = 0; three < 9; three += 3) {
      for (double* array : {item_.tij, item_.tji}) {
        for (std::size_t i = 0; i < 3; ++i) visit(word++, array[three + i]);
      }
    }
  }
  static FieldTable const& Fields() {
    static constexpr FieldTable fields = [] {
      FieldTable table(1, std::size(kUnifacRows), kUnifacRows);
      table.SetRecordLength(1, kUnifacWords);
      return table;
    }();
    return fields;
  }
};

// --- PPR78 ---------------------------------------------------------------------------------------

struct Ppr78Item {
  double aij;
  double bij;
};

constexpr FieldRow kPpr78Rows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"aij", "AIJ", kReal, 1, "", 0, 1, offsetof(Ppr78Item, aij)},
    {"bij", "BIJ", kReal, 1, "", 4, 1, offsetof(Ppr78Item, bij)},
};

constexpr auto kPpr78Arguments = std::make_tuple(&Ppr78Item::aij, &Ppr78Item::bij);

// The stored numbers are on another scale: 1.5 plus the square root of 2. An undefined value is
// scaled like any other, and is undefined still.
constexpr double kStoredScale = 2.914213562373095;

class Ppr78_i final : public TypedBank<Ppr78Item, IZelPpr78> {
 public:
  Ppr78_i(BankType const& type, ZelIid const& id)
      : TypedBank<Ppr78Item, IZelPpr78>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* aij, double* bij) override {
    return GiveData(this->item_, kPpr78Arguments, aij, bij);
  }
  ZelStatus PutData(double aij, double bij) override {
    return TakeData(this->item_, kPpr78Arguments, aij, bij);
  }

  ZelStatus ReadBlock(std::int32_t const* block, std::int32_t format) override {
    if (!HasFormat(format)) return kStatusFailed;
    item_.aij = Trim7(std::bit_cast<float>(block[0])) / kStoredScale;
    item_.bij = Trim7(std::bit_cast<float>(block[1])) / kStoredScale;
    return kStatusOk;
  }
  ZelStatus WriteBlock(std::int32_t* block, std::int32_t format) override {
    if (!HasFormat(format)) return kStatusFailed;
    block[0] = std::bit_cast<std::int32_t>(static_cast<float>(item_.aij * kStoredScale));
    block[1] = std::bit_cast<std::int32_t>(static_cast<float>(item_.bij * kStoredScale));
    return kStatusOk;
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kPpr78Rows), kPpr78Rows);
    return fields;
  }
};

}  // namespace

IZelBankDef* NewUnifac() { return MakeBank<Unifac_i>("UNIFAC", IID_IZelUnifac); }
IZelBankDef* NewPpr78() { return MakeBank<Ppr78_i>("PPR78", IID_IZelPpr78); }

}  // namespace zel
