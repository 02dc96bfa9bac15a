// Pair banks of equations of state whose parameters are the same for (i, j) and (j, i).
#include "banks/field_bank.h"

namespace zel {
namespace {

// --- PRO, SRKO -----------------------------------------------------------------------------------

constexpr FieldTable kPrOFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"kij", "kij", kReal, 4, "", 20, 1},
    RefCodeAt(52),
});
constexpr Arguments kPrOArguments(kPrOFields, {"kij", "tMin", "tMax", "pMin", "pMax", "refCode"});

using PrO_i = FieldBank<IZelPrO, kPrOFields, kPrOArguments>;
using SrkO_i = FieldBank<IZelSrkO, kPrOFields, kPrOArguments>;

// --- BWRS ----------------------------------------------------------------------------------------

constexpr FieldTable kBwrsFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    kPMin,
    kPMax,
    {"aij", "aij", kReal, 1, "", 20, 1},
    {"bij", "bij", kReal, 1, "", 24, 1},
    RefCodeAt(52),
});
constexpr Arguments kBwrsArguments(kBwrsFields,
                                   {"aij", "bij", "tMin", "tMax", "pMin", "pMax", "refCode"});

using Bwrs_i = FieldBank<IZelBwrs, kBwrsFields, kBwrsArguments>;

// --- LKP -----------------------------------------------------------------------------------------

constexpr FieldTable kLkpFields({
    // name, label, type, count, unit, block offset, format, rule
    {"kij", "kij", kReal, 1, "", 0, 1},
    RefCodeAt(4),
});
constexpr Arguments kLkpArguments(kLkpFields, {"kij", "refCode"});

using Lkp_i = FieldBank<IZelLkp, kLkpFields, kLkpArguments>;

// --- PCSAFT --------------------------------------------------------------------------------------

constexpr FieldTable kPcSaftFields({
    // name, label, type, count, unit, block offset, format, rule
    kTMin,
    kTMax,
    {"kij", "kij", kReal, 4, "", 12, 1},
    RefCodeAt(44),
});
constexpr Arguments kPcSaftArguments(kPcSaftFields, {"kij", "tMin", "tMax", "refCode"});

using PcSaft_i = FieldBank<IZelPcSaft, kPcSaftFields, kPcSaftArguments>;

}  // namespace

IZelBankDef* NewPrO() { return MakeBank<PrO_i>("PRO", IID_IZelPrO); }
IZelBankDef* NewSrkO() { return MakeBank<SrkO_i>("SRKO", IID_IZelSrkO); }
IZelBankDef* NewBwrs() { return MakeBank<Bwrs_i>("BWRS", IID_IZelBwrs); }
IZelBankDef* NewLkp() { return MakeBank<Lkp_i>("LKP", IID_IZelLkp); }
IZelBankDef* NewPcSaft() { return MakeBank<PcSaft_i>("PCSAFT", IID_IZelPcSaft); }

}  // namespace zel
