#include "desk/tables/table_import.h"

#include "desk/open/fields.h"
#include "desk/open/members.h"
#include "desk/open/storable.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {

BankName BankForTable(Library& library, std::string const& word) {
  std::size_t const colon = word.find(':');
  if (colon == std::string::npos) {
    try {
      return library.Bank(word);
    } catch (MissingBank const& failure) {
      throw Failure(failure.what() + std::string("; TYPE:NAME makes a new bank, such as ") +
                    kPureType + ":" + UpperCase(word));
    }
  }
  BankName bank = {UpperCase(word.substr(0, colon)), UpperCase(word.substr(colon + 1))};
  if (bank.name.empty() || bank.name.size() >= kNameSize) {
    throw Failure("a bank's name has 1 to 8 characters: " + word);
  }
  BankOfType(bank.type);
  bool const isThere = library.Maint().BankExists(bank.type.c_str(), bank.name.c_str());
  if (isThere) return bank;
  CheckDocument(bank.name, DocumentPlace::kAttribute, "the bank name " + bank.name);
  char const* const type = bank.type.c_str();
  if (!library.Maint().CreateBank(type, bank.name.c_str(), 0)) {
    throw Failure(library.Path() + ": bank " + ToText(bank) + " cannot be created");
  }
  return bank;
}

ImportedTable ImportTable(TableTarget const& target, std::string const& path,
                          ColumnChoice const& choice, bool listAll) {
  return ImportRows(target, ReadTextTable(path, true), path, choice, listAll);
}

ImportedTable ImportRows(TableTarget const& target, TextTable table, std::string const& shownAs,
                         ColumnChoice const& choice, bool listAll) {
  std::unique_ptr<RowForm> form;
  try {
    form = FormOf(target, ChosenColumns(table, choice));
  } catch (Failure const& failure) {
    throw Failure(shownAs + ": " + failure.what());
  }
  ImportedTable imported;
  for (TextRow const& row : table.rows) {
    ++imported.read;
    RowResult result;
    try {
      if (!row.fault.empty()) throw Failure(row.fault);
      result = form->Apply(row);
    } catch (Failure const& failure) {
      result = {RowState::kRefused, "", failure.what()};
    } catch (WrongUsage const& failure) {
      result = {RowState::kRefused, "", failure.what()};
    }
    if (result.state == RowState::kRefused) form->Forget(row.line);
    std::int64_t& count = result.state == RowState::kNew       ? imported.isNew
                          : result.state == RowState::kChanged ? imported.changed
                          : result.state == RowState::kSame    ? imported.same
                                                               : imported.refused;
    ++count;
    if (result.given != 0) imported.given.Add(result.parts.front(), std::int64_t{result.given});
    if (!result.warning.empty()) {
      ++imported.warned;
      result.what += (result.what.empty() ? "" : "; ") + result.warning;
    }
    bool const isListed = result.state == RowState::kChanged ||
                          result.state == RowState::kRefused || !result.warning.empty() || listAll;
    if (!isListed) continue;
    std::vector<Cell> cells = RowOf(static_cast<std::int64_t>(row.line), Text(result.item),
                                    std::string(ToText(result.state)), Text(result.what));
    Append(cells, PartMembers(result.parts));
    cells.push_back(Text(result.datum));
    imported.rows.Add(std::move(cells));
  }
  imported.findings = form->Findings();
  return imported;
}

}  // namespace zel::desk
