// Interchange: how closely an import looks at its documents, what it found in them, and what a
// document holds. docs/interchange.md describes the form of documents.
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
  std::int64_t banksFound = 0;
  std::int64_t banksStored = 0;
  std::int64_t textsFound = 0;  // memos, descriptions and versions
  std::int64_t textsStored = 0;
  std::int64_t importsFound = 0;  // documents that others import
  std::int64_t importsFollowed = 0;
};

// What a line of a maintenance log is about.
enum zelLogKinds : std::int32_t {
  logOther = 0,
  logMalformedNumber = 1,
  logAlteredText = 2,
  logLostPart = 3
};

// One error or warning of a maintenance log. Texts end with a null and are valid during the call
// alone.
struct ZelLogLine {
  bool isError = false;
  zelLogKinds kind = logOther;
  char const* document = "";  // name of the file that is read, without its folder
  std::int32_t line = 0;      // in that file; 0 when none is known
  char const* message = "";   // with the label of the item in front
  char const* before = "";    // the text in the document, of a malformed number or an altered text
  char const* after = "";     // what the library keeps in its place, "" when nothing
};

// Receives what else is written to standard output; see LibMaint_p::SetLogSink.
class ZEL_API ZelLogSink {
 public:
  virtual void Line(ZelLogLine const& line) = 0;
  // An import or export begins with a bank.
  virtual void BankBegins(char const* type, char const* name) = 0;

 protected:
  ~ZelLogSink() = default;
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
