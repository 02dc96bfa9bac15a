// Whether the data that a change writes are plausible.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "desk/findings/finding.h"
#include "desk/open/library.h"
#include "desk/open/pure_component.h"

namespace zel::desk {

// The findings about the values of a component of a bank, by itself. Missing reference codes, CAS
// numbers and coefficients that count as 0 are not reported. Errors come first.
std::vector<Finding> FindingsAbout(PureComponent const& component, std::string const& library,
                                   BankName const& bank);

// The components of a bank that a change writes.
class WrittenComponents {
 public:
  // The library must outlive this object.
  WrittenComponents(Library const& library, BankName bank)
      : library_(&library), bank_(std::move(bank)) {}

  // Remembers a component that was written, and its state before, null if it is new. If it has been
  // remembered already, the first state counts.
  void Add(std::int32_t number, PureComponent const* before);
  // The findings about these components as they are now, in the order of their numbers, without
  // those that they had before.
  std::vector<Finding> NewFindings() const;

 private:
  Library const* library_;
  BankName bank_;
  std::map<std::int32_t, std::set<std::string>> before_;  // texts of findings, by number
};

// The components that an import of documents adds to a library.
class ImportedComponents {
 public:
  // Must be constructed before the import. It may also replace components of the bank of components
  // named `replaced`, unless that is empty. The library must outlive this object.
  ImportedComponents(Library const& library, std::string const& replaced);
  // The findings about them that are errors, such as a negative pressure. Contradictions are not
  // reported: documents hold large collections of data, with known contradictions. A bank that
  // cannot be read is left out, and Session::Note reports it.
  std::vector<Finding> Errors() const;

 private:
  struct Bank {
    std::set<std::int32_t> known;  // components before the import
    WrittenComponents written;
  };
  template <typename Work>
  void Reading(BankName const& bank, Work const& work) const;
  std::set<std::int32_t> NumbersIn(BankName const& bank) const;

  Library const& library_;
  std::map<std::string, Bank> banks_;  // by name
};

// Those of `now` that are not among `before`.
std::vector<Finding> NewAmong(std::vector<Finding> now, std::vector<Finding> const& before);

}  // namespace zel::desk
