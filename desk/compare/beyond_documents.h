// What a library holds that the interchange format cannot express.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desk/open/library.h"

namespace zel::desk {

// One text for each such fact, in the order of the library: its kind, if it is not that of a new
// library; that it has a password; its reserved words; and each correlation with an equation above
// 100, with its whole record. Only the correlations of a bank if `bank` is not null.
struct BeyondDocuments {
  std::vector<std::string> texts;
  std::int64_t correlations = 0;
};
BeyondDocuments FindBeyondDocuments(Library const& library, BankName const* bank);

// The same as a comment of a document; empty if nothing is beyond documents.
std::string AsComment(BeyondDocuments const& beyond);

}  // namespace zel::desk
