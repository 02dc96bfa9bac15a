// Banks of further data of one component.
#include <cstddef>
#include <iterator>
#include <tuple>
#include <utility>

#include "banks/typed_bank.h"

namespace zel {
namespace {

// --- PUREBWRS ------------------------------------------------------------------------------------

struct BwrsPureItem {
  double coef[11];
};

constexpr FieldRow kBwrsPureRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"coef", "coef", kReal, 11, "", 0, 1, offsetof(BwrsPureItem, coef)},
};

constexpr auto kBwrsPureArguments = std::make_tuple(&BwrsPureItem::coef);

class BwrsPure_i final : public TypedBank<BwrsPureItem, IZelBwrsPure> {
 public:
  BwrsPure_i(BankType const& type, ZelIid const& id)
      : TypedBank<BwrsPureItem, IZelBwrsPure>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* coef) override {
    return GiveData(this->item_, kBwrsPureArguments, coef);
  }
  ZelStatus PutData(double const* coef) override {
    return TakeData(this->item_, kBwrsPureArguments, coef);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kBwrsPureRows), kBwrsPureRows);
    return fields;
  }
};

// --- COSTALD -------------------------------------------------------------------------------------

struct CostaldItem {
  double tc;
  double omega;
  double charVol;
};

constexpr FieldRow kCostaldRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"Tc", "Crit. temperature", kReal, 1, "temp", 0, 1, offsetof(CostaldItem, tc)},
    {"omega", "Acentric factor", kReal, 1, "", 4, 1, offsetof(CostaldItem, omega)},
    {"charVol", "Char. Volume", kReal, 1, "vol", 8, 1, offsetof(CostaldItem, charVol)},
};

constexpr auto kCostaldArguments =
    std::make_tuple(&CostaldItem::tc, &CostaldItem::omega, &CostaldItem::charVol);

class Costald_i final : public TypedBank<CostaldItem, IZelCostald> {
 public:
  Costald_i(BankType const& type, ZelIid const& id)
      : TypedBank<CostaldItem, IZelCostald>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* tc, double* omega, double* charVol) override {
    return GiveData(this->item_, kCostaldArguments, tc, omega, charVol);
  }
  ZelStatus PutData(double tc, double omega, double charVol) override {
    return TakeData(this->item_, kCostaldArguments, tc, omega, charVol);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kCostaldRows), kCostaldRows);
    return fields;
  }
};

// --- RACKETT -------------------------------------------------------------------------------------

struct RackettItem {
  double zRa;
};

constexpr FieldRow kRackettRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"zRa", "zRa", kReal, 1, "", 0, 1, offsetof(RackettItem, zRa)},
};

constexpr auto kRackettArguments = std::make_tuple(&RackettItem::zRa);

class Rackett_i final : public TypedBank<RackettItem, IZelRackett> {
 public:
  Rackett_i(BankType const& type, ZelIid const& id)
      : TypedBank<RackettItem, IZelRackett>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* zRa) override { return GiveData(this->item_, kRackettArguments, zRa); }
  ZelStatus PutData(double zRa) override { return TakeData(this->item_, kRackettArguments, zRa); }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kRackettRows), kRackettRows);
    return fields;
  }
};

// --- IDIMPURE ------------------------------------------------------------------------------------

struct IDimPureItem {
  double aii;
  double bii;
  std::int32_t refCode;
};

constexpr FieldRow kIDimPureRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"Aii", "Aii coefficient", kReal, 1, "", 0, 1, offsetof(IDimPureItem, aii)},
    {"Bii", "Bii coefficient", kReal, 1, "", 4, 1, offsetof(IDimPureItem, bii)},
    {"refCode", "Reference code", kInteger, 1, "", 8, 1, offsetof(IDimPureItem, refCode)},
};

constexpr auto kIDimPureArguments =
    std::make_tuple(&IDimPureItem::aii, &IDimPureItem::bii, &IDimPureItem::refCode);

class IDimPure_i final : public TypedBank<IDimPureItem, IZelIDimPure> {
 public:
  IDimPure_i(BankType const& type, ZelIid const& id)
      : TypedBank<IDimPureItem, IZelIDimPure>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* aii, double* bii, std::int32_t* refCode) override {
    return GiveData(this->item_, kIDimPureArguments, aii, bii, refCode);
  }
  ZelStatus PutData(double aii, double bii, std::int32_t refCode) override {
    return TakeData(this->item_, kIDimPureArguments, aii, bii, refCode);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kIDimPureRows), kIDimPureRows);
    return fields;
  }
};

