#include "desk/open/history.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <ctime>
#include <fstream>
#include <new>
#include <sstream>
#include <system_error>

#include "desk/files/file_copy.h"
#include "desk/files/file_digest.h"
#include "desk/files/folder.h"
#include "desk/files/input_file.h"
#include "desk/files/system.h"
#include "desk/words/failure.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

constexpr char kRecordName[] = "change";
constexpr char kRemoved[] = "removed-";  // in front of the number of a version that is removed

int NumberOf(std::string const& text) {
  int number = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number > 0 ? number : 0;
}

// The numbers of the versions, in their order.
std::vector<int> NumbersIn(fs::path const& history) {
  std::vector<int> numbers;
  for (std::string const& name : NamesIn(history)) {
    if (int const number = NumberOf(name)) numbers.push_back(number);
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

// Another program may just have renamed it.
void RenameIfThere(fs::path const& from, fs::path const& to) {
  try {
    Rename(from, to);
  } catch (fs::filesystem_error const& error) {
    if (error.code() != std::errc::no_such_file_or_directory) throw;
  }
}

// Gives the old files in the folder of a version their names. The lock is removed last: a version
// that has one is unfinished.
void NameFiles(ChangePlaces const& change, fs::path const& folder) {
  std::string const first = Inside(folder, change.Place(1).filename()).string();
  for (int number = kMostFiles; number >= 1; --number) {
    fs::path const old = Inside(folder, change.Old(number).filename());
    if (Exists(old)) RenameIfThere(old, FileOf(first, number));
    fs::remove(Inside(folder, AddedName(number)));
  }
  for (char const* ending : kCloseEndings) {
    fs::remove(Inside(folder, change.OldClose(ending).filename()));
  }
  fs::remove(Inside(folder, kLockName));
}

void Put(ChangeRecord& record, std::string const& name, std::string const& value) {
  if (name == "command") record.command = value;
  if (name == "time") record.time = value;
  if (name == "before") record.before = value;
  if (name == "after") record.after = value;
  if (name == "undoes") record.undoes = NumberOf(value);
  if (name == "keep") record.keep = NumberOf(value);
}

ChangeRecord ReadRecord(fs::path const& folder) {
  ChangeRecord record;
  fs::path const path = Inside(folder, kRecordName);
  if (!Exists(path)) return record;
  std::ifstream file = OpenInput(path);
  bool const isOpen = file.is_open();
  for (std::string line; std::getline(file, line);) {
    std::size_t const blank = line.find(' ');
    if (blank != std::string::npos) Put(record, line.substr(0, blank), line.substr(blank + 1));
  }
  if (!isOpen || file.bad()) {
    throw fs::filesystem_error("", path, std::make_error_code(std::errc::io_error));
  }
  return record;
}

void MakeHistory(fs::path const& history, ChangePlaces const& change) {
  std::error_code const error = MakeOwnFolder(history);
  if (!error) {
    GiveAccess(history, AccessOf(change.Ready()));
  } else if (error != std::errc::file_exists || !IsOurs(history, change.Place(1))) {
    throw fs::filesystem_error("", history, error);
  }
}

// A version loses its number before its files, so that readers of the history find only versions
// that are whole.
void RemoveOldest(fs::path const& history, std::size_t most) {
  std::error_code ignored;  // the next change tries again
  std::vector<int> const numbers = NumbersIn(history);
  for (std::size_t i = 0; i + most < numbers.size(); ++i) {
    std::string const number = std::to_string(numbers[i]);
    fs::rename(Inside(history, number), Inside(history, kRemoved + number), ignored);
  }
  for (std::string const& name : NamesIn(history)) {
    if (name.rfind(kRemoved, 0) == 0) RemoveTree(Inside(history, name), ignored);
  }
}

}  // namespace

fs::path HistoryFolder(fs::path const& library) {
  return Inside(library.parent_path(), "." + library.filename().string() + ".zel-history");
}

std::string DigestOfLibrary(std::string const& library) {
  std::string digests;
  for (int number = 1; number <= kMostFiles; ++number) {
    std::string const file = FileOf(library, number);
    if (!Exists(file)) continue;
    digests += (digests.empty() ? "" : " ") + std::to_string(number) + ":" + DigestOf(file);
  }
  return digests;
}

std::string TimeNow() {
  std::tm const parts = UtcOf(std::time(nullptr));
  char text[24];
  return {text, std::strftime(text, sizeof(text), "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

void WriteRecord(fs::path const& folder, ChangeRecord const& record) {
  std::string text = "command " + record.command + "\ntime " + record.time + "\nbefore " +
                     record.before + "\nafter " + record.after + "\nkeep " +
                     std::to_string(record.keep) + "\n";
  if (record.undoes != 0) text += "undoes " + std::to_string(record.undoes) + "\n";
  WriteNewFile(Inside(folder, kRecordName), text);
  // The record shows what the library's memo and description were set to, so only users who may
  // read the library may read it.
  GiveAccess(Inside(folder, kRecordName), {AccessOf(folder).mode & 0666U, AccessOf(folder).owner});
  SyncFile(Inside(folder, kRecordName));
}

std::vector<Version> VersionsOf(std::string const& library) {
  fs::path const history = HistoryFolder(library);
  std::vector<Version> versions;
  bool isThere = false;
  OrFail(history.string(), "cannot be read", [&] { isThere = Exists(history); });
  if (!isThere) return versions;
  if (!IsOurs(history, library)) {
    throw Failure(history.string() + ": is not a folder of the library's owner");
  }
  ChangePlaces const change(library);
  OrFail(history.string(), "cannot be read", [&] {
    for (int const number : NumbersIn(history)) {
      fs::path const folder = Inside(history, std::to_string(number));
      if (Exists(Inside(folder, kLockName))) NameFiles(change, folder);
      versions.push_back({number, Inside(folder, change.Place(1).filename()), ReadRecord(folder)});
    }
  });
  return versions;
}

namespace {

// The version exists, so the rest can be done later.
void Tidy(ChangePlaces const& change, fs::path const& folder, std::size_t most) noexcept {
  try {
    NameFiles(change, folder);
    RemoveOldest(folder.parent_path(), most);
    SyncPath(folder.parent_path());
  } catch (fs::filesystem_error const&) {
    // The next reader of the history names the files.
  } catch (std::bad_alloc const&) {
    // The same holds here.
  }
}

bool IsToKeep(ChangePlaces const& change) {
  return Exists(Inside(change.Ready(), kRecordName)) && Exists(change.Old(1)) &&
         !Exists(change.New(1));
}

}  // namespace

std::string KeepVersion(ChangePlaces const& change) noexcept {
  std::string why;
  try {
    if (IsToKeep(change)) {
      fs::path const history = HistoryFolder(change.Place(1));
      MakeHistory(history, change);
      std::vector<int> const numbers = NumbersIn(history);
      auto const most = static_cast<std::size_t>(ReadRecord(change.Ready()).keep);
      fs::path const folder =
          Inside(history, std::to_string(numbers.empty() ? 1 : numbers.back() + 1));
      Rename(change.Ready(), folder);
      Tidy(change, folder, most);
      return why;
    }
  } catch (fs::filesystem_error const& error) {
    try {
      why = error.code().message();
    } catch (std::bad_alloc const&) {
      why = "out of memory";  // short enough to need none
    }
  } catch (std::bad_alloc const&) {
    why = "out of memory";
  }
  RemoveFolder(change.Ready());
  return why;
}

void RemoveHistory(std::string const& library) noexcept {
  try {
    std::error_code ignored;
    fs::path const history = HistoryFolder(library);
    if (IsOurs(history, library)) RemoveTree(history, ignored);
  } catch (std::bad_alloc const&) {
    // The next change that keeps no versions tries again.
  }
}

}  // namespace zel::desk
