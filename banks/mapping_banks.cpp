// Banks that map between component names of another system and component numbers.
#include "banks/field_bank.h"

namespace zel {
namespace {

// --- MAPORW, OLI ---------------------------------------------------------------------------------

constexpr FieldTable kMapOrwFields({
    // name, label, type, count, unit, block offset, format, rule
    {"libnum", "libnum", kInteger, 1, "", 0, 1},
});
constexpr Arguments kMapOrwArguments(kMapOrwFields, {"libnum"});

using MapOrw_i = FieldBank<IZelMapOrw, kMapOrwFields, kMapOrwArguments>;
using Oli_i = FieldBank<IZelOli, kMapOrwFields, kMapOrwArguments>;

// --- ORWMAP --------------------------------------------------------------------------------------

constexpr FieldTable kOrwMapFields({
    // name, label, type, count, unit, block offset, format, rule
    {"name", "name", kText, 13, "", 0, 1},
});
constexpr Arguments kOrwMapArguments(kOrwMapFields, {"name"});

using OrwMap_i = FieldBank<IZelOrwMap, kOrwMapFields, kOrwMapArguments>;

}  // namespace

IZelBankDef* NewMapOrw() { return MakeBank<MapOrw_i>("MAPORW", IID_IZelMapOrw); }
IZelBankDef* NewOli() { return MakeBank<Oli_i>("OLI", IID_IZelOli); }
IZelBankDef* NewOrwMap() { return MakeBank<OrwMap_i>("ORWMAP", IID_IZelOrwMap); }

}  // namespace zel
