// Which component of a bank one of a file is, and the ID that a new one gets.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "desk/formats/foreign_record.h"
#include "desk/open/library.h"

namespace zel::desk {

class ForeignIdentities {
 public:
  // Reads the identities of the bank. `file` must outlive this.
  ForeignIdentities(Library const& library, BankName bank, ForeignFile const& file);

  // The number of the component in the bank; empty for a new one.
  //
  // With a CAS number, that decides. Else it is the component of exactly this name; the one whose
  // name differs in upper and lower case only, unless the formulas differ; or the one with the name
  // as ID and the same formula. Where names are formulas (ForeignFile::namesAreFormulas), case and
  // an ID only count with the same formula, since Co is not CO. An ID that was made of another name
  // does not count. Throws Failure if several components have the name, and for a component of this
  // name with another formula.
  std::string NumberOf(ForeignComponent const& component) const;

  // An ID for a new component, from the letters and digits of its name; empty if it has none. It is
  // free in the library and in that of --names, is not digits only, and is neither the name of
  // another component of the file nor, with a number at its end, what another one's name gives.
  // Where names are formulas, it is not the formula of something else, and keeps a charge.
  std::string NewIdFor(ForeignComponent const& component) const;

  // True if the library or that of --names has a component with this number, ID or CAS number.
  bool IsInLibrary(std::string const& word) const;

  // A component that is in the bank now.
  void Add(Identity const& identity);

 private:
  struct Known {
    std::int32_t number = 0;
    std::string name;
    std::string formula;  // in the order of Hill; empty if it is not one
  };
  bool IsWrongId(std::string const& id, ForeignComponent const& component) const;
  bool IsNameOfOther(std::string const& id, ForeignComponent const& component) const;

  Library const& library_;
  BankName bank_;
  bool namesAreFormulas_;
  std::multimap<std::string, Known> known_;   // by name in upper case
  std::map<std::string, std::size_t> names_;  // in the file: how often, in upper case
  std::set<std::string> ids_;                 // that the names in the file give
};

}  // namespace zel::desk
