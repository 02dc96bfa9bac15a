// Open libraries and the banks in them, named by words of the command line.
#pragma once

#include <zelaccess/ZelAccess.h>

#include <memory>
#include <string>
#include <vector>

#include "open/session.h"
#include "open/unread_items.h"

namespace zelhost {

// Null-terminated texts of the library have fixed sizes.
inline constexpr std::size_t kNameSize = 9;
inline constexpr std::size_t kMemoSize = 4000;

struct BankName {
  std::string type;
  std::string name;
};
// "TYPE:NAME"
std::string ToText(BankName const& bank);

// An open library. Throws Failure with the path and the reason when it cannot be opened.
class Library {
 public:
  // `shownAs` is what messages call it, where it is not in its own place. The session outlives the
  // library.
  static Library OpenRead(Session& session, std::string const& path,
                          std::string const& shownAs = "");
  static Library OpenUpdate(Session& session, std::string const& path, std::string const& password,
                            std::string const& shownAs = "");
  static Library Create(Session& session, zel::libTypes kind, std::string const& path,
                        std::string const& shownAs);

  zel::LibFile& File() const { return *file_; }
  zel::LibMaint& Maint() const { return *maint_; }
  std::string const& Path() const { return path_; }
  Session& InSession() const { return *session_; }

  // In the order of the directory; `type` empty for all.
  std::vector<BankName> Banks(std::string const& type = "") const;
  // The bank that a word means: TYPE:NAME, or a name or a type that only one bank has, in any case
  // of letters. Throws Failure, with the banks that there are, when it means none or several.
  BankName Bank(std::string const& word) const;
  // A bank of pure components, the only one when `word` is empty.
  BankName ComponentBank(std::string const& word) const;
  // Tells of what could not be read; see UnreadItems. To be called where the block error was
  // caught.
  void TellUnread(std::string const& place, unsigned long address) const;
  // Does work that walks a bank; a tree that cannot be read ends it and is told of.
  template <typename Work>
  void Walk(BankName const& bank, Work const& work) const {
    try {
      work();
    } catch (unsigned long const address) {
      TellUnread(ToText(bank), address);
    }
  }
  // Writes what is not on file yet. Throws Failure when the disk refuses.
  void Close();

 private:
  Library(Session& session, std::string path, zel::LibFile* file);

  Session* session_;
  std::string path_;
  std::unique_ptr<UnreadItems> unread_;  // outlives the library, which knows it
  zel::Handle<zel::LibFile> file_;
  zel::Handle<zel::LibMaint> maint_;
};

// What an open that failed means, e.g. "not found".
std::string Reason(zel::openErrors error, std::string const& path);
}  // namespace zelhost
