// Changes of a library that are made as a whole or not at all.
//
// A change works on a copy in a hidden folder next to the library, which is meanwhile locked
// against all other programs, as by an update, or only against those that would change it;
// open/change_places.h describes how the copy is put in place.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "desk/change/work_folder.h"
#include "desk/files/file_copy.h"
#include "desk/files/file_lock.h"
#include "desk/open/history.h"
#include "desk/open/library.h"

namespace zel::desk {

struct ChangeOptions {
  std::string password;
  // The password is for any library that has one: it is not an error if the library has none.
  bool passwordIsGeneral = false;
  bool inPlace = false;
  // Other programs can read the library until the change is put in place, which waits until they
  // are done. Not with inPlace.
  bool admitsReaders = false;
  // Everything is done except putting the change in place. It is made in a copy even with inPlace.
  bool dryRun = false;
  // A library that was not closed cleanly is verified first, and not changed if it is damaged.
  bool verifiesUnclean = true;
  // The present library is not needed: it may be one that cannot be opened. IsOpen says whether it
  // is.
  bool replacesAll = false;
  // The most versions in the library's history after the change, which keeps what it replaces
  // (open/history.h). 0 removes the history. A change with inPlace keeps nothing.
  int keep = kVersionsKept;
};

struct NewLibrary {
  zel::libTypes kind = zel::libKind11;
  // Replaces the existing library, whose password is given in the options.
  bool replace = false;
  // The mode of its files. Without one: that of the replaced library, else that of the other
  // libraries in the folder, else what the umask allows.
  std::optional<FileMode> mode;
};

class LibraryChange {
 public:
  // Makes the copy, or opens the library itself for `inPlace`. Throws Failure.
  LibraryChange(Session& session, std::string const& path, ChangeOptions const& options);
  // A new library at a path that does not exist, or in place of the library there.
  static LibraryChange New(Session& session, std::string const& path, NewLibrary const& made,
                           ChangeOptions const& options);

  // The library to change, open for update.
  Library& Open() { return *library_; }
  bool IsOpen() const { return library_.has_value(); }
  // Closes it and makes the files of a version those of the changed library. Throws Failure.
  void Restore(Version const& version);
  // Closes the library and makes it the one at the path. If this throws Failure, or LibraryInUse
  // because an admitted reader did not finish in time, the library is unchanged. If only the
  // history cannot be kept, the session reports it. The object cannot be used afterwards. After a
  // change with `dryRun` it must not be called.
  void PutInPlace();
  bool IsDryRun() const { return options_.dryRun; }
  // The path of the library without symbolic links.
  std::string const& WholePath() const { return whole_; }

 private:
  LibraryChange(Session& session, ChangeOptions options);
  // May be called again if it throws.
  void Begin(std::string const& path);
  // Locks the library, if it exists, and makes the work folder. If it throws, nothing is locked.
  void Hold();
  void KeepReadersOut();
  void Copy(std::string const& from);
  void JudgeLastClose();
  std::optional<ChangeRecord> Record() const;
  void OpenForUpdate();
  void GiveFilesAccess() const;

  Session* session_;
  ChangeOptions options_;
  std::string shown_;
  std::string whole_;       // the library's path without symbolic links
  bool knewNames_ = false;  // it was the library of --names, too
  bool isNew_ = false;
  bool allAreNew_ = false;  // the files of the new library replace none
  int filesBefore_ = 0;     // bit n for file n
  FileAccess access_ = {};  // of files that replace none
  int undoes_ = 0;          // the number of the restored version
  std::optional<FileLock> original_;
  std::unique_ptr<WorkFolder> work_;  // null for inPlace
  std::optional<Library> library_;
};

}  // namespace zel::desk
