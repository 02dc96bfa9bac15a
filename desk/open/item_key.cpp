#include "desk/open/item_key.h"

#include <zelaccess/Verify.h>

#include <algorithm>
#include <charconv>

#include "desk/open/component_name.h"
#include "desk/open/fields.h"
#include "desk/open/nearest.h"
#include "desk/open/storable.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr std::int32_t kComponents = 0;
constexpr std::int32_t kText = 2;
constexpr std::int32_t kNoComponent = INT32_MAX;  // fills a key that was given short
constexpr std::size_t kMostKeyWords = 10;
constexpr std::size_t kIdLength = 8;
constexpr std::size_t kCharactersOfWord = 4;

bool IsDigits(std::string const& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

bool LooksLikeCas(std::string const& word) {
  return std::count(word.begin(), word.end(), '-') == 2 &&
         word.find_first_not_of("0123456789-") == std::string::npos;
}

template <typename... Parts>
void SetKey(zel::Key& key, Parts const&... parts) {
  auto const plain = [](auto const& part) -> decltype(auto) {
    if constexpr (std::is_same_v<std::decay_t<decltype(part)>, std::string>) {
      return part.c_str();
    } else {
      return (part);
    }
  };
  key.SetKey(plain(parts)...);
}

std::int32_t KeyNumber(std::string const& word) {
  std::int32_t number = 0;
  auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size()) {
    throw Failure(word + " is not a whole number; items of this bank are named by numbers");
  }
  return number;
}

}  // namespace

bool MayBeName(std::string const& word) {
  return !word.empty() && !IsDigits(word) && !LooksLikeCas(word);
}

bool IsIdForm(std::string const& word) { return !word.empty() && word.size() <= kIdLength; }

namespace {

// True for several IDs with commas between them. Names have commas, too: "1,4-Dioxane".
bool AreIds(std::string const& word) {
  constexpr std::size_t kShortest = 3;  // of "N,N-Dimethylaniline" it is 1
  std::vector<std::string> const parts = ListWords(word);
  return parts.size() > 1 && std::all_of(parts.begin(), parts.end(), [](std::string const& part) {
           return IsIdForm(part) && part.size() >= kShortest;
         });
}

}  // namespace

ComponentWord ParseComponent(std::string const& word) {
  if (IsDigits(word)) {
    std::int32_t number = 0;
    auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc()) throw Failure(word + " is too large for a component number");
    return static_cast<long>(number);
  }
  if (LooksLikeCas(word)) {
    zel::casn const number(word.c_str());
    if (static_cast<long>(number) == 0) {
      throw NotAComponent(word,
                          word + " is not a CAS number: its form or its check digit is wrong");
    }
    return number;
  }
  if (!IsIdForm(word)) {
    throw NotAComponent(word,
                        "\"" + word + "\" is not a component ID or name" +
                            (AreIds(word) ? "; several are written with blanks between them" : ""));
  }
  return UpperCase(word);
}

zel::Handle<zel::Key> KeyOf(std::vector<ComponentWord> const& components) {
  zel::Handle<zel::Key> key(zel::Key::NewKey());
  auto const set = [&](auto const&... parts) { SetKey(*key, parts...); };
  switch (components.size()) {
    case 1: std::visit(set, components[0]); break;
    case 2: std::visit(set, components[0], components[1]); break;
    case 3: std::visit(set, components[0], components[1], components[2]); break;
    default: throw Failure("an item is named by 1 to 3 components");
  }
  return key;
}

namespace {

void CheckCount(BankFacts const& facts, std::size_t count) {
  bool const isText = facts.keyKind == kText;
  auto const given = static_cast<std::int32_t>(count);
  if (isText ? given == 1 : given >= facts.shortestKey && given <= facts.keyWords) return;
  std::string const most = isText ? "1" : std::to_string(facts.keyWords);
  std::string const least = isText ? "1" : std::to_string(facts.shortestKey);
  throw Failure("an item of a " + facts.type + " bank is named by " +
                (least == most ? most : least + " to " + most) +
                (facts.keyKind == kComponents ? " component(s)"
                 : isText                     ? " text"
                                              : " number(s)"));
}

zel::Handle<zel::Key> KeyOfNumbers(std::vector<std::string> const& words) {
  std::vector<std::int32_t> numbers;
  numbers.reserve(words.size());
  for (std::string const& word : words) numbers.push_back(KeyNumber(word));
  zel::Handle<zel::Key> key(zel::Key::NewKey());
  key->SetKeyWords(static_cast<long>(numbers.size()), numbers.data());
  return key;
}

}  // namespace

std::vector<std::string> ItemWords(Library const& library, zel::IZelBankDef& bank,
                                   std::vector<std::string> const& words) {
  if (BankFacts(bank).keyKind != kComponents) return words;
  ComponentBanks const banks = BanksKnownTo(library);
  std::vector<std::string> found;
  found.reserve(words.size());
  for (std::string const& word : words) found.push_back(LookupWord(word, banks));
  return found;
}

