// A pick list of one library: built once, written to a file, read again and walked.
#include <cstdio>

#include "tour.h"

namespace tour {
namespace {

// Prints at most `most` rows of the walk with the current settings.
int PrintRows(zel::CompList* list, int most) {
  char name[41];
  char id[13];
  char formula[21];
  char cas[21];
  double nbp = 0.0;
  double mw = 0.0;
  int rows = 0;
  while (list->GetNext(name, id, formula, cas, nbp, mw)) {
    if (++rows > most) continue;
    std::printf("  %-28s  %-8s  %-10s  %10s", name, id, formula, cas);
    PrintReal(nbp, 9, 2);
    PrintReal(mw, 9, 2);
    std::printf("\n");
  }
  return rows;
}

}  // namespace

void PrintList(zel::LibFile* library, char const* bank, std::string const& path) {
  constexpr int kShown = 12;
  List const list(zel::CompList::NewCompList());
  if (!list->GetBuilder()->BuildList(library, bank, path.c_str()) ||
      !list->ReadList(path.c_str())) {
    throw std::runtime_error("cannot make " + path);
  }
  std::printf("\nPick list %s. By name, filter \"*butan\": by the main words of a name\n\n",
              path.substr(path.rfind('/') + 1).c_str());
  std::printf("  %-28s  %-8s  %-10s  %10s%9s%9s\n", "name", "ID", "formula", "CAS", "NBP/K", "MW");
  list->SetSort(zel::sortByName, 0);
  list->SetFilter("*butan");
  PrintRows(list.get(), kShown);
  std::printf(
      "\nBy name, filter \"*styrene\": alpha-methyl styrene stands under methyl styrene\n\n");
  list->SetFilter("*styrene");
  PrintRows(list.get(), kShown);
  std::printf("\nBy boiling point, 350 to 355 K\n\n");
  list->SetSort(zel::sortByNbp, 0);
  list->SetRange(350.0, 355.0);
  PrintRows(list.get(), kShown);
  list->ResetRange();
  list->SetSort(zel::sortById, 0);
  list->ResetFilter();
  std::printf("\nRows by ID, further IDs included: %d\n", PrintRows(list.get(), 0));
}

}  // namespace tour
