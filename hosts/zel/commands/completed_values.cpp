// The values that are possible at the cursor of a command line.
#include <zelaccess/ZelAccess.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "commands/completion.h"
#include "commands/manual.h"
#include "desk/findings/finding.h"
#include "desk/findings/library_check.h"
#include "desk/formats/formats.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/library.h"
#include "desk/open/pure_component.h"
#include "desk/words/display_units.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "output/schemas.h"

namespace zelhost {
namespace {

constexpr char kEnding[] = ".lb1";

// What is expected at the last word: the name of an argument or of the value of an option, such as
// COMPONENT; empty if that is not known.
std::string KindAtCursor(CLI::App const& command, std::vector<std::string> const& words,
                         std::size_t first) {
  std::vector<CLI::Option const*> positionals;
  for (CLI::Option const* option : command.get_options()) {
    if (option->get_positional()) positionals.push_back(option);
  }
  std::size_t position = 0;
  CLI::Option const* open = nullptr;  // an option that takes the next word
  for (std::size_t i = first; i + 1 < words.size(); ++i) {
    std::string const& word = words[i];
    if (word.size() > 1 && word[0] == '-') {
      bool const hasValue = word.find('=') != std::string::npos;
      open = hasValue ? nullptr : command.get_option_no_throw(word);
      if (!hasValue && open == nullptr) open = command.get_parent()->get_option_no_throw(word);
      if (open != nullptr && open->get_items_expected_max() == 0) open = nullptr;
    } else if (open != nullptr) {
      bool const takesOne = open->get_items_expected_max() == 1 || !open->get_allow_extra_args();
      if (takesOne) open = nullptr;
    } else {
      ++position;
    }
  }
  if (open != nullptr) return open->check_lname("units") ? "UNIT" : open->get_type_name();
  if (positionals.empty()) return "";
  CLI::Option const* const at = positionals[std::min(position, positionals.size() - 1)];
  if (position >= positionals.size() && at->get_items_expected_max() == 1) return "";
  return at->get_name();
}

// The library that a word names, "own.lb1", "own" or "own:BANK"; empty if it does not name one.
std::string LibraryOf(Session& session, std::string const& word) {
  if (word.empty() || word[0] == '-') return "";
  std::string path = session.defaults.Path().FindSource(word);
  std::size_t const end = LowerCase(path).rfind(kEnding);
  if (end == std::string::npos) return "";
  path.resize(end + std::string(kEnding).size());
  return std::filesystem::exists(path) ? path : "";
}

// The libraries that the words name, else those that are searched without them.
std::vector<std::string> LibrariesIn(Session& session, std::vector<std::string> const& words) {
  std::vector<std::string> paths;
  auto const add = [&](std::string const& word) {
    try {
      std::string const path = LibraryOf(session, word);
      bool const isNew = std::find(paths.begin(), paths.end(), path) == paths.end();
      if (!path.empty() && isNew) paths.push_back(path);
    } catch (Error const&) {  // a word that names no library
    }
  };
  for (std::string const& word : words) add(word);
  if (!paths.empty()) return paths;
  for (std::string const& word : session.defaults.File().libraries) add(word);
  add(session.namesPath.empty() ? session.defaults.File().names : session.namesPath);
  return paths;
}

struct Values {
  std::string begun;            // in upper case
  std::set<std::string> lines;  // in order, each once

