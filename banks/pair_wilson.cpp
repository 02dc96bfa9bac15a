// The pair bank of the Wilson model, the one type with enumerated fields.
#include <cstddef>
#include <iterator>
#include <span>
#include <string_view>
#include <tuple>
#include <utility>

#include "banks/typed_bank.h"

namespace zel {
namespace {

struct WilsonItem {
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
  double eij;
  double eji;
  double fij;
  double fji;
  std::int32_t form;
  std::int32_t eqnForm;
  std::int32_t volRatio;
  std::int32_t refCode;
};

constexpr FieldRow kWilsonRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, offsetof(WilsonItem, tMin)},
    {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, offsetof(WilsonItem, tMax)},
    {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, offsetof(WilsonItem, pMin)},
    {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, offsetof(WilsonItem, pMax)},
    {"aij", "aij", kReal, 1, "", 20, 1, offsetof(WilsonItem, aij)},
    {"aji", "aji", kReal, 1, "", 24, 1, offsetof(WilsonItem, aji)},
    {"bij", "bij", kReal, 1, "", 28, 2, offsetof(WilsonItem, bij)},
    {"bji", "bji", kReal, 1, "", 32, 2, offsetof(WilsonItem, bji)},
    {"cij", "cij", kReal, 1, "", 36, 2, offsetof(WilsonItem, cij)},
    {"cji", "cji", kReal, 1, "", 40, 2, offsetof(WilsonItem, cji)},
    {"dij", "dij", kReal, 1, "", 44, 2, offsetof(WilsonItem, dij)},
    {"dji", "dji", kReal, 1, "", 56, 2, offsetof(WilsonItem, dji)},
    {"eij", "eij", kReal, 1, "", 60, 2, offsetof(WilsonItem, eij)},
    {"eji", "eji", kReal, 1, "", 64, 2, offsetof(WilsonItem, eji)},
    {"fij", "fij", kReal, 1, "", 68, 2, offsetof(WilsonItem, fij)},
    {"fji", "fji", kReal, 1, "", 72, 2, offsetof(WilsonItem, fji)},
    {"form", "form", kEnumerated, 1, "", 48, 1, offsetof(WilsonItem, form),
     FieldDefault::kFromEnum},
    {"eqnForm", "Equation Form", kEnumerated, 1, "", 76, 2, offsetof(WilsonItem, eqnForm),
     FieldDefault::kFromEnum},
    {"volRatio", "Volume Ratio", kEnumerated, 1, "", 80, 2, offsetof(WilsonItem, volRatio),
     FieldDefault::kFromEnum},
    {"refCode", "Reference code", kInteger, 1, "", 52, 1, offsetof(WilsonItem, refCode)},
};

constexpr auto kWilsonArguments = std::make_tuple(
    &WilsonItem::form, &WilsonItem::eqnForm, &WilsonItem::volRatio, &WilsonItem::aij,
    &WilsonItem::aji, &WilsonItem::bij, &WilsonItem::bji, &WilsonItem::cij, &WilsonItem::cji,
    &WilsonItem::dij, &WilsonItem::dji, &WilsonItem::eij, &WilsonItem::eji, &WilsonItem::fij,
    &WilsonItem::fji, Bound(&WilsonItem::tMin), Bound(&WilsonItem::tMax), Bound(&WilsonItem::pMin),
    Bound(&WilsonItem::pMax), &WilsonItem::refCode);
constexpr auto kWilsonPairs = std::make_tuple(
    std::pair(&WilsonItem::aij, &WilsonItem::aji), std::pair(&WilsonItem::bij, &WilsonItem::bji),
    std::pair(&WilsonItem::cij, &WilsonItem::cji), std::pair(&WilsonItem::dij, &WilsonItem::dji),
    std::pair(&WilsonItem::eij, &WilsonItem::eji), std::pair(&WilsonItem::fij, &WilsonItem::fji));

// Enumerations of WILSON. The numbers of "form" are unit codes; no arithmetic stands on them here.
struct EnumEntry {
  std::string_view name;
  std::int32_t value;
};
struct Enumeration {
  std::string_view field;
  std::span<EnumEntry const> entries;
  std::int32_t defaultIndex;
};

