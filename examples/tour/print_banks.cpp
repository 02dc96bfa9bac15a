// Prints what is in the whole library; also the functions for columns that all tables of the tour
// use.
#include <zelaccess/LibMaint_p.h>

#include <cstdio>

#include "tour.h"

namespace tour {

void PrintReal(double value, int width, int decimals) {
  if (zel::gen_IsUndefDouble(value)) {
    std::printf("%*s", width, "-");
  } else {
    std::printf("%*.*f", width, decimals, value);
  }
}

void PrintBounds(double low, double high) {
  if (zel::gen_IsUndefDouble(low) && zel::gen_IsUndefDouble(high)) {
    std::printf("%15s", "-");
  } else {
    PrintReal(low, 6, 1);
    std::printf(" - ");
    PrintReal(high, 6, 1);
  }
}

void PrintCode(int code, Codes& cited) {
  std::printf("%5d", code);
  cited.push_back(code);
}

void PrintBanks(zel::LibFile* library) {
  Maint maint(zel::LibMaint::NewLibMaint(library));
  Maint items(zel::LibMaint::NewLibMaint(library));
  std::printf("\nBanks, in the order of the directory:\n\n");
  std::printf("  type      name      format  items  words  holds\n");
  char type[9];
  char name[9];
  std::int32_t key[10];
  maint->BeginBankWalk();
  while (maint->NextBank(type, name)) {
    int count = 0;
    items->BeginItemWalk(type, name);
    while (items->NextItemKey(key)) ++count;
    std::int32_t const format = items->GetBankFormat(type, name);
    BankHandle const bank(zel::NewBank(type));
    char keyword[9];
    char holds[50];
    std::int32_t keyKind, keyWords, minKeyWords, formats, maxWords;
    std::uint8_t listed;
    bank->GetBankInfo(keyword, holds, &keyKind, &keyWords, &minKeyWords, &formats, &maxWords,
                      &listed);
    std::int32_t words = 0;
    bank->GetRecordLength(format, &words);
    std::printf("  %-8s  %-8s  %6d  %5d  %5d  %s\n", type, name, format == 0 ? 1 : format, count,
                words, holds);
  }
}

void PrintSmallTree(zel::LibFile* library) {
  Maint maint(zel::LibMaint::NewLibMaint(library));
  std::printf("\nThe tree of bank RACKETT %s, made with small nodes. Each node with its address,\n",
              kSmallName);
  std::printf("its keys (component numbers), their data words and the nodes between the keys:\n");
  // The report belongs to the wider interface, which every maintenance object has.
  static_cast<zel::LibMaint_p*>(maint.get())->DumpBankTree("RACKETT", kSmallName, 2, stdout, -1);
}

}  // namespace tour
