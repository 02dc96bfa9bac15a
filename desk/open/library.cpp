#include "desk/open/library.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "desk/files/system.h"
#include "desk/open/change_places.h"
#include "desk/open/library_path.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr char kComponents[] = "PURECOMP";

// True for an open that may succeed later. What was in its way may already be gone.
bool IsInUse(zel::openErrors error, std::string const& path) {
  std::error_code none;
  if (error == zel::openNotFound) return IsThereOrBeingChanged(path);
  if (error != zel::openDenied || std::filesystem::is_directory(path, none)) return false;
  return MayBeRead(path) || (errno == ENOENT && IsThereOrBeingChanged(path));
}

std::string Reason(zel::openErrors error, std::string const& path) {
  std::error_code none;
  switch (error) {
    case zel::openNotFound:
      return IsInUse(error, path) ? "is being changed by another program; try again"
                                  : "not found" + LibraryPath::Suggestion(path);
    case zel::openDenied:
      if (std::filesystem::is_directory(path, none)) return "is a folder";
      return IsInUse(error, path) ? "another program has it open, or it is read-only"
                                  : std::strerror(errno);
    case zel::openNotLibrary:
      return LowerCase(std::filesystem::path(path).extension().string()) == ".lb1"
                 ? "not a component library"
                 : "not a component library: its name must end in .lb1";
    case zel::openSiblingMissing: return "its second file (.lb2) is missing";
    case zel::openPasswordNeeded: return "protected; give its password with --password";
    case zel::openBadPassword: return "wrong password";
    case zel::openDamaged:
      return "was not closed cleanly and is damaged; `zel salvage` takes out what can be read";
    default: return "cannot be opened";
  }
}

}  // namespace

std::string ToText(BankName const& bank) { return bank.type + ":" + bank.name; }

Library::Library(Session& session, std::string path, zel::Handle<zel::LibFile> file)
    : session_(&session),
      path_(std::move(path)),
      unread_(std::make_unique<UnreadItems>(session, path_)),
      file_(std::move(file)),
      maint_(zel::LibMaint::NewLibMaint(file_.get())) {
  zel::SetItemFindings(file_.get(), unread_.get());
}

Library& Library::operator=(Library&& other) noexcept {
  maint_.reset();
  file_.reset();
  session_ = other.session_;
  path_ = std::move(other.path_);
  unread_ = std::move(other.unread_);
  file_ = std::move(other.file_);
  maint_ = std::move(other.maint_);
  return *this;
}

void Library::TellUnread(std::string const& place, unsigned long address) const {
  zel::ZelBlockErrorInfo info;
  zel::GetBlockErrorInfo(address, info);
  std::string const text = "block " + std::to_string(address) + " " + info.reason;
  unread_->Found(zel::findingDamage, "item", place.c_str(), text.c_str());
}

Library Library::OpenRead(Session& session, std::string const& path, std::string const& shownAs) {
  std::string const& shown = shownAs.empty() ? path : shownAs;
  session.NoteOpened(path, shown);
  zel::openErrors error = zel::openFailed;
  zel::Handle<zel::LibFile> file(zel::LibFile::OpenLibFile(zel::accRead, path.c_str(), "", error));
  if (!file) ThrowOpenError(error, shown);
  return {session, shown, std::move(file)};
}

Library Library::OpenUpdate(Session& session, std::string const& path, std::string const& password,
                            std::string const& shownAs, Update how) {
  std::string const& shown = shownAs.empty() ? path : shownAs;
  session.NoteOpened(path, shown);
  zel::openErrors error = zel::openFailed;
  zel::ZelOpenOptions options;
  options.mode = zel::accUpdate;
  options.password = password.c_str();
  if (how == Update::kInPlace) {
    options.writes = zel::writesMarked;
    options.unclean = zel::uncleanVerified;
  }
  zel::Handle<zel::LibFile> file(zel::OpenLibrary(path.c_str(), options, error));
  if (!file) ThrowOpenError(error, shown);
  return {session, shown, std::move(file)};
}

Library Library::Create(Session& session, zel::libTypes kind, std::string const& path,
                        std::string const& shownAs) {
  session.NoteOpened(path, shownAs);
  zel::openErrors error = zel::openFailed;
  zel::Handle<zel::LibFile> file(zel::LibFile::NewLibFile(kind, path.c_str(), error));
  if (!file) ThrowOpenError(error, shownAs);
  return {session, shownAs, std::move(file)};
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
    throw MissingBank("", path_ + ": no bank " + word +
                              (banks.empty() ? "; the library has no banks" : "; it has" + list));
  }
  throw MissingBank("", path_ + ": " + word + " may mean several banks; name one of" + list);
}

BankName Library::ComponentBank(std::string const& word) const {
  if (word.empty()) return Bank(kComponents);
  BankName bank = Bank(word.find(':') == std::string::npos ? kComponents + (":" + word) : word);
  if (bank.type != kComponents) {
    throw Failure(path_ + ": " + ToText(bank) + " is not a bank of pure components");
  }
  return bank;
}

void Library::Close() {
  maint_.reset();
  file_->CloseLibFile();
}

void ThrowOpenError(zel::openErrors error, std::string const& path) {
  std::string const reason = Reason(error, path);
  if (IsInUse(error, path)) throw LibraryInUse(path, reason, error);
  throw OpenError(path, reason, error);
}

}  // namespace zel::desk
