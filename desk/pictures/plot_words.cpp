#include "desk/pictures/plot_words.h"

#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/number_range.h"

namespace zel::desk {

void SetSize(std::string const& word, Chart& chart) {
  if (word.empty()) return;
  constexpr double kMost = 10000;
  std::size_t const times = word.find('x');
  if (times == std::string::npos) {
    throw WrongUsage("--size must be WIDTHxHEIGHT in points, such as 800x500, not " + word);
  }
  chart.width = ParseNumber(word.substr(0, times), "a width");
  chart.height = ParseNumber(word.substr(times + 1), "a height");
  if (!(chart.width > 0.0 && chart.height > 0.0 && chart.width <= kMost && chart.height <= kMost)) {
    throw WrongUsage("--size must be 1x1 to 10000x10000, not " + word);
  }
}

std::size_t SourceNamed(PreferenceList const& list, std::string const& word) {
  std::string names;
  std::size_t found = list.Count();
  std::size_t count = 0;
  for (std::size_t i = 0; i < list.Count(); ++i) {
    std::string const name = list.Name(i);
    names += (i == 0 ? "" : ", ") + name;
    std::size_t const colon = name.rfind(':');
    if (name == word) return i;
    if (name.substr(0, colon) != word && UpperCase(name.substr(colon + 1)) != UpperCase(word)) {
      continue;
    }
    found = i;
    ++count;
  }
  if (count == 1) return found;
  throw WrongUsage("\"" + word + "\" is " + (count == 0 ? "none" : "several") + " of the sources " +
                   names);
}

}  // namespace zel::desk
