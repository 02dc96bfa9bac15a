// The pair bank of the Wilson model, the one type with enumerated fields.
#include "banks/field_bank.h"

namespace zel {
namespace {

// The numbers of "form" are unit codes; no arithmetic here depends on that.
constexpr EnumEntry kFormEntries[] = {{"K", 1010}, {"KCAL", 24013}, {"KJ", 24011}, {"NODIME", 0}};
constexpr EnumEntry kEquationEntries[] = {{"EXTWILSON", 1}, {"WILSON", 0}};
constexpr EnumEntry kVolumeEntries[] = {{"STD25C", 1}, {"RACKETT", 2}, {"NOVOL", 0}};
constexpr Enumeration kForms = {kFormEntries, 0};
constexpr Enumeration kEquationForms = {kEquationEntries, 1};
constexpr Enumeration kVolumeRatios = {kVolumeEntries, 0};

constexpr FieldTable kWilsonFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"aij", "aij", kReal, 1, "", 20, 1, ExchangedWith("aji")},
    {"aji", "aji", kReal, 1, "", 24, 1},
    {"bij", "bij", kReal, 1, "", 28, 2, ExchangedWith("bji")},
    {"bji", "bji", kReal, 1, "", 32, 2},
    {"cij", "cij", kReal, 1, "", 36, 2, ExchangedWith("cji")},
    {"cji", "cji", kReal, 1, "", 40, 2},
    {"dij", "dij", kReal, 1, "", 44, 2, ExchangedWith("dji")},
    {"dji", "dji", kReal, 1, "", 56, 2},
    {"eij", "eij", kReal, 1, "", 60, 2, ExchangedWith("eji")},
    {"eji", "eji", kReal, 1, "", 64, 2},
    {"fij", "fij", kReal, 1, "", 68, 2, ExchangedWith("fji")},
    {"fji", "fji", kReal, 1, "", 72, 2},
    {"form", "form", kEnumerated, 1, "", 48, 1, OneOf(kForms)},
    {"eqnForm", "Equation Form", kEnumerated, 1, "", 76, 2, OneOf(kEquationForms)},
    {"volRatio", "Volume Ratio", kEnumerated, 1, "", 80, 2, OneOf(kVolumeRatios)},
    RefCodeAt(52),
});
constexpr Arguments kWilsonArguments(kWilsonFields,
                                     {"form", "eqnForm", "volRatio", "aij",  "aji",
                                      "bij",  "bji",     "cij",      "cji",  "dij",
                                      "dji",  "eij",     "eji",      "fij",  "fji",
                                      "tMin", "tMax",    "pMin",     "pMax", "refCode"});

using Wilson_i = FieldBank<IZelWilson, kWilsonFields, kWilsonArguments>;

}  // namespace

IZelBankDef* NewWilson() { return MakeBank<Wilson_i>("WILSON", IID_IZelWilson); }

}  // namespace zel
