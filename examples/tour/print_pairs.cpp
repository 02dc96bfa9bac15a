// Pairs of components, read in both orders.
#include <array>
#include <cstdio>

#include "tour.h"

namespace tour {
namespace {

struct PairOfIds {
  char const* i;
  char const* j;
};

constexpr PairOfIds kMixtures[] = {{"ETHANOL", "WATER"},    {"WATER", "ETHANOL"},
                                   {"ACETONE", "METHANOL"}, {"METHANOL", "ACETONE"},
                                   {"CCL4", "BENZENE"},     {"CHCL3", "ACETONE"}};

constexpr PairOfIds kGases[] = {{"METHANE", "CO2"},
                                {"CO2", "METHANE"},
                                {"METHANE", "NBUTANE"},
                                {"BENZENE", "ETHANE"},
                                {"NITROGEN", "METHANE"}};

class PairPrinter {
 public:
  PairPrinter(zel::LibFile* library, Components const& components, Codes& cited)
      : maint_(zel::LibMaint::NewLibMaint(library)),
        key_(zel::Key::NewKey()),
        components_(components),
        cited_(cited) {}

  // Prints the names of the pair and reads its item; prints a line that says so if there is none.
  bool Begin(zel::IZelBankDef* bank, PairOfIds const& pair) {
    Component const& i = components_.ById(pair.i);
    Component const& j = components_.ById(pair.j);
    std::printf("  %-20s  %-20s", i.name.c_str(), j.name.c_str());
    key_->SetKey(i.number, j.number);
    if (maint_->ReadItem(bank, kName, key_.get())) return true;
    std::printf("  not in the library\n");
    return false;
  }
  void End(int refCode) {
    PrintCode(refCode, cited_);
    std::printf("\n");
  }

 private:
  Maint maint_;
  Key key_;
  Components const& components_;
  Codes& cited_;
};

void PrintNrtl(PairPrinter& printer) {
  Bank<zel::IZelNrtl> nrtl("NRTL", zel::IID_IZelNrtl);
  std::printf("\nNRTL, tau_ij = bij/T. Each pair is asked for in the order shown; the library");
  std::printf(" stores it once.\n\n");
  std::printf("  %-20s  %-20s %9s %9s %7s %15s  ref\n", "i", "j", "bij/K", "bji/K", "alpha",
              "p/kPa");
  for (PairOfIds const& pair : kMixtures) {
    if (!printer.Begin(nrtl.Def(), pair)) continue;
    double bij, bji, alpha, pMin, pMax, rest;
    std::int32_t refCode;
    nrtl->GetData(&rest, &bij, &rest, &rest, &rest, &rest, &rest, &bji, &rest, &rest, &rest, &rest,
                  &alpha, &rest, &rest, &rest, &pMin, &pMax, &refCode);
    PrintReal(bij, 10, 2);
    PrintReal(bji, 10, 2);
    PrintReal(alpha, 8, 4);
    std::printf(" ");
    PrintBounds(pMin, pMax);
    printer.End(refCode);
  }
}

void PrintWilson(PairPrinter& printer) {
  Bank<zel::IZelWilson> wilson("WILSON", zel::IID_IZelWilson);
  std::printf("\nWilson, Lambda_ij = (Vj/Vi) exp(-aij/(R T))\n\n");
  std::printf("  %-20s  %-20s %9s %9s %7s %15s  ref\n", "i", "j", "aij", "aji", "cal/mol", "p/kPa");
  for (PairOfIds const& pair : kMixtures) {
    if (!printer.Begin(wilson.Def(), pair)) continue;
    double aij, aji, pMin, pMax, rest;
    std::int32_t form, restInt, refCode;
    wilson->GetData(&form, &restInt, &restInt, &aij, &aji, &rest, &rest, &rest, &rest, &rest, &rest,
                    &rest, &rest, &rest, &rest, &rest, &rest, &pMin, &pMax, &refCode);
    PrintReal(aij, 10, 2);
    PrintReal(aji, 10, 2);
    std::printf("%9s", "");
    PrintBounds(pMin, pMax);
    printer.End(refCode);
  }
}

void PrintUniquac(PairPrinter& printer) {
  Bank<zel::IZelUniquac> uniquac("UNIQUAC", zel::IID_IZelUniquac);
  std::printf("\nUNIQUAC, tau_ij = exp(-aij/T)\n\n");
  std::printf("  %-20s  %-20s %9s %9s %7s %15s  ref\n", "i", "j", "aij/K", "aji/K", "", "p/kPa");
  for (PairOfIds const& pair : kMixtures) {
    if (!printer.Begin(uniquac.Def(), pair)) continue;
    double aij, aji, pMin, pMax, rest;
    std::int32_t refCode;
    uniquac->GetData(&aij, &rest, &rest, &rest, &aji, &rest, &rest, &rest, &rest, &rest, &pMin,
                     &pMax, &refCode);
    PrintReal(aij, 10, 2);
    PrintReal(aji, 10, 2);
    std::printf("%9s", "");
    PrintBounds(pMin, pMax);
    printer.End(refCode);
  }
}

template <typename Face>
void PrintKij(PairPrinter& printer, char const* type, zel::ZelIid const& id, char const* title) {
  Bank<Face> bank(type, id);
  std::printf("\n%s\n\n", title);
  std::printf("  %-20s  %-20s %9s %9s %7s %15s  ref\n", "i", "j", "kij", "", "", "T/K");
  for (PairOfIds const& pair : kGases) {
    if (!printer.Begin(bank.Def(), pair)) continue;
    std::array<double, 4> kij{};
    double tMin, tMax, rest;
    std::int32_t refCode;
    bank->GetData(kij.data(), &tMin, &tMax, &rest, &rest, &refCode);
    PrintReal(kij[0], 10, 4);
    std::printf("%19s", "");
    PrintBounds(tMin, tMax);
    printer.End(refCode);
  }
}

}  // namespace

void PrintPairs(zel::LibFile* library, Components const& components, Codes& cited) {
  PairPrinter printer(library, components, cited);
  PrintNrtl(printer);
  PrintWilson(printer);
  PrintUniquac(printer);
  PrintKij<zel::IZelPrO>(printer, "PRO", zel::IID_IZelPrO,
                         "Peng-Robinson, a_ij = (1 - kij) sqrt(ai aj)");
  PrintKij<zel::IZelSrkO>(printer, "SRKO", zel::IID_IZelSrkO,
                          "Soave-Redlich-Kwong, a_ij = (1 - kij) sqrt(ai aj)");
}

}  // namespace tour
