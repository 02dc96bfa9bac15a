// Finds the component of another source that means the same substance.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "desk/open/preference_list.h"

namespace zel::desk {

class Counterparts {
 public:
  explicit Counterparts(std::vector<PlacedComponent> components);

  struct Match {
    PlacedComponent const* component = nullptr;  // null if not found
    bool isOtherSubstance = false;  // it has the same number, ID or CAS number, but contradicts
  };
  // The component with the same number, else with one of the same IDs, else with the same CAS
  // number. One whose identity agrees comes before one whose identity contradicts, unless all that
  // have the same IDs contradict.
  Match Find(zel::ZelIdentity const& identity) const;

 private:
  std::vector<PlacedComponent> components_;
  std::map<std::int32_t, std::vector<std::size_t>> byNumber_;
  std::map<std::string, std::vector<std::size_t>> byId_;
  std::map<std::int32_t, std::vector<std::size_t>> byCas_;
};

}  // namespace zel::desk
