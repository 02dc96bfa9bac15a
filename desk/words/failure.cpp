#include "desk/words/failure.h"

namespace zel::desk {

Failure::Failure(std::string const& what) : Error("", what) {}

// Here, so that the sources that throw it do not each have its tables.
Failure::~Failure() = default;

}  // namespace zel::desk
