// What a reader of the library finds.
#include <cstdio>

#include "tour.h"

namespace tour {
namespace {

struct PairOfIds {
  char const* i;
  char const* j;
};

constexpr PairOfIds kPairs[] = {{"ETHANOL", "WATER"},
                                {"WATER", "ETHANOL"},
                                {"ACETONE", "METHANOL"},
                                {"METHANOL", "ACETONE"},
                                {"CCL4", "BENZENE"}};

// A number in its column, or a dash where there is none.
void PrintReal(double value, int width, int decimals) {
  if (zel::gen_IsUndefDouble(value)) {
    std::printf("%*s", width, "-");
  } else {
    std::printf("%*.*f", width, decimals, value);
  }
}

}  // namespace

void PrintBanks(zel::LibFile* library) {
  Maint maint(zel::LibMaint::NewLibMaint(library));
  Maint items(zel::LibMaint::NewLibMaint(library));
  std::printf("\nBanks, in the order of the directory:\n\n");
  std::printf("  type      name      format  items\n");
  char type[9];
  char name[9];
  std::int32_t key[10];
  maint->BeginBankWalk();
  while (maint->NextBank(type, name)) {
    int count = 0;
    items->BeginItemWalk(type, name);
    while (items->NextItemKey(key)) ++count;
    std::int32_t const format = items->GetBankFormat(type, name);
    std::printf("  %-8s  %-8s  %6d  %5d\n", type, name, format == 0 ? 1 : format, count);
  }
}

void PrintPairs(zel::LibFile* library, Components const& components) {
  Maint maint(zel::LibMaint::NewLibMaint(library));
  Key key(zel::Key::NewKey());
  Bank<zel::IZelNrtl> nrtl("NRTL", zel::IID_IZelNrtl);
  Bank<zel::IZelWilson> wilson("WILSON", zel::IID_IZelWilson);
  std::printf("\nPairs, each asked for in the order shown; the library stores a pair once:\n\n");
  std::printf("  %-22s %-22s  NRTL bij/K   bji/K   alpha   Wilson aij     aji  cal/mol\n", "i",
              "j");
  for (PairOfIds const& pair : kPairs) {
    Component const& i = components.ById(pair.i);
    Component const& j = components.ById(pair.j);
    std::printf("  %-22s %-22s", i.name.c_str(), j.name.c_str());
    key->SetKey(i.number, j.number);
    double a[20] = {};
    std::int32_t n[4] = {};
    if (maint->ReadItem(nrtl.Def(), kName, key.get())) {
      nrtl->GetDataDefaulted(&a[0], &a[1], &a[2], &a[3], &a[4], &a[5], &a[6], &a[7], &a[8], &a[9],
                             &a[10], &a[11], &a[12], &a[13], &a[14], &a[15], &a[16], &a[17], &n[0]);
      PrintReal(a[1], 12, 2);
      PrintReal(a[7], 8, 2);
      PrintReal(a[12], 8, 4);
    } else {
      std::printf("%12s%8s%8s", "-", "-", "-");
    }
    if (maint->ReadItem(wilson.Def(), kName, key.get())) {
      wilson->GetData(&n[0], &n[1], &n[2], &a[0], &a[1], &a[2], &a[3], &a[4], &a[5], &a[6], &a[7],
                      &a[8], &a[9], &a[10], &a[11], &a[12], &a[13], &a[14], &a[15], &n[3]);
      PrintReal(a[0], 13, 2);
      PrintReal(a[1], 8, 2);
    } else {
      std::printf("%13s%8s", "-", "-");
    }
    std::printf("\n");
  }
}

void PrintGroups(zel::LibFile* library) {
  constexpr std::int32_t kMainGroups[] = {1, 2, 3, 5, 7, 9};
  constexpr char const* kNames[] = {"CH2", "C=C", "ACH", "OH", "H2O", "CH2CO"};
  constexpr std::size_t kCount = sizeof kMainGroups / sizeof kMainGroups[0];
  Maint maint(zel::LibMaint::NewLibMaint(library));
  Key key(zel::Key::NewKey());
  Bank<zel::IZelUnfOrig> unifac("UNFORIG", zel::IID_IZelUnfOrig);
  std::printf("\nOriginal UNIFAC, aij in K between main groups (row i, column j):\n\n  %8s", "");
  for (char const* name : kNames) std::printf("%9s", name);
  std::printf("\n");
  for (std::size_t i = 0; i < kCount; ++i) {
    std::printf("  %8s", kNames[i]);
    for (std::size_t j = 0; j < kCount; ++j) {
      std::int32_t const words[] = {kMainGroups[i], kMainGroups[j]};
      double aij = zel::gen_GetUndefDouble();
      double aji, llij, llji;
      std::int32_t refCode;
      key->SetKeyWords(2, words);
      if (maint->ReadItem(unifac.Def(), kName, key.get())) {
        unifac->GetInteraction(&aij, &aji, &llij, &llji, &refCode);
      }
      PrintReal(i == j ? 0.0 : aij, 9, 2);
    }
    std::printf("\n");
  }
}

}  // namespace tour
