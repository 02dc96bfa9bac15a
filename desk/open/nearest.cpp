#include "desk/open/nearest.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "desk/open/pure_component.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

bool IsNumber(std::string const& word) {
  return word.find_first_not_of("0123456789") == std::string::npos;
}

bool IsCas(std::string const& word) {
  return word.find('-') != std::string::npos &&
         word.find_first_not_of("0123456789-") == std::string::npos;
}

// The texts that a word of this form is compared with.
std::vector<std::string> NamesLike(std::string const& word, Identity const& identity) {
  if (IsNumber(word)) return {std::to_string(identity.number)};
  if (IsCas(word)) return {identity.cas};
  std::vector<std::string> names = identity.ids;
  names.push_back(UpperCase(identity.name));
  return names;
}

// "NBUTANE (Butane)"; for a number or a CAS number, that of the component is in the parentheses.
std::string Described(std::string const& word, Identity const& identity) {
  std::string text = identity.ids.empty() ? std::to_string(identity.number) : identity.FirstId();
  if (IsCas(word)) return text + " (" + identity.cas + ")";
  if (IsNumber(word)) return text + " (" + std::to_string(identity.number) + ")";
  return text + (identity.name.empty() ? "" : " (" + identity.name + ")");
}

}  // namespace

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

ComponentBanks BanksKnownTo(Library const& library) {
  ComponentBanks banks;
  for (Library const* one :
       {&library, static_cast<Library const*>(library.InSession().names.get())}) {
    if (one == nullptr) continue;
    for (BankName const& bank : one->Banks(kPureType)) banks.emplace_back(one, bank);
  }
  return banks;
}

namespace {

// The largest distance of a name that the word may mean.
std::size_t Furthest(std::string const& word) {
  constexpr std::size_t kLettersPerMistake = 3;
  return std::max<std::size_t>(1, word.size() / kLettersPerMistake);
}

// The distance of a name that the word may mean: at most Furthest, or any if the name begins with
// the word.
std::optional<std::size_t> DistanceOf(std::string const& word, std::string const& name) {
  std::size_t const most = Furthest(word);
  std::size_t const difference =
      std::max(word.size(), name.size()) - std::min(word.size(), name.size());
  bool const isBeginning = !IsNumber(word) && !IsCas(word) && name.rfind(word, 0) == 0;
  if (isBeginning) return difference;
  if (name.empty() || difference > most) return std::nullopt;
  std::size_t const distance = EditDistance(word, name);
  return distance <= most ? std::optional(distance) : std::nullopt;
}

}  // namespace

std::string NearestTo(std::string const& word, ComponentBanks const& banks) {
  std::string const wanted = UpperCase(word);
  std::size_t least = SIZE_MAX;
  bool hasAny = false;
  Identity nearest;
  for (auto const& [library, bank] : banks) {
    PureComponent const component;
    std::int32_t words[10] = {};
    library->Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (library->Maint().NextItem(words, component.Def())) {
      hasAny = true;
      Identity identity = component.ReadIdentity();
      for (std::string const& name : NamesLike(wanted, identity)) {
        std::optional<std::size_t> const distance = DistanceOf(wanted, name);
        if (!distance || *distance >= least) continue;
        least = *distance;
        nearest = identity;
      }
    }
    library->Maint().EndItemWalk();
  }
  if (least != SIZE_MAX) return "; the nearest ID is " + Described(wanted, nearest);
  return hasAny ? "; `zel find " + banks.front().first->Path() + "` lists components" : "";
}

}  // namespace zel::desk
