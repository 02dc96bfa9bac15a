#include "desk/combine/salvage.h"

#include <optional>
#include <utility>
#include <vector>

#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/members.h"

namespace zel::desk {
namespace {

char const* WordOf(zel::zelSalvageStates state) {
  switch (state) {
    case zel::salvageTaken: return "taken";
    case zel::salvageAltered: return "altered";
    case zel::salvageKeyless: return "without key";
    case zel::salvageLost: break;
  }
  return "lost";
}

char const* WordOf(zel::zelSalvageWays way) {
  switch (way) {
    case zel::salvageByWalk: return "walk";
    case zel::salvageByScan: return "scan";
    case zel::salvageOutdated: break;
  }
  return "outdated";
}

// Keeps the records of what was not taken unchanged, and counts the rest.
class Records final : public zel::ZelSalvageSink {
 public:
  struct Bank {
    BankName name;
    std::int64_t items = 0;
    std::int64_t scanned = 0;
    std::int64_t altered = 0;
    std::int64_t keyless = 0;
    std::int64_t lost = 0;
    std::int64_t gaps = 0;
    std::string text;
  };
  struct Item {
    std::size_t bank;
    zel::zelSalvageKinds kind;
    zel::zelSalvageStates state;
    zel::zelSalvageWays way;
    std::vector<std::int32_t> key;
    std::string text;
  };

  void Salvaged(zel::ZelSalvageRecord const& record) override {
    switch (record.kind) {
      case zel::salvageHeader: library.emplace_back(record.text); return;
      case zel::salvageBank: OfBank(record); return;
      case zel::salvageGap: ++banks.back().gaps; break;
      case zel::salvageItem: Count(record, banks.back()); break;
    }
    bool const isPlain = record.state == zel::salvageTaken && record.way == zel::salvageByWalk &&
                         *record.text == '\0';
    if (isPlain) return;
    items.push_back({banks.size() - 1,
                     record.kind,
                     record.state,
                     record.way,
                     {record.keyWords, record.keyWords + record.keyCount},
                     record.text});
  }

  std::vector<std::string> library;
  std::vector<Bank> banks;
  std::vector<Item> items;

 private:
  // A record about a bank after its items, such as one about a lost memo, is added to its text.
  void OfBank(zel::ZelSalvageRecord const& record) {
    bool const isKnown = !banks.empty() && banks.back().name.type == record.type &&
                         banks.back().name.name == record.bank;
    if (!isKnown) {
      banks.emplace_back();
      banks.back().name = {record.type, record.bank};
    }
    std::string& text = banks.back().text;
    text += (text.empty() || *record.text == '\0' ? "" : "; ") + std::string(record.text);
  }

  static void Count(zel::ZelSalvageRecord const& record, Bank& bank) {
    switch (record.state) {
      case zel::salvageKeyless: ++bank.keyless; return;
      case zel::salvageLost: ++bank.lost; return;
      case zel::salvageAltered: ++bank.altered; break;
      case zel::salvageTaken: break;
    }
    ++bank.items;
    if (record.way != zel::salvageByWalk) ++bank.scanned;
  }
};

std::string Numbers(std::vector<std::int32_t> const& key) {
  std::vector<std::string> words;
  words.reserve(key.size());
  for (std::int32_t const word : key) words.push_back(std::to_string(word));
  return Joined(words);
}

void AddItems(Records const& records, Library const& to, Table& table) {
  std::size_t i = 0;
  for (std::size_t bank = 0; bank < records.banks.size(); ++bank) {
    BankName const& name = records.banks[bank].name;
    zel::Handle<zel::IZelBankDef> const item = BankOrNone(name.type);
    std::optional<KeyWords> words;
    if (item) words.emplace(to, *item);
    for (; i < records.items.size() && records.items[i].bank == bank; ++i) {
      Records::Item const& one = records.items[i];
      bool const isNamed = words && one.key.size() == words->Count();
      std::string const key = one.key.empty() ? std::string()
                              : isNamed       ? Joined(words->Of(one.key))
                                              : Numbers(one.key);
      table.Add(ToText(name), Text(key), WordOf(one.state), WordOf(one.way), Text(one.text));
    }
  }
}

}  // namespace

Salvaged::Salvaged()
    : library("header", {{"text", ""}}),
      banks("banks", {{"bank", ""},
                      {"items", ""},
                      {"scanned", ""},
                      {"altered", ""},
                      {"without key", ""},
                      {"lost", ""},
                      {"gaps", ""},
                      {"text", ""}}),
      items("not simply taken",
            {{"bank", ""}, {"item", ""}, {"state", ""}, {"found by", ""}, {"text", ""}}) {}

zel::libTypes TypeForSalvage(std::string const& path) {
  zel::libTypes type = zel::libKind11;
  zel::openErrors const error = zel::FindLibraryType(path.c_str(), type);
  if (error != zel::openOk) ThrowOpenError(error, path);
  return type;
}

Salvaged Salvage(std::string const& path, std::string const& password, Library const& to) {
  Records records;
  Salvaged done;
  zel::openErrors const error =
      zel::SalvageLibrary(path.c_str(), password.c_str(), &to.File(), &records, done.counts);
  if (error != zel::openOk) ThrowOpenError(error, path);
  for (std::string const& text : records.library) done.library.Add(text);
  done.isWhole = records.library.empty();
  for (Records::Bank const& bank : records.banks) {
    done.banks.Add(ToText(bank.name), bank.items, bank.scanned, bank.altered, bank.keyless,
                   bank.lost, bank.gaps, Text(bank.text));
    done.isWhole = done.isWhole && bank.text.empty() &&
                   bank.altered + bank.keyless + bank.lost + bank.gaps == 0;
  }
  AddItems(records, to, done.items);
  return done;
}

}  // namespace zel::desk
