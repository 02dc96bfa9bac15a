// Converts words of property units in documents into unit codes.
//
// Old words are replaced, with a warning: once for each of six kinds, and for repetitions until
// there are ten warnings in total. The count is kept for all documents of one import.
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
