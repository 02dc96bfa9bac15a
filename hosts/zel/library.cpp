#include "library.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>

#include "failure.h"
#include "work_folder.h"

namespace zelhost {
namespace {

constexpr char kComponents[] = "PURECOMP";

struct OpenedLibrary {
  std::filesystem::path path;
  std::string shown;
};

// What this process has opened.
std::vector<OpenedLibrary>& Opened() {
  static std::vector<OpenedLibrary> libraries;
  return libraries;
}

// A path without its extension, by which the files of one library differ.
std::filesystem::path Stem(std::filesystem::path const& path) {
  std::error_code none;
  return std::filesystem::absolute(path, none).lexically_normal().replace_extension();
}

zel::LibFile* Checked(zel::LibFile* file, std::string const& path, zel::openErrors error) {
  if (file == nullptr) throw Failure(path + ": " + Reason(error, path));
  return file;
}

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::string ToText(BankName const& bank) { return bank.type + ":" + bank.name; }

Library::Library(std::string path, zel::LibFile* file)
    : path_(std::move(path)),
      unread_(std::make_unique<UnreadItems>(path_)),
      file_(file),
      maint_(zel::LibMaint::NewLibMaint(file)) {
  zel::SetItemFindings(file_.get(), unread_.get());
}

void Library::TellUnread(std::string const& place, unsigned long address) const {
  zel::ZelBlockErrorInfo info;
  zel::GetBlockErrorInfo(address, info);
  std::string const text = "block " + std::to_string(address) + " " + info.reason;
  unread_->Found(zel::findingDamage, "item", place.c_str(), text.c_str());
}

Library Library::OpenRead(std::string const& path, std::string const& shownAs) {
  std::string const& shown = shownAs.empty() ? path : shownAs;
  FinishChange(path);
  Opened().push_back({path, shown});
  zel::openErrors error = zel::openFailed;
  zel::LibFile* const file = zel::LibFile::OpenLibFile(zel::accRead, path.c_str(), "", error);
  return {shown, Checked(file, shown, error)};
}

Library Library::OpenUpdate(std::string const& path, std::string const& password,
                            std::string const& shownAs) {
  std::string const& shown = shownAs.empty() ? path : shownAs;
  Opened().push_back({path, shown});
  zel::openErrors error = zel::openFailed;
  zel::LibFile* const file =
      zel::LibFile::OpenLibFile(zel::accUpdate, path.c_str(), password.c_str(), error);
  return {shown, Checked(file, shown, error)};
}

Library Library::Create(zel::libTypes kind, std::string const& path, std::string const& shownAs) {
  Opened().push_back({path, shownAs});
  zel::openErrors error = zel::openFailed;
  zel::LibFile* const file = zel::LibFile::NewLibFile(kind, path.c_str(), error);
  return {shownAs, Checked(file, shownAs, error)};
}

std::vector<BankName> Library::Banks(std::string const& type) const {
  std::vector<BankName> banks;
  char typeText[kNameSize] = {};
  char name[kNameSize] = {};
  type.empty() ? maint_->BeginBankWalk() : maint_->BeginBankWalk(type.c_str());
  while (maint_->NextBank(typeText, name)) banks.push_back({typeText, name});
  maint_->EndBankWalk();
  return banks;
}

BankName Library::Bank(std::string const& word) const {
  std::string const wanted = UpperCase(word);
  std::vector<BankName> const banks = Banks();
  std::vector<BankName> found;
  std::copy_if(banks.begin(), banks.end(), std::back_inserter(found), [&](BankName const& bank) {
    return ToText(bank) == wanted || bank.name == wanted || bank.type == wanted;
  });
  if (found.size() == 1) return found.front();
  std::string list;
  for (BankName const& bank : found.empty() ? banks : found) list += " " + ToText(bank);
  if (found.empty()) {
    throw Failure(path_ + ": no bank " + word +
                  (banks.empty() ? "; the library has no banks" : "; it has" + list));
  }
  throw Failure(path_ + ": " + word + " can be several banks; name one of" + list);
}

BankName Library::ComponentBank(std::string const& word) const {
  if (word.empty()) return Bank(kComponents);
  BankName bank = Bank(word.find(':') == std::string::npos ? kComponents + (":" + word) : word);
  if (bank.type != kComponents) {
    throw Failure(path_ + ": " + ToText(bank) + " is no bank of pure components");
  }
  return bank;
}

void Library::Close() {
  maint_.reset();
  file_->CloseLibFile();
}

std::string Reason(zel::openErrors error, std::string const& path) {
  std::error_code none;
  switch (error) {
    case zel::openNotFound:
      return IsBeingChanged(path) ? "is being changed by another program; try again" : "not found";
    case zel::openDenied:
      if (std::filesystem::is_directory(path, none)) return "is a folder";
      return ::access(path.c_str(), R_OK) == 0 ? "another program has it open, or it is read-only"
                                               : std::strerror(errno);
    case zel::openNotLibrary:
      return LowerCase(std::filesystem::path(path).extension().string()) == ".lb1"
                 ? "not a component library"
                 : "not a component library: its name must end in .lb1";
    case zel::openSiblingMissing: return "its second file (.lb2) is missing";
    case zel::openPasswordNeeded: return "protected; give its password with --password";
    case zel::openBadPassword: return "wrong password";
    default: return "cannot be opened";
  }
}

std::string ShownPath(std::string const& file) {
  for (OpenedLibrary const& library : Opened()) {
    if (Stem(library.path) == Stem(file)) return library.shown;
  }
  return file;
}

std::string UpperCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), Upper);
  return text;
}

std::string LowerCase(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

// One star is open at a time: a later one takes the place of an earlier one, which cannot match
// less.
bool Matches(std::string const& pattern, std::string const& text) {
  std::size_t p = 0, t = 0, star = std::string::npos, resume = 0;
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      resume = t;
    } else if (p < pattern.size() && (pattern[p] == '?' || Upper(pattern[p]) == Upper(text[t]))) {
      ++p;
      ++t;
    } else if (star != std::string::npos) {
      p = star + 1;
      t = ++resume;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

namespace {

std::string& NamesPath() {
  static std::string path;
  return path;
}

std::optional<Library>& Names() {
  static std::optional<Library> names;
  return names;
}

}  // namespace

void NameNames(std::string const& path) { NamesPath() = path; }

void OpenNames() {
  if (NamesPath().empty()) return;
  try {
    Names().emplace(Library::OpenRead(NamesPath()));
  } catch (Failure const& failure) {
    throw Failure(failure.what() + std::string(" (named by --names or ZEL_NAMES)"));
  }
  zel::LibFile::SetOrdwinNameIndex(&Names()->File());
}

Library const* NamesLibrary() { return Names() ? &*Names() : nullptr; }

bool ReleaseNames(std::string const& path) {
  std::error_code none;
  if (!Names() || !std::filesystem::equivalent(Names()->Path(), path, none)) return false;
  Names().reset();
  return true;
}

}  // namespace zelhost
