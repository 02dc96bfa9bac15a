// The numbers by which libraries know a component. Libraries that number their own components can
// have different numbers for one substance, and one number for different substances.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desk/open/library.h"

namespace zel::desk {

struct ComponentNumbers {
  // The first ID that the first library that knows the component has, where that of --names is the
  // last one; else the word.
  std::string shown;
  // False if no library has the component. A number is then the number in all of them.
  bool isKnown = false;
  // For each library the numbers by which its items can name a component, the best one first. A
  // library that has the component has one number, its own. Another one has those of the other
  // libraries and of that of --names, published ones (below 21000000) first, without those that are
  // another substance in it.
  std::vector<std::vector<std::int32_t>> inLibraries;
};
// `word` is that of LookupWord. It means the component of the first library that has one.
ComponentNumbers NumbersOf(std::vector<Library> const& libraries, std::string const& word);

// Every choice of one element of each list, the first elements first.
template <typename T>
std::vector<std::vector<T>> Choices(std::vector<std::vector<T>> const& elements) {
  std::vector<std::vector<T>> choices = {{}};
  for (auto const& list : elements) {
    std::vector<std::vector<T>> longer;
    for (auto const& choice : choices) {
      for (T const& element : list) {
        longer.push_back(choice);
        longer.back().push_back(element);
      }
    }
    choices = std::move(longer);
  }
  return choices;
}

}  // namespace zel::desk
