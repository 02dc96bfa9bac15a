// Words of property units in documents, turned into unit codes.
//
// Old words are mended: each of six kinds is told once, and repeats of them until ten were told in
// all. That goes on through all documents of one import.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "maint/maint_log.h"

namespace zel {

class UnitWords {
 public:
  static constexpr std::size_t kMendings = 6;

  explicit UnitWords(MaintLog& log) : log_(log) {}

  // The code of a word of a dimension, which is a unit class; 0 when it is not understood.
  std::int32_t CodeOf(std::string_view dimension, std::string_view word);

 private:
  std::string Mended(std::string_view dimension, std::string word);
  void Tell(std::size_t mending, std::string const& word);

  MaintLog& log_;
  std::array<bool, kMendings> told_{};
  std::int32_t warnings_ = 0;
};

}  // namespace zel