// --- OCTANE --------------------------------------------------------------------------------------

struct OctaneItem {
  double p;
  double i;
  double a;
  double n;
  double o;
  double mon;
  double ron;
};

constexpr FieldRow kOctaneRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"p", "Paraffinic", kReal, 1, "frac", 0, 1, offsetof(OctaneItem, p)},
    {"i", "Iso-paraffinic", kReal, 1, "frac", 4, 1, offsetof(OctaneItem, i)},
    {"a", "Aromatic", kReal, 1, "frac", 8, 1, offsetof(OctaneItem, a)},
    {"n", "Naphthinic", kReal, 1, "frac", 12, 1, offsetof(OctaneItem, n)},
    {"o", "Olefinic", kReal, 1, "frac", 16, 1, offsetof(OctaneItem, o)},
    {"MON", "Motor octane no.", kReal, 1, "", 20, 1, offsetof(OctaneItem, mon)},
    {"RON", "Research octane no.", kReal, 1, "", 24, 1, offsetof(OctaneItem, ron)},
};

constexpr auto kOctaneArguments =
    std::make_tuple(&OctaneItem::p, &OctaneItem::i, &OctaneItem::a, &OctaneItem::n, &OctaneItem::o,
                    &OctaneItem::mon, &OctaneItem::ron);

class Octane_i final : public TypedBank<OctaneItem, IZelOctane> {
 public:
  Octane_i(BankType const& type, ZelIid const& id)
      : TypedBank<OctaneItem, IZelOctane>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* p, double* i, double* a, double* n, double* o, double* mon,
                    double* ron) override {
    return GiveData(this->item_, kOctaneArguments, p, i, a, n, o, mon, ron);
  }
  ZelStatus PutData(double p, double i, double a, double n, double o, double mon,
                    double ron) override {
    return TakeData(this->item_, kOctaneArguments, p, i, a, n, o, mon, ron);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kOctaneRows), kOctaneRows);
    return fields;
  }
};

// --- PCSAFTPU ------------------------------------------------------------------------------------

struct PcSaftPureItem {
  double rmw;
  double sigma;
  double epsilon;
  double epsHB;
  double volHB;
  std::int32_t refCode;
};

constexpr FieldRow kPcSaftPureRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"rmw", "Segment number", kReal, 1, "", 0, 1, offsetof(PcSaftPureItem, rmw)},
    {"sigma", "Segment diameter", kReal, 1, "", 4, 1, offsetof(PcSaftPureItem, sigma)},
    {"epsilon", "Dispersion energy", kReal, 1, "", 8, 1, offsetof(PcSaftPureItem, epsilon)},
    {"epsHB", "Association energy", kReal, 1, "", 12, 1, offsetof(PcSaftPureItem, epsHB)},
    {"volHB", "Association volume", kReal, 1, "", 16, 1, offsetof(PcSaftPureItem, volHB)},
    {"refCode", "Reference code", kInteger, 1, "", 20, 1, offsetof(PcSaftPureItem, refCode)},
};

constexpr auto kPcSaftPureArguments =
    std::make_tuple(&PcSaftPureItem::rmw, &PcSaftPureItem::sigma, &PcSaftPureItem::epsilon,
                    &PcSaftPureItem::epsHB, &PcSaftPureItem::volHB, &PcSaftPureItem::refCode);

