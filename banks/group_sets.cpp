// Parameter sets of the group contribution models.
//
// One tree holds items of three kinds, all of one block format: the set as a whole (no group in the
// key), a group (one), an interaction (two). The bank does not enforce which fields an item fills;
// each of the three pairs of operations reads and writes its part of the one item.
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <tuple>
#include <utility>

#include "banks/typed_bank.h"

namespace zel {
namespace {

// --- UNFDORT, UNFLYNG, UNFMOD --------------------------------------------------------------------

struct UnfDortItem {
  char structure[9];
  char context[21];
  std::int32_t mainGroup;
  double r;
  double q;
  double tij[3];
  double tji[3];
  std::int32_t refCode;
};

constexpr FieldRow kUnfDortRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"structure", "Structure bank", kText, 9, "", 0, 1, offsetof(UnfDortItem, structure)},
    {"context", "Context", kText, 21, "", 8, 1, offsetof(UnfDortItem, context)},
    {"mainGroup", "Main group number", kInteger, 1, "", 28, 1, offsetof(UnfDortItem, mainGroup)},
    {"r", "R", kReal, 1, "", 32, 1, offsetof(UnfDortItem, r)},
    {"q", "Q", kReal, 1, "", 36, 1, offsetof(UnfDortItem, q)},
    {"Tij", "Tij", kReal, 3, "", 40, 1, offsetof(UnfDortItem, tij)},
    {"Tji", "Tji", kReal, 3, "", 52, 1, offsetof(UnfDortItem, tji)},
    {"refCode", "Reference code", kInteger, 1, "", 64, 1, offsetof(UnfDortItem, refCode)},
};

constexpr auto kUnfDortContext = std::make_tuple(&UnfDortItem::structure, &UnfDortItem::context);
constexpr auto kUnfDortGroup = std::make_tuple(&UnfDortItem::mainGroup, &UnfDortItem::r,
                                               &UnfDortItem::q, &UnfDortItem::refCode);
constexpr auto kUnfDortInteraction =
    std::make_tuple(&UnfDortItem::tij, &UnfDortItem::tji, &UnfDortItem::refCode);
constexpr auto kUnfDortPairs = std::make_tuple(std::pair(&UnfDortItem::tij, &UnfDortItem::tji));

template <typename Interface>
class UnfDortBank final : public TypedBank<UnfDortItem, Interface> {
 public:
  UnfDortBank(BankType const& type, ZelIid const& id)
      : TypedBank<UnfDortItem, Interface>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetContext(char* structure, char* context) override {
    return GiveData(this->item_, kUnfDortContext, structure, context);
  }
  ZelStatus PutContext(char const* structure, char const* context) override {
    return TakeData(this->item_, kUnfDortContext, structure, context);
  }
  ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                     std::int32_t* refCode) override {
    return GiveData(this->item_, kUnfDortGroup, mainGroup, r, q, refCode);
  }
  ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) override {
    return TakeData(this->item_, kUnfDortGroup, mainGroup, r, q, refCode);
  }
  ZelStatus GetInteraction(double* tij, double* tji, std::int32_t* refCode) override {
    return GiveData(this->item_, kUnfDortInteraction, tij, tji, refCode);
  }
  ZelStatus PutInteraction(double const* tij, double const* tji, std::int32_t refCode) override {
    return TakeData(this->item_, kUnfDortInteraction, tij, tji, refCode);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kUnfDortPairs); }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kUnfDortRows), kUnfDortRows);
    return fields;
  }
};

using UnfDort_i = UnfDortBank<IZelUnfDort>;
using UnfLyng_i = UnfDortBank<IZelUnfLyng>;
using UnfMod_i = UnfDortBank<IZelUnfMod>;

// --- UNFORIG -------------------------------------------------------------------------------------

struct UnfOrigItem {
  char structure[9];
  char context[21];
  std::int32_t mainGroup;
  double r;
  double q;
  double vlij;
  double vlji;
  double llij;
  double llji;
  std::int32_t refCode;
};

