// The errors that end a command, each with one line for the user.
#pragma once

#include <zelaccess/DeskErrors.h>

#include <exception>
#include <stdexcept>
#include <string>

namespace zel::desk {

// The operation failed; exit status 1. The text names the file, bank or item and the reason, and
// says what to do where that helps. Errors that a host may want to distinguish have classes of
// their own in DeskErrors.h.
class Failure : public Error {
 public:
  explicit Failure(std::string const& what);
  ~Failure() override;
};

// The reader of standard output has closed it.
class PipeClosed : public std::exception {};

// The command line is invalid; exit status 2.
class WrongUsage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace zel::desk
