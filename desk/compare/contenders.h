// What each source of a preference list has for one datum, and which of them is used.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desk/open/preference_list.h"

namespace zel::desk {

struct Contender {
  std::string source;  // "crc.lb1:CRC"
  bool hasComponent = false;
  bool hasDatum = false;
  bool hasWon = false;                       // it is the first one that has the datum
  double value = zel::gen_GetUndefDouble();  // of a constant, in its internal unit
  Curve curve;                               // of a correlation
  std::uint32_t code = 0;
};
// Returns one for each bank of the list, in its order.
std::vector<Contender> ContendersFor(PreferenceList const& list, std::string const& component,
                                     zel::ZelConstantInfo const& constant);
std::vector<Contender> ContendersFor(PreferenceList const& list, std::string const& component,
                                     zel::ZelCorrelationInfo const& correlation);
// "won", "comes later", "does not have the component", or `without` if it lacks the datum.
std::string ResultOf(Contender const& one, char const* without);

}  // namespace zel::desk
