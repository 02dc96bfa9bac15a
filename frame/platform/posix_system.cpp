// Services of a POSIX system.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>

#include "frame/platform/settings_text.h"
#include "frame/platform/system.h"

namespace zel::platform {

void WriteDebug(char const* text) {
  if (std::getenv("ZELACCESS_DEBUG") != nullptr) std::fputs(text, stderr);
}

ModuleHandle OwnModule() {
  static char const inside = 0;
  return &inside;
}

std::string ModuleFile(ModuleHandle module) {
  Dl_info info{};
  bool const known = ::dladdr(module, &info) != 0 && info.dli_fname != nullptr;
  return known ? LongPath(info.dli_fname) : std::string();
}

std::string ProgramFile() {
  std::array<char, PATH_MAX> path{};
  ssize_t const n = ::readlink("/proc/self/exe", path.data(), path.size());
  return n <= 0 ? std::string() : std::string(path.data(), static_cast<std::size_t>(n));
}

std::string Environment(char const* name) {
  char const* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

void SetEnvironment(char const* name, std::string const& value) {
  ::setenv(name, value.c_str(), 1);
}

namespace {

// The variable's value, otherwise the home folder followed by `below`.
std::string UserFolder(char const* variable, char const* below) {
  std::string set = Environment(variable);
  if (!set.empty()) return set;
  std::string const home = Environment("HOME");
  return home.empty() ? std::string() : home + below;
}

std::string SettingsFile() {
  constexpr char kFile[] = "/zelaccess/settings.ini";
  std::string const config = Environment("XDG_CONFIG_HOME");
  std::string const home = Environment("HOME");
  std::array<std::string, 4> const files = {
      Environment("ZELACCESS_SETTINGS"), config.empty() ? config : config + kFile,
      home.empty() ? home : home + "/.config" + kFile, std::string("/etc") + kFile};
  for (std::string const& file : files) {
    if (!file.empty() && ::access(file.c_str(), F_OK) == 0) return file;
  }
  return {};
}

}  // namespace

std::string KnownFolder(Folder folder) {
  switch (folder) {
    case Folder::kPrograms: return "/usr/local";
    case Folder::kPersonal: return UserFolder("XDG_DOCUMENTS_DIR", "/Documents");
    case Folder::kCommonDocuments: return "/usr/local/share";
    case Folder::kAppData: return UserFolder("XDG_CONFIG_HOME", "/.config");
    case Folder::kCommonAppData: return "/var/lib";
  }
  return {};
}

bool ReadSetting(std::string const& key, std::string const& name, std::string& value) {
  std::ifstream file(SettingsFile());
  return ReadSettingFrom(file, key, name, value);
}

std::tm LocalTime(std::time_t time) {
  std::tm local{};
  ::localtime_r(&time, &local);
  return local;
}

bool HasDrives() noexcept { return false; }

std::string WorkingFolder() {
  std::array<char, PATH_MAX> path{};
  return ::getcwd(path.data(), path.size()) == nullptr ? std::string() : std::string(path.data());
}

std::string LongPath(std::string const& path) {
  char* real = ::realpath(path.c_str(), nullptr);
  if (real == nullptr) return path;
  std::string result = real;
  std::free(real);
  return result;
}

int ProcessId() { return static_cast<int>(::getpid()); }

namespace {

constexpr std::string_view kRandomPart = "XXXXXX";

std::string TemporaryFolder() {
  std::string folder = Environment("TMPDIR");
  return folder.empty() ? "/tmp" : folder;
}

// A file without a name; -1 where the system does not support one.
int OpenNameless(std::string const& folder) noexcept {
#ifdef O_TMPFILE
  return ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR);
#else
  return -1;
#endif
}

}  // namespace

std::string MakeTemporaryFile(std::string const& prefix) {
  std::string path = TemporaryFolder() + "/" + prefix + std::string(kRandomPart);
  int const fd = ::mkostemp(path.data(), O_CLOEXEC);
  if (fd < 0) return {};
  ::close(fd);
  return path;
}

void RemoveFile(std::string const& path) { ::unlink(path.c_str()); }

TemporaryFile::TemporaryFile(std::string const& prefix, std::size_t mostPath, bool nameless) {
  path_.reserve(PATH_MAX);  // so that nothing is thrown while the file is open
  std::string const folder = TemporaryFolder();
  if (folder.size() + 1 + prefix.size() + kRandomPart.size() > mostPath) return;
  if (nameless) descriptor_ = OpenNameless(folder);
  if (descriptor_ >= 0) {
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "/proc/self/fd/%d", descriptor_);
    if (::access(name.data(), R_OK | W_OK) == 0) {
      path_ = name.data();
      return;
    }
    ::close(descriptor_);
    descriptor_ = -1;
  }
  path_ = MakeTemporaryFile(prefix);
}

TemporaryFile::~TemporaryFile() {
  if (descriptor_ >= 0) {
    ::close(descriptor_);
  } else if (!path_.empty()) {
    RemoveFile(path_);
  }
}

namespace {

struct CloseListing {
  void operator()(DIR* listing) const noexcept { ::closedir(listing); }
};

int AttributesOf(std::string const& path) {
  constexpr int kReadOnly = 1;
  constexpr int kLink = 1024;
  struct stat info {};
  if (::lstat(path.c_str(), &info) != 0) return 0;
  int attributes = S_ISLNK(info.st_mode) ? kLink : 0;
  if (attributes != 0 && ::stat(path.c_str(), &info) != 0) return attributes;
  if (S_ISDIR(info.st_mode)) attributes += kFolderAttribute;
  if ((info.st_mode & S_IWUSR) == 0) attributes += kReadOnly;
  return attributes;
}

}  // namespace

std::vector<FolderEntry> ListFolder(std::string const& folder) {
  std::vector<FolderEntry> entries;
  std::string const place = folder.empty() ? "./" : folder + "/";
  std::unique_ptr<DIR, CloseListing> const listing(::opendir(place.c_str()));
  if (listing == nullptr) return entries;
  while (dirent const* entry = ::readdir(listing.get())) {
    std::string const name = entry->d_name;
    if (name == "." || name == "..") continue;
    entries.push_back({name, AttributesOf(place + name)});
  }
  std::sort(entries.begin(), entries.end(),
            [](FolderEntry const& a, FolderEntry const& b) { return a.name < b.name; });
  return entries;
}

}  // namespace zel::platform