class PcSaftPure_i final : public TypedBank<PcSaftPureItem, IZelPcSaftPure> {
 public:
  PcSaftPure_i(BankType const& type, ZelIid const& id)
      : TypedBank<PcSaftPureItem, IZelPcSaftPure>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* rmw, double* sigma, double* epsilon, double* epsHB, double* volHB,
                    std::int32_t* refCode) override {
    return GiveData(this->item_, kPcSaftPureArguments, rmw, sigma, epsilon, epsHB, volHB, refCode);
  }
  ZelStatus PutData(double rmw, double sigma, double epsilon, double epsHB, double volHB,
                    std::int32_t refCode) override {
    return TakeData(this->item_, kPcSaftPureArguments, rmw, sigma, epsilon, epsHB, volHB, refCode);
  }
  ZelStatus GetDataDefaulted(double* rmw, double* sigma, double* epsilon, double* epsHB,
                             double* volHB, std::int32_t* refCode) override {
    PcSaftPureItem item = item_;
    DefaultUndefined(item.rmw, 1.0);
    DefaultUndefined(item.sigma, 1.0);
    return GiveDefaulted(item, kPcSaftPureArguments, rmw, sigma, epsilon, epsHB, volHB, refCode);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kPcSaftPureRows), kPcSaftPureRows);
    return fields;
  }
};

// --- PENELOUX ------------------------------------------------------------------------------------

struct PenelouxItem {
  std::int32_t refCode[2];
  std::int32_t eos[2];
  double penelouxLiq[2];
  double penelouxVap[2];
};

constexpr FieldRow kPenelouxRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"REFCODE", "Reference code", kInteger, 2, "", 0, 1, offsetof(PenelouxItem, refCode)},
    {"EOS", "Equation of State", kInteger, 2, "", 8, 1, offsetof(PenelouxItem, eos)},
    {"Peneloux-Liq", "Volume Shift Liquid Phase", kReal, 2, "vol", 16, 1,
     offsetof(PenelouxItem, penelouxLiq)},
    {"Peneloux-Vap", "Volume Shift Vapor Phase", kReal, 2, "vol", 24, 1,
     offsetof(PenelouxItem, penelouxVap)},
};

constexpr auto kPenelouxArguments =
    std::make_tuple(&PenelouxItem::eos, &PenelouxItem::penelouxLiq, &PenelouxItem::penelouxVap,
                    &PenelouxItem::refCode);

class Peneloux_i final : public TypedBank<PenelouxItem, IZelPeneloux> {
 public:
  Peneloux_i(BankType const& type, ZelIid const& id)
      : TypedBank<PenelouxItem, IZelPeneloux>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(std::int32_t* eos, double* penelouxLiq, double* penelouxVap,
                    std::int32_t* refCode) override {
    return GiveData(this->item_, kPenelouxArguments, eos, penelouxLiq, penelouxVap, refCode);
  }
  ZelStatus PutData(std::int32_t const* eos, double const* penelouxLiq, double const* penelouxVap,
                    std::int32_t const* refCode) override {
    return TakeData(this->item_, kPenelouxArguments, eos, penelouxLiq, penelouxVap, refCode);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kPenelouxRows), kPenelouxRows);
    return fields;
  }
};

// --- VIRIAL --------------------------------------------------------------------------------------

struct VirialItem {
  double eta;
  double virial2;
  double virial3;
  double virial4;
  std::int32_t refCode;
};

constexpr FieldRow kVirialRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"eta", "eta", kReal, 1, "", 0, 1, offsetof(VirialItem, eta)},
    {"virial2", "virial2", kReal, 1, "", 4, 1, offsetof(VirialItem, virial2)},
    {"virial3", "virial3", kReal, 1, "", 8, 1, offsetof(VirialItem, virial3)},
    {"virial4", "virial4", kReal, 1, "", 12, 1, offsetof(VirialItem, virial4)},
    {"refCode", "Reference code", kInteger, 1, "", 16, 1, offsetof(VirialItem, refCode)},
};

constexpr auto kVirialArguments =
    std::make_tuple(&VirialItem::eta, &VirialItem::virial2, &VirialItem::virial3,
                    &VirialItem::virial4, &VirialItem::refCode);

class Virial_i final : public TypedBank<VirialItem, IZelVirial> {
 public:
  Virial_i(BankType const& type, ZelIid const& id)
      : TypedBank<VirialItem, IZelVirial>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(double* eta, double* virial2, double* virial3, double* virial4,
                    std::int32_t* refCode) override {
    return GiveData(this->item_, kVirialArguments, eta, virial2, virial3, virial4, refCode);
  }
  ZelStatus PutData(double eta, double virial2, double virial3, double virial4,
                    std::int32_t refCode) override {
    return TakeData(this->item_, kVirialArguments, eta, virial2, virial3, virial4, refCode);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kVirialRows), kVirialRows);
    return fields;
  }
};

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
