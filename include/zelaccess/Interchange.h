// Interchange: how closely an import looks at its documents, what it found in them, and what a
// document holds. The form of documents is told in docs/interchange.md.
#ifndef ZELACCESS_INTERCHANGE_H
#define ZELACCESS_INTERCHANGE_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

// How an import takes what does not fit. The numbers rise with the care.
//
// A malformed number is a text such as "61x37" or "6137,5", one that is out of range, or a value
// that has no place. A lost part is an item, component, bank, text or `import` that a document has
// and that did not get into the library. An altered text is one that the library cannot keep as it
// is: too long, or with characters that its packed text does not have.
enum zelImportChecks : std::int32_t {
  importUnchecked = 0,  // all three pass without a word; "61x37" is read as 61
  importTold = 1,       // all three are warnings, and the same is stored
  importChecked = 2,    // malformed numbers and lost parts are errors, altered texts warnings
  importStrict = 3      // all three are errors
};

// What the last import found in its documents and what of it is in the library.
struct ZelImportCounts {
  std::int64_t documents = 0;  // read, one that was read twice counting twice
  std::int64_t itemsFound = 0;
  std::int64_t itemsStored = 0;
  std::int64_t componentsFound = 0;
  std::int64_t componentsStored = 0;
  std::int64_t malformedNumbers = 0;  // 0 when unchecked
  std::int64_t alteredTexts = 0;      // 0 when unchecked
  std::int64_t errors = 0;
  std::int64_t warnings = 0;
};

// What one document holds, those that it imports not included.
struct ZelDocumentContents {
  bool readable = false;  // false: there is no such file, or it is not a document that an import
                          // takes; all counts are 0 then
  std::int32_t line = 0;  // where it is not; 0 when no line is to blame
  char reason[200] = {};  // why not, "" when it is readable
  std::int64_t banks = 0;
  std::int64_t items = 0;
  std::int64_t components = 0;
  std::int64_t imports = 0;
};

// Reads a document without a library. True when it is readable, so that an export can be tried
// before anything relies on it. Throws std::bad_alloc.
ZEL_API bool ReadDocumentContents(char const* path, ZelDocumentContents& contents);

}  // namespace zel

#endif  // ZELACCESS_INTERCHANGE_H
