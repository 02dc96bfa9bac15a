// Items named on the command line.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "desk/open/library.h"
#include "desk/open/pure_component.h"
#include "desk/words/failure.h"

namespace zel::desk {

// A component by number, by CAS number ("64-17-5") or by character ID; the form of the word decides
// which. For components that are named by their names see component_name.h.
using ComponentWord = std::variant<long, zel::casn, std::string>;
// Throws NotAComponent for a CAS number whose check digit is wrong and for an ID of over 8
// characters, Failure for a number that is too large.
ComponentWord ParseComponent(std::string const& word);
// A word that cannot name a component.
class NotAComponent : public Failure {
 public:
  NotAComponent(std::string word, std::string const& why) : Failure(why), word_(std::move(word)) {}
  std::string const& Word() const { return word_; }

 private:
  std::string word_;
};

// True for a word that may be a component's name: not empty, not a number and not of the form of a
// CAS number.
bool MayBeName(std::string const& word);
// True for a word of 1 to 8 characters.
bool IsIdForm(std::string const& word);

// A key of up to three components.
zel::Handle<zel::Key> KeyOf(std::vector<ComponentWord> const& components);
// The words of an item of a bank of this type, with the names of components replaced as by
// LookupWord (component_name.h). The components are those of the library and of that of --names.
std::vector<std::string> ItemWords(Library const& library, zel::IZelBankDef& bank,
                                   std::vector<std::string> const& words);
// The key of an item of a bank of this type: components, plain numbers or a text. Throws Failure if
// the bank's items are not named by that many words, for a word that cannot name a component of the
// library, and for a text that no key can hold. Names are replaced as by ItemWords.
zel::Handle<zel::Key> KeyIn(Library const& library, zel::IZelBankDef& bank,
                            std::vector<std::string> const& words);

// Reads a component by number, CAS number or ID; false if the bank does not have it.
bool ReadComponent(Library const& library, BankName const& bank, std::string const& word,
                   PureComponent const& component);

// Why an item was not found, as the end of a message: one of its components is known neither to the
// library nor to that of --names, or neither of them has components. Empty if all components are
// known.
std::string WhyNotFound(Library const& library, zel::IZelBankDef& bank,
                        std::vector<std::string> const& words);

// The key of an item met in a walk.
zel::Handle<zel::Key> StoredKey(std::vector<std::int32_t> const& words);

// The words for the key of an item met in a walk: IDs if the library has them, else numbers.
class KeyWords {
 public:
  KeyWords(Library const& library, zel::IZelBankDef& bank);
  // Call it outside a walk: it reads components.
  std::vector<std::string> Of(std::vector<std::int32_t> const& key);
  // The number of words of the key on file.
  std::size_t Count() const { return count_; }
  // The number of parts that Of returns.
  std::size_t Parts() const { return kind_ == 2 ? 1 : count_; }

 private:
  std::string IdOf(std::int32_t number);

  Library const& library_;
  std::int32_t kind_ = 0;
  std::size_t count_ = 0;
  std::vector<std::pair<std::int32_t, std::string>> known_;  // sorted by number
};

// The keys of all items of a bank, in their order. Throws Failure if the bank does not exist.
std::vector<std::vector<std::int32_t>> Keys(Library const& library, BankName const& bank,
                                            zel::IZelBankDef& item);

// "ETHANOL" or "ETHANOL + WATER"
std::string Joined(std::vector<std::string> const& words);

}  // namespace zel::desk
