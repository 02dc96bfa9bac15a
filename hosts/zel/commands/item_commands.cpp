// copy, delete
#include <zelaccess/Key_p.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "commands/command.h"
#include "commands/shared_options.h"
#include "desk/change/library_change.h"
#include "desk/combine/bank_copy.h"
#include "desk/notes/carried_notes.h"
#include "desk/notes/memo.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/members.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/failure.h"
#include "output/progress.h"

namespace zelhost {
namespace {

struct Options {
  std::string from;
  std::string path;
  std::string bank;
  std::vector<std::string> banks;
  std::vector<std::string> words;
  ChangeOptions change;
  std::string mode;
  bool replace = false;
  bool create = false;
  bool wholeBank = false;
};

// Copies the item with this stored key; it is read into `item` first. Returns the number of items
// copied: 1, or 0 for one that cannot be read. Adds its reference codes.
int CopyItem(Library const& from, Library const& to, BankName const& bank, zel::IZelBankDef& item,
             std::vector<std::int32_t> const& stored, std::string const& shown, bool replace,
             CodeCounts& codes) {
  zel::Handle<zel::Key> const key = StoredKey(stored);
  char const* const name = bank.name.c_str();
  try {
    if (!from.Maint().ReadItem(&item, name, key.get())) {
      RefuseItem(from, bank, shown, "cannot be read");
    }
  } catch (unsigned long const address) {
    from.TellUnread(ToText(bank) + " " + shown, address);
    return 0;
  }
  if (!replace && to.Maint().ItemExists(&item, name, key.get())) {
    RefuseItem(to, bank, shown, "exists already; --replace replaces it");
  }
  AddCodes(item, codes);
  WriteItem(to, bank, item, *key, shown);
  return 1;
}

std::int64_t CopyBank(Library const& from, Library const& to, BankName const& bank, bool replace,
                      std::vector<CitationConflict>& conflicts) {
  MakeBankLike(from, to, bank);
  zel::Handle<zel::IZelBankDef> const item = BankOfType(bank.type);
  KeyWords words(from, *item);
  std::vector<std::vector<std::int32_t>> keys;
  from.Walk(bank, [&] { keys = Keys(from, bank, *item); });
  std::int64_t copied = 0;
  CodeCounts codes;
  Progress progress("copying " + ToText(bank), keys.size());
  for (auto const& stored : keys) {
    copied += CopyItem(from, to, bank, *item, stored, Joined(words.Of(stored)), replace, codes);
    progress.Step();
  }
  Append(conflicts, CarryNotes(from, bank, *item, codes, to, bank));
  return copied;
}

std::int64_t CopyOne(Library const& from, Library const& to, Options const& o,
                     std::vector<CitationConflict>& conflicts) {
  BankName const bank = from.Bank(o.banks.front());
  MakeBankLike(from, to, bank);
  zel::Handle<zel::IZelBankDef> const item = BankOfType(bank.type);
  zel::Handle<zel::Key> const key = KeyIn(from, *item, o.words);
  if (!from.Maint().ReadItem(item.get(), bank.name.c_str(), key.get())) {
    RefuseItem(from, bank, Joined(o.words), "does not exist" + WhyNotFound(from, *item, o.words));
  }
  // The key is set by numbers and as it is stored: the other library need not know the IDs.
  std::int32_t const* const words = dynamic_cast<zel::Key_p const&>(*key).GetKeyWords();
  CodeCounts codes;
  int const copied = CopyItem(from, to, bank, *item, {words, words + BankFacts(*item).keyWords},
                              Joined(o.words), o.replace, codes);
  Append(conflicts, CarryNotes(from, bank, *item, codes, to, bank));
  return copied;
}

Report Copy(Session& session, Options const& o) {
  if (!o.words.empty() && o.banks.size() != 1) {
    throw WrongUsage("--item needs one --bank");
  }
  std::error_code none;
  if (std::filesystem::equivalent(o.from, o.path, none)) {
    throw Failure(o.from + ": FROM and TO are the same library");
  }
  Library const from = OpenFinished(session, o.from);
  zel::InitZelAccess();
  LibraryChange change = ExistingOrNewLibrary(session, o.path, o.create, o.mode, o.change);
  Library const& to = change.Open();
  std::vector<CitationConflict> conflicts;
  Report report;
  Table& table = report.Begin("copied", {{"bank", ""}, {"items", ""}});
  if (!o.words.empty()) {
    table.Add(ToText(from.Bank(o.banks.front())), CopyOne(from, to, o, conflicts));
  } else {
    std::vector<BankName> banks = o.banks.empty() ? DataBanks(from) : std::vector<BankName>();
    for (std::string const& word : o.banks) banks.push_back(from.Bank(word));
    // Components first, because pairs refer to them.
    std::stable_partition(banks.begin(), banks.end(),
                          [](BankName const& bank) { return bank.type == "PURECOMP"; });
    for (BankName const& bank : banks) {
      table.Add(ToText(bank), CopyBank(from, to, bank, o.replace, conflicts));
    }
  }
  AddCitationConflicts(session, conflicts, report);
  NoteMark(session, from, o.path, &to);
  PutInPlaceAfter(report, std::move(change));
  return report;
}

Report Delete(Session& session, Options const& o) {
  if (o.words.empty() != o.wholeBank) {
    throw WrongUsage("name an item, or give --whole-bank");
  }
  LibraryChange change(session, o.path, o.change);
  Library const& library = change.Open();
  BankName const bank = library.Bank(o.bank);
  char const* const type = bank.type.c_str();
  char const* const name = bank.name.c_str();
  std::vector<std::string> words;
  if (o.wholeBank) {
    if (!library.Maint().DeleteBank(type, name)) {
      throw Failure(o.path + ": bank " + ToText(bank) + " cannot be removed");
    }
  } else {
    zel::Handle<zel::IZelBankDef> const item = BankOfType(bank.type);
    zel::Handle<zel::Key> const key = KeyIn(library, *item, o.words);
    words = ItemWords(library, *item, o.words);
    if (!library.Maint().DeleteItem(type, name, key.get())) {
      RefuseItem(library, bank, Joined(o.words),
                 "does not exist" + WhyNotFound(library, *item, o.words));
    }
  }
  Report report;
  report.Fact("removed", change.IsDryRun() ? "would remove" : "",
              ToText(bank) + (o.wholeBank ? "" : " " + Joined(words)));
  report.JsonFacts(ItemColumns(),
                   ItemMembers(ToText(bank), o.wholeBank ? std::vector<std::string>() : words));
  PutInPlaceAfter(report, std::move(change));
  return report;
}

}  // namespace

void AddItemCommands(CommandLine& line) {
  auto const o = std::make_shared<Options>();
  Command copy(line, "copy", "Copy banks or one item from a library to another",
               "zel copy perry.lb1 own.lb1 --bank PERRY --item ETHANOL");
  copy.Argument("FROM", o->from, "a library file")
      .Argument("TO", o->path, "the library to change")
      .Library(o->from)
      .Library(o->path, &o->create)
      .Option("--bank", o->banks, "this bank; by default all banks", "BANK")
      .Option("--item", o->words, "this item of the bank", "WORD...")
      .Flag("--replace", o->replace, "replace items that exist already")
      .Flag("--create", o->create, "create the library TO if it does not exist");
  AddModeOption(copy, o->mode);
  AddStrict(copy);
  AddChangeOptions(copy, o->change);
  copy.Run(Outputs::kJsonAndCsv, [o](Session& session) { return Copy(session, *o); });
  Command remove(line, "delete", "Remove an item or a bank", "zel delete own.lb1 PERRY ETHANOL");
  remove.Argument("LIBRARY", o->path, "the library to change")
      .Library(o->path)
      .Argument("BANK", o->bank, "a name, a type, or TYPE:NAME")
      .OptionalArgument("ITEM", o->words, "its components, numbers or text")
      .Flag("--whole-bank", o->wholeBank, "remove the bank with all its items");
  AddChangeOptions(remove, o->change);
  remove.Run(Outputs::kJson, [o](Session& session) { return Delete(session, *o); });
}

}  // namespace zelhost
