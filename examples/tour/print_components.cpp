// Parameters of single components, from the banks that hold such parameters.
#include <cstdio>

#include "tour.h"

namespace tour {
namespace {

constexpr char const* kIds[] = {"METHANE", "BENZENE", "ETHANOL", "WATER", "ISOOCTAN"};

}  // namespace

void PrintComponents(zel::LibFile* library, Components const& components, Codes& cited) {
  Maint maint(zel::LibMaint::NewLibMaint(library));
  Key key(zel::Key::NewKey());
  Bank<zel::IZelPcSaftPure> saft("PCSAFTPU", zel::IID_IZelPcSaftPure);
  Bank<zel::IZelCostald> costald("COSTALD", zel::IID_IZelCostald);
  Bank<zel::IZelRackett> rackett("RACKETT", zel::IID_IZelRackett);
  Bank<zel::IZelOctane> octane("OCTANE", zel::IID_IZelOctane);
  double const none = zel::gen_GetUndefDouble();
  std::printf("\nComponents: PC-SAFT (sigma in angstrom, epsilon/k in K), COSTALD volume");
  std::printf(" in m3/kg-mol,\nRackett parameter, octane numbers\n\n");
  std::printf("  %-22s %-8s %8s %8s %8s  %9s %8s  %6s %6s\n", "component", "formula", "m", "sigma",
              "epsilon", "V*", "zRa", "MON", "RON");
  for (char const* id : kIds) {
    Component const& component = components.ById(id);
    double m = none, sigma = none, epsilon = none, volume = none, zRa = none;
    double mon = none, ron = none, rest;
    std::int32_t refCode;
    key->SetKey(component.number);
    if (maint->ReadItem(saft.Def(), kName, key.get())) {
      saft->GetData(&m, &sigma, &epsilon, &rest, &rest, &refCode);
      cited.push_back(refCode);
    }
    if (maint->ReadItem(costald.Def(), kName, key.get())) costald->GetData(&rest, &rest, &volume);
    if (maint->ReadItem(rackett.Def(), kName, key.get())) rackett->GetData(&zRa);
    if (maint->ReadItem(octane.Def(), kName, key.get())) {
      octane->GetData(&rest, &rest, &rest, &rest, &rest, &mon, &ron);
    }
    std::printf("  %-22s %-8s ", component.name.c_str(), component.formula.c_str());
    PrintReal(m, 8, 4);
    PrintReal(sigma, 9, 4);
    PrintReal(epsilon, 9, 2);
    PrintReal(volume, 11, 4);
    PrintReal(zRa, 9, 4);
    PrintReal(mon, 8, 1);
    PrintReal(ron, 7, 1);
    std::printf("\n");
  }
}

}  // namespace tour
