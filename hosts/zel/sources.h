// A preference list: banks of pure components in several libraries, the first one winning.
#pragma once

#include <string>
#include <vector>

#include "item_key.h"
#include "library.h"
#include "pure_component.h"

namespace zelhost {

class Sources {
 public:
  // Words LIBRARY or LIBRARY:BANK; without a bank all banks of pure components that the library
  // has, in its order. Throws Failure when there is none.
  explicit Sources(std::vector<std::string> const& words);
  Sources(Sources const&) = delete;
  Sources& operator=(Sources const&) = delete;

  std::size_t Count() const { return places_.size(); }
  // "sample.lb1:SAMPLE"
  std::string Name(std::size_t i) const;
  // The libraries, each once, in the order in which they were named.
  std::vector<Library> const& Libraries() const { return libraries_; }
  // The component as one bank has it, not completed; false when it has none.
  bool Read(std::size_t i, std::string const& word, PureComponent& component) const;
  // The component merged from all banks and completed; throws Failure when no bank has it.
  // False when none has the component.
  bool Find(std::string const& word, PureComponent& component) const;
  void Search(std::string const& word, PureComponent& component) const;

 private:
  struct Place {
    std::size_t library;
    std::string bank;
  };
  std::size_t LibraryAt(std::string const& path);

  std::vector<Library> libraries_;
  std::vector<Place> places_;
  zel::Handle<zel::LibSearch> search_;
};

inline constexpr char kSourceHelp[] = "LIBRARY[:BANK]; once for each, the preferred first";

}  // namespace zelhost
