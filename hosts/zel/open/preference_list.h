// A preference list: banks of pure components in several libraries, the first one winning.
#pragma once

#include <string>
#include <vector>

#include "open/identity_conflict.h"
#include "open/item_key.h"
#include "open/library.h"
#include "open/pure_component.h"

namespace zelhost {

// Where a command looks for components.
struct SourceOptions {
  std::vector<std::string> libraries;
  bool acceptIdentity = false;
};

class Sources {
 public:
  // Libraries are words LIBRARY or LIBRARY:BANK; without a bank all banks of pure components that
  // the library has, in its order. Throws Failure when there is none.
  Sources(Session& session, SourceOptions const& options);
  Sources(Sources const&) = delete;
  Sources& operator=(Sources const&) = delete;

  std::size_t Count() const { return places_.size(); }
  // "sample.lb1:SAMPLE"
  std::string Name(std::size_t i) const;
  // The libraries, each once, in the order in which they were named.
  std::vector<Library> const& Libraries() const { return libraries_; }
  // The component as one bank has it, not completed; false when it has none.
  bool Read(std::size_t i, std::string const& word, PureComponent const& component) const;
  // The component merged from all banks and completed. Throws Failure when no bank has it, and when
  // those that have it mean different substances, unless that is accepted.
  void Search(std::string const& word, PureComponent& component);
  // What was accepted: call it when the report has its other tables.
  void AddWarnings(Report& report) const { AddConflicts(accepted_, report); }
  std::vector<IdentityConflict> const& Accepted() const { return accepted_; }

 private:
  struct Place {
    std::size_t library;
    std::string bank;
  };
  // Throws Failure when the identities contradict each other, or notes it where that is accepted.
  void Judge(std::string const& word, std::vector<SourcedIdentity> found);
  std::size_t LibraryAt(std::string const& path);

  Session& session_;
  std::vector<Library> libraries_;
  std::vector<Place> places_;
  zel::Handle<zel::LibSearch> search_;
  bool acceptIdentity_;
  std::vector<IdentityConflict> accepted_;
};

}  // namespace zelhost
