#include <zelaccess/Desk.h>

#include <algorithm>
#include <chrono>
#include <set>

#include "desk/face/data.h"
#include "desk/face/guarded.h"
#include "desk/face/item_data.h"
#include "desk/open/component_numbers.h"
#include "desk/open/configuration.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/library_path.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

// Opens the library for names, if one is given, before the others.
Session& WithNames(Session& session, LibrariesOptions const& options) {
  session.patience = PatienceOf(options.waitSeconds);
  session.namesPath = LibraryPath(options.path).Find(options.names);
  OpenNames(session);
  return session;
}

// The libraries as files, with banks as they are named.
std::vector<std::string> FoundOnPath(std::vector<std::string> words,
                                     LibrariesOptions const& options) {
  LibraryPath const path(options.path);
  for (std::string& word : words) word = path.FindSource(word);
  return words;
}

ComponentNumbers const& KnownNumbers(LibrariesData& data, std::string const& word) {
  auto const known = data.numbers.find(word);
  if (known != data.numbers.end()) return known->second;
  return data.numbers.emplace(word, NumbersOf(data.list.Libraries(), word)).first->second;
}

// The words of a key, for each library of the list: a key of components as numbers, so that a
// library that does not know the IDs is searched as well, and with the numbers that the library has
// for them.
class KeyWordsOfLibraries {
 public:
  KeyWordsOfLibraries(LibrariesData& data, std::vector<std::string> words, bool areComponents)
      : words_(std::move(words)) {
    for (std::size_t i = 0; areComponents && i < words_.size(); ++i) {
      numbers_.push_back(&KnownNumbers(data, data.list.Lookup(words_[i])));
    }
  }
  // The words that can name the item in a library; empty if such a number is another substance
  // there.
  std::vector<std::vector<std::string>> In(std::size_t library) const {
    std::vector<std::vector<std::string>> words;
    for (std::size_t i = 0; i < words_.size(); ++i) {
      words.emplace_back();
      if (numbers_.empty() || !numbers_[i]->isKnown) {
        words.back().push_back(words_[i]);
        continue;
      }
      for (std::int32_t const number : numbers_[i]->inLibraries[library]) {
        words.back().push_back(std::to_string(number));
      }
    }
    return Choices(words);
  }

 private:
  std::vector<std::string> words_;
  std::vector<ComponentNumbers const*> numbers_;  // of the data
};

}  // namespace

std::chrono::milliseconds PatienceOf(double seconds) {
  constexpr double kLongestWait = 86400.0;  // in s, a day
  constexpr double kMillisecondsPerSecond = 1000.0;
  return std::chrono::milliseconds(
      static_cast<std::int64_t>(std::clamp(seconds, 0.0, kLongestWait) * kMillisecondsPerSecond));
}

LibrariesData::LibrariesData(std::vector<std::string> const& libraries,
                             LibrariesOptions const& options)
    : list(WithNames(session, options),
           {FoundOnPath(libraries, options), options.acceptIdentity, true}) {}

std::vector<std::string> SearchPath() {
  Session const before;
  return Guarded(before, [] { return SearchFolders(ReadConfiguration(ConfigurationFile())); });
}

Libraries::Libraries(std::vector<std::string> const& libraries, LibrariesOptions const& options) {
  Session const before;
  data_ = Guarded(before, [&] { return std::make_unique<LibrariesData>(libraries, options); });
}
Libraries::Libraries(Libraries&&) noexcept = default;
Libraries& Libraries::operator=(Libraries&&) noexcept = default;
Libraries::~Libraries() = default;

desk::Component Libraries::Component(std::string const& word) const {
  return Guarded(data_->session, [&] {
    auto const found = std::make_shared<ComponentData>();
    found->word = word;
    data_->list.Search(word, found->component);
    found->citations = CitationsOf(data_->list, word, data_->citations);
    return desk::Component(found);
  });
}

std::vector<Identity> Libraries::Components() const {
  return Guarded(data_->session, [&] {
    std::vector<Identity> all;
    std::set<std::int32_t> numbers;
    for (Library const& library : data_->list.Libraries()) {
      for (BankName const& bank : library.Banks(kPureType)) {
        PureComponent const component;
        std::int32_t words[10] = {};
        library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
        while (library.Maint().NextItem(words, component.Def())) {
          Identity identity = component.ReadIdentity();
          if (numbers.insert(identity.number).second) all.push_back(std::move(identity));
        }
        library.Maint().EndItemWalk();
      }
    }
    return all;
  });
}

desk::Item Libraries::Item(std::string const& type, std::vector<std::string> const& words) const {
  return Guarded(data_->session, [&] {
    zel::Handle<zel::IZelBankDef> const item = BankOrNone(UpperCase(type));
    if (!item) throw UnknownWord("", "there is no bank type " + type);
    BankFacts const facts(*item);
    KeyWordsOfLibraries const keys(*data_, words, facts.keyKind == 0);
    std::string looked;
    for (std::size_t i = 0; i < data_->list.Libraries().size(); ++i) {
      Library const& library = data_->list.Libraries()[i];
      for (auto const& choice : keys.In(i)) {
        zel::Handle<zel::Key> const key = KeyIn(library, *item, choice);
        for (BankName const& bank : library.Banks(facts.type)) {
          if (!library.Maint().ReadItem(item.get(), bank.name.c_str(), key.get())) continue;
          return desk::Item(DataOfItem(library, bank, *item, *key, data_->citations));
        }
      }
      looked += (looked.empty() ? "" : ", ") + library.Path();
    }
    throw MissingItem("",
                      "no " + facts.type + " bank of " + looked + " has an item " + Joined(words));
  });
}

desk::Item Libraries::Pair(std::string const& type, std::string const& one,
                           std::string const& other) const {
  return Item(type, {one, other});
}

}  // namespace zel::desk
