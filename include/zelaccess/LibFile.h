// LibFile: one component library, a set of files name.lb1, name.lb2, ...
#ifndef ZELACCESS_LIBFILE_H
#define ZELACCESS_LIBFILE_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

// Kind of a library. It stands in the header and leads every block address; it has no behaviour.
enum libTypes : std::int32_t { libKind11 = 11, libKind12 = 12, libKind13 = 13 };

enum accModes : std::int32_t {
  accRead = 0,   // read only: setters and flush do nothing, writes of data throw
  accUpdate = 1  // read and write; excludes every other opener
};

enum openErrors : std::int32_t {
  openOk = 0,
  openFailed = 1,          // could not be opened for a reason not listed below
  openNotFound = 2,        // the first file does not exist
  openDenied = 3,          // access denied, or somebody else holds the library
  openNotLibrary = 4,      // name not ending in ".lb1", or not a library inside
  openSiblingMissing = 5,  // the header declares a second file that is not there
  openPasswordNeeded = 6,  // update asked for, the library is protected, the password is empty
  openBadPassword = 7      // neither the library's password nor empty
};

// An open component library. Any number of readers can hold a library together; an updater
// excludes everyone, within a process as between processes.
//
//   openErrors reason;
//   LibFile* library = LibFile::OpenLibFile(accRead, "data.lb1", "", reason);
//   if (library == nullptr) return Report(reason);   // e.g. openNotFound
//   ...
//   LibFile::DelLibFile(library);
//
// A library must outlive every LibMaint, LibSearch and bank read that uses it. There is no journal:
// what was not flushed is not in the file's header. A null text argument counts as the empty text,
// except where a row says otherwise.
//
// Errors after the open. A block that cannot be reached - a damaged address, a write to a library
// open for reading, a full disk, the process's limit of file sizes (without its signal) - throws an
// `unsigned long` that holds the offending block address; BlockError.h makes an exception of it
// that says more. An open that throws has closed and unlocked its files before, and leaves
// openFailed. Null outputs are passed over.
//
// Threads. Different libraries may be used by different threads at the same time, each with the
// LibMaint, LibSearch, keys and banks that work on it, also when they are opens of one file for
// reading. Calls on one library, and on what works on it, come one at a time. What the process
// shares is guarded, with three exceptions: the library that is set as the name index is used by no
// thread as a library of its own while others may fall back on it; the sort, filter and range of
// lists are one for all threads (CompList.h); and the working folder and the environment are the
// host's to leave alone.
class ZEL_API LibFile {
 public:
  // Makes a library of two files, open for update; an existing file is overwritten as the new
  // library grows, not truncated. Null on failure, with the reason in `error`.
  // `path` names the first file and ends in ".lb1" in any case; `name` is for display.
  // Files that are made, here or at a later first write to them, have mode 0600 whatever the umask:
  // a host that shares its folder opens them to others with chmod. A symbolic link in the place of
  // a file is followed.
  static LibFile* NewLibFile(libTypes type, char const* path, char const* name, openErrors& error);
  static LibFile* NewLibFile(libTypes type, char const* path, openErrors& error);

  // Opens a library; null on failure, with the reason in `error`. A protected library opens for
  // reading with the empty password. `type` is set once the header has been read and found good.
  // Without `name` the file name with its extension serves.
  static LibFile* OpenLibFile(accModes mode, char const* path, char const* name,
                              char const* password, openErrors& error);
  static LibFile* OpenLibFile(accModes mode, char const* path, char const* name,
                              char const* password, openErrors& error, libTypes& type);
  static LibFile* OpenLibFile(accModes mode, char const* path, char const* password,
                              openErrors& error);
  static LibFile* OpenLibFile(accModes mode, char const* path, char const* password,
                              openErrors& error, libTypes& type);

  // Opens for reading without a password test, reports and closes.
  static void StatusLibFile(char const* path, libTypes& type, openErrors& error);

  // Closes and ends the library and nulls the handle; does nothing on null. A last flush that
  // fails, as on a full disk, is reported by GetLostFlushes alone: call FlushLibFile before, which
  // throws.
  static void DelLibFile(LibFile*& library);

  // The name index: one library of the process that resolves the character IDs and CAS numbers that
  // a library at hand does not know. Only a host sets it. Closing that library clears it; reopening
  // the same object sets it again. Threads take turns in asking and setting it.
  static LibFile* GetOrdwinNameIndex();
  static void SetOrdwinNameIndex(LibFile* library);
  static void ClearOrdwinNameIndex();

  LibFile(LibFile const&) {}                            // copies no data: libraries are handles
  LibFile& operator=(LibFile const&) { return *this; }  // copies nothing

  // Writes header, tree heads and block table, and asks the system to put the files on disk.
  // Does nothing when closed or open for reading. Throws a block error, the address of the tree
  // heads, when something could not be written; it may be called again.
  virtual void FlushLibFile() = 0;
  // Flushes and closes the files. The object can be reopened. When the flush fails the files are
  // closed all the same, what was not on file is lost, and the block error is thrown: call
  // FlushLibFile first where a second try is wanted.
  virtual void CloseLibFile() = 0;
  // Opens a closed library again in its mode, without a password test; openOk when it is open.
  virtual openErrors ReopenLibFile() = 0;
  // Texts owned by the library, valid as long as it lives.
  virtual char const* GetLibName() const = 0;
  virtual char const* GetLibPath() const = 0;
  virtual void GetLibInfo(libTypes& type, accModes& mode) const = 0;
  // Buffers of 101 and 13 characters.
  virtual void GetDescriptionAndVersion(char* description, char* version) const = 0;
  // A null leaves that text alone. Texts keep letters, digits and "+-*/=().,'\":;!@#$&?<>_%";
  // other characters come back as blanks.
  virtual void SetDescriptionAndVersion(char const* description, char const* version) = 0;
  virtual void GetReservedWords(std::int32_t& wordA, std::int32_t& wordB) const = 0;
  virtual void SetReservedWords(std::int32_t wordA, std::int32_t wordB) = 0;
  // Buffer of 4000 characters; empty when there is no memo.
  virtual void GetMemo(char* memo) const = 0;
  // Keeps 3999 characters.
  virtual void SetMemo(char const* memo) = 0;
  // Buffer of 101 characters; the password is empty unless the library is open for update.
  virtual void GetPassword(std::int32_t& level, char* password) const = 0;
  // Level 0 clears the password, 1 and 2 set both, any other level is ignored. Level 2 also locks:
  // see IsPasswordLocked.
  virtual void SetPassword(std::int32_t level, char const* password) = 0;
  // True at level 2 with a password. Items of a locked library read as any other; the mark travels
  // with them (IZelBankDef::GetSource) for the host to honour.
  virtual bool IsPasswordLocked() const = 0;

 protected:
  LibFile() = default;
  virtual ~LibFile();
};

// How many libraries of this process were ended while their last flush failed, since load:
// DelLibFile cannot throw, and what was not flushed is lost. `path` (260 characters) and
// `address` get the path and the block error of the last one, "" and 0 when there was none; either
// may be null. For any thread at any time.
ZEL_API std::int32_t GetLostFlushes(char* path, unsigned long* address);

}  // namespace zel

#endif  // ZELACCESS_LIBFILE_H
