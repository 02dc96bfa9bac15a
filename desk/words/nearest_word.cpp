#include "desk/words/nearest_word.h"

#include <algorithm>
#include <cstdint>

#include "desk/words/letters.h"

namespace zel::desk {

std::size_t EditDistance(std::string const& one, std::string const& other) {
  std::vector<std::vector<std::size_t>> d(one.size() + 1,
                                          std::vector<std::size_t>(other.size() + 1));
  for (std::size_t i = 0; i <= one.size(); ++i) d[i][0] = i;
  for (std::size_t k = 0; k <= other.size(); ++k) d[0][k] = k;
  for (std::size_t i = 1; i <= one.size(); ++i) {
    for (std::size_t k = 1; k <= other.size(); ++k) {
      std::size_t const change = d[i - 1][k - 1] + (one[i - 1] == other[k - 1] ? 0 : 1);
      d[i][k] = std::min({d[i - 1][k] + 1, d[i][k - 1] + 1, change});
      bool const exchanged =
          i > 1 && k > 1 && one[i - 1] == other[k - 2] && one[i - 2] == other[k - 1];
      if (exchanged) d[i][k] = std::min(d[i][k], d[i - 2][k - 2] + 1);
    }
  }
  return d[one.size()][other.size()];
}

std::optional<std::size_t> DistanceOf(std::string const& word, std::string const& name,
                                      bool acceptBeginning) {
  constexpr std::size_t kLettersPerMistake = 3;
  std::size_t const most = std::max<std::size_t>(1, word.size() / kLettersPerMistake);
  std::size_t const difference =
      std::max(word.size(), name.size()) - std::min(word.size(), name.size());
  if (acceptBeginning && name.rfind(word, 0) == 0) return difference;
  if (name.empty() || difference > most) return std::nullopt;
  std::size_t const distance = EditDistance(word, name);
  return distance <= most ? std::optional(distance) : std::nullopt;
}

std::string NearestWord(std::string const& word, std::vector<std::string> const& candidates) {
  std::string const wanted = UpperCase(word);
  if (wanted.empty()) return "";
  std::size_t least = SIZE_MAX;
  std::string nearest;
  for (std::string const& candidate : candidates) {
    std::optional<std::size_t> const distance = DistanceOf(wanted, UpperCase(candidate));
    if (!distance || *distance >= least) continue;
    least = *distance;
    nearest = candidate;
  }
  return nearest;
}

std::string DidYouMean(std::string const& word, std::vector<std::string> const& candidates) {
  std::string const nearest = NearestWord(word, candidates);
  return nearest.empty() ? ";" : "; did you mean " + nearest + "?";
}

}  // namespace zel::desk
