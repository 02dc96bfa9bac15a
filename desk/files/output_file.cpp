#include "desk/files/output_file.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <new>
#include <vector>

#include "desk/files/folder.h"
#include "desk/files/standard_output.h"
#include "desk/files/system.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

constexpr char kFolderName[] = ".zel-out-";

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

[[noreturn]] void Refuse(std::string const& path) {
  if (errno == ENOMEM) throw std::bad_alloc();
  throw Failure(path + ": cannot be written: " + std::strerror(errno));
}

void WriteNew(std::string const& target, std::string const& shownAs, std::string const& text) {
  std::unique_ptr<std::FILE, FileCloser> file(OpenNewFile(target));
  if (!file) Refuse(shownAs);
  bool good = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
  good = std::fclose(file.release()) == 0 && good;
  if (!good) Refuse(shownAs);
}

// Links in these folders, such as /dev/stderr, belong to the system and are not replaced.
bool IsOfSystem(std::filesystem::path const& path) {
  std::string const text = std::filesystem::absolute(path).lexically_normal().string();
  return text.rfind("/dev/", 0) == 0 || text.rfind("/proc/", 0) == 0;
}

// Removes the folders that killed commands left more than an hour ago.
void RemoveLeftOver(std::filesystem::path const& target) {
  namespace fs = std::filesystem;
  std::error_code none;
  for (std::string const& name : NamesIn(target, none)) {
    if (name.rfind(kFolderName, 0) != 0) continue;
    fs::path const folder = Inside(target, name);
    std::error_code gone;
    if (fs::file_time_type::clock::now() - fs::last_write_time(folder, gone) >
        std::chrono::hours(1)) {
      RemoveTree(folder, gone);
    }
  }
}

enum class HowMoved { kNot, kToFreePlace, kExchanged, kOver };

struct FileMove {
  std::string from;
  std::string to;
  HowMoved how;
};

// A file at the destination is moved to `from`, so that it can be moved back. On a file system that
// cannot exchange two files it is lost.
bool Do(FileMove& move) {
  Exchange const exchange = ExchangeFiles(move.from, move.to);
  if (exchange == Exchange::kDone) move.how = HowMoved::kExchanged;
  if (exchange == Exchange::kDone || exchange == Exchange::kFailed) {
    return exchange == Exchange::kDone;
  }
  if (!MoveOver(move.from, move.to)) return false;
  move.how = exchange == Exchange::kNothingThere ? HowMoved::kToFreePlace : HowMoved::kOver;
  return true;
}

void Undo(FileMove& move) {
  bool const isBack =
      (move.how == HowMoved::kExchanged && ExchangeFiles(move.from, move.to) == Exchange::kDone) ||
      (move.how == HowMoved::kToFreePlace && MoveOver(move.to, move.from));
  if (isBack) move.how = HowMoved::kNot;
}

// Names the file that could not be moved, and those that are new nevertheless.
[[noreturn]] void RefuseMoves(std::vector<FileMove> const& moves, std::string const& failed,
                              int reason) {
  std::string done;
  for (FileMove const& move : moves) {
    if (move.how != HowMoved::kNot) done += (done.empty() ? "" : ", ") + move.to;
  }
  if (done.empty() && reason == ENOMEM) throw std::bad_alloc();
  throw Failure(failed + ": cannot be written: " + std::strerror(reason) +
                (done.empty() ? "" : "; these are already new: " + done));
}

}  // namespace

OutputFolder::OutputFolder(std::filesystem::path const& target, std::string const& shownAs)
    : target_(target), folder_(Inside(target, kFolderName).string() + "XXXXXX") {
  RemoveLeftOver(target);
  if (!MakeNewFolder(folder_)) Refuse(shownAs);
}

OutputFolder::~OutputFolder() {
  try {
    std::error_code ignored;
    RemoveTree(folder_, ignored);
  } catch (std::bad_alloc const&) {
    // A later command removes it.
  }
}

std::int64_t OutputFolder::MoveInto() {
  // All paths are made first, so that memory cannot run out between two moves.
  std::vector<FileMove> moves;
  for (std::string const& name : NamesIn(folder_)) {
    std::filesystem::path const target = Inside(target_, name);
    RefuseSpecialFile(target.string());
    moves.push_back({PathOf(name), target.string(), HowMoved::kNot});
  }
  for (FileMove& move : moves) {
    if (Do(move)) continue;
    int const reason = errno;
    std::for_each(moves.begin(), moves.end(), Undo);
    RefuseMoves(moves, move.to, reason);
  }
  return static_cast<std::int64_t>(moves.size());
}

void RefuseLibraryPath(std::string const& path) {
  std::string const extension = LowerCase(std::filesystem::path(path).extension().string());
  if (extension.size() == 4 && extension.compare(0, 3, ".lb") == 0 && extension[3] >= '1' &&
      extension[3] <= '9') {
    throw Failure(path + ": is the name of a library's file; choose another name for the output");
  }
}

void RefuseSpecialFile(std::string const& path) {
  namespace fs = std::filesystem;
  fs::file_status const there = fs::symlink_status(path);
  if (!fs::exists(there) || fs::is_regular_file(there)) return;
  if (fs::is_symlink(there) && !IsOfSystem(path)) {
    if (!fs::is_directory(path)) return;
    throw Failure(path + ": cannot be written: it is a link to a folder");
  }
  throw Failure(path + ": cannot be written: it is " +
                (fs::is_directory(there) ? "a folder" : "not a regular file"));
}

bool IsStandardOutput(std::string const& path) { return path == "-" || path == "/dev/stdout"; }

void WriteFile(std::string const& path, std::string const& text) {
  if (path.empty()) throw WrongUsage("the name of the output is empty");
  if (IsStandardOutput(path)) return Write(text);
  RefuseLibraryPath(path);
  RefuseSpecialFile(path);
  std::filesystem::path const target = std::filesystem::absolute(path);
  OutputFolder folder(target.parent_path(), path);
  WriteNew(folder.PathOf(target.filename().string()), path, text);
  folder.MoveInto();
}

}  // namespace zel::desk
