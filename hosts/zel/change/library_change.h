// Changes of a library that happen as a whole or not at all.
//
// A change works on a copy in a hidden folder beside the library, which is locked against everyone
// meanwhile, as an update does; open/change_places.h tells how the copy takes its place.
#pragma once

#include <sys/types.h>

#include <memory>
#include <optional>
#include <string>

#include "change/work_folder.h"
#include "files/file_copy.h"
#include "files/file_lock.h"
#include "open/library.h"
#include "output/report.h"

namespace zelhost {

struct ChangeOptions {
  std::string password;
  // The password is for whichever library has one: no error for a library without.
  bool passwordIsGeneral = false;
  bool inPlace = false;
};

struct NewLibrary {
  zel::libTypes kind = zel::libKind11;
  // Takes the place of a library that is there, whose password is given.
  bool replace = false;
  std::string password;
  // Of its files. Without one: that of the library replaced, else that of the other libraries in
  // the folder, else what the umask leaves.
  std::optional<mode_t> mode;
};

class LibraryChange {
 public:
  // Makes the copy, or opens the library itself for `inPlace`. Throws Failure.
  LibraryChange(Session& session, std::string const& path, ChangeOptions const& options);
  // A new library at a path where nothing is, or in the place of the library there.
  static LibraryChange New(Session& session, std::string const& path, NewLibrary const& made);

  // The library to change, open for update.
  Library& Open() { return *library_; }
  // Closes it and makes it the library at the path. Throws Failure, and the library is as it was.
  // Nothing of this object is usable then.
  void PutInPlace();

 private:
  explicit LibraryChange(Session& session) : session_(&session) {}
  void Copy();
  void OpenForUpdate(ChangeOptions const& options);
  void GiveFilesAccess() const;

  Session* session_;
  std::string shown_;
  std::string whole_;  // the library's path without symbolic links
  bool isNew_ = false;
  bool allAreNew_ = false;  // the files of the next library have no forerunners
  int filesBefore_ = 0;     // bit n for file n
  FileAccess access_ = {};  // of files without a forerunner
  std::optional<FileLock> original_;
  std::unique_ptr<WorkFolder> work_;  // none in place
  std::optional<Library> library_;
};

// Makes it the change of the report.
void PutInPlaceAfter(Report& report, LibraryChange change);

}  // namespace zelhost
