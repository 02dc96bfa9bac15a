/// \file
/// LibFile: one component library, a set of files name.lb1, name.lb2, ...
#ifndef ZELACCESS_LIBFILE_H
#define ZELACCESS_LIBFILE_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

/// Kind of a library. It is stored in the header and at the start of every block address, and
/// has no other effect.
enum libTypes : std::int32_t {
  libKind11 = 11,  ///< Kind 11.
  libKind12 = 12,  ///< Kind 12.
  libKind13 = 13   ///< Kind 13.
};

/// How a library is open.
enum accModes : std::int32_t {
  accRead = 0,   ///< Read only: setters and flush do nothing, writes of data throw.
  accUpdate = 1  ///< Read and write; excludes every other opener.
};

/// Why a library could not be opened or made.
enum openErrors : std::int32_t {
  openOk = 0,               ///< No error.
  openFailed = 1,           ///< Could not be opened for a reason not listed below.
  openNotFound = 2,         ///< The first file does not exist.
  openDenied = 3,           ///< Access denied, or another opener holds the library.
  openNotLibrary = 4,       ///< Name not ending in ".lb1", or not a library inside.
  openSiblingMissing = 5,   ///< The header declares a second file that does not exist.
  openPasswordNeeded = 6,   ///< Update of a protected library with an empty password.
  openBadPassword = 7,      ///< The password is neither the library's nor empty.
  openUncleanlyClosed = 8,  ///< Not closed cleanly; only if asked for (OpenLibrary.h).
  openDamaged = 9           ///< Not closed cleanly and damaged; only if asked for.
};

/// An open component library. Any number of readers can have a library open at the same time; an
/// updater excludes all others, within a process as well as between processes.
///
///     openErrors reason;
///     LibFile* library = LibFile::OpenLibFile(accRead, "data.lb1", "", reason);
///     if (library == nullptr) return Report(reason);   // openNotFound, for example
///     ...
///     LibFile::DelLibFile(library);
///
/// A library must outlive every LibMaint, LibSearch and bank read that uses it. Changes are written
/// as they are made, and what was not flushed is not in the file's header: a host that is killed
/// before it has flushed leaves a library between two states. OpenLibrary.h has opens that prevent
/// that, or make it known.
///
/// **Null pointers.** Every pointer may be null. A null text argument is the empty text, except
/// where an operation says otherwise. A null output is skipped.
///
/// **Errors after the open.** A block that cannot be reached - a damaged address, a write to a
/// library open for reading, a full disk, the process's limit of file sizes (without its signal) -
/// throws an `unsigned long` that holds the offending block address; BlockError.h turns it into an
/// exception that says more. An open that throws has closed and unlocked its files, and reports
/// openFailed. Lack of memory throws std::bad_alloc.
///
/// **Threads.** Different libraries may be used by different threads at the same time, each with
/// the LibMaint, LibSearch, keys and banks that work on it, also when one file has been opened
/// several times for reading.
///
/// Any number of threads may also use one library that is open for reading, each with LibMaint,
/// LibSearch, ColumnReader, key and bank objects of its own: reads, look-ups, searches, walks,
/// columns, lists and exports, and the functions of this class that return something. No other call
/// on the library may run at the same time as CloseLibFile, ReopenLibFile and DelLibFile;
/// SetProgress, SetItemFindings, VerifyLibrary and the checks of data; and uses of the trees and
/// pointers of LibFile_p. Calls on a library open for update, and on objects that work on it, must
/// be made one at a time.
///
/// State that the process shares is guarded, with three exceptions: while a library open for update
/// is set as the name index, no thread may use it directly if others may look up names in it; the
/// sort, filter and range of lists are shared by all threads (CompList.h); and the host must leave
/// the working folder and the environment alone.
class ZEL_API LibFile {
 public:
  /// Makes a library of two files, open for update; an existing file is overwritten as the new
  /// library grows, not truncated.
  ///
  /// Files that are made, here or at a later first write to them, have mode 0600 whatever the
  /// umask: a host that shares its folder opens them to others with chmod. A symbolic link in the
  /// place of a file is followed.
  /// \param type   kind of the library
  /// \param path   the first file; ends in ".lb1" in upper or lower case; at most 259 characters as
  ///               an absolute path; null is openNotLibrary
  /// \param name   for display, at most 259 characters are kept; null is the empty name
  /// \param error  receives openOk or the reason of the failure
  /// \return the library, which the caller ends with DelLibFile; null on failure
  static LibFile* NewLibFile(libTypes type, char const* path, char const* name, openErrors& error);
  /// Makes a library whose display name is the path as given; otherwise as above.
  /// \param type   kind of the library
  /// \param path   the first file; null is openNotLibrary
  /// \param error  receives openOk or the reason of the failure
  /// \return the library, which the caller ends with DelLibFile; null on failure
  static LibFile* NewLibFile(libTypes type, char const* path, openErrors& error);

