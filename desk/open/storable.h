// Whether a library can keep a value.
#pragma once

#include <string>
#include <vector>

#include "desk/open/item_values.h"

namespace zel::desk {

// Throws Failure if a number becomes undefined or infinite in a record, which holds numbers of
// single precision: "TC cannot be stored as 1e+39". An undefined value is storable.
void CheckStorable(double value, std::string const& name);

// Throws Failure for a text with characters that libraries do not have: those outside ASCII,
// control characters, [ ] { } ^ ~ | \ and the backquote.
void CheckLetters(std::string const& text, std::string const& what);

// The same, and for a text that is too long to be kept.
void CheckText(std::string const& text, std::size_t longest, std::string const& what);

// A place in a document of `zel export` in which a text is written as it is.
enum class DocumentPlace { kElement, kAttribute, kMemo };

// The part of a text that would make a document unreadable: & or < in an element, a quotation mark
// as well in an attribute, and "]]>" in a memo. Empty for a good text.
std::string NotForDocument(std::string const& text, DocumentPlace place);
// Throws Failure for such a text.
void CheckDocument(std::string const& text, DocumentPlace place, std::string const& what);

// Throws Failure for the first value that was read back otherwise than it was set: a number in its
// first 7 digits, anything else at all.
void CheckStored(std::vector<NamedValue> const& wanted, std::vector<NamedValue> const& stored);

}  // namespace zel::desk
