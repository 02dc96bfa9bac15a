/// \file
/// OpenLibrary: opens a library with settings: what happens when the host is killed or the power
/// fails while it changes the library, and how long to wait for a library in use.
///
/// LibFile::OpenLibFile writes changes to the files as they are made. If the host ends before the
/// next flush is complete, the library is between two states. There are two ways out, each for the
/// host to choose; docs/durability.md says what each of them promises:
///
/// - **Marked writes**: while the library is being changed, there is an empty file next to it. A
///   library that has the mark while it is not in use was not closed cleanly; the next opener can
///   have it verified first.
/// - **Held-back writes**: changes stay in memory until a flush, which puts them into a journal
///   next to the library and then into the files. Whatever happens, the library is in the state of
///   the last flush, or of the flush during which it happened. Every open of the library completes
///   a flush that was cut off, also LibFile::OpenLibFile and LibFile::StatusLibFile.
///
///     zel::ZelOpenOptions options;
///     options.mode = zel::accUpdate;
///     options.writes = zel::writesHeld;
///     zel::openErrors reason;
///     zel::LibFile* library = zel::OpenLibrary("data.lb1", options, reason);
///
/// The functions follow the thread rules of LibFile.h.
#ifndef ZELACCESS_OPENLIBRARY_H
#define ZELACCESS_OPENLIBRARY_H

#include <cstdint>

#include "zelaccess/Export.h"
#include "zelaccess/LibFile.h"

namespace zel {

/// How changes of a library open for update get into its files.
enum zelWriteModes : std::int32_t {
  writesPlain = 0,  ///< At once, as by LibFile::OpenLibFile.
  writesMarked =
      1,          ///< At once; until the library is closed, a mark says that it is being changed.
  writesHeld = 2  ///< At each flush, as a whole or not at all.
};

/// What is done about a library that was not closed cleanly: one with a mark, or with a journal
/// that was written for other files.
enum zelUncleanModes : std::int32_t {
  uncleanIgnored = 0,  ///< Nothing, as by LibFile::OpenLibFile.
  uncleanRefused = 1,  ///< It is not opened: openUncleanlyClosed.
  /// It is verified (VerifyLibrary) and opened if that finds no damage; otherwise openDamaged. An
  /// updater then removes mark and journal.
  uncleanVerified = 2
};

/// How to open a library. The defaults are those of LibFile::OpenLibFile for reading.
struct ZelOpenOptions {
  accModes mode = accRead;             ///< For reading or for update; NewLibrary ignores it.
  char const* name = nullptr;          ///< For display; null is the file name with its extension.
  char const* password = nullptr;      ///< Of a protected library; null is the empty password.
  zelWriteModes writes = writesPlain;  ///< How changes get into the files.
  zelUncleanModes unclean = uncleanIgnored;  ///< What is done about a library not closed cleanly.
  /// The least time to wait for a library that another opener holds; 0 or less does not wait.
  std::int32_t waitMilliseconds = 0;
};

/// Opens a library as the options say.
///
/// With held-back writes, a write makes the journal, and fails like any other write if that is
/// impossible, for example because the folder is not writable. Memory use grows with the amount
/// that is changed between two flushes. If the library is ended without a flush, none of this is
/// kept. With marked writes, a write that cannot set the mark fails.
/// \param path     the first file, ending in ".lb1"; null is openNotFound
/// \param options  how; modes that are not known count as the defaults
/// \param error    receives openOk or the reason of the failure; openFailed when the open throws,
///                 as LibFile::OpenLibFile does
/// \return the library, which the caller ends with LibFile::DelLibFile; null on failure
ZEL_API LibFile* OpenLibrary(char const* path, ZelOpenOptions const& options, openErrors& error);

/// Makes a library as LibFile::NewLibFile does, and leaves it open as the options say.
/// \param type     kind of the library
/// \param path     the first file; null is openNotLibrary
/// \param options  how; the mode, the password and what to do about an unclean close are not used
/// \param error    receives openOk or the reason of the failure
/// \return the library, which the caller ends with LibFile::DelLibFile; null on failure
ZEL_API LibFile* NewLibrary(libTypes type, char const* path, ZelOpenOptions const& options,
                            openErrors& error);

/// How a library was closed by the programs that used it before.
struct ZelLastClose {
  bool isMarked = false;           ///< It has the mark: it was not closed cleanly.
  bool isCompleted = false;        ///< A flush had been cut off; it was completed by this open.
  bool hasForeignJournal = false;  ///< The journal next to it was written for other files.
};

/// Reports how a library was closed before. The mark that this open itself has set does not count.
/// \param library  an open library; null is a failure
/// \param state    receives the state; unchanged on failure
/// \return false when the library is not open, and when the disk fails so that the mark cannot be
///         looked for
ZEL_API bool GetLastClose(LibFile* library, ZelLastClose& state);

/// Completes a flush that was cut off, as an open for update does, without a password. Without a
/// journal it does nothing, and opens no file.
/// \param path      the first file; null does nothing
/// \param isLocked  the caller holds the lock of an updater on the first file
/// \return openOk, also when there was nothing to complete; otherwise the reason
ZEL_API openErrors FinishLastFlush(char const* path, bool isLocked);

/// Removes the mark of a library and the journal next to it, for a host that has made sure that the
/// library is sound, or has replaced it. A flush that was cut off must have been completed before
/// (FinishLastFlush), and the library must not be in use.
/// \param path  the first file; null does nothing
/// \return false when one of them is still there
ZEL_API bool ForgetUncleanClose(char const* path);

}  // namespace zel

#endif  // ZELACCESS_OPENLIBRARY_H