  /// Opens a library. A protected library opens for reading with the empty password.
  /// \param mode      for reading or for update
  /// \param path      the first file, ending in ".lb1"; null is openNotFound
  /// \param name      for display, at most 259 characters are kept; null is the empty name
  /// \param password  of a protected library; null is the empty password
  /// \param error     receives openOk or the reason of the failure; openFailed when the open throws
  /// \return the library, which the caller ends with DelLibFile; null on failure
  static LibFile* OpenLibFile(accModes mode, char const* path, char const* name,
                              char const* password, openErrors& error);
  /// Opens a library and reports its kind; otherwise as above.
  /// \param mode      for reading or for update
  /// \param path      the first file, ending in ".lb1"; null is openNotFound
  /// \param name      for display; null is the empty name
  /// \param password  of a protected library; null is the empty password
  /// \param error     receives openOk or the reason of the failure
  /// \param type      receives the kind once the header has been read and found good, also when the
  ///                  open then fails; unchanged otherwise
  /// \return the library, which the caller ends with DelLibFile; null on failure
  static LibFile* OpenLibFile(accModes mode, char const* path, char const* name,
                              char const* password, openErrors& error, libTypes& type);
  /// Opens a library whose display name is the file name with its extension; otherwise as above.
  /// \param mode      for reading or for update
  /// \param path      the first file, ending in ".lb1"; null is openNotFound
  /// \param password  of a protected library; null is the empty password
  /// \param error     receives openOk or the reason of the failure
  /// \return the library, which the caller ends with DelLibFile; null on failure
  static LibFile* OpenLibFile(accModes mode, char const* path, char const* password,
                              openErrors& error);
  /// Opens a library whose display name is the file name with its extension, and reports its kind.
  /// \param mode      for reading or for update
  /// \param path      the first file, ending in ".lb1"; null is openNotFound
  /// \param password  of a protected library; null is the empty password
  /// \param error     receives openOk or the reason of the failure
  /// \param type      receives the kind once the header has been read and found good
  /// \return the library, which the caller ends with DelLibFile; null on failure
  static LibFile* OpenLibFile(accModes mode, char const* path, char const* password,
                              openErrors& error, libTypes& type);

  /// Opens a library for reading without a password test, reports on it and closes it.
  /// \param path   the first file; null is openNotFound
  /// \param type   receives the kind once the header has been read and found good
  /// \param error  receives openOk or the reason of the failure
  static void StatusLibFile(char const* path, libTypes& type, openErrors& error);

  /// Closes and ends the library and nulls the handle. Does not throw: if the last flush
  /// fails, for example because the disk is full, only GetLostFlushes reports it. Call FlushLibFile
  /// first, which throws.
  /// \param library  the handle; null does nothing
  static void DelLibFile(LibFile*& library);

  /// \name The name index
  /// One library of the process that resolves the character IDs and CAS numbers that the library in
  /// use does not know. Only the host sets it; the library remains the host's. Closing that library
  /// clears it; reopening the same object sets it again. Threads take turns in using and setting
  /// it.
  ///@{

  /// Returns the name index.
  /// \return the library, still owned by the host; null when none is set
  static LibFile* GetOrdwinNameIndex();
  /// Sets the name index.
  /// \param library  stays the host's; null clears the name index
  static void SetOrdwinNameIndex(LibFile* library);
  /// Clears the name index. The library stays open.
  static void ClearOrdwinNameIndex();

  ///@}