constexpr FieldRow kUnfOrigRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"structure", "Structure bank", kText, 9, "", 0, 1, offsetof(UnfOrigItem, structure)},
    {"context", "Context", kText, 21, "", 8, 1, offsetof(UnfOrigItem, context)},
    {"mainGroup", "Main group number", kInteger, 1, "", 28, 1, offsetof(UnfOrigItem, mainGroup)},
    {"r", "R", kReal, 1, "", 32, 1, offsetof(UnfOrigItem, r)},
    {"q", "Q", kReal, 1, "", 36, 1, offsetof(UnfOrigItem, q)},
    {"vlij", "vlij", kReal, 1, "", 40, 1, offsetof(UnfOrigItem, vlij)},
    {"vlji", "vlji", kReal, 1, "", 44, 1, offsetof(UnfOrigItem, vlji)},
    {"llij", "llij", kReal, 1, "", 48, 1, offsetof(UnfOrigItem, llij)},
    {"llji", "llji", kReal, 1, "", 52, 1, offsetof(UnfOrigItem, llji)},
    {"refCode", "Reference code", kInteger, 1, "", 56, 1, offsetof(UnfOrigItem, refCode)},
};

constexpr auto kUnfOrigContext = std::make_tuple(&UnfOrigItem::structure, &UnfOrigItem::context);
constexpr auto kUnfOrigGroup = std::make_tuple(&UnfOrigItem::mainGroup, &UnfOrigItem::r,
                                               &UnfOrigItem::q, &UnfOrigItem::refCode);
constexpr auto kUnfOrigInteraction =
    std::make_tuple(&UnfOrigItem::vlij, &UnfOrigItem::vlji, &UnfOrigItem::llij, &UnfOrigItem::llji,
                    &UnfOrigItem::refCode);
constexpr auto kUnfOrigPairs = std::make_tuple(std::pair(&UnfOrigItem::vlij, &UnfOrigItem::vlji),
                                               std::pair(&UnfOrigItem::llij, &UnfOrigItem::llji));

class UnfOrig_i final : public TypedBank<UnfOrigItem, IZelUnfOrig> {
 public:
  UnfOrig_i(BankType const& type, ZelIid const& id)
      : TypedBank<UnfOrigItem, IZelUnfOrig>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetContext(char* structure, char* context) override {
    return GiveData(this->item_, kUnfOrigContext, structure, context);
  }
  ZelStatus PutContext(char const* structure, char const* context) override {
    return TakeData(this->item_, kUnfOrigContext, structure, context);
  }
  ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                     std::int32_t* refCode) override {
    return GiveData(this->item_, kUnfOrigGroup, mainGroup, r, q, refCode);
  }
  ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) override {
    return TakeData(this->item_, kUnfOrigGroup, mainGroup, r, q, refCode);
  }
  ZelStatus GetInteraction(double* vlij, double* vlji, double* llij, double* llji,
                           std::int32_t* refCode) override {
    return GiveData(this->item_, kUnfOrigInteraction, vlij, vlji, llij, llji, refCode);
  }
  ZelStatus PutInteraction(double vlij, double vlji, double llij, double llji,
                           std::int32_t refCode) override {
    return TakeData(this->item_, kUnfOrigInteraction, vlij, vlji, llij, llji, refCode);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kUnfOrigPairs); }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kUnfOrigRows), kUnfOrigRows);
    return fields;
  }
};

// --- PSRK ----------------------------------------------------------------------------------------

struct PsrkItem {
  char structure[9];
  char pureComp[9];
  char alpha[9];
  char context[21];
  std::int32_t mainGroup;
  double r;
  double q;
  double tij[3];
  double tji[3];
  std::int32_t refCode;
};

