#include "verify/checked_library.h"

#include <algorithm>
#include <iterator>

#include "zelaccess/BlockError.h"
#include "zelaccess/Casn.h"
#include "zelaccess/Handles.h"
#include "zelaccess/Key.h"

namespace zel {

CheckedItem ComponentItem(std::string const& library, CheckedBank const& bank,
                          ZelIdentity const& identity, std::int32_t key) {
  std::string text = *identity.ids[0] != '\0' ? identity.ids[0] : std::to_string(identity.number);
  std::string place = bank.name + " " + text;
  return CheckedItem(library, bank, {key}, std::move(text), std::move(place));
}

std::vector<CheckedBank> CheckedLibrary::Banks(char const* type) {
  std::vector<CheckedBank> banks;
  Guarded(CheckedBank("the bank directory", ""), [&] {
    char typeText[kMostName + 1] = {};
    char name[kMostName + 1] = {};
    maint_.BeginBankWalk(type);
    while (maint_.NextBank(typeText, name)) banks.emplace_back(typeText, name);
    maint_.EndBankWalk();
  });
  return banks;
}

std::int64_t CheckedLibrary::CountItems(CheckedBank const& bank) {
  std::int64_t count = 0;
  Guarded(bank, [&] {
    std::int32_t words[format::kMaxKeyWords] = {};
    if (!maint_.BeginItemWalk(bank.type.c_str(), bank.name.c_str())) return;
    while (maint_.NextItemKey(words)) ++count;
    maint_.EndItemWalk();
  });
  return count;
}

std::int64_t CheckedLibrary::CountAllItems(char const* type) {
  std::int64_t count = 0;
  for (CheckedBank const& bank : Banks(type)) count += CountItems(bank);
  return count;
}

bool CheckedLibrary::ReadSame(CheckedBank const& bank, ZelIdentity const& wanted,
                              ComponentView const& found) {
  bool isThere = false;
  Guarded(bank, [&] { isThere = Find(bank, wanted, found); });
  return isThere;
}

bool CheckedLibrary::Find(CheckedBank const& bank, ZelIdentity const& wanted,
                          ComponentView const& found) {
  auto const read = [&](auto const& label) {
    Handle<Key> const key(Key::NewKey());
    key->SetKey(label);
    return maint_.ReadItem(found.Def(), bank.name.c_str(), key.get());
  };
  auto const agrees = [&] { return CompareIdentities(wanted, found.Identity()) == identityAgrees; };
  casn const cas(wanted.casNumber);
  if (static_cast<long>(cas) != 0 && read(cas)) return true;
  if (wanted.number != 0 && read(long{wanted.number}) && agrees()) return true;
  return std::any_of(std::begin(wanted.ids), std::end(wanted.ids),
                     [&](char const* id) { return *id != '\0' && read(id) && agrees(); });
}

CheckedItem CheckedLibrary::Item(CheckedBank const& bank, std::int32_t const* key,
                                 std::int32_t keyWords, std::string text) const {
  std::string place = bank.Text() + " " + text;
  return CheckedItem(name_, bank, {key, key + keyWords}, std::move(text), std::move(place));
}

CheckedItem CheckedLibrary::ComponentItem(CheckedBank const& bank, ZelIdentity const& identity,
                                          std::int32_t key) const {
  return zel::ComponentItem(name_, bank, identity, key);
}

void CheckedLibrary::Unreadable(CheckedBank const& bank, unsigned long address) {
  ZelBlockErrorInfo info;
  GetBlockErrorInfo(address, info);
  findings_.Damage("item", name_, bank.name.empty() ? bank.type : bank.Text(),
                   "block " + std::to_string(address) + " " + info.reason);
}

}  // namespace zel
