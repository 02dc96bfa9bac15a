#include "desk/open/configuration.h"

#include <cstdlib>
#include <filesystem>

#include "desk/files/folder.h"
#include "desk/files/settings_file.h"
#include "desk/open/change_places.h"
#include "desk/open/library_path.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/nearest_word.h"

namespace zel::desk {

namespace fs = std::filesystem;

namespace {

constexpr char kSets[] = "unit-sets";
std::vector<std::string> const kNames = {"path", "libraries", "names", "units"};

std::string EnvironmentText(char const* name) {
  char const* const text = std::getenv(name);
  return text == nullptr ? "" : text;
}

class Reader {
 public:
  explicit Reader(std::string const& path) : folder_(fs::path(path).parent_path()) {
    result_.file = path;
  }

  Configuration Read() {
    for (FileSetting const& setting : ReadSettings(result_.file)) {
      if (setting.section.empty()) {
        Take(setting);
      } else if (setting.section == kSets) {
        if (!setting.name.empty()) TakeSet(setting);
      } else {
        Fail(setting, "there is no section [" + setting.section + "], only [" + kSets + "]");
      }
    }
    // A set may follow the setting that names it.
    if (!result_.units.empty()) CheckUnits(result_.lines["units"], result_.units);
    return std::move(result_);
  }

 private:
  [[noreturn]] void Fail(FileSetting const& setting, std::string const& reason) const {
    throw Error(result_.file, AtLine(setting.line) + reason);
  }

  // A folder, or a library that is named with one.
  std::string Place(std::string const& word) const {
    std::string path = word;
    if (word == "~" || word.rfind("~/", 0) == 0) path = EnvironmentText("HOME") + word.substr(1);
    return Inside(folder_, path).lexically_normal().string();
  }
  std::string LibraryWord(std::string const& word) const {
    return word.find('/') == std::string::npos ? word : Place(word);
  }

  void CheckUnits(int line, std::string const& words) const {
    try {
      DisplayUnits const units(words, result_.sets);
    } catch (WrongUsage const& error) {
      throw Error(result_.file, AtLine(line) + error.what());
    }
  }

  void Take(FileSetting const& setting) {
    if (setting.name == "path") {
      for (std::string const& folder : FoldersOf(setting.value)) {
        result_.path.push_back(Place(folder));
      }
    } else if (setting.name == "libraries") {
      for (std::string const& word : ListOf(setting)) {
        result_.libraries.push_back(LibraryWord(word));
      }
    } else if (setting.name == "names") {
      result_.names = LibraryWord(setting.value);
    } else if (setting.name == "units") {
      result_.units = setting.value;
    } else {
      Fail(setting, "\"" + setting.name + "\" is not a setting" + DidYouMean(setting.name, kNames) +
                        " settings are path, libraries, names, units");
    }
    if (setting.value.empty()) Fail(setting, setting.name + " has no value");
    result_.lines[setting.name] = setting.line;
  }

  // The texts between commas.
  std::vector<std::string> ListOf(FileSetting const& setting) const {
    std::vector<std::string> words;
    for (std::size_t at = 0; at <= setting.value.size();) {
      std::size_t const comma = std::min(setting.value.find(',', at), setting.value.size());
      std::string const word = setting.value.substr(at, comma - at);
      std::size_t const first = word.find_first_not_of(" \t");
      if (first == std::string::npos) Fail(setting, "a name between commas is missing");
      words.push_back(word.substr(first, word.find_last_not_of(" \t") + 1 - first));
      at = comma + 1;
    }
    return words;
  }

  // A set may use those above it.
  void TakeSet(FileSetting const& setting) {
    std::string const name = LowerCase(setting.name);
    if (setting.name.find_first_of(", \t") != std::string::npos) {
      Fail(setting, "the name of a set has no blanks and commas");
    }
    if (IsUnitOrSet(setting.name)) {
      Fail(setting, "\"" + setting.name + "\" is already the name of a unit or of a set of units");
    }
    if (setting.value.empty()) Fail(setting, "the set " + setting.name + " has no units");
    CheckUnits(setting.line, setting.value);
    if (!result_.sets.emplace(name, setting.value).second) {
      Fail(setting, "the set " + setting.name + " is there twice");
    }
    result_.lines["unit set " + name] = setting.line;
  }

  fs::path folder_;
  Configuration result_;
};

}  // namespace

Configuration ReadConfiguration(std::string const& path) {
  return path.empty() ? Configuration() : Reader(path).Read();
}

bool IsPathOfEnvironment() { return !EnvironmentText("ZEL_PATH").empty(); }

std::vector<std::string> SearchFolders(Configuration const& configuration) {
  return IsPathOfEnvironment() ? FoldersOf(EnvironmentText("ZEL_PATH")) : configuration.path;
}

std::string ConfigurationFile() {
  if (char const* const named = std::getenv("ZEL_CONFIG")) return named;
  std::string folder = EnvironmentText("XDG_CONFIG_HOME");
  std::string const home = EnvironmentText("HOME");
  if (folder.empty() && !home.empty()) folder = home + "/.config";
  if (folder.empty()) return "";
  std::string const file = folder + "/zel/config";
  return Exists(file) ? file : "";
}

}  // namespace zel::desk
