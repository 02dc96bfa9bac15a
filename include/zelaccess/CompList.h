// CompList: the list that a component picker shows, and CompListBuild, which makes it from a
// library.
#ifndef ZELACCESS_COMPLIST_H
#define ZELACCESS_COMPLIST_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

class CompListBuild;
class LibFile;

enum compListSorts : std::int32_t {
  sortByName = 0,
  sortById = 1,
  sortByFormula = 2,
  sortByCas = 3,
  sortByNbp = 4,
  sortByMw = 5
};

// All components of a library by name, ID, formula, CAS number, boiling point and molecular weight,
// walked in any of six orders through a filter. The list comes from a file in which the orders are
// stored already; docs/lists.md has its form.
//
//   CompList* list = CompList::NewCompList();
//   list->GetBuilder()->BuildList(library, "SAMPLE", "sample.lst");   // once
//   list->ReadList("sample.lst");                                     // each time
//   list->SetSort(sortByName, 0);
//   list->SetFilter("*ane");
//   while (list->GetNext(name, id, formula, cas, nbp, mw)) ...
//   CompList::DelCompList(list);
//
// Sort, filter and range belong to the process: what is set on one list holds for all, in every
// thread, and making, reading and ending a list set them. A change rewinds the list it is made
// through. Lists of different threads may be used at the same time where all want the same
// settings.
class ZEL_API CompList {
 public:
  static CompList* NewCompList();
  // Ends the list, and the builder it made, and nulls the handle; does nothing on null.
  static void DelCompList(CompList*& list);

  CompList(CompList const&) {}                            // copies no data: these are handles
  CompList& operator=(CompList const&) { return *this; }  // copies nothing

  // Empties list and builder; by name, ascending, filter "*". The range stays.
  virtual void ClearList() = 0;
  // Clears, then reads a list file of five or twelve columns. False only when it cannot be read; a
  // file of another shape gives an empty list.
  virtual bool ReadList(char const* path) = 0;
  // One of compListSorts; `descending` not 0 walks backwards. Another key finds nothing.
  virtual void SetSort(std::int32_t key, std::int32_t descending) = 0;
  virtual void GetSort(std::int32_t& key, std::int32_t& descending) const = 0;
  virtual void ResetSort() = 0;
  // Of the text that is sorted by: "?" stands for one character, "*" for any, letters compare
  // without regard to case, and the text may go on after the pattern. Null and empty mean "*".
  virtual void SetFilter(char const* pattern) = 0;
  // Valid until the next call on this list.
  virtual char const* GetFilter() const = 0;
  virtual void ResetFilter() = 0;
  // Of the number that is sorted by, both ends included; an undefined end is open.
  virtual void SetRange(double minimum, double maximum) = 0;
  virtual void GetRange(double& minimum, double& maximum) const = 0;
  virtual void ResetRange() = 0;
  virtual void Rewind() = 0;
  // The next component that passes; false at the end. Buffers of 41, 13, 21 and 21 characters; the
  // boiling point in K and the molecular weight are undefined where the list has none. Null buffers
  // are passed over; GetNextShort with three of them is false and does not move.
  virtual bool GetNext(char* name, char* id, char* formula, char* cas, double& nbp, double& mw) = 0;
  virtual bool GetNextShort(char* id, char* name, char* formula) = 0;
  // Made at the first call, owned by the list.
  virtual CompListBuild* GetBuilder() = 0;

 protected:
  CompList() = default;
  virtual ~CompList();
};

// Fills the list it belongs to from a bank of pure components.
class ZEL_API CompListBuild {
 public:
  CompListBuild(CompListBuild const&) {}                            // copies no data
  CompListBuild& operator=(CompListBuild const&) { return *this; }  // copies nothing

  // Tidies names, IDs and formulas, makes the orders and writes the list file, all twelve columns;
  // an empty or null path writes none. A file that is there is emptied and written anew, also
  // through a symbolic link. False when the file cannot be opened. Components of a protected
  // library come without boiling point and molecular weight.
  virtual bool BuildList(LibFile* library, char const* bankName, char const* path) = 0;

 protected:
  CompListBuild() = default;
  virtual ~CompListBuild();
};

}  // namespace zel

#endif  // ZELACCESS_COMPLIST_H
