#include "desk/tables/group_counts.h"

#include "desk/open/field_text.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr std::size_t kMostGroups = 10;

}  // namespace

GroupCounts GroupCountsIn(std::string const& text) {
  GroupCounts groups;
  for (std::string const& word : ListWords(text)) {
    std::size_t const open = word.find('(');
    if (open == std::string::npos || word.back() != ')') {
      throw Failure("\"" + word + "\" is not a group and its count such as 1(2)");
    }
    groups.numbers.push_back(WholeNumber(word.substr(0, open), "a group"));
    groups.counts.push_back(WholeNumber(word.substr(open + 1, word.size() - open - 2), "a count"));
  }
  if (groups.numbers.size() > kMostGroups) throw Failure("more than 10 groups");
  return groups;
}

}  // namespace zel::desk
