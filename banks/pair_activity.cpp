// Pair banks of activity-coefficient models except WILSON, and heats of mixing.
#include "banks/field_bank.h"

namespace zel {
namespace {

// --- NRTL, NRTLLL --------------------------------------------------------------------------------

constexpr FieldTable kNrtlFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"aij", "aij", kReal, 1, "", 20, 1, ExchangedWith("aji")},
    {"bij", "bij", kReal, 1, "", 24, 1, ExchangedWith("bji")},
    {"cij", "cij", kReal, 1, "", 28, 1, ExchangedWith("cji")},
    {"dij", "dij", kReal, 1, "", 56, 2, ExchangedWith("dji")},
    {"eij", "eij", kReal, 1, "", 60, 2, ExchangedWith("eji")},
    {"fij", "fij", kReal, 1, "", 64, 2, ExchangedWith("fji")},
    {"aji", "aji", kReal, 1, "", 32, 1},
    {"bji", "bji", kReal, 1, "", 36, 1},
    {"cji", "cji", kReal, 1, "", 40, 1},
    {"dji", "dji", kReal, 1, "", 68, 2},
    {"eji", "eji", kReal, 1, "", 72, 2},
    {"fji", "fji", kReal, 1, "", 76, 2},
    {"alphaij", "alphaij", kReal, 1, "", 44, 1},
    {"betaij", "betaij", kReal, 1, "", 48, 1},
    RefCodeAt(52),
});
constexpr Arguments kNrtlArguments(kNrtlFields,
                                   {"aij", "bij", "cij", "dij", "eij", "fij", "aji", "bji", "cji",
                                    "dji", "eji", "fji", "alphaij", "betaij", "tMin", "tMax",
                                    "pMin", "pMax", "refCode"});

using Nrtl_i = FieldBank<IZelNrtl, kNrtlFields, kNrtlArguments>;
using NrtlLL_i = FieldBank<IZelNrtlLL, kNrtlFields, kNrtlArguments>;

// --- UNIQUAC, UNIQLL -----------------------------------------------------------------------------

constexpr FieldTable kUniquacFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"aij", "aij", kReal, 1, "", 20, 1, ExchangedWith("aji")},
    {"aji", "aji", kReal, 1, "", 24, 1},
    {"bij", "bij", kReal, 1, "", 28, 1, ExchangedWith("bji")},
    {"bji", "bji", kReal, 1, "", 32, 1},
    {"cij", "cij", kReal, 1, "", 36, 1, ExchangedWith("cji")},
    {"cji", "cji", kReal, 1, "", 40, 1},
    {"dij", "dij", kReal, 1, "", 44, 1, ExchangedWith("dji")},
    {"dji", "dji", kReal, 1, "", 48, 1},
    RefCodeAt(52),
});
constexpr Arguments kUniquacArguments(kUniquacFields,
                                      {"aij", "bij", "cij", "dij", "aji", "bji", "cji", "dji",
                                       "tMin", "tMax", "pMin", "pMax", "refCode"});

using Uniquac_i = FieldBank<IZelUniquac, kUniquacFields, kUniquacArguments>;
using UniquacLL_i = FieldBank<IZelUniquacLL, kUniquacFields, kUniquacArguments>;

// --- MARGULES ------------------------------------------------------------------------------------

constexpr FieldTable kMargulesFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"aij", "aij", kReal, 1, "", 20, 1, ExchangedWith("aji")},
    {"aji", "aji", kReal, 1, "", 24, 1},
    {"dij", "dij", kReal, 1, "", 28, 1},
    RefCodeAt(52),
});
constexpr Arguments kMargulesArguments(kMargulesFields, {"aij", "aji", "dij", "tMin", "tMax",
                                                         "pMin", "pMax", "refCode"});

using Margules_i = FieldBank<IZelMargules, kMargulesFields, kMargulesArguments>;

// --- VANLAAR -------------------------------------------------------------------------------------

constexpr FieldTable kVanLaarFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"aij", "aij", kReal, 1, "", 20, 1, ExchangedWith("aji")},
    {"aji", "aji", kReal, 1, "", 24, 1},
    RefCodeAt(52),
});
constexpr Arguments kVanLaarArguments(kVanLaarFields,
                                      {"aij", "aji", "tMin", "tMax", "pMin", "pMax", "refCode"});

using VanLaar_i = FieldBank<IZelVanLaar, kVanLaarFields, kVanLaarArguments>;

// --- HMIX ----------------------------------------------------------------------------------------

constexpr FieldTable kHMixFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"aij", "aij", kReal, 1, "", 20, 1},
    {"bij", "bij", kReal, 1, "", 24, 1, kNegated},
    {"cij", "cij", kReal, 1, "", 28, 1},
    {"dij", "dij", kReal, 1, "", 32, 1, kNegated},
    {"eij", "eij", kReal, 1, "", 36, 1},
    {"fij", "fij", kReal, 1, "", 40, 1, kNegated},
    {"gij", "gij", kReal, 1, "", 44, 1},
    {"hij", "hij", kReal, 1, "", 48, 1, kNegated},
    RefCodeAt(52),
});
constexpr Arguments kHMixArguments(kHMixFields, {"aij", "bij", "cij", "dij", "eij", "fij", "gij",
                                                 "hij", "tMin", "tMax", "pMin", "pMax", "refCode"});

using HMix_i = FieldBank<IZelHMix, kHMixFields, kHMixArguments>;

}  // namespace

IZelBankDef* NewNrtl() { return MakeBank<Nrtl_i>("NRTL", IID_IZelNrtl); }
IZelBankDef* NewNrtlLL() { return MakeBank<NrtlLL_i>("NRTLLL", IID_IZelNrtlLL); }
IZelBankDef* NewUniquac() { return MakeBank<Uniquac_i>("UNIQUAC", IID_IZelUniquac); }
IZelBankDef* NewUniquacLL() { return MakeBank<UniquacLL_i>("UNIQLL", IID_IZelUniquacLL); }
IZelBankDef* NewMargules() { return MakeBank<Margules_i>("MARGULES", IID_IZelMargules); }
IZelBankDef* NewVanLaar() { return MakeBank<VanLaar_i>("VANLAAR", IID_IZelVanLaar); }
IZelBankDef* NewHMix() { return MakeBank<HMix_i>("HMIX", IID_IZelHMix); }

}  // namespace zel