constexpr FieldRow kPsrkRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"structure", "Structure bank", kText, 9, "", 0, 1, offsetof(PsrkItem, structure)},
    {"pureComp", "PureComp bank", kText, 9, "", 68, 2, offsetof(PsrkItem, pureComp)},
    {"alpha", "Alpha bank", kText, 9, "", 76, 2, offsetof(PsrkItem, alpha)},
    {"context", "Context", kText, 21, "", 8, 1, offsetof(PsrkItem, context)},
    {"mainGroup", "Main group number", kInteger, 1, "", 28, 1, offsetof(PsrkItem, mainGroup)},
    {"r", "R", kReal, 1, "", 32, 1, offsetof(PsrkItem, r)},
    {"q", "Q", kReal, 1, "", 36, 1, offsetof(PsrkItem, q)},
    {"Tij", "Tij", kReal, 3, "", 40, 1, offsetof(PsrkItem, tij)},
    {"Tji", "Tji", kReal, 3, "", 52, 1, offsetof(PsrkItem, tji)},
    {"refCode", "Reference code", kInteger, 1, "", 64, 1, offsetof(PsrkItem, refCode)},
};

constexpr auto kPsrkContext = std::make_tuple(&PsrkItem::structure, &PsrkItem::context);
constexpr auto kPsrkGroup =
    std::make_tuple(&PsrkItem::mainGroup, &PsrkItem::r, &PsrkItem::q, &PsrkItem::refCode);
constexpr auto kPsrkInteraction =
    std::make_tuple(&PsrkItem::tij, &PsrkItem::tji, &PsrkItem::refCode);
constexpr auto kPsrkPairs = std::make_tuple(std::pair(&PsrkItem::tij, &PsrkItem::tji));

class Psrk_i final : public TypedBank<PsrkItem, IZelPsrk> {
 public:
  Psrk_i(BankType const& type, ZelIid const& id)
      : TypedBank<PsrkItem, IZelPsrk>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetContext(char* structure, char* context) override {
    return GiveData(this->item_, kPsrkContext, structure, context);
  }
  ZelStatus PutContext(char const* structure, char const* context) override {
    return TakeData(this->item_, kPsrkContext, structure, context);
  }
  ZelStatus GetGroup(std::int32_t* mainGroup, double* r, double* q,
                     std::int32_t* refCode) override {
    return GiveData(this->item_, kPsrkGroup, mainGroup, r, q, refCode);
  }
  ZelStatus PutGroup(std::int32_t mainGroup, double r, double q, std::int32_t refCode) override {
    return TakeData(this->item_, kPsrkGroup, mainGroup, r, q, refCode);
  }
  ZelStatus GetInteraction(double* tij, double* tji, std::int32_t* refCode) override {
    return GiveData(this->item_, kPsrkInteraction, tij, tji, refCode);
  }
  ZelStatus PutInteraction(double const* tij, double const* tji, std::int32_t refCode) override {
    return TakeData(this->item_, kPsrkInteraction, tij, tji, refCode);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kPsrkPairs); }

  ZelStatus SetRefBankName(char const* type, char const* name) override {
    if (char* field = RefField(type)) CopyText(TextOrEmpty(name), field, sizeof item_.alpha);
    return kStatusOk;
  }
  ZelStatus GetRefBankName(char const* type, char* name) override {
    char const* field = RefField(type);
    CopyText(TextOrEmpty(field), name, sizeof item_.alpha);
    return kStatusOk;
  }

 private:
  // The field that holds the bank name for a type referred to; null for any other type.
  char* RefField(char const* type) {
    if (SameText(TextOrEmpty(type), "PURECOMP")) return item_.pureComp;
    if (SameText(TextOrEmpty(type), "ALPHA")) return item_.alpha;
    return nullptr;
  }
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(2, std::size(kPsrkRows), kPsrkRows);
    return fields;
  }
};

}  // namespace

IZelBankDef* NewUnfDort() { return MakeBank<UnfDort_i>("UNFDORT", IID_IZelUnfDort); }
IZelBankDef* NewUnfLyng() { return MakeBank<UnfLyng_i>("UNFLYNG", IID_IZelUnfLyng); }
IZelBankDef* NewUnfMod() { return MakeBank<UnfMod_i>("UNFMOD", IID_IZelUnfMod); }
IZelBankDef* NewUnfOrig() { return MakeBank<UnfOrig_i>("UNFORIG", IID_IZelUnfOrig); }
IZelBankDef* NewPsrk() { return MakeBank<Psrk_i>("PSRK", IID_IZelPsrk); }

}  // namespace zel
