// Banks of further data of one component.
#include "banks/field_bank.h"

namespace zel {
namespace {

// --- PUREBWRS ------------------------------------------------------------------------------------

constexpr FieldTable kBwrsPureFields({
    // name, label, type, count, unit, block offset, format, rule
    {"coef", "coef", kReal, 11, "", 0, 1},
});
constexpr Arguments kBwrsPureArguments(kBwrsPureFields, {"coef"});

using BwrsPure_i = FieldBank<IZelBwrsPure, kBwrsPureFields, kBwrsPureArguments>;

// --- COSTALD -------------------------------------------------------------------------------------

constexpr FieldTable kCostaldFields({
    // name, label, type, count, unit, block offset, format, rule
    {"Tc", "Crit. temperature", kReal, 1, "temp", 0, 1},
    {"omega", "Acentric factor", kReal, 1, "", 4, 1},
    {"charVol", "Char. Volume", kReal, 1, "vol", 8, 1},
});
constexpr Arguments kCostaldArguments(kCostaldFields, {"Tc", "omega", "charVol"});

using Costald_i = FieldBank<IZelCostald, kCostaldFields, kCostaldArguments>;

// --- RACKETT -------------------------------------------------------------------------------------

constexpr FieldTable kRackettFields({
    // name, label, type, count, unit, block offset, format, rule
    {"zRa", "zRa", kReal, 1, "", 0, 1},
});
constexpr Arguments kRackettArguments(kRackettFields, {"zRa"});

using Rackett_i = FieldBank<IZelRackett, kRackettFields, kRackettArguments>;

// --- IDIMPURE ------------------------------------------------------------------------------------

constexpr FieldTable kIDimPureFields({
    // name, label, type, count, unit, block offset, format, rule
    {"Aii", "Aii coefficient", kReal, 1, "", 0, 1},
    {"Bii", "Bii coefficient", kReal, 1, "", 4, 1},
    RefCodeAt(8),
});
constexpr Arguments kIDimPureArguments(kIDimPureFields, {"Aii", "Bii", "refCode"});

using IDimPure_i = FieldBank<IZelIDimPure, kIDimPureFields, kIDimPureArguments>;

// --- OCTANE --------------------------------------------------------------------------------------

constexpr FieldTable kOctaneFields({
    // name, label, type, count, unit, block offset, format, rule
    {"p", "Paraffinic", kReal, 1, "frac", 0, 1},
    {"i", "Iso-paraffinic", kReal, 1, "frac", 4, 1},
    {"a", "Aromatic", kReal, 1, "frac", 8, 1},
    {"n", "Naphthinic", kReal, 1, "frac", 12, 1},
    {"o", "Olefinic", kReal, 1, "frac", 16, 1},
    {"MON", "Motor octane no.", kReal, 1, "", 20, 1},
    {"RON", "Research octane no.", kReal, 1, "", 24, 1},
});
constexpr Arguments kOctaneArguments(kOctaneFields, {"p", "i", "a", "n", "o", "MON", "RON"});

using Octane_i = FieldBank<IZelOctane, kOctaneFields, kOctaneArguments>;

// --- PCSAFTPU ------------------------------------------------------------------------------------

constexpr FieldTable kPcSaftPureFields({
    // name, label, type, count, unit, block offset, format, rule
    {"rmw", "Segment number", kReal, 1, "", 0, 1, DefaultsTo(1.0)},
    {"sigma", "Segment diameter", kReal, 1, "", 4, 1, DefaultsTo(1.0)},
    {"epsilon", "Dispersion energy", kReal, 1, "", 8, 1},
    {"epsHB", "Association energy", kReal, 1, "", 12, 1},
    {"volHB", "Association volume", kReal, 1, "", 16, 1},
    RefCodeAt(20),
});
constexpr Arguments kPcSaftPureArguments(kPcSaftPureFields,
                                         {"rmw", "sigma", "epsilon", "epsHB", "volHB", "refCode"});

using PcSaftPure_i = FieldBank<IZelPcSaftPure, kPcSaftPureFields, kPcSaftPureArguments>;

// --- PENELOUX ------------------------------------------------------------------------------------

constexpr FieldTable kPenelouxFields({
    // name, label, type, count, unit, block offset, format, rule
    {"REFCODE", "Reference code", kInteger, 2, "", 0, 1},
    {"EOS", "Equation of State", kInteger, 2, "", 8, 1},
    {"Peneloux-Liq", "Volume Shift Liquid Phase", kReal, 2, "vol", 16, 1},
    {"Peneloux-Vap", "Volume Shift Vapor Phase", kReal, 2, "vol", 24, 1},
});
constexpr Arguments kPenelouxArguments(kPenelouxFields,
                                       {"EOS", "Peneloux-Liq", "Peneloux-Vap", "REFCODE"});

using Peneloux_i = FieldBank<IZelPeneloux, kPenelouxFields, kPenelouxArguments>;

// --- VIRIAL --------------------------------------------------------------------------------------

constexpr FieldTable kVirialFields({
    // name, label, type, count, unit, block offset, format, rule
    {"eta", "eta", kReal, 1, "", 0, 1},
    {"virial2", "virial2", kReal, 1, "", 4, 1},
    {"virial3", "virial3", kReal, 1, "", 8, 1},
    {"virial4", "virial4", kReal, 1, "", 12, 1},
    RefCodeAt(16),
});
constexpr Arguments kVirialArguments(kVirialFields,
                                     {"eta", "virial2", "virial3", "virial4", "refCode"});

using Virial_i = FieldBank<IZelVirial, kVirialFields, kVirialArguments>;

}  // namespace

IZelBankDef* NewBwrsPure() { return MakeBank<BwrsPure_i>("PUREBWRS", IID_IZelBwrsPure); }
IZelBankDef* NewCostald() { return MakeBank<Costald_i>("COSTALD", IID_IZelCostald); }
IZelBankDef* NewRackett() { return MakeBank<Rackett_i>("RACKETT", IID_IZelRackett); }
IZelBankDef* NewIDimPure() { return MakeBank<IDimPure_i>("IDIMPURE", IID_IZelIDimPure); }
IZelBankDef* NewOctane() { return MakeBank<Octane_i>("OCTANE", IID_IZelOctane); }
IZelBankDef* NewPcSaftPure() { return MakeBank<PcSaftPure_i>("PCSAFTPU", IID_IZelPcSaftPure); }
IZelBankDef* NewPeneloux() { return MakeBank<Peneloux_i>("PENELOUX", IID_IZelPeneloux); }
IZelBankDef* NewVirial() { return MakeBank<Virial_i>("VIRIAL", IID_IZelVirial); }

}  // namespace zel
