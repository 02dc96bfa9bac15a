#include "frame/search_path.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>

#include "frame/limits.h"
#include "frame/platform/system.h"

namespace zel {
namespace {

constexpr char kVariable[] = "Path";
constexpr std::string_view kKeyStart = "Software\\Ordwin\\OrdwinHub\\";
constexpr std::string_view kSetting = "path=";
constexpr std::string_view kInstallTail = "VC160x86;";
constexpr std::size_t kLimit = 4101;

// `text` is never empty: it begins with the name of the variable.
void AppendFolder(std::string& text, std::string_view folder) {
  text += folder;
  if (text.back() == '\\') text.back() = ';';
  if (text.back() != ';') text += ';';
}

}  // namespace

std::string ComposeSearchPath(std::optional<std::string> const& installFolder,
                              std::vector<std::string> const& folders, std::string_view oldValue) {
  std::string text(kSetting);
  if (installFolder) {
    text += *installFolder;
    if (text.back() != '\\') text += '\\';
    text += kInstallTail;
  }
  for (std::string const& folder : folders) AppendFolder(text, folder);
  text += oldValue;
  while (text.size() >= kLimit) {
    std::size_t const cut = text.rfind(';');
    if (cut == std::string::npos) throw std::length_error("search path has nowhere to be cut");
    text.resize(cut);
  }
  return text;
}

void BuildSearchPath(char*& oldValue, std::string_view subKey,
                     std::vector<std::string> const& folders) {
  std::string const old = platform::Environment(kVariable);
  oldValue = static_cast<char*>(std::malloc(old.size() + 1));
  if (oldValue == nullptr) throw std::bad_alloc();
  std::memcpy(oldValue, old.c_str(), old.size() + 1);
  std::optional<std::string> install;
  if (!subKey.empty()) {
    std::string const key = std::string(kKeyStart) + std::string(subKey);
    std::string value;
    if (platform::ReadSetting(key.substr(0, kMostPath), "InstallDir", value)) install = value;
  }
  std::string const setting = ComposeSearchPath(install, folders, old);
  platform::SetEnvironment(kVariable, setting.substr(kSetting.size()));
}

}  // namespace zel
