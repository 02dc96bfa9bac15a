// Pure components of one source, from its two tables into a library.
#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <map>

#include "tour.h"

namespace tour {
namespace {

// Internal units.
constexpr ConstantRow kConstants[] = {
    {"MW", 0, "kg/kg-mol"},
    {"TC", 1, "K"},
    {"PC", 2, "kPa"},
    {"VC", 3, "m3/kg-mol"},
    {"ZC", 4, ""},
    {"ACENTRIC", 5, ""},
    {"NMP", 7, "K"},
    {"NBP", 8, "K"},
    {"SG60F", 9, ""},
    {"MVOL25C", 10, "m3/kg-mol"},
    {"SOLUPARA", 11, "(cal/cm3)^0.5"},
    {"PARACHOR", 12, ""},
    {"RACKETT", 13, ""},
    {"DIPOLE", 14, "debye"},
    {"RADIUS", 15, "m"},
    {"DIELECTRIC", 16, ""},
    {"TDIELECTRIC", 17, "K"},
    {"VDWA", 18, ""},
    {"VDWV", 19, ""},
    {"GFORMATION", 23, "kJ/kg-mol"},
    {"HFORMATION", 24, "kJ/kg-mol"},
    {"FLASHPOINT", 25, "K"},
    {"LOFLAMM", 26, "fraction"},
    {"HIFLAMM", 27, "fraction"},
    {"AUTOIGNITION", 28, "K"},
    {"LHV", 34, "kJ/kg-mol"},
    {"CNUM", 35, ""},
    {"TTP", 37, "K"},
    {"PTP", 38, "kPa"},
    {"HCOMBUST", 45, "kJ/kg-mol"},
    {"HFUSIONNMP", 46, "kJ/kg-mol"},
    {"HVAPNBP", 47, "kJ/kg-mol"},
    // These exist only as what follows from the others.
    {"API gravity", 50, ""},
    {"Watson K", 52, ""},
};

constexpr CurveRow kCurves[] = {
    {"VaporPressure", 0, "kPa"},
    {"IdealEnthalpy", 1, "kJ/kg-mol"},
    {"LiquidEnthalpy", 2, "kJ/kg-mol"},
    {"LatentHeat", 3, "kJ/kg-mol"},
    {"LiquidDensity", 4, "kg-mol/m3"},
    {"LiquidThermal", 5, "W/m-K"},
    {"VaporThermal", 6, "W/m-K"},
    {"LiquidViscosity", 7, "cP"},
    {"VaporViscosity", 8, "cP"},
    {"SurfaceTension", 9, "N/m"},
    {"SolidEnthalpy", 11, "kJ/kg-mol"},
    {"SolidDensity", 12, "kg-mol/m3"},
    {"IdealGasCp", 13, "kJ/kg-mol-K"},
    {"LiquidCp", 14, "kJ/kg-mol-K"},
    {"SolidCp", 15, "kJ/kg-mol-K"},
    {"Dielectric", 16, ""},
    {"CharacteristicVolume", 17, "m3/kg-mol"},
};

template <typename Row>
Row const& Known(Row const* row, std::string const& path, std::string const& name) {
  if (row == nullptr) throw std::runtime_error(path + ": unknown name " + name);
  return *row;
}

using RowsByComponent = std::map<std::string, std::vector<std::size_t>>;

RowsByComponent ByComponent(Table const& table) {
  RowsByComponent rows;
  for (std::size_t i = 0; i < table.Rows(); ++i) rows[table.Text(i, "component")].push_back(i);
  return rows;
}

class SourceWriter {
 public:
  SourceWriter(zel::LibFile* library, Source const& source, std::string const& data)
      : maint_(zel::LibMaint::NewLibMaint(library)),
        key_(zel::Key::NewKey()),
        bank_("PURECOMP", zel::IID_IZelPureComp),
        name_(source.name),
        constantsPath_(data + "/pure/" + LowerCase(source.name) + "_constants.txt"),
        curvesPath_(data + "/pure/" + LowerCase(source.name) + "_correlations.txt"),
        constants_(constantsPath_),
        curves_(curvesPath_),
        smiles_(data + "/smiles.txt") {}