constexpr EnumEntry kForms[] = {{"K", 1010}, {"KCAL", 24013}, {"KJ", 24011}, {"NODIME", 0}};
constexpr EnumEntry kEquationForms[] = {{"EXTWILSON", 1}, {"WILSON", 0}};
constexpr EnumEntry kVolumeRatios[] = {{"STD25C", 1}, {"RACKETT", 2}, {"NOVOL", 0}};
constexpr Enumeration kEnumerations[] = {
    {"form", kForms, 0}, {"eqnForm", kEquationForms, 1}, {"volRatio", kVolumeRatios, 0}};

Enumeration const* FindEnumeration(char const* field) {
  for (Enumeration const& enumeration : kEnumerations) {
    if (SameText(enumeration.field, TextOrEmpty(field))) return &enumeration;
  }
  return nullptr;
}

class Wilson_i final : public TypedBank<WilsonItem, IZelWilson> {
 public:
  Wilson_i(BankType const& type, ZelIid const& id)
      : TypedBank<WilsonItem, IZelWilson>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(std::int32_t* form, std::int32_t* eqnForm, std::int32_t* volRatio, double* aij,
                    double* aji, double* bij, double* bji, double* cij, double* cji, double* dij,
                    double* dji, double* eij, double* eji, double* fij, double* fji, double* tMin,
                    double* tMax, double* pMin, double* pMax, std::int32_t* refCode) override {
    return GiveData(this->item_, kWilsonArguments, form, eqnForm, volRatio, aij, aji, bij, bji, cij,
                    cji, dij, dji, eij, eji, fij, fji, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus GetDataDefaulted(std::int32_t* form, std::int32_t* eqnForm, std::int32_t* volRatio,
                             double* aij, double* aji, double* bij, double* bji, double* cij,
                             double* cji, double* dij, double* dji, double* eij, double* eji,
                             double* fij, double* fji, double* tMin, double* tMax, double* pMin,
                             double* pMax, std::int32_t* refCode) override {
    return GiveDefaulted(this->item_, kWilsonArguments, form, eqnForm, volRatio, aij, aji, bij, bji,
                         cij, cji, dij, dji, eij, eji, fij, fji, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus PutData(std::int32_t form, std::int32_t eqnForm, std::int32_t volRatio, double aij,
                    double aji, double bij, double bji, double cij, double cji, double dij,
                    double dji, double eij, double eji, double fij, double fji, double tMin,
                    double tMax, double pMin, double pMax, std::int32_t refCode) override {
    return TakeData(this->item_, kWilsonArguments, form, eqnForm, volRatio, aij, aji, bij, bji, cij,
                    cji, dij, dji, eij, eji, fij, fji, tMin, tMax, pMin, pMax, refCode);
  }
  ZelStatus SwapPair() override { return SwapMembers(this->item_, kWilsonPairs); }
  ZelStatus GetEnumCount(char const* field, std::int32_t* count) override {
    Enumeration const* found = FindEnumeration(field);
    if (found == nullptr) return kStatusNotImplemented;
    *count = static_cast<std::int32_t>(found->entries.size());
    return kStatusOk;
  }
  ZelStatus GetEnumList(char const* field, char (*names)[13], std::int32_t* values,
                        std::int32_t* defaultIndex) override {
    Enumeration const* found = FindEnumeration(field);
    if (found == nullptr) return kStatusNotImplemented;
    std::size_t at = 0;
    for (EnumEntry const& entry : found->entries) {
      CopyText(entry.name, names[at], sizeof names[at]);
      values[at++] = entry.value;
    }
    *defaultIndex = found->defaultIndex;
    return kStatusOk;
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(2, std::size(kWilsonRows), kWilsonRows);
    return fields;
  }
};

}  // namespace

IZelBankDef* NewWilson() { return MakeBank<Wilson_i>("WILSON", IID_IZelWilson); }

}  // namespace zel