zel::Handle<zel::Key> KeyIn(Library const& library, zel::IZelBankDef& bank,
                            std::vector<std::string> const& words) {
  BankFacts const facts(bank);
  CheckCount(facts, words.size());
  if (facts.keyKind == kText) {
    CheckText(words[0], kCharactersOfWord * static_cast<std::size_t>(facts.keyWords), "a key");
    zel::Handle<zel::Key> key(zel::Key::NewKey());
    key->SetKeyText(facts.keyWords, words[0].c_str());
    return key;
  }
  if (facts.keyKind != kComponents) return KeyOfNumbers(words);
  try {
    std::vector<ComponentWord> components;
    for (std::string const& word : ItemWords(library, bank, words)) {
      components.push_back(ParseComponent(word));
    }
    return KeyOf(components);
  } catch (NotAComponent const& error) {
    throw Failure(error.what() + NearestTo(error.Word(), BanksKnownTo(library)));
  }
}

bool ReadComponent(Library const& library, BankName const& bank, std::string const& word,
                   PureComponent const& component) {
  zel::Handle<zel::Key> const key = KeyOf({ParseComponent(word)});
  return library.Maint().ReadItem(component.Def(), bank.name.c_str(), key.get());
}

std::string WhyNotFound(Library const& library, zel::IZelBankDef& bank,
                        std::vector<std::string> const& words) {
  if (BankFacts(bank).keyKind != kComponents) return "";
  ComponentBanks const banks = BanksKnownTo(library);
  if (banks.empty()) {
    bool const byNumbers = std::all_of(words.begin(), words.end(), IsDigits);
    return byNumbers ? ""
                     : "; use --names LIBRARY to name a library that knows the IDs and CAS numbers";
  }
  for (std::string const& word : ItemWords(library, bank, words)) {
    bool const isKnown = std::any_of(banks.begin(), banks.end(), [&](auto const& place) {
      PureComponent const component;
      return ReadComponent(*place.first, place.second, word, component);
    });
    if (isKnown) continue;
    std::string why = "; " + word + " is not a component" + NearestTo(word, banks);
    // Libraries often have banks of pairs without their components.
    bool const needsNames = library.InSession().names == nullptr && BankFacts(bank).keyWords > 1;
    if (needsNames) why += "; --names LIBRARY names a library that knows it";
    return why;
  }
  return "";
}

// A single word is set as a number, so that messages can show the component.
zel::Handle<zel::Key> StoredKey(std::vector<std::int32_t> const& words) {
  zel::Handle<zel::Key> key(zel::Key::NewKey());
  if (words.size() == 1) {
    key->SetKey(static_cast<long>(words[0]));
  } else {
    key->SetKeyWords(static_cast<long>(words.size()), words.data());
  }
  return key;
}

KeyWords::KeyWords(Library const& library, zel::IZelBankDef& bank) : library_(library) {
  char type[kNameSize] = {};
  char description[50] = {};
  std::int32_t words = 0, shortest = 0, formats = 0, length = 0;
  std::uint8_t listed = 0;
  bank.GetBankInfo(type, description, &kind_, &words, &shortest, &formats, &length, &listed);
  count_ = static_cast<std::size_t>(words);
}

std::string KeyWords::IdOf(std::int32_t number) {
  if (number == kNoComponent) return "*";
  auto const at = std::lower_bound(known_.begin(), known_.end(), number,
                                   [](auto const& row, std::int32_t n) { return row.first < n; });
  if (at != known_.end() && at->first == number) return at->second;
  char id[kNameSize] = {};
  try {
    library_.Maint().GetIdOfNumber(number, id);
    if (id[0] == '\0' && library_.InSession().names != nullptr) {
      library_.InSession().names->Maint().GetIdOfNumber(number, id);
    }
  } catch (unsigned long const address) {
    library_.TellUnread("component " + std::to_string(number), address);
  }
  std::string text = id[0] != '\0' ? std::string(id) : std::to_string(number);
  known_.insert(at, {number, text});
  return text;
}

std::vector<std::string> KeyWords::Of(std::vector<std::int32_t> const& key) {
  std::vector<std::string> words;
  if (kind_ == kText) {
    char text[kMostKeyWords * kCharactersOfWord + 1] = {};
    zel::GetKeyText(key.data(), static_cast<std::int32_t>(count_), text);
    return {text};
  }
  for (std::size_t i = 0; i < count_; ++i) {
    bool const isFilled = key[i] == kNoComponent;
    words.push_back(isFilled ? "*" : kind_ == kComponents ? IdOf(key[i]) : std::to_string(key[i]));
  }
  return words;
}

std::vector<std::vector<std::int32_t>> Keys(Library const& library, BankName const& bank,
                                            zel::IZelBankDef& item) {
  KeyWords const words(library, item);
  std::vector<std::vector<std::int32_t>> keys;
  if (!library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str())) {
    throw Failure(library.Path() + ": bank " + ToText(bank) + " cannot be read");
  }
  std::int32_t key[kMostKeyWords] = {};
  while (library.Maint().NextItemKey(key)) keys.emplace_back(key, key + words.Count());
  library.Maint().EndItemWalk();
  return keys;
}

std::string Joined(std::vector<std::string> const& words) {
  std::string text;
  for (std::string const& word : words) text += (text.empty() ? "" : " + ") + word;
  return text;
}

}  // namespace zel::desk
