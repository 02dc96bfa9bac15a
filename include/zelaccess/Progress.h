/// \file
/// Progress: shows how far long work on a library has got, and cancels it.
#ifndef ZELACCESS_PROGRESS_H
#define ZELACCESS_PROGRESS_H

#include "zelaccess/Export.h"

namespace zel {

class LibFile;

/// What a host implements to follow long work. It is called in the thread of the work.
class ZEL_API ZelProgress {
 public:
  /// Receives how much of the work is done: first 0, at last 1 unless the work was cancelled or
  /// threw, and in between about once for each 64 KB of text or 64 items. Must not use the library.
  /// \param share  0 to 1, never less than in the previous call; an estimate, since documents
  ///               become known only as they are read
  /// \return false to cancel the work; ignored for the share 1
  virtual bool OnProgress(double share) noexcept = 0;

 protected:
  ~ZelProgress() = default;
};

/// Sets the object that follows long work on a library: imports and exports of every LibMaint on
/// it, VerifyLibrary, CheckLibraryData, CompareLibraryData (the first library of the call that has
/// a progress) and lists built from it (CompListBuild::BuildList).
///
///     struct Line final : zel::ZelProgress {
///       bool OnProgress(double share) noexcept override {
///         return std::fprintf(stderr, "\r%3.0f %%", 100.0 * share) > 0;
///       }
///     } line;
///     zel::SetProgress(library, &line);
///     bool const good = maint->Import("data.xml", false);
///
/// Work that is cancelled returns false, and:
/// - an import leaves the library as it was before the call, on file and in memory, and removes a
///   file of the library that it made. Its last error is "Import was cancelled" (logCancelled), its
///   counts of what was stored are 0. Pointers and trees that a driver got from the library
///   (LibFile_p) are no longer valid; walks and current items of other objects on it have ended.
///   Until the import ends, the parts of the library's files that it overwrites are kept in memory,
///   at most as much as the files held before. If the old content cannot be written back, a block
///   error is thrown, and the library is damaged.
/// - an export leaves the documents that it has written, of which the last is incomplete. Its last
///   error is "Export was cancelled" (logCancelled).
/// - a check has reported what it found so far, and reports that it was cancelled: findingNote,
///   "cancelled".
/// - a list is empty, and no list file is written.
///
/// An import that fails otherwise leaves what it had stored, as it does without a progress.
/// \param library   an open library; null does nothing
/// \param progress  not owned, must outlive the work; null, the default, for none
ZEL_API void SetProgress(LibFile* library, ZelProgress* progress);

}  // namespace zel

#endif  // ZELACCESS_PROGRESS_H
