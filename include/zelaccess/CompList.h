/// \file
/// CompList: the list that a component picker shows, and CompListBuild, which makes it from a
/// library.
#ifndef ZELACCESS_COMPLIST_H
#define ZELACCESS_COMPLIST_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

class CompListBuild;
class LibFile;

/// What a list is sorted by.
enum compListSorts : std::int32_t {
  sortByName = 0,     ///< Name.
  sortById = 1,       ///< Character ID; a component has a row for each of its IDs.
  sortByFormula = 2,  ///< Formula; components without one are left out.
  sortByCas = 3,      ///< CAS number; components without one are left out.
  sortByNbp = 4,      ///< Normal boiling point; components without one are left out.
  sortByMw = 5        ///< Molecular weight; components without one are left out.
};

/// All components of a library by name, ID, formula, CAS number, boiling point and molecular
/// weight, walked in any of six orders through a filter. The list is read from a file in which the
/// orders are stored already; docs/lists.md describes its format.
///
///     CompList* list = CompList::NewCompList();
///     list->GetBuilder()->BuildList(library, "SAMPLE", "sample.lst");   // once
///     list->ReadList("sample.lst");                                     // each time
///     list->SetSort(sortByName, 0);
///     list->SetFilter("*ane");
///     while (list->GetNext(name, id, formula, cas, nbp, mw)) ...
///     CompList::DelCompList(list);
///
/// **Sort, filter and range belong to the process**: what is set on one list applies to all lists
/// in all threads, and making, reading and ending a list set them too. A change rewinds the list
/// through which it is made.
///
/// **Threads.** One list belongs to one thread at a time. Lists of different threads may be used at
/// the same time if all of them need the same settings.
class ZEL_API CompList {
 public:
  /// Makes an empty list. Throws std::bad_alloc.
  /// \return the list, which the caller ends with DelCompList; never null
  static CompList* NewCompList();
  /// Ends the list, and the builder it made, and nulls the handle.
  /// \param list  the handle; null does nothing
  static void DelCompList(CompList*& list);

  /// Copies no data: these are handles.
  CompList(CompList const&) {}
  /// Copies nothing.
  /// \return this object
  CompList& operator=(CompList const&) { return *this; }

  /// Empties list and builder, and resets sort and filter. The range stays.
  virtual void ClearList() = 0;
  /// Clears the list, then reads a list file of five or twelve columns.
  /// \param path  path of the file; null is the empty path, which cannot be read
  /// \return false only when the file cannot be read; a file of another shape makes an empty list
  virtual bool ReadList(char const* path) = 0;
  /// Sets the order of all lists, and rewinds this one.
  /// \param key         one of compListSorts; with any other value GetNext finds nothing
  /// \param descending  0 ascending, else descending
  virtual void SetSort(std::int32_t key, std::int32_t descending) = 0;
  /// Reports the order.
  /// \param key         receives one of compListSorts
  /// \param descending  receives 0 for ascending
  virtual void GetSort(std::int32_t& key, std::int32_t& descending) const = 0;
  /// Sorts by name, ascending.
  virtual void ResetSort() = 0;
  /// Sets the filter of all lists on the text that is sorted by, and rewinds this one. Letters
  /// compare without regard to case, and the text may continue after the end of the pattern.
  /// \param pattern  "?" matches one character, "*" any number of them; null and the empty text
  ///                 mean "*"
  virtual void SetFilter(char const* pattern) = 0;
  /// Returns the filter.
  /// \return owned by the list, valid until the next call on it; never null
  virtual char const* GetFilter() const = 0;
  /// Sets the filter to "*".
  virtual void ResetFilter() = 0;
  /// Sets the range of all lists for the number that is sorted by, and rewinds this one.
  /// \param minimum,maximum  both included, K or kg/kg-mol; an undefined end is open
  virtual void SetRange(double minimum, double maximum) = 0;
  /// Reports the range.
  /// \param minimum,maximum  receive the ends, K or kg/kg-mol; undefined where open
  virtual void GetRange(double& minimum, double& maximum) const = 0;
  /// Opens both ends of the range.
  virtual void ResetRange() = 0;
  /// Goes back to the first component.
  virtual void Rewind() = 0;
  /// Moves to the next component that passes filter or range.
  /// \param name     buffer of 41 characters; may be null
  /// \param id       buffer of 13 characters; may be null
  /// \param formula  buffer of 21 characters; may be null
  /// \param cas      buffer of 21 characters for the printed CAS number; may be null
  /// \param nbp      receives the normal boiling point, K; undefined where the list has none
  /// \param mw       receives the molecular weight, kg/kg-mol; undefined where the list has none
  /// \return false at the end
  virtual bool GetNext(char* name, char* id, char* formula, char* cas, double& nbp, double& mw) = 0;
  /// Moves to the next component that passes filter or range.
  /// \param id       buffer of 13 characters; may be null
  /// \param name     buffer of 41 characters; may be null
  /// \param formula  buffer of 21 characters; may be null
  /// \return false at the end; also, without moving, if all three are null
  virtual bool GetNextShort(char* id, char* name, char* formula) = 0;
  /// Returns the builder of this list, which is made at the first call.
  /// \return owned by the list and valid as long as it lives; never null
  virtual CompListBuild* GetBuilder() = 0;

 protected:
  CompList() = default;
  virtual ~CompList();
};

/// Fills the list it belongs to from a bank of pure components. Threads as for its list.
class ZEL_API CompListBuild {
 public:
  /// Copies no data: builders are handles.
  CompListBuild(CompListBuild const&) {}
  /// Copies nothing.
  /// \return this object
  CompListBuild& operator=(CompListBuild const&) { return *this; }

  /// Tidies names, IDs and formulas, makes the orders and writes the list file: twelve columns, or
  /// the five of the short form (SetShortForm). Components of a protected library are listed
  /// without boiling point and molecular weight. Block errors pass through as exceptions.
  /// \param library   an open library; with null the list is empty
  /// \param bankName  name of a bank of pure components; null is the empty name; with a bank that
  ///                  does not exist the list is empty
  /// \param path      the file; an existing one is emptied and rewritten, also through a symbolic
  ///                  link; null and the empty path write no file
  /// \return false when the file cannot be written
  virtual bool BuildList(LibFile* library, char const* bankName, char const* path) = 0;

 protected:
  CompListBuild() = default;
  virtual ~CompListBuild();
};

}  // namespace zel

#endif  // ZELACCESS_COMPLIST_H
