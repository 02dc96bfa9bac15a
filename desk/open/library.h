// Open libraries and the banks in them, as named on the command line.
#pragma once

#include <zelaccess/OpenLibrary.h>
#include <zelaccess/ZelAccess.h>

#include <memory>
#include <string>
#include <vector>

#include "desk/open/session.h"
#include "desk/open/unread_items.h"

namespace zel::desk {

// Null-terminated texts of the library have fixed sizes.
inline constexpr std::size_t kNameSize = 9;
inline constexpr std::size_t kMemoSize = 4000;

struct BankName {
  std::string type;
  std::string name;
};
// "TYPE:NAME"
std::string ToText(BankName const& bank);

// An open library. Throws Failure with the path and the reason if it cannot be opened.
class Library {
 public:
  // `shownAs` is its name in messages, for a library that is not at its usual path. The session
  // must outlive the library.
  static Library OpenRead(Session& session, std::string const& path,
                          std::string const& shownAs = "");
  // What is changed: a copy, which only this program knows; or the library in place, which gets a
  // mark while it is changed, and is verified first if it has one.
  enum class Update { kCopy, kInPlace };
  static Library OpenUpdate(Session& session, std::string const& path, std::string const& password,
                            std::string const& shownAs, Update how);
  static Library Create(Session& session, zel::libTypes kind, std::string const& path,
                        std::string const& shownAs);

  Library(Library&&) noexcept = default;
  // Ends the objects that it held first, in their order.
  Library& operator=(Library&& other) noexcept;
  ~Library() = default;

  zel::LibFile& File() const { return *file_; }
  zel::LibMaint& Maint() const { return *maint_; }
  std::string const& Path() const { return path_; }
  Session& InSession() const { return *session_; }

  // The banks in the order of the directory; all types if `type` is empty.
  std::vector<BankName> Banks(std::string const& type = "") const;
  // The bank that a word means: TYPE:NAME, or a name or a type that only one bank has, in upper or
  // lower case. Throws Failure, with the existing banks, if it means none or several.
  BankName Bank(std::string const& word) const;
  // A bank of pure components, the only one if `word` is empty.
  BankName ComponentBank(std::string const& word) const;
  // Reports what could not be read; see UnreadItems. Must be called where the block error was
  // caught.
  void TellUnread(std::string const& place, unsigned long address) const;
  // Does work that walks a bank. If the tree cannot be read, the work ends and the bank is
  // reported.
  template <typename Work>
  void Walk(BankName const& bank, Work const& work) const {
    try {
      work();
    } catch (unsigned long const address) {
      TellUnread(ToText(bank), address);
    }
  }
  // Closes the library, after writing what is not on file yet. Throws if that fails.
  void Close();

 private:
  Library(Session& session, std::string path, zel::Handle<zel::LibFile> file);

  Session* session_;
  std::string path_;
  std::unique_ptr<UnreadItems> unread_;  // must outlive the library, which refers to it
  zel::Handle<zel::LibFile> file_;
  zel::Handle<zel::LibMaint> maint_;
};

// Throws the error of an open that failed: LibraryInUse, or OpenError with the reason, for example
// "not found".
[[noreturn]] void ThrowOpenError(zel::openErrors error, std::string const& path);
}  // namespace zel::desk
