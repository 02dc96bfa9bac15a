// A library in memory, and components written to it and read from it by address.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>

#include "store/lib_file.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/sample_component.h"

namespace zel::test {

class RecordTest : public ::testing::Test {
 protected:
  RecordTest() { EXPECT_EQ(library_.CreateNew(libKind11), openOk); }

  using Main = std::array<std::int32_t, 250>;
  using Correlations = std::array<std::int32_t, 400>;
  using Structures = std::array<std::int32_t, 126>;
  template <typename Words>
  Words Read(std::int32_t address) {
    Words words{};
    library_.ReadBlock(address, static_cast<std::int32_t>(words.size()), words.data());
    return words;
  }
  template <typename Words>
  void Put(std::int32_t address, Words const& words) {
    library_.WriteBlock(address, static_cast<std::int32_t>(words.size()), words.data(), 0);
  }
  // Writes a new block of these words; returns its address.
  template <typename Words>
  std::int32_t New(Words const& words) {
    std::int32_t address = format::kNullAddress;
    library_.WriteBlock(address, static_cast<std::int32_t>(words.size()), words.data(), 0);
    return address;
  }

  std::int32_t Write(ComponentBank& bank, std::int32_t address = 0) {
    EXPECT_EQ(bank.Io()->WriteToFile(&address, &library_), kStatusOk);
    return address;
  }
  ZelStatus ReadFrom(ComponentBank& bank, std::int32_t address) {
    return bank.Io()->ReadFromFile(&address, &library_);
  }

  // The word of a float on file, and the value that it must be read as.
  static std::int32_t WordOf(double value) {
    return std::bit_cast<std::int32_t>(static_cast<float>(value));
  }

  MemoryFileSystem files_;
  LibFile_i library_{files_, accUpdate, "/p.lb1", "Parts"};
};

}  // namespace zel::test
