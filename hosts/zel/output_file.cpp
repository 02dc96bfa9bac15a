#include "output_file.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <vector>

#include "failure.h"
#include "library.h"

namespace zelhost {
namespace {

constexpr char kFolderName[] = ".zel-out-";

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

[[noreturn]] void Refuse(std::string const& path) {
  throw Failure(path + ": cannot be written: " + std::strerror(errno));
}

void WriteWhole(std::string const& target, std::string const& shownAs, std::string const& text) {
  std::unique_ptr<std::FILE, FileCloser> file(std::fopen(target.c_str(), "wb"));
  if (!file) Refuse(shownAs);
  bool good = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
  good = std::fclose(file.release()) == 0 && good;
  if (!good) Refuse(shownAs);
}

}  // namespace

namespace {

// Folders that a killed command left: those of an hour ago.
void RemoveLeftOver(std::filesystem::path const& target) {
  namespace fs = std::filesystem;
  std::error_code none;
  fs::directory_iterator folder(target, none);
  std::vector<fs::path> old;
  for (; !none && folder != fs::directory_iterator(); folder.increment(none)) {
    std::error_code gone;
    if (folder->path().filename().string().rfind(kFolderName, 0) != 0) continue;
    if (fs::file_time_type::clock::now() - fs::last_write_time(folder->path(), gone) >
        std::chrono::hours(1)) {
      old.push_back(folder->path());
    }
  }
  for (fs::path const& path : old) fs::remove_all(path, none);
}

}  // namespace

OutputFolder::OutputFolder(std::filesystem::path const& target, std::string const& shownAs)
    : target_(target) {
  RemoveLeftOver(target);
  std::string name = (target / kFolderName).string() + "XXXXXX";
  if (::mkdtemp(name.data()) == nullptr) Refuse(shownAs);
  folder_ = name;
}

OutputFolder::~OutputFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::int64_t OutputFolder::MoveInto() {
  std::int64_t count = 0;
  std::vector<std::filesystem::path> files;
  for (auto const& entry : std::filesystem::directory_iterator(folder_)) {
    files.push_back(entry.path());
  }
  for (std::filesystem::path const& file : files) {
    std::filesystem::path const target = target_ / file.filename();
    if (std::filesystem::is_directory(target)) {
      throw Failure(target.string() + ": cannot be written: it is a folder");
    }
  }
  for (std::filesystem::path const& file : files) {
    std::filesystem::path const target = target_ / file.filename();
    if (std::rename(file.c_str(), target.c_str()) != 0) Refuse(target.string());
    ++count;
  }
  return count;
}

void RefuseLibraryPath(std::string const& path) {
  std::string const extension = LowerCase(std::filesystem::path(path).extension().string());
  if (extension.size() == 4 && extension.compare(0, 3, ".lb") == 0 && extension[3] >= '1' &&
      extension[3] <= '9') {
    throw Failure(path + ": is the name of a library's file; give the output another one");
  }
}

void WriteFile(std::string const& path, std::string const& text) {
  if (path.empty()) throw WrongUsage("the name of the output is empty");
  RefuseLibraryPath(path);
  std::error_code none;
  // What is no plain file, /dev/stdout for one, is written as it is.
  if (std::filesystem::exists(path, none) && !std::filesystem::is_regular_file(path, none)) {
    WriteWhole(path, path, text);
    return;
  }
  std::string const beside = path + ".zel-new";
  try {
    WriteWhole(beside, path, text);
  } catch (...) {
    std::remove(beside.c_str());
    throw;
  }
  if (std::rename(beside.c_str(), path.c_str()) != 0) {
    int const reason = errno;
    std::remove(beside.c_str());
    errno = reason;
    Refuse(path);
  }
}

}  // namespace zelhost
