#include "desk/notes/memo.h"

#include <algorithm>

#include "desk/words/failure.h"

namespace zel::desk {
namespace {

constexpr char kNotesType[] = "OLI";
constexpr char kNotesName[] = "NOTES";

BankName NewNotesBank(Library const& library) {
  constexpr int kMost = 999;  // names have 8 characters
  for (int i = 1; i <= kMost; ++i) {
    BankName bank{kNotesType, kNotesName + std::to_string(i)};
    if (library.Maint().BankExists(bank.type.c_str(), bank.name.c_str())) continue;
    if (!library.Maint().CreateBank(bank.type.c_str(), bank.name.c_str(), 0)) break;
    return bank;
  }
  throw Failure(library.Path() + ": a bank for notes cannot be created");
}

using Place = std::optional<BankName>;

// The memos for all data of the library.
std::vector<Place> CommonPlaces(Library const& library) {
  std::vector<Place> places = {std::nullopt};
  for (BankName const& bank : NotesBanks(library)) places.emplace_back(bank);
  return places;
}

// False, and nothing is changed, if the memo has no room.
bool Put(Library const& library, Place const& place, Note const& note) {
  NoteLines lines(MemoIn(library, place));
  lines.Set(note);
  std::string const memo = lines.ToText();
  if (memo.size() > kLongestMemo) return false;
  SetMemoIn(library, place, memo);
  return true;
}

}  // namespace

std::string MemoIn(Library const& library, std::optional<BankName> const& bank) {
  char memo[kMemoSize] = {};
  if (bank) {
    library.Maint().GetBankMemo(bank->type.c_str(), bank->name.c_str(), memo);
  } else {
    library.File().GetMemo(memo);
  }
  return memo;
}

std::string ReadableMemo(Library const& library, std::optional<BankName> const& bank) {
  try {
    return MemoIn(library, bank);
  } catch (unsigned long const address) {
    library.TellUnread(bank ? "memo of " + ToText(*bank) : "memo of the library", address);
    return "";
  }
}

void SetMemoIn(Library const& library, std::optional<BankName> const& bank,
               std::string const& memo) {
  if (memo.size() > kLongestMemo) {
    throw Failure(library.Path() + ": the memo of " + (bank ? ToText(*bank) : "the library") +
                  " would have " + std::to_string(memo.size()) + " characters; at most " +
                  std::to_string(kLongestMemo) + " can be stored");
  }
  if (bank) {
    library.Maint().SetBankMemo(bank->type.c_str(), bank->name.c_str(), memo.c_str());
  } else {
    library.File().SetMemo(memo.c_str());
  }
}

bool IsNotesBank(BankName const& bank) {
  constexpr std::size_t kStem = sizeof(kNotesName) - 1;
  return bank.type == kNotesType && bank.name.size() > kStem &&
         bank.name.compare(0, kStem, kNotesName) == 0 &&
         bank.name.find_first_not_of("0123456789", kStem) == std::string::npos;
}

std::vector<BankName> NotesBanks(Library const& library) {
  std::vector<BankName> banks = library.Banks(kNotesType);
  banks.erase(std::remove_if(banks.begin(), banks.end(),
                             [](BankName const& bank) { return !IsNotesBank(bank); }),
              banks.end());
  return banks;
}

std::vector<BankName> DataBanks(Library const& library) {
  std::vector<BankName> banks = library.Banks();
  banks.erase(std::remove_if(banks.begin(), banks.end(), IsNotesBank), banks.end());
  return banks;
}

void SetCommonNote(Library const& library, Note const& note) {
  std::vector<Place> const places = CommonPlaces(library);
  for (Place const& place : places) {
    bool const isThere = NoteLines(MemoIn(library, place)).Find(note.kind, note.key) != nullptr;
    if (isThere && Put(library, place, note)) return;
  }
  RemoveCommonNote(library, note.kind, note.key);
  for (Place const& place : CommonPlaces(library)) {
    if (Put(library, place, note)) return;
  }
  NoteLines lines("");
  lines.Set(note);
  SetMemoIn(library, NewNotesBank(library), lines.ToText());
}

bool RemoveCommonNote(Library const& library, NoteKind kind, std::string const& key) {
  bool isRemoved = false;
  for (Place const& place : CommonPlaces(library)) {
    NoteLines lines(MemoIn(library, place));
    if (!lines.Remove(kind, key)) continue;
    isRemoved = true;
    std::string const memo = lines.ToText();
    if (place && memo.empty()) {
      library.Maint().DeleteBank(place->type.c_str(), place->name.c_str());
    } else {
      SetMemoIn(library, place, memo);
    }
  }
  return isRemoved;
}

std::vector<std::string> CommonMemos(Library const& library) {
  std::vector<std::string> memos;
  for (Place const& place : CommonPlaces(library)) memos.push_back(MemoIn(library, place));
  return memos;
}

std::vector<NoteLines> CommonNotes(Library const& library) {
  std::vector<NoteLines> notes;
  for (Place const& place : CommonPlaces(library)) {
    notes.emplace_back(ReadableMemo(library, place));
  }
  return notes;
}

}  // namespace zel::desk
