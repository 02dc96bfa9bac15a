// Parameter sets of the group contribution models.
//
// One tree holds items of three kinds, all of one block format: the set as a whole (no group in the
// key), a group (one), an interaction (two). The bank does not enforce which fields an item fills;
// each of the three pairs of operations reads and writes its part of the one item.
#include <string_view>

#include "banks/field_bank.h"
#include "frame/limits.h"

namespace zel {
namespace {

template <typename Interface, FieldTable const& kFields, Arguments const& kInteraction>
using InteractionBank = InteractionOperations<BankWithFields<Interface, kFields>, kInteraction,
                                              decltype(&Interface::GetInteraction),
                                              decltype(&Interface::PutInteraction)>;

// The base of all sets, which have the same parameters for the set and for a group.
template <typename Interface, FieldTable const& kFields, Arguments const& kInteraction>
class SetBank : public InteractionBank<Interface, kFields, kInteraction> {
 public:
  SetBank(BankType const& type, ZelIid const& id)
      : InteractionBank<Interface, kFields, kInteraction>(type, id) {}

  ZelStatus GetContext(char* structure, char* context) final {
    return this->GiveData(kContext, {structure, context});
  }
  ZelStatus PutContext(char const* structure, char const* context) final {
    return this->TakeData(kContext, {structure, context});
  }
  ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q, std::int32_t* refCode) final {
    return this->GiveData(kGroup, {mainGroup, r, q, refCode});
  }
  ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) final {
    return this->TakeData(kGroup, {&mainGroup, &r, &q, &refCode});
  }

 private:
  static constexpr Arguments kContext{kFields, {"structure", "context"}};
  static constexpr Arguments kGroup{kFields, {"mainGroup", "r", "q", "refCode"}};
  static_assert(Match<char*, char*>(kContext));
  static_assert(Match<std::int32_t*, double*, double*, std::int32_t*>(kGroup));
};

// --- UNFDORT, UNFLYNG, UNFMOD --------------------------------------------------------------------

constexpr FieldTable kUnfDortFields({
    // name, label, type, count, unit, block offset, format, rule
    {"structure", "Structure bank", kText, 9, "", 0, 1},
    {"context", "Context", kText, 21, "", 8, 1},
    {"mainGroup", "Main group number", kInteger, 1, "", 28, 1},
    {"r", "R", kReal, 1, "", 32, 1},
    {"q", "Q", kReal, 1, "", 36, 1},
    {"Tij", "Tij", kReal, 3, "", 40, 1, ExchangedWith("Tji")},
    {"Tji", "Tji", kReal, 3, "", 52, 1},
    RefCodeAt(64),
});
constexpr Arguments kUnfDortInteraction(kUnfDortFields, {"Tij", "Tji", "refCode"});

using UnfDort_i = SetBank<IZelUnfDort, kUnfDortFields, kUnfDortInteraction>;
using UnfLyng_i = SetBank<IZelUnfLyng, kUnfDortFields, kUnfDortInteraction>;
using UnfMod_i = SetBank<IZelUnfMod, kUnfDortFields, kUnfDortInteraction>;

// --- UNFORIG -------------------------------------------------------------------------------------

constexpr FieldTable kUnfOrigFields({
    // name, label, type, count, unit, block offset, format, rule
    {"structure", "Structure bank", kText, 9, "", 0, 1},
    {"context", "Context", kText, 21, "", 8, 1},
    {"mainGroup", "Main group number", kInteger, 1, "", 28, 1},
    {"r", "R", kReal, 1, "", 32, 1},
    {"q", "Q", kReal, 1, "", 36, 1},
    {"vlij", "vlij", kReal, 1, "", 40, 1, ExchangedWith("vlji")},
    {"vlji", "vlji", kReal, 1, "", 44, 1},
    {"llij", "llij", kReal, 1, "", 48, 1, ExchangedWith("llji")},
    {"llji", "llji", kReal, 1, "", 52, 1},
    RefCodeAt(56),
});
constexpr Arguments kUnfOrigInteraction(kUnfOrigFields,
                                        {"vlij", "vlji", "llij", "llji", "refCode"});

using UnfOrig_i = SetBank<IZelUnfOrig, kUnfOrigFields, kUnfOrigInteraction>;

// --- PSRK ----------------------------------------------------------------------------------------

constexpr FieldTable kPsrkFields({
    // name, label, type, count, unit, block offset, format, rule
    {"structure", "Structure bank", kText, 9, "", 0, 1},
    {"pureComp", "PureComp bank", kText, 9, "", 68, 2},
    {"alpha", "Alpha bank", kText, 9, "", 76, 2},
    {"context", "Context", kText, 21, "", 8, 1},
    {"mainGroup", "Main group number", kInteger, 1, "", 28, 1},
    {"r", "R", kReal, 1, "", 32, 1},
    {"q", "Q", kReal, 1, "", 36, 1},
    {"Tij", "Tij", kReal, 3, "", 40, 1, ExchangedWith("Tji")},
    {"Tji", "Tji", kReal, 3, "", 52, 1},
    RefCodeAt(64),
});
constexpr Arguments kPsrkInteraction(kPsrkFields, {"Tij", "Tji", "refCode"});

// Its items name the banks that hold components and alpha coefficients.
class Psrk_i final : public SetBank<IZelPsrk, kPsrkFields, kPsrkInteraction> {
 public:
  using SetBank::SetBank;

  ZelStatus SetRefBankName(char const* type, char const* name) override {
    if (char* field = RefField(type)) CopyText(TextOrEmpty(name), field, kRefSize);
    return kStatusOk;
  }
  ZelStatus GetRefBankName(char const* type, char* name) override {
    if (name == nullptr) return kStatusFailed;
    CopyText(TextOrEmpty(RefField(type)), name, kRefSize);
    return kStatusOk;
  }

 private:
  static constexpr std::size_t kRefSize = kMostName + 1;

  // The field that holds the bank name for a type referred to; null for any other type.
  char* RefField(char const* type) const {
    if (SameText(TextOrEmpty(type), kPureComponentType)) return Text(kPsrkFields["pureComp"]);
    if (SameText(TextOrEmpty(type), "ALPHA")) return Text(kPsrkFields["alpha"]);
    return nullptr;
  }
};

}  // namespace

IZelBankDef* NewUnfDort() { return MakeBank<UnfDort_i>("UNFDORT", IID_IZelUnfDort); }
IZelBankDef* NewUnfLyng() { return MakeBank<UnfLyng_i>("UNFLYNG", IID_IZelUnfLyng); }
IZelBankDef* NewUnfMod() { return MakeBank<UnfMod_i>("UNFMOD", IID_IZelUnfMod); }
IZelBankDef* NewUnfOrig() { return MakeBank<UnfOrig_i>("UNFORIG", IID_IZelUnfOrig); }
IZelBankDef* NewPsrk() { return MakeBank<Psrk_i>("PSRK", IID_IZelPsrk); }

}  // namespace zel
