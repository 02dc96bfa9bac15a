// Open libraries and the banks in them, named by words of the command line.
#pragma once

#include <zelaccess/ZelAccess.h>

#include <memory>
#include <string>
#include <vector>

#include "unread_items.h"

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
  // Finishes a change first that was cut off; see work_folder.h.
  // `shownAs` is what messages call it, where it is not at its own place.
  static Library OpenRead(std::string const& path, std::string const& shownAs = "");
  static Library OpenUpdate(std::string const& path, std::string const& password,
                            std::string const& shownAs = "");
  static Library Create(zel::libTypes kind, std::string const& path, std::string const& shownAs);

  zel::LibFile& File() const { return *file_; }
  zel::LibMaint& Maint() const { return *maint_; }
  std::string const& Path() const { return path_; }

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
  Library(std::string path, zel::LibFile* file);

  std::string path_;
  std::unique_ptr<UnreadItems> unread_;  // outlives the library, which knows it
  zel::Handle<zel::LibFile> file_;
  zel::Handle<zel::LibMaint> maint_;
};

// The library that knows the IDs and CAS numbers which the library at hand does not: named while
// the command line is read, opened before the command begins.
void NameNames(std::string const& path);
void OpenNames();
// That library; null when there is none.
Library const* NamesLibrary();
// Closes it when it is the library at `path`, which is to be changed and knows its own IDs.
// True when it was.
bool ReleaseNames(std::string const& path);

// What an open that failed means, e.g. "not found".
std::string Reason(zel::openErrors error, std::string const& path);
// What messages call the library that has `file` among its files, which a block error names.
std::string ShownPath(std::string const& file);

std::string UpperCase(std::string text);
std::string LowerCase(std::string text);
// "*" stands for any text, "?" for one character; letters compare without regard to case.
bool Matches(std::string const& pattern, std::string const& text);

}  // namespace zelhost
