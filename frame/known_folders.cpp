#include "frame/known_folders.h"

#include <array>
#include <cstddef>
#include <mutex>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "frame/platform/system.h"

namespace zel {
namespace {

enum Selector : int {
  kProgramFile = 0,
  kProgramFolder = 1,
  kInstallRoot = 2,
  kFirstSystemFolder = 3,
  kLastSystemFolder = 7
};

struct Cached {
  enum { kNotYet, kValid, kFailed } state = kNotYet;
  std::string text;
};

std::string CutAtLastSeparator(std::string const& path) {
  std::size_t const at = path.find_last_of("/\\");
  return at == std::string::npos ? std::string() : path.substr(0, at);
}

std::string const& FromCache(int selector);

std::string LookUp(int selector) {
  if (selector == kProgramFile) return platform::ProgramFile().substr(0, kMostPath);
  if (selector == kProgramFolder) return CutAtLastSeparator(FromCache(kProgramFile));
  return InstallRootOf(FromCache(kProgramFolder));
}

std::string const& FromCache(int selector) {
  static std::recursive_mutex busy;  // looking up one folder needs another
  std::lock_guard const lock(busy);
  static auto& cache = *new std::array<Cached, kFirstSystemFolder>;  // lives until the process ends
  Cached& cached = cache[static_cast<std::size_t>(selector)];
  if (cached.state == Cached::kNotYet) {
    cached.text = LookUp(selector);
    cached.state = cached.text.empty() ? Cached::kFailed : Cached::kValid;
  }
  return cached.text;
}

}  // namespace

std::string InstallRootOf(std::string const& programFolder) {
  std::string lower = programFolder;
  for (char& c : lower) c = c == '\\' ? '/' : ToLower(c);
  constexpr std::string_view kFolder = "/hvkthermo/";
  std::size_t const at = lower.find(kFolder);
  return at == std::string::npos ? std::string() : programFolder.substr(0, at + kFolder.size() - 1);
}

std::string GetWellKnownFolder(int selector) {
  if (selector >= kProgramFile && selector <= kInstallRoot) return FromCache(selector);
  if (selector < kFirstSystemFolder || selector > kLastSystemFolder) return {};
  constexpr std::array kFolders = {platform::Folder::kPrograms, platform::Folder::kPersonal,
                                   platform::Folder::kCommonDocuments, platform::Folder::kAppData,
                                   platform::Folder::kCommonAppData};
  auto const which = kFolders[static_cast<std::size_t>(selector - kFirstSystemFolder)];
  return platform::KnownFolder(which).substr(0, kMostPath);
}

void LongPathInPlace(std::string& path) {
  std::string const full = platform::LongPath(path);
  if (full.size() <= kMostPath) path = full;
}

}  // namespace zel
