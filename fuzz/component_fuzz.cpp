// Component items: any words in the main, structure and correlation block. The input is the words
// of the three in this order, 250, 126 and 400, as far as the input reaches; a main block without
// addresses gets those of the other two.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "store/lib_file.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/sample_component.h"

namespace {

void Require(bool holds, char const* what) {
  if (holds) return;
  std::fprintf(stderr, "component_fuzz: not so: %s\n", what);
  std::abort();
}

constexpr int kMain = 250, kStructure = 126, kCorrelations = 400;
constexpr int kCorrelationAddress = 95, kStructureAddress = 98;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::int32_t words[kMain + kStructure + kCorrelations] = {};
  if (size != 0) std::memcpy(words, data, std::min(size, sizeof words));
  zel::test::MemoryFileSystem files;
  zel::LibFile_i library(files, zel::accUpdate, "/f.lb1", "F");
  if (library.CreateNew(zel::libKind11) != zel::openOk) return 0;
  auto const put = [&](std::int32_t const* from, int count) {
    std::int32_t address = zel::format::kNullAddress;
    library.WriteBlock(address, count, from, 0);
    return address;
  };
  std::int32_t const structures = put(words + kMain, kStructure);
  std::int32_t const correlations = put(words + kMain + kStructure, kCorrelations);
  if (words[kStructureAddress] == 0) {
    words[kStructureAddress] = structures;
    words[kStructureAddress + 1] = kStructure;
  }
  if (words[kCorrelationAddress] == 0) {
    words[kCorrelationAddress] = correlations;
    words[kCorrelationAddress + 1] = kCorrelations;
  }
  std::int32_t address = put(words, kMain);
  zel::test::ComponentBank bank;
  try {
    bank.Io()->ReadFromFile(&address, &library);
    Require(bank.Io()->ReadFromFile(&address, &library) == zel::kStatusNothingNew,
            "a second reading gives nothing new");
    zel::test::TextOf(bank.Get());
    bank.Io()->WriteToFile(&address, &library);
    zel::test::ComponentBank again;
    again.Io()->ReadFromFile(&address, &library);
    zel::test::TextOf(again.Get());
  } catch (unsigned long) {
    // An invalid address.
  }
  return 0;
}
