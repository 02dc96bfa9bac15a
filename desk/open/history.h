// The versions of a library that changes have replaced, so that changes can be listed and undone.
//
// They are in a hidden folder next to the library:
//
//   .NAME.lb1.zel-history/
//     1/              the library before change 1; numbers grow and are not used again
//       NAME.lb1      its files, which every host can open
//       NAME.lb2
//       change        a line for each member of ChangeRecord: its name, a blank, its value
//     2/
//
// A change moves the old files of the library into its own folder (change_places.h). After the last
// of its moves, which decides, a single move makes that whole folder the version; then the files in
// it get their names. A command that is interrupted between the two is completed by the next one
// that names the library. If the folder cannot be moved, the change is in place and only the
// version is lost.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "desk/open/change_places.h"

namespace zel::desk {

// How many versions are kept unless the user says otherwise.
inline constexpr int kVersionsKept = 10;

struct ChangeRecord {
  std::string command;       // the command that made the change, without passwords
  std::string time;          // when, in UTC: 2026-11-22T15:41:07Z
  std::string before;        // DigestOfLibrary of the files that it replaced
  std::string after;         // and of those that it left
  int undoes = 0;            // the number of the change that it took back
  int keep = kVersionsKept;  // the most versions to keep after it
};

struct Version {
  int number = 0;
  std::filesystem::path first;  // the path of the library's first file in it
  ChangeRecord change;          // members that cannot be read are empty
};

// The functions take the path of a library without symbolic links.

std::filesystem::path HistoryFolder(std::filesystem::path const& library);

// The sizes and digests of all files of a library. Throws std::filesystem::filesystem_error.
std::string DigestOfLibrary(std::string const& library);

// The time now, as in ChangeRecord.
std::string TimeNow();

// Writes the file `change` into the folder of a change. Throws std::filesystem::filesystem_error.
void WriteRecord(std::filesystem::path const& folder, ChangeRecord const& record);

// The versions in the order of their numbers; none without a history. Throws Failure if one cannot
// be read.
std::vector<Version> VersionsOf(std::string const& library);

// Makes the folder of a change, all of whose moves are done, a version, and removes the versions
// that are too many; or removes the folder, if it has no record or no old files. Returns the reason
// if the version cannot be kept, else an empty text.
std::string KeepVersion(ChangePlaces const& change) noexcept;

// Removes all versions, as far as that is possible.
void RemoveHistory(std::string const& library) noexcept;

}  // namespace zel::desk
