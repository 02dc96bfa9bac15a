// The hidden folder in which the new state of a library is made, and how it is put in place;
// open/change_places.h lists the steps.
#pragma once

#include <optional>
#include <string>

#include "desk/files/file_copy.h"
#include "desk/open/change_places.h"
#include "desk/open/history.h"
#include "desk/open/work_lock.h"

namespace zel::desk {

// Locked against other programs; the destructor removes it unless its files were put in place.
class WorkFolder {
 public:
  // `library` is a path without symbolic links. Throws Failure, which names `shownAs`, if another
  // program works in the folder or it cannot be made.
  WorkFolder(std::string const& library, std::string const& shownAs);
  WorkFolder(WorkFolder const&) = delete;
  WorkFolder& operator=(WorkFolder const&) = delete;
  ~WorkFolder();

  std::string const& Path() const { return folder_; }
  // The path of the copy of the library's first file.
  std::string First() const;
  // Lets users with this access to the library remove the folder, or put the library back, if this
  // program is interrupted. Before the call only this user can access the folder. Throws Failure.
  void Share(FileAccess const& access) const;
  // Writes everything to disk and announces to other programs that the new files are about to be
  // moved into place. Throws Failure if that is impossible, or if the library is new and another
  // program has made one meanwhile.
  void Prepare(bool isNew, std::optional<ChangeRecord> const& record);
  // Replaces the library's files with the new ones, which are prepared. Throws Failure if that is
  // impossible; the old library is then unchanged.
  void PutInPlace(bool isNew);
  // Makes the old files a version of the library's history if there is a record. Returns the reason
  // if that is impossible, else an empty text.
  std::string KeepOld() const noexcept;

 private:
  void WriteOut(std::optional<ChangeRecord> const& record) const;
  void Announce(bool isNew);

  std::string library_;
  ChangePlaces places_;
  std::string shownAs_;
  std::string folder_;
  std::optional<WorkLock> lock_;
};

}  // namespace zel::desk
