/// \file
/// The exceptions of the desk (Desk.h).
#ifndef ZELACCESS_DESKERRORS_H
#define ZELACCESS_DESKERRORS_H

#include <stdexcept>
#include <string>

#include "zelaccess/LibFile.h"

/// \def ZEL_DESK_API
/// Marks what the library ZelDesk exports. Hosts of the static library on Windows define
/// ZELDESK_STATIC.
#if !defined(_WIN32)
#define ZEL_DESK_API __attribute__((visibility("default")))
#elif defined(ZELDESK_STATIC)
#define ZEL_DESK_API
#elif defined(ZELDESK_BUILDING)
#define ZEL_DESK_API __declspec(dllexport)
#else
#define ZEL_DESK_API __declspec(dllimport)
#endif

namespace zel::desk {

/// Base of all exceptions of the desk. what() has file and reason in one line.
class ZEL_DESK_API Error : public std::runtime_error {
 public:
  /// \param file    the library or document that it is about, as it was named; empty for none
  /// \param reason  what is wrong, and what helps
  Error(std::string const& file, std::string const& reason)
      : std::runtime_error(file.empty() ? reason : file + ": " + reason),
        file_(file),
        reason_(reason) {}

  /// Returns what it is about.
  /// \return the library or document, as it was named; empty for none
  std::string const& File() const noexcept { return file_; }
  /// Returns what is wrong.
  /// \return the reason, without the file
  std::string const& Reason() const noexcept { return reason_; }

 private:
  std::string file_;
  std::string reason_;
};

/// A library that cannot be opened.
class ZEL_DESK_API OpenError : public Error {
 public:
  /// \param file    the library, as it was named
  /// \param reason  why it cannot be opened
  /// \param code    the result of the open
  OpenError(std::string const& file, std::string const& reason, openErrors code)
      : Error(file, reason), code_(code) {}
  /// Returns the result of the open.
  /// \return openNotFound, openBadPassword and so on
  openErrors Code() const noexcept { return code_; }

 private:
  openErrors code_;
};

/// A library that another program is using, or that may not be opened.
class ZEL_DESK_API LibraryInUse : public OpenError {
 public:
  using OpenError::OpenError;
};

/// A library that cannot be read as a whole: a block of it is damaged.
class ZEL_DESK_API DamagedLibrary : public Error {
 public:
  using Error::Error;
};

/// A component that no library has.
class ZEL_DESK_API MissingComponent : public Error {
 public:
  using Error::Error;
};

/// Sources that mean different substances by one word.
class ZEL_DESK_API ConflictingIdentity : public Error {
 public:
  using Error::Error;
};

/// An item, a pair for example, that no library has.
class ZEL_DESK_API MissingItem : public Error {
 public:
  using Error::Error;
};

/// A bank that a library does not have, or a word that may mean several of its banks.
class ZEL_DESK_API MissingBank : public Error {
 public:
  using Error::Error;
};

/// A correlation that a component does not have.
class ZEL_DESK_API MissingDatum : public Error {
 public:
  using Error::Error;
};

/// A word that is not known: a unit, a bank type, a field.
class ZEL_DESK_API UnknownWord : public Error {
 public:
  using Error::Error;
};

}  // namespace zel::desk

#endif  // ZELACCESS_DESKERRORS_H
