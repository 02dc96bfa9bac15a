// A preference list: banks of pure components in several libraries; the first one that has a datum
// wins.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "desk/open/identity_conflict.h"
#include "desk/open/item_key.h"
#include "desk/open/library.h"
#include "desk/open/nearest.h"
#include "desk/open/pure_component.h"

namespace zel::desk {

// Where a command looks for components.
struct SourceOptions {
  std::vector<std::string> libraries;
  bool acceptIdentity = false;
  bool mayLackComponents = false;  // it is not an error if no library has components
};

// A component of one bank of a preference list.
struct PlacedComponent {
  std::size_t place;  // index of the bank
  zel::ZelIdentity identity;
};

class PreferenceList {
 public:
  // Libraries are given as LIBRARY or LIBRARY:BANK; without a bank, all banks of pure components of
  // the library are taken, in its order. Throws Failure if there are no such banks.
  PreferenceList(Session& session, SourceOptions const& options);
  PreferenceList(PreferenceList const&) = delete;
  PreferenceList& operator=(PreferenceList const&) = delete;

  DisplayUnits const& Units() const { return session_.units; }
  std::size_t Count() const { return places_.size(); }
  // "sample.lb1:SAMPLE"
  std::string Name(std::size_t i) const;
  // The library of a bank as an index in Libraries(), and the bank's name without the library.
  std::size_t LibraryOf(std::size_t i) const { return places_[i].library; }
  std::string const& BankOf(std::size_t i) const { return places_[i].bank; }
  // The components of all banks, bank after bank.
  std::vector<PlacedComponent> Components() const;
  // The libraries, each once, in the order in which they were named.
  std::vector<Library> const& Libraries() const { return libraries_; }
  // The word by which a component is looked up in each bank; see LookupWord in component_name.h.
  std::string const& Lookup(std::string const& word) const;
  // Reads the component as one bank has it, not completed; false if the bank does not have it. Here
  // and in Search, the word may be a name.
  bool Read(std::size_t i, std::string const& word, PureComponent const& component) const;
  // Merges the component from all banks and completes it. Throws Failure if no bank has it, and if
  // those that have it mean different substances, unless that is accepted.
  void Search(std::string const& word, PureComponent& component);
  // The conflicts that were met and accepted.
  std::vector<IdentityConflict> const& Accepted() const { return accepted_; }

 private:
  struct Place {
    std::size_t library;
    std::string bank;
  };
  // Throws Failure if the identities contradict each other, or records the conflict if that is
  // accepted.
  void Judge(std::string const& word, std::vector<SourcedIdentity> found);
  std::size_t LibraryAt(std::string const& path);
  ComponentBanks Banks() const;

  Session& session_;
  std::vector<Library> libraries_;
  std::vector<Place> places_;
  zel::Handle<zel::LibSearch> search_;
  bool acceptIdentity_;
  std::vector<IdentityConflict> accepted_;
  mutable std::map<std::string, std::string> lookedUp_;  // by word
};

}  // namespace zel::desk
