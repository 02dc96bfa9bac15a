#include "desk/open/component_name.h"

#include <algorithm>

#include "desk/open/item_key.h"
#include "desk/open/pure_component.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

struct Namesake {
  std::string word;  // the first ID, or the number
  std::string name;
};

void AddOnce(std::vector<Namesake>& all, Namesake one) {
  bool const isKnown = std::any_of(all.begin(), all.end(),
                                   [&](Namesake const& known) { return known.word == one.word; });
  if (!isKnown) all.push_back(std::move(one));
}

// The components of a bank whose names begin with the word, and, separately, those of exactly this
// name.
struct Namesakes {
  std::vector<Namesake> exact;
  std::vector<Namesake> beginning;
};

void Collect(std::string const& wanted, Library const& library, BankName const& bank,
             Namesakes& found) {
  PureComponent const component;
  std::int32_t words[10] = {};
  library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
  while (library.Maint().NextItem(words, component.Def())) {
    Identity const identity = component.ReadIdentity();
    std::string const name = UpperCase(identity.name);
    if (name.rfind(wanted, 0) != 0) continue;
    std::string const id = identity.FirstId();
    Namesake one{id.empty() ? std::to_string(identity.number) : id, identity.name};
    AddOnce(name == wanted ? found.exact : found.beginning, std::move(one));
  }
  library.Maint().EndItemWalk();
}

[[noreturn]] void RefuseSeveral(std::string const& word, std::vector<Namesake> const& found,
                                bool isExact) {
  constexpr std::size_t kShown = 5;
  std::string text = "\"" + word + "\" " + (isExact ? "is the name" : "begins the names") + " of " +
                     std::to_string(found.size()) + " components: ";
  for (std::size_t i = 0; i < std::min(found.size(), kShown); ++i) {
    text += (i == 0 ? "" : ", ") + found[i].word + " (" + found[i].name + ")";
  }
  if (found.size() > kShown) text += ", ...";
  throw Failure(text);
}

bool HasId(std::string const& word, ComponentBanks const& banks) {
  return IsIdForm(word) && std::any_of(banks.begin(), banks.end(), [&](auto const& place) {
           return place.first->Maint().FindNumberById(word.c_str()) != 0;
         });
}

}  // namespace

std::string LookupWord(std::string const& word, ComponentBanks const& banks) {
  if (!MayBeName(word) || HasId(word, banks)) return word;
  Namesakes found;
  for (auto const& [library, bank] : banks) {
    Collect(UpperCase(word), *library, bank, found);
    if (found.exact.size() > 1) RefuseSeveral(word, found.exact, true);
    if (found.exact.size() == 1) return found.exact.front().word;
  }
  if (found.beginning.size() > 1) RefuseSeveral(word, found.beginning, false);
  return found.beginning.empty() ? word : found.beginning.front().word;
}

}  // namespace zel::desk
