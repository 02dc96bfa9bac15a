// Services of the system, in the library's own terms.
#pragma once

#include <cstddef>
#include <ctime>
#include <string>
#include <vector>

namespace zel::platform {

// Writes a text to the debug output: standard error when the environment variable ZELACCESS_DEBUG
// is set, nowhere otherwise.
void WriteDebug(char const* text);

// An address inside this module, from which the system can find the module's file.
using ModuleHandle = void const*;
ModuleHandle OwnModule();
std::string ModuleFile(ModuleHandle module);
// File of the running program.
std::string ProgramFile();

// Folders of the system and its user; empty when there is none.
enum class Folder { kPrograms, kPersonal, kCommonDocuments, kAppData, kCommonAppData };
std::string KnownFolder(Folder folder);

// One text value of the settings store; false when file, section or value is missing. The store is
// the first of these files that exists: $ZELACCESS_SETTINGS,
// $XDG_CONFIG_HOME/zelaccess/settings.ini,
// ~/.config/zelaccess/settings.ini, /etc/zelaccess/settings.ini. On Windows: %ZELACCESS_SETTINGS%,
// then zelaccess\settings.ini in the folder for application data of the user and in that of all
// users. Sections are key names.
bool ReadSetting(std::string const& key, std::string const& name, std::string& value);

// Empty when the variable is not set.
std::string Environment(char const* name);
void SetEnvironment(char const* name, std::string const& value);

// The calendar time at this place.
std::tm LocalTime(std::time_t time);

// True where absolute paths begin with a drive or a share, as on Windows.
bool HasDrives() noexcept;
std::string WorkingFolder();
// The path without symbolic links; unchanged when the file does not exist.
std::string LongPath(std::string const& path);

int ProcessId();
// Makes a new empty file, accessible to the user only, whose name begins with `prefix`, in the
// folder for temporary files; empty on failure.
std::string MakeTemporaryFile(std::string const& prefix);
void RemoveFile(std::string const& path);

// A new empty file in that folder, which is removed with the object. It has no name if the system
// supports that, so that a killed process leaves nothing; otherwise, and if `nameless` is false, it
// is named as above. No file is made if that name would be longer than `mostPath` characters.
class TemporaryFile {
 public:
  TemporaryFile(std::string const& prefix, std::size_t mostPath, bool nameless = true);
  TemporaryFile(TemporaryFile const&) = delete;
  TemporaryFile& operator=(TemporaryFile const&) = delete;
  ~TemporaryFile();

  // The path under which the file can be opened; empty when it could not be made.
  std::string const& Path() const noexcept { return path_; }

 private:
  int descriptor_ = -1;  // of a file without a name
  std::string path_;
};

// An entry of a folder. A folder has the attribute 16, plus 1 when its owner may not write it; a
// link to a folder has 1024 added. Anything else has attributes without 16.
struct FolderEntry {
  std::string name;
  int attributes;
};
inline constexpr int kFolderAttribute = 16;
// All entries but "." and "..", sorted by name; empty when the folder cannot be read. An empty name
// is the working folder.
std::vector<FolderEntry> ListFolder(std::string const& folder);

}  // namespace zel::platform
