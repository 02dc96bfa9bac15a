// Group contributions: which groups a component has, and how main groups interact.
#include <array>
#include <cstdio>
#include <optional>

#include "tour.h"

namespace tour {
namespace {

constexpr char const* kIds[] = {"ETHANOL", "ACETONE", "TOLUENE", "WATER", "ETACET"};

struct MainGroup {
  std::int32_t number;
  char const* name;
};
constexpr MainGroup kMainGroups[] = {{1, "CH2"}, {3, "ACH"},   {4, "ACCH2"}, {5, "OH"},
                                     {7, "H2O"}, {9, "CH2CO"}, {11, "COOC"}};

void PrintStructures(zel::LibFile* library, Components const& components) {
  Maint maint(zel::LibMaint::NewLibMaint(library));
  Key key(zel::Key::NewKey());
  Bank<zel::IZelStruct> structure("STRUCT", zel::IID_IZelStruct);
  Bank<zel::IZelGroupDes> names("GRPDESC", zel::IID_IZelGroupDes);
  Bank<zel::IZelUnfOrig> unifac("UNFORIG", zel::IID_IZelUnfOrig);
  std::printf("\nOriginal UNIFAC: groups of components, and the volume r and area q they add up");
  std::printf(" to\n\n");
  for (char const* id : kIds) {
    Component const& component = components.ById(id);
    key->SetKey(component.number);
    if (!maint->ReadItem(structure.Def(), kName, key.get())) continue;
    std::int32_t count = 0;
    std::array<std::int32_t, 10> numbers{};
    std::array<std::int32_t, 10> counts{};
    structure->GetData(&count, numbers.data(), counts.data());
    double r = 0;
    double q = 0;
    std::string groups;
    for (std::size_t k = 0; k < static_cast<std::size_t>(count); ++k) {
      char name[21] = "";
      char formula[21];
      char image[21];
      std::int32_t mainGroup, refCode;
      double groupR = 0;
      double groupQ = 0;
      key->SetKeyWords(1, &numbers[k]);
      if (maint->ReadItem(names.Def(), kName, key.get())) names->GetData(name, formula, image);
      if (maint->ReadItem(unifac.Def(), kName, key.get())) {
        unifac->GetGroup(&mainGroup, &groupR, &groupQ, &refCode);
      }
      r += counts[k] * groupR;
      q += counts[k] * groupQ;
      groups += (k == 0 ? "" : " + ") + std::to_string(counts[k]) + " " + name;
    }
    std::printf("  %-16s = %-28s  r %7.4f  q %6.3f\n", component.name.c_str(), groups.c_str(), r,
                q);
  }
}

// aij of two main groups in K, 0 for a group with itself; no value if the library does not have it.
std::optional<double> Interaction(zel::LibMaint* maint, Bank<zel::IZelUnfOrig> const& unifac,
                                  zel::Key* key, std::int32_t i, std::int32_t j, Codes& cited) {
  if (i == j) return 0.0;
  std::int32_t const words[] = {i, j};
  key->SetKeyWords(2, words);
  if (!maint->ReadItem(unifac.Def(), kName, key)) return std::nullopt;
  double aij, rest;
  std::int32_t refCode;
  unifac->GetInteraction(&aij, &rest, &rest, &rest, &refCode);
  cited.push_back(refCode);
  return aij;
}

}  // namespace

void PrintGroups(zel::LibFile* library, Components const& components, Codes& cited) {
  PrintStructures(library, components);
  Maint maint(zel::LibMaint::NewLibMaint(library));
  Key key(zel::Key::NewKey());
  Bank<zel::IZelUnfOrig> unifac("UNFORIG", zel::IID_IZelUnfOrig);
  std::printf("\nOriginal UNIFAC: aij in K between main groups (row i, column j)\n\n  %8s", "");
  for (MainGroup const& j : kMainGroups) std::printf("%9s", j.name);
  std::printf("\n");
  for (MainGroup const& i : kMainGroups) {
    std::printf("  %8s", i.name);
    for (MainGroup const& j : kMainGroups) {
      PrintReal(Interaction(maint.get(), unifac, key.get(), i.number, j.number, cited)
                    .value_or(zel::gen_GetUndefDouble()),
                9, 2);
    }
    std::printf("\n");
  }
}

}  // namespace tour
