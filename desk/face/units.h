// Values in the unit that a host asks for.
#pragma once

#include <cstddef>
#include <string>

namespace zel::desk {

// Converts values and slopes of one quantity from its internal unit.
class UnitOfValues {
 public:
  // `internal` is the unit as the catalogues show it, `word` that of the host; empty for the
  // internal unit. `what` is the name of the datum. Throws UnknownWord if the word does not suit.
  UnitOfValues(std::string const& internal, char const* dimension, std::string const& word,
               std::string const& what);

  // The unit of the results.
  std::string const& Text() const { return text_; }
  // Throws UnknownWord for a value that has no counterpart in the unit. NaN stays NaN.
  void Convert(double* values, std::size_t count) const;
  // Whether the values stay in the internal unit.
  bool IsInternal() const { return isInternal_; }
  // The change of a value in the unit when it changes by 1 in the internal one.
  double Step() const;

 private:
  std::string internal_;
  std::string dimension_;
  std::string text_;
  bool isInternal_;
};

}  // namespace zel::desk
