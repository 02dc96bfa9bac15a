// A small library that holds every bank type, and a reader of all its content.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "tests/support/memory_file_system.h"

namespace zel::test {

inline constexpr char kSamplePath[] = "/sample.lb1";
inline constexpr char kSamplePath2[] = "/sample.lb2";

// One bank per type and format, one item each, in memory.
void MakeSampleLibrary(MemoryFileSystem& files);

// The component in its bank, by number, and the address of its main block.
inline constexpr std::int32_t kSampleComponent = 10000123;
std::int32_t SampleComponentAddress(MemoryFileSystem& files);

// The files of a sample library, to be changed word by word.
class SampleFiles {
 protected:
  SampleFiles() { MakeSampleLibrary(files_); }

  void Put(char const* path, std::size_t byte, std::int32_t word);
  std::int32_t Get(char const* path, std::size_t byte);
  // Byte offset of a bank's directory data in the second file: after its key. Throws when there is
  // none.
  std::size_t EntryOf(char const* type, char const* name);

  MemoryFileSystem files_;
};

// The reader's findings: per bank a text that holds all words of its items, or the word "error"
// with the address of a block error. Opening alone can fail too.
struct Finding {
  int openError = 0;
  bool threw = false;
  std::map<std::string, std::string> banks;
};

// Opens, walks IDs, banks and items, reads every item by its key, prints every tree, reads memos
// and texts, and queries the status. Never throws.
Finding ReadEverything(MemoryFileSystem& files);

}  // namespace zel::test
