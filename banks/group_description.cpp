// Descriptions and pure parameters of groups, and the groups of a component.
#include "banks/field_bank.h"

namespace zel {
namespace {

// --- GRPDESC -------------------------------------------------------------------------------------

constexpr FieldTable kGroupDesFields({
    // name, label, type, count, unit, block offset, format, rule
    {"name", "NAME", kText, 21, "", 0, 1},
    {"formula", "FORMULA", kText, 21, "", 20, 1},
    {"image", "IMAGE", kText, 21, "", 40, 1},
});
constexpr Arguments kGroupDesArguments(kGroupDesFields, {"name", "formula", "image"});

using GroupDes_i = FieldBank<IZelGroupDes, kGroupDesFields, kGroupDesArguments>;

// --- UNFPURE, UNF2PUR ----------------------------------------------------------------------------

constexpr FieldTable kUnfPureFields({
    // name, label, type, count, unit, block offset, format, rule
    {"mainGroup", "Main group number", kInteger, 1, "", 0, 1},
    {"area", "Area", kReal, 1, "area", 4, 1},
    {"volume", "Volume", kReal, 1, "vol", 8, 1},
});
constexpr Arguments kUnfPureArguments(kUnfPureFields, {"mainGroup", "area", "volume"});

using UnfPure_i = FieldBank<IZelUnfPure, kUnfPureFields, kUnfPureArguments>;
using Unf2Pure_i = FieldBank<IZelUnf2Pure, kUnfPureFields, kUnfPureArguments>;

// --- STRUCT --------------------------------------------------------------------------------------

constexpr FieldTable kStructFields({
    // name, label, type, count, unit, block offset, format, rule
    {"count", "number of groups", kInteger, 1, "", 0, 1},
    {"groupNumber", "group numbers", kInteger, 10, "", 4, 1, CountedBy("count")},
    {"groupCount", "repeat counts", kInteger, 10, "", 44, 1, CountedBy("count")},
});
constexpr Arguments kStructArguments(kStructFields, {"count", "groupNumber", "groupCount"});

using Struct_i = FieldBank<IZelStruct, kStructFields, kStructArguments>;

}  // namespace

IZelBankDef* NewGroupDes() { return MakeBank<GroupDes_i>("GRPDESC", IID_IZelGroupDes); }
IZelBankDef* NewStruct() { return MakeBank<Struct_i>("STRUCT", IID_IZelStruct); }
IZelBankDef* NewUnfPure() { return MakeBank<UnfPure_i>("UNFPURE", IID_IZelUnfPure); }
IZelBankDef* NewUnf2Pure() { return MakeBank<Unf2Pure_i>("UNF2PUR", IID_IZelUnf2Pure); }

}  // namespace zel
