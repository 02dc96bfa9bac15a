// Passes findings of a check to the host's sink.
#pragma once

#include <string>

#include "zelaccess/Verify.h"

namespace zel {

class Findings {
 public:
  explicit Findings(ZelFindingSink& sink) noexcept : sink_(sink) {}

  void Damage(char const* id, std::string const& place, std::string const& text) {
    ++damages_;
    sink_.Found(findingDamage, id, place.c_str(), text.c_str());
  }
  void Warning(char const* id, std::string const& place, std::string const& text) {
    sink_.Found(findingWarning, id, place.c_str(), text.c_str());
  }
  void Note(char const* id, std::string const& place, std::string const& text) {
    sink_.Found(findingNote, id, place.c_str(), text.c_str());
  }
  int Damages() const noexcept { return damages_; }

 private:
  ZelFindingSink& sink_;
  int damages_ = 0;
};

}  // namespace zel
