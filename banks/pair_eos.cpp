// Pair banks of equations of state whose parameters depend on the order of the pair.
#include "banks/field_bank.h"

namespace zel {
namespace {

// --- PRH, SRKH -----------------------------------------------------------------------------------

constexpr FieldTable kPrHFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"aij", "aij", kReal, 1, "", 20, 1, ExchangedWith("aji")},
    {"bij", "bij", kReal, 1, "", 24, 1, ExchangedWith("bji")},
    {"cij", "cij", kReal, 1, "", 28, 1, ExchangedWith("cji")},
    {"aji", "aji", kReal, 1, "", 32, 1},
    {"bji", "bji", kReal, 1, "", 36, 1},
    {"cji", "cji", kReal, 1, "", 40, 1},
    {"alphaCij", "alphaCij", kReal, 1, "", 44, 1},
    {"alphaTij", "alphaTij", kReal, 1, "", 48, 1},
    RefCodeAt(52),
});
constexpr Arguments kPrHArguments(kPrHFields,
                                  {"aij", "bij", "cij", "aji", "bji", "cji", "alphaCij", "alphaTij",
                                   "tMin", "tMax", "pMin", "pMax", "refCode"});

using PrH_i = FieldBank<IZelPrH, kPrHFields, kPrHArguments>;
using SrkH_i = FieldBank<IZelSrkH, kPrHFields, kPrHArguments>;

// --- PRM, SRKS -----------------------------------------------------------------------------------

constexpr FieldTable kPrMFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"kij", "kij", kReal, 4, "", 20, 1, ExchangedWith("kji")},
    {"kji", "kji", kReal, 4, "", 36, 1},
    RefCodeAt(52),
});
constexpr Arguments kPrMArguments(kPrMFields,
                                  {"kij", "kji", "tMin", "tMax", "pMin", "pMax", "refCode"});

using PrM_i = FieldBank<IZelPrM, kPrMFields, kPrMArguments>;
using SrkS_i = FieldBank<IZelSrkS, kPrMFields, kPrMArguments>;

// --- SRKM ----------------------------------------------------------------------------------------

constexpr FieldTable kSrkMFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"kij", "kij", kReal, 4, "", 20, 1, ExchangedWith("kji")},
    {"kji", "kji", kReal, 4, "", 36, 1},
    {"kijd", "kijd", kReal, 1, "", 56, 2, ExchangedWith("kjid")},
    {"kjid", "kjid", kReal, 1, "", 60, 2},
    RefCodeAt(52),
});
constexpr Arguments kSrkMArguments(kSrkMFields, {"kij", "kji", "kijd", "kjid", "tMin", "tMax",
                                                 "pMin", "pMax", "refCode"});

using SrkM_i = FieldBank<IZelSrkM, kSrkMFields, kSrkMArguments>;

// --- PRP, SRKP -----------------------------------------------------------------------------------

constexpr FieldTable kPrPFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"kij", "kij", kReal, 3, "", 20, 1, ExchangedWith("kji")},
    {"kji", "kji", kReal, 3, "", 32, 1},
    RefCodeAt(52),
});
constexpr Arguments kPrPArguments(kPrPFields,
                                  {"kij", "kji", "tMin", "tMax", "pMin", "pMax", "refCode"});

using PrP_i = FieldBank<IZelPrP, kPrPFields, kPrPArguments>;
using SrkP_i = FieldBank<IZelSrkP, kPrPFields, kPrPArguments>;

}  // namespace

IZelBankDef* NewPrH() { return MakeBank<PrH_i>("PRH", IID_IZelPrH); }
IZelBankDef* NewSrkH() { return MakeBank<SrkH_i>("SRKH", IID_IZelSrkH); }
IZelBankDef* NewPrM() { return MakeBank<PrM_i>("PRM", IID_IZelPrM); }
IZelBankDef* NewSrkS() { return MakeBank<SrkS_i>("SRKS", IID_IZelSrkS); }
IZelBankDef* NewSrkM() { return MakeBank<SrkM_i>("SRKM", IID_IZelSrkM); }
IZelBankDef* NewPrP() { return MakeBank<PrP_i>("PRP", IID_IZelPrP); }
IZelBankDef* NewSrkP() { return MakeBank<SrkP_i>("SRKP", IID_IZelSrkP); }

}  // namespace zel
