// The words of an edit.
#include <algorithm>

#include "desk/edit/edit_values.h"
#include "desk/edit/item_edit.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/pure_component.h"
#include "desk/words/display_units.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

bool NamesBank(Library const& library, std::string const& word) {
  std::string const wanted = UpperCase(word);
  std::vector<BankName> const banks = library.Banks();
  return std::any_of(banks.begin(), banks.end(), [&](BankName const& bank) {
    return ToText(bank) == wanted || bank.name == wanted || bank.type == wanted;
  });
}

// True for a word that is a bank type of which the library has no bank, and not a component.
bool IsMissingType(Library const& library, std::string const& word) {
  if (!BankOrNone(UpperCase(word))) return false;
  return !IsIdForm(word) || library.Maint().FindNumberById(UpperCase(word).c_str()) == 0;
}

// The number of words that name the item; the others are settings.
std::size_t ItemWordCount(BankFacts const& facts, std::vector<std::string> const& words) {
  constexpr std::int32_t kText = 2;
  if (facts.keyKind == kText) return 1;
  if (facts.keyWords == facts.shortestKey) return static_cast<std::size_t>(facts.keyWords);
  auto const first = std::find_if(words.begin(), words.end(), [](std::string const& word) {
    return word.find('=') != std::string::npos;
  });
  return static_cast<std::size_t>(first - words.begin());
}

// A word after a value that is a unit of the datum and not another datum.
bool IsUnitFor(std::string const& constant, std::string const& word) {
  return ConstantMeant(word) == nullptr && !UnitNamed(word, ConstantMeant(constant)->unit).empty();
}

bool BeginsWithDigit(std::string const& word) {
  return !word.empty() && word[0] >= '0' && word[0] <= '9';
}

std::vector<Setting> SettingsOf(std::vector<std::string> const& words, bool isComponent) {
  std::vector<Setting> settings;
  for (std::size_t i = 0; i < words.size(); ++i) {
    std::size_t const equals = words[i].find('=');
    if (equals != std::string::npos) {
      settings.push_back({words[i].substr(0, equals), words[i].substr(equals + 1)});
      std::string const& datum = settings.back().datum;
      bool const isOfConstant = isComponent && ConstantMeant(datum) != nullptr;
      if (isOfConstant && i + 1 < words.size() && IsUnitFor(datum, words[i + 1])) {
        throw WrongUsage("a unit follows its number without a blank: " + words[i] + words[i + 1]);
      }
      continue;
    }
    bool const isConstant = isComponent && ConstantMeant(words[i]) != nullptr;
    bool const isCurve = isComponent && !isConstant && FindCorrelation(words[i]) != nullptr;
    Setting setting{words[i], std::nullopt};
    if (!isCurve && i + 1 < words.size()) setting.value = words[++i];
    if (setting.value == "=") throw WrongUsage("no blanks around =: " + setting.datum + "=VALUE");
    if (isConstant && i + 1 < words.size() && IsUnitFor(setting.datum, words[i + 1])) {
      throw WrongUsage("a unit follows its number without a blank: " + setting.value.value_or("") +
                       words[i + 1]);
    }
    if (i == 0 && !setting.value && BeginsWithDigit(setting.datum)) {
      throw WrongUsage("\"" + setting.datum +
                       "\" is not a datum; the words are LIBRARY [BANK] ITEM DATUM=VALUE");
    }
    settings.push_back(std::move(setting));
  }
  return settings;
}

std::string TypeOf(Library const& library, Library const* from, std::string const& word) {
  if (word.empty()) return kPureType;
  return (from == nullptr || NamesBank(library, word) ? library : *from).Bank(word).type;
}

}  // namespace

ItemEdit EditOf(Library const& library, Library const* from, std::vector<std::string> words) {
  ItemEdit edit;
  if (!words.empty() &&
      (NamesBank(library, words[0]) || (from != nullptr && NamesBank(*from, words[0])))) {
    edit.bank = words[0];
    words.erase(words.begin());
  } else if (!words.empty() && IsMissingType(library, words[0])) {
    static_cast<void>(library.Bank(words[0]));  // throws, with the banks that there are
  }
  BankFacts const facts(*BankOfType(TypeOf(library, from, edit.bank)));
  std::size_t const count = ItemWordCount(facts, words);
  if (count == 0 || count > words.size()) {
    throw WrongUsage("name the item to edit: [BANK] ITEM DATUM=VALUE; see zel edit --help");
  }
  auto const settings = words.begin() + static_cast<std::ptrdiff_t>(count);
  edit.item.assign(words.begin(), settings);
  edit.settings = SettingsOf({settings, words.end()}, facts.type == kPureType);
  return edit;
}

}  // namespace zel::desk