  void Write(Components const& components, Source const& source) {
    if (!maint_->CreateBank("PURECOMP", name_, 0)) throw std::runtime_error("cannot create bank");
    RowsByComponent const constants = ByComponent(constants_);
    RowsByComponent const curves = ByComponent(curves_);
    RowsByComponent const smiles = ByComponent(smiles_);
    int count = 0;
    for (Component const& component : components.All()) {
      auto const itsConstants = constants.find(component.id);
      auto const itsCurves = curves.find(component.id);
      if (itsConstants == constants.end() && itsCurves == curves.end()) continue;
      bank_.Def()->Clear();
      SetIdentity(component);
      auto const text = smiles.find(component.id);
      if (text != smiles.end()) bank_->SetSmiles(smiles_.Text(text->second[0], "smiles").c_str());
      if (itsConstants != constants.end()) SetConstants(itsConstants->second);
      if (itsCurves != curves.end()) SetCurves(itsCurves->second);
      key_->SetKey(component.number);
      if (!maint_->WriteItem(bank_.Def(), name_, key_.get())) {
        throw std::runtime_error("cannot write " + component.name);
      }
      ++count;
    }
    std::printf("  %-8s  %4d components  %5zu constants  %5zu correlations  %s\n", name_, count,
                constants_.Rows(), curves_.Rows(), source.what);
  }

 private:
  void SetIdentity(Component const& component) {
    char ids[12][9] = {};
    for (std::size_t i = 0; i < component.ids.size(); ++i) {
      std::snprintf(ids[i], sizeof ids[i], "%s", component.ids[i].c_str());
    }
    zel::casn const cas(component.cas.c_str());
    bank_->SetIdentity(static_cast<std::int32_t>(component.number),
                       static_cast<std::int32_t>(static_cast<long>(cas)), component.refCode, ids,
                       component.name.c_str(), component.formula.c_str(), 0);
    bank_->SetPhase(component.phase);
  }

  void SetConstants(std::vector<std::size_t> const& rows) {
    for (std::size_t const row : rows) {
      std::string const& keyword = constants_.Text(row, "constant");
      ConstantRow const& constant = Known(FindConstant(keyword), constantsPath_, keyword);
      bank_->SetProperty(constant.index, constants_.Real(row, "value"));
      bank_->SetPropertyRefCode(constant.index,
                                static_cast<std::uint32_t>(constants_.Int(row, "refCode")));
    }
  }

  void SetCurves(std::vector<std::size_t> const& rows) {
    constexpr int kKelvin = 10, kCelsius = 11, kNatural = 1, kDecimal = 2;
    for (std::size_t const row : rows) {
      std::string const& name = curves_.Text(row, "correlation");
      CurveRow const& curve = Known(FindCurve(name), curvesPath_, name);
      std::array<double, 15> c{};
      std::int32_t n = 0;
      for (std::string const& word : Split(curves_.Text(row, "coefficients"), ',')) {
        c.at(static_cast<std::size_t>(n++)) = std::stod(word);
      }
      std::string const& basis = curves_.Text(row, "basis");
      bank_->SetCorrelation(curve.index, curves_.Int(row, "equation"),
                            curves_.Text(row, "tempUnit") == "C" ? kCelsius : kKelvin,
                            curves_.Int(row, "unitCode"),
                            curves_.Text(row, "log") == "log" ? kDecimal : kNatural,
                            basis == "m"    ? 1
                            : basis == "wt" ? 2
                                            : 0,
                            n, curves_.Real(row, "tMin"), curves_.Real(row, "tMax"), c.data());
      bank_->SetCorrelationRefCode(curve.index,
                                   static_cast<std::uint32_t>(curves_.Int(row, "refCode")));
    }
  }

  Maint maint_;
  Key key_;
  Bank<zel::IZelPureComp> bank_;
  char const* name_;
  std::string constantsPath_;
  std::string curvesPath_;
  Table constants_;
  Table curves_;
  Table smiles_;
};

}  // namespace

ConstantRow const* FindConstant(std::string const& keyword) {
  auto const at = std::find_if(std::begin(kConstants), std::end(kConstants),
                               [&](ConstantRow const& row) { return row.keyword == keyword; });
  return at == std::end(kConstants) ? nullptr : at;
}

CurveRow const* FindCurve(std::string const& name) {
  auto const at = std::find_if(std::begin(kCurves), std::end(kCurves),
                               [&](CurveRow const& row) { return row.name == name; });
  return at == std::end(kCurves) ? nullptr : at;
}

std::vector<ConstantRow> const& AllConstants() {
  static std::vector<ConstantRow> const rows(std::begin(kConstants), std::end(kConstants));
  return rows;
}

void WriteSource(zel::LibFile* library, Source const& source, std::string const& data,
                 Components const& components) {
  SourceWriter(library, source, data).Write(components, source);
}

}  // namespace tour