  /// Copies no data: libraries are handles.
  LibFile(LibFile const&) {}
  /// Copies nothing.
  /// \return this object
  LibFile& operator=(LibFile const&) { return *this; }

  /// Writes header, tree heads and block table, and asks the system to put the files on disk. Does
  /// nothing when closed or open for reading. Throws a block error, the address of the tree heads,
  /// when something could not be written; it may be called again.
  virtual void FlushLibFile() = 0;
  /// Flushes and closes the files; does nothing when closed. The object can be reopened. If the
  /// flush fails, the files are closed anyway, what was not yet on file is lost, and the block
  /// error is thrown: to be able to try again, call FlushLibFile first.
  virtual void CloseLibFile() = 0;
  /// Opens a closed library again in its mode, without a password test.
  /// \return openOk, also when it is open already; otherwise the reason
  virtual openErrors ReopenLibFile() = 0;
  /// Returns the display name.
  /// \return owned by the library and valid as long as it lives; never null
  virtual char const* GetLibName() const = 0;
  /// Returns the absolute path of the first file.
  /// \return owned by the library and valid as long as it lives; never null
  virtual char const* GetLibPath() const = 0;
  /// Reports the kind and the mode.
  /// \param type  receives the kind
  /// \param mode  receives the mode
  virtual void GetLibInfo(libTypes& type, accModes& mode) const = 0;
  /// Copies the description and the version text of the library.
  /// \param description  buffer of 101 characters; may be null
  /// \param version      buffer of 13 characters; may be null
  virtual void GetDescriptionAndVersion(char* description, char* version) const = 0;
  /// Sets the description and the version text; does nothing when open for reading. Texts keep
  /// letters, digits and the characters below; other characters are read back as blanks.
  ///
  ///     + - * / = ( ) . , ' " : ; ! @ # $ & ? < > _ %
  ///
  /// \param description  at most 100 characters are kept; null leaves the description alone
  /// \param version      at most 12 characters are kept; null leaves the version alone
  virtual void SetDescriptionAndVersion(char const* description, char const* version) = 0;
  /// Reports the two words of the header that are reserved for the host.
  /// \param wordA,wordB  receive the words
  virtual void GetReservedWords(std::int32_t& wordA, std::int32_t& wordB) const = 0;
  /// Sets the two words of the header that are reserved for the host; does nothing when open for
  /// reading.
  /// \param wordA,wordB  the words
  virtual void SetReservedWords(std::int32_t wordA, std::int32_t wordB) = 0;
  /// Copies the memo. Throws a block error.
  /// \param memo  buffer of 4000 characters, empty when there is no memo; null does nothing
  virtual void GetMemo(char* memo) const = 0;
  /// Writes the memo; does nothing when open for reading. Throws a block error.
  /// \param memo  3999 characters are kept; null is the empty text
  virtual void SetMemo(char const* memo) = 0;
  /// Reports the protection of the library.
  /// \param level     receives the level, 0 to 2
  /// \param password  buffer of 101 characters, empty unless the library is open for update; may be
  ///                  null
  virtual void GetPassword(std::int32_t& level, char* password) const = 0;
  /// Sets the protection of the library; does nothing when open for reading.
  /// \param level     0 clears the password, 1 and 2 set both, any other level is ignored; level 2
  ///                  also locks, see IsPasswordLocked
  /// \param password  at most 100 characters are kept; null is the empty password
  virtual void SetPassword(std::int32_t level, char const* password) = 0;
  /// Returns whether the library is locked. Items of a locked library are read like any others;
  /// they carry the mark (IZelBankDef::GetSource), which the host should honor.
  /// \return true at level 2 with a password
  virtual bool IsPasswordLocked() const = 0;

 protected:
  LibFile() = default;
  virtual ~LibFile();
};

/// Reports for how many libraries of this process, since load, DelLibFile could not do the last
/// flush: it throws nothing, and what was not flushed is lost. For any thread at any time.
/// \param path     buffer of 260 characters for the path of the last one, empty without a lost
///                 flush; may be null
/// \param address  receives the block error of the last one, 0 without a lost flush; may be null
/// \return the number of lost flushes
ZEL_API std::int32_t GetLostFlushes(char* path, unsigned long* address);

}  // namespace zel

#endif  // ZELACCESS_LIBFILE_H
