#include "desk/words/failure.h"

namespace zel::desk {

Failure::Failure(std::string const& what) : Error("", what) {}

// Defined here, so that not each source that throws it has its virtual table.
Failure::~Failure() = default;

}  // namespace zel::desk
