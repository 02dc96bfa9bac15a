#include <zelaccess/DeskBanks.h>

#include <filesystem>
#include <fstream>
#include <utility>

#include "desk/face/data.h"
#include "desk/face/guarded.h"
#include "desk/face/item_data.h"
#include "desk/files/folder.h"
#include "desk/files/output_file.h"
#include "desk/files/system.h"
#include "desk/notes/memo.h"
#include "desk/open/component_name.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/library_path.h"
#include "desk/open/unfinished_change.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

namespace fs = std::filesystem;

Session& WithNames(Session& session, LibrariesOptions const& options) {
  zel::InitZelAccess();
  session.patience = PatienceOf(options.waitSeconds);
  session.namesPath = LibraryPath(options.path).Find(options.names);
  OpenNames(session);
  return session;
}

std::int64_t ItemsOf(Library const& library, BankName const& bank) {
  std::int64_t count = 0;
  std::int32_t key[10] = {};
  library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
  while (library.Maint().NextItemKey(key)) ++count;
  library.Maint().EndItemWalk();
  return count;
}

BankInfo InfoOf(Library const& library, BankName const& bank) {
  return {bank.type, bank.name, ItemsOf(library, bank),
          library.Maint().GetBankFormat(bank.type.c_str(), bank.name.c_str())};
}

// The library's files under their own names in another folder, as links. Text indexes are written
// next to a library.
std::vector<fs::path> LinkedInto(OutputFolder const& folder, fs::path const& library) {
  std::vector<fs::path> links;
  std::string name = library.filename().string();
  for (char number = '1'; number <= '9'; ++number) {
    name.back() = number;
    if (!fs::exists(Inside(library.parent_path(), name))) continue;
    links.emplace_back(folder.PathOf(name));
    LinkFile(Inside(library.parent_path(), name), links.back());
  }
  return links;
}

}  // namespace

struct LibraryFileData {
  LibraryFileData(std::string const& path, LibrariesOptions const& options)
      : library(OpenFinished(WithNames(session, options), LibraryPath(options.path).Find(path))) {}

  Session session;
  Library library;
  Citations citations;
};

std::vector<BankType> BankTypes() {
  auto const count = static_cast<std::size_t>(zel::GetBankTypeCount());
  std::vector<char> list(count * kNameSize);
  auto* const names = reinterpret_cast<char(*)[kNameSize]>(list.data());
  zel::GetBankTypeList(static_cast<long>(count), names);
  std::vector<BankType> types;
  for (std::size_t i = 0; i < count; ++i) {
    BankFacts const facts(*BankOfType(names[i]));
    bool const isText = facts.keyKind == static_cast<std::int32_t>(KeyKind::kText);
    types.push_back({facts.type, facts.description, static_cast<KeyKind>(facts.keyKind),
                     isText ? 1 : facts.keyWords, isText ? 1 : facts.shortestKey, facts.formats});
  }
  return types;
}

std::vector<FieldInfo> FieldsOfType(std::string const& type) {
  zel::Handle<zel::IZelBankDef> const bank = BankOrNone(UpperCase(type));
  if (!bank) throw UnknownWord("", "there is no bank type " + type);
  std::vector<FieldInfo> fields;
  for (Field const& field : FieldsOf(*bank)) {
    fields.push_back(
        {field.name, field.label, field.unit, static_cast<zelFieldTypes>(field.type), field.count});
  }
  return fields;
}

LibraryFile::LibraryFile(std::string const& library, LibrariesOptions const& options) {
  Session const before;
  data_ = Guarded(before, [&] { return std::make_unique<LibraryFileData>(library, options); });
}
LibraryFile::LibraryFile(LibraryFile&&) noexcept = default;
LibraryFile& LibraryFile::operator=(LibraryFile&&) noexcept = default;
LibraryFile::~LibraryFile() = default;

