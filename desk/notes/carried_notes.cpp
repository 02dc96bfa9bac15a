#include "desk/notes/carried_notes.h"

#include "desk/notes/citation_changes.h"
#include "desk/notes/memo.h"
#include "desk/notes/parameter_meanings.h"

namespace zel::desk {
namespace {

// Why the citation that came with data is not kept.
void TellConflict(Citation const& ours, Citation const& theirs, Library const& from,
                  BankName const& fromBank, Library const& to, BankName const& toBank) {
  to.InSession().Note(to.Path() + ": " + ToText(toBank) + ": code " + std::to_string(ours.code) +
                      " is cited as \"" + ours.text + "\" here, but as \"" + theirs.text +
                      "\" in " + from.Path() + ":" + ToText(fromBank) + "; the former is kept");
}

// Puts the citation into the memo of the bank if all of its data with the code were copied from one
// with this citation; false if they were not, or if the memo has no room.
bool KeepInBank(Citation const& citation, std::int64_t copied, Library const& to,
                BankName const& toBank) {
  CodeCounts const all = CodesIn(to, toBank);
  auto const at = all.find(citation.code);
  if (at == all.end() || at->second != copied) return false;
  NoteLines lines(MemoIn(to, toBank));
  lines.Set(NoteOf(citation));
  std::string const memo = lines.ToText();
  if (memo.size() > kLongestMemo) return false;
  SetMemoIn(to, toBank, memo);
  return true;
}

// A citation for all data of `from` becomes one for all data of `to`, so that memos of banks do not
// change.
std::vector<CitationConflict> CarryCitations(Library const& from, BankName const& fromBank,
                                             CodeCounts const& codes, Library const& to,
                                             BankName const& toBank) {
  std::vector<CitationConflict> conflicts;
  Citations theirs;
  Citations ours;  // of other codes than those that are written here
  for (auto const& [code, count] : codes) {
    Citation const* const citation = theirs.Find(from, fromBank, code);
    if (citation == nullptr) continue;
    Citation const* const there = ours.Find(to, toBank, code);
    if (there == nullptr) {
      bool const isOfBank = theirs.FindOwn(from, fromBank, code) != nullptr;
      SetCitation(to, isOfBank ? std::optional(toBank) : std::nullopt, *citation);
    } else if (!(*there == *citation)) {
      if (ours.FindOwn(to, toBank, code) == nullptr && KeepInBank(*citation, count, to, toBank)) {
        continue;
      }
      TellConflict(*there, *citation, from, fromBank, to, toBank);
      conflicts.push_back({ToText(toBank), *there, *citation, from.Path() + ":" + fromBank.name});
    }
  }
  return conflicts;
}

void CarryMeanings(Library const& from, BankName const& fromBank, zel::IZelBankDef& item,
                   Library const& to, BankName const& toBank) {
  Meanings const theirs(from, fromBank);
  Meanings const ours(to, toBank);
  std::vector<std::string> names = {""};  // of the equation, then of the fields
  for (Field const& field : ParametersOf(item)) names.push_back(field.name);
  for (std::string const& name : names) {
    Note const* const note = theirs.Find(name);
    if (note == nullptr) continue;
    Note const* const there = ours.Find(name);
    if (there == nullptr) {
      if (theirs.IsOfBank(name)) {
        NoteLines lines(MemoIn(to, toBank));
        lines.Set(*note);
        SetMemoIn(to, toBank, lines.ToText());
      } else {
        SetCommonNote(to, *note);
      }
    } else if (DescriptionOf(*there) != DescriptionOf(*note)) {
      to.InSession().Note(to.Path() + ": " + ToText(toBank) + ": " +
                          (name.empty() ? "the equation" : name) + " is noted as \"" +
                          DescriptionOf(*there) + "\" here, but as \"" + DescriptionOf(*note) +
                          "\" in " + from.Path() + ":" + ToText(fromBank) + "; the former is kept");
    }
  }
}

}  // namespace

std::vector<CitationConflict> CarryNotes(Library const& from, BankName const& fromBank,
                                         zel::IZelBankDef& item, CodeCounts const& codes,
                                         Library const& to, BankName const& toBank) {
  auto conflicts = CarryCitations(from, fromBank, codes, to, toBank);
  CarryMeanings(from, fromBank, item, to, toBank);
  return conflicts;
}

Table ConflictTable(std::vector<CitationConflict> const& conflicts) {
  Table table("cited otherwise",
              {{"code", ""}, {"bank", ""}, {"kept", ""}, {"other", ""}, {"from", ""}});
  for (CitationConflict const& one : conflicts) {
    table.Add(std::int64_t{one.kept.code}, one.bank, NoteOf(one.kept).text, NoteOf(one.other).text,
              one.from);
  }
  return table;
}

}  // namespace zel::desk