  void Add(std::string const& word, std::string const& help = "") {
    if (word.find_first_of("\t\n\r") != std::string::npos) return;
    if (UpperCase(word).rfind(begun, 0) != 0) return;
    lines.insert(help.empty() ? word : word + "\t" + help);
  }
};

void AddIds(Library const& library, Values& values) {
  std::int32_t number = 0;
  char id[kNameSize] = {};
  library.Maint().BeginIdWalk();
  while (library.Maint().NextId(number, id)) values.Add(id);
}

void AddBanks(Library const& library, Values& values) {
  for (BankName const& bank : library.Banks()) {
    values.Add(ToText(bank));
    values.Add(bank.name, bank.type);
  }
}

void AddCorrelations(Values& values) {
  for (auto const& row : Correlations()) values.Add(row.name, row.unit);
}

void AddConstants(Values& values) {
  for (auto const& row : Constants()) values.Add(row.keyword, row.label);
}

void AddTypes(Values& values) {
  long const count = zel::GetBankTypeCount();
  std::vector<char> list(static_cast<std::size_t>(count) * kNameSize);
  auto* const names = reinterpret_cast<char(*)[kNameSize]>(list.data());
  zel::GetBankTypeList(count, names);
  for (long i = 0; i < count; ++i) values.Add(names[i]);
}

// The data of a type of banks: the constants and correlations of components, the fields of others.
void AddData(std::string const& type, Values& values) {
  if (type == kPureType) {
    AddCorrelations(values);
    return AddConstants(values);
  }
  zel::Handle<zel::IZelBankDef> const item = BankOrNone(type);
  if (!item) return;
  for (Field const& field : FieldsOf(*item)) values.Add(field.name, field.label);
}

// The type that a word names, "NRTL" or "NRTL:OWN"; empty if it does not name one.
std::string TypeNamed(std::string const& word) {
  std::string const type = UpperCase(word.substr(0, word.find(':')));
  return BankOrNone(type) ? type : "";
}

// The words of `edit` after the library: [BANK] ITEM DATUM. Returns true if the item is named.
bool AddDataToEdit(std::vector<std::string> const& words, std::size_t first, Values& values) {
  std::vector<std::string> before;
  for (std::size_t i = first + 1; i + 1 < words.size(); ++i) {
    if (words[i].empty() || words[i][0] == '-') break;
    before.push_back(words[i]);
  }
  std::string type = before.empty() ? "" : TypeNamed(before.front());
  if (!type.empty()) before.erase(before.begin());
  if (type.empty()) type = kPureType;
  BankFacts const facts(*BankOfType(type));
  constexpr std::int32_t kText = 2;
  auto const count = static_cast<std::size_t>(facts.keyKind == kText ? 1 : facts.keyWords);
  if (before.size() < count) return false;
  AddData(type, values);
  return true;
}

// The words of `check`, `schema` and `import`.
void AddFixedWords(std::string const& kind, std::string const& command, Values& values) {
  if (kind == "SEVERITY") {
    for (auto const one : {zel::findingNote, zel::findingWarning, zel::findingError}) {
      values.Add(WordOf(one));
    }
  }
  if (kind == "FORM") {
    for (char const* form : {"sarif", "junit"}) values.Add(form);
  }
  if (kind == "ID" && command == "check") {
    for (CheckRule const& rule : CheckRules()) values.Add(rule.id, rule.rule);
  }
  if (kind == "FORMAT") {
    for (FormatName const& one : AllFormats()) values.Add(one.name, one.what);
  }
  if (kind == "COMMAND") {
    for (PublishedSchema const& schema : PublishedSchemas()) values.Add(schema.command);
  }
}

}  // namespace

namespace {

Values ValuesAtCursor(Session& session, CLI::App const& app,
                      std::vector<std::string> const& words) {
  CLI::App const* command = nullptr;
  std::size_t first = 0;  // word after the command
  while (command == nullptr && first + 1 < words.size()) {
    for (CLI::App const* one : Commands(app)) {
      if (one->get_name() == words[first]) command = one;
    }
    ++first;
  }
  if (words.empty()) return {};
  Values values{UpperCase(words.back()), {}};
  if (words.size() == 2 && words.front() == "help") {
    for (CLI::App const* one : Commands(app)) values.Add(one->get_name(), one->get_description());
    return values;
  }
  if (command == nullptr) return {};
  std::string kind = KindAtCursor(*command, words, first);
  kind = kind.substr(0, kind.find_first_of(" ."));
  auto const is = [&](std::initializer_list<char const*> kinds) {
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
  };
  if (is({"CORRELATION", "DATUM"})) AddCorrelations(values);
  if (is({"DATUM"})) AddConstants(values);
  if (is({"TYPE"})) AddTypes(values);
  AddFixedWords(kind, command->get_name(), values);
  if (is({"UNIT"})) {
    for (std::string const& word : UnitWords()) {
      if (word.find(' ') == std::string::npos) values.Add(word);
    }
  }
  if (is({"FIELD"})) {
    for (std::size_t i = first; i + 1 < words.size(); ++i) AddData(TypeNamed(words[i]), values);
  }
  bool const isEdit = command->get_name() == "edit" && is({"WORD"});
  if (isEdit && AddDataToEdit(words, first, values)) return values;
  bool const wantsIds = is({"COMPONENT", "OLD", "ITEM", "WORD"});
  bool const wantsBanks = is({"BANK", "NAME"});
  for (std::string const& path : LibrariesIn(session, words)) {
    if (!wantsIds && !wantsBanks) break;
    try {
      Library const library = Library::OpenRead(session, path);
      if (wantsIds) AddIds(library, values);
      if (wantsBanks) AddBanks(library, values);
    } catch (std::bad_alloc const&) {
      throw;
    } catch (std::exception const&) {  // nothing is completed from it
    } catch (unsigned long) {          // a block that cannot be read
    }
  }
  return values;
}

}  // namespace

std::string CompletedValues(Session& session, CLI::App const& app,
                            std::vector<std::string> const& words) {
  std::string text;
  try {
    for (std::string const& line : ValuesAtCursor(session, app, words).lines) text += line + "\n";
  } catch (Error const&) {  // settings that are not valid
  }
  return text;
}

}  // namespace zelhost