std::vector<BankInfo> LibraryFile::Banks() const {
  return Guarded(data_->session, [&] {
    std::vector<BankInfo> banks;
    for (BankName const& bank : data_->library.Banks()) {
      banks.push_back(InfoOf(data_->library, bank));
    }
    return banks;
  });
}

BankInfo LibraryFile::Bank(std::string const& bank) const {
  return Guarded(data_->session, [&] { return InfoOf(data_->library, data_->library.Bank(bank)); });
}

desk::Item LibraryFile::Item(std::string const& bank, std::vector<std::string> const& words) const {
  return Guarded(data_->session, [&] {
    Library const& library = data_->library;
    BankName const found = library.Bank(bank);
    zel::Handle<zel::IZelBankDef> const item = BankOfType(found.type);
    zel::Handle<zel::Key> const key = KeyIn(library, *item, words);
    if (library.Maint().ReadItem(item.get(), found.name.c_str(), key.get())) {
      return desk::Item(DataOfItem(library, found, *item, *key, data_->citations));
    }
    bool const isNamed = BankFacts(*item).keyKind == 0 && BanksKnownTo(library).empty();
    throw MissingItem(library.Path(),
                      "bank " + ToText(found) + " has no item " + Joined(words) +
                          (isNamed ? "; the library has no components: name one that knows their "
                                     "IDs and CAS numbers"
                                   : ""));
  });
}

std::vector<std::vector<std::string>> LibraryFile::Keys(std::string const& bank) const {
  return Guarded(data_->session, [&] {
    BankName const found = data_->library.Bank(bank);
    zel::Handle<zel::IZelBankDef> const item = BankOfType(found.type);
    KeyWords words(data_->library, *item);
    std::vector<std::vector<std::string>> keys;
    for (auto const& key : desk::Keys(data_->library, found, *item)) keys.push_back(words.Of(key));
    return keys;
  });
}

std::string LibraryFile::Memo(std::string const& bank) const {
  return Guarded(data_->session, [&] {
    std::optional<BankName> found;
    if (!bank.empty()) found = data_->library.Bank(bank);
    return MemoIn(data_->library, found);
  });
}

std::int64_t LibraryFile::Export(std::string const& target, std::string const& bank) const {
  return Guarded(data_->session, [&] {
    Library const& library = data_->library;
    fs::path path = fs::absolute(target);
    RefuseLibraryPath(target);
    bool const isFolder = fs::is_directory(path) || !path.has_filename();
    if (!isFolder && !path.has_extension()) path += ".xml";
    if (!isFolder) RefuseSpecialFile(path.string());
    OutputFolder documents(isFolder ? path : path.parent_path(), target);
    std::string const document = documents.PathOf(isFolder ? "" : path.filename().string());
    bool good = false;
    if (bank.empty()) {
      good = library.Maint().ExportLibrary(document.c_str(), false, false);
    } else {
      BankName const found = library.Bank(bank);
      good = library.Maint().ExportBank(found.type.c_str(), found.name.c_str(), document.c_str(),
                                        false, false);
    }
    if (!good) throw Error(target, "cannot be written");
    return documents.MoveInto();
  });
}

std::int64_t LibraryFile::Dump(std::string const& folder) const {
  return Guarded(data_->session, [&] {
    fs::path const library = fs::absolute(data_->library.File().GetLibPath());
    OutputFolder indexes(fs::absolute(folder), folder);
    std::vector<fs::path> const links = LinkedInto(indexes, library);
    {
      Library const linked = Library::OpenRead(
          data_->session, indexes.PathOf(library.filename().string()), data_->library.Path());
      linked.Maint().WriteTextDump(&linked.File());
    }
    for (fs::path const& link : links) fs::remove(link);
    fs::path const banks = fs::path(library.filename()).replace_extension(".bnk");
    if (!fs::exists(indexes.PathOf(banks.string()))) {
      throw Error(folder, banks.string() + " cannot be written");
    }
    return indexes.MoveInto();
  });
}

zel::LibFile& LibraryFile::File() const { return data_->library.File(); }

}  // namespace zel::desk
