// Library images. The input is a list of changes to a library that holds all bank types: for each
// the file and byte offset (4 bytes, the highest bit is the file) and the word to put there (4).
#include <cstdint>
#include <cstring>

#include "tests/support/sample_library.h"

namespace {

zel::test::MemoryFileSystem& Sample() {
  static auto* files = [] {
    auto* made = new zel::test::MemoryFileSystem;  // lives as long as the program
    zel::test::MakeSampleLibrary(*made);
    return made;
  }();
  return *files;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  constexpr std::size_t kChange = 8;
  constexpr std::uint32_t kSecondFile = 0x80000000;
  zel::test::MemoryFileSystem files;
  for (char const* path : {zel::test::kSamplePath, zel::test::kSamplePath2}) {
    files.Contents(path) = Sample().Contents(path);
  }
  for (std::size_t at = 0; at + kChange <= size; at += kChange) {
    std::uint32_t where = 0;
    std::memcpy(&where, data + at, sizeof where);
    auto& bytes = files.Contents((where & kSecondFile) != 0 ? zel::test::kSamplePath2
                                                            : zel::test::kSamplePath);
    std::size_t const offset = where & ~kSecondFile;
    if (offset + 4 <= bytes.size()) std::memcpy(bytes.data() + offset, data + at + 4, 4);
  }
  zel::test::ReadEverything(files);
  return 0;
}
