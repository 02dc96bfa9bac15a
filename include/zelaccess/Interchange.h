/// \file
/// Interchange: how strictly an import checks its documents, what it found in them, and what a
/// document holds. docs/interchange.md describes the documents.
#ifndef ZELACCESS_INTERCHANGE_H
#define ZELACCESS_INTERCHANGE_H

#include <cstddef>
#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

/// What an import does with data that it cannot store as they are. A higher number is stricter.
///
/// A malformed number is a text such as "61x37" or "6137,5", one that is out of range, or a value
/// that has no place. A lost part is an item, component, bank, text or `import` that a document has
/// and that did not get into the library. An altered text is one that the library cannot keep as
/// is: too long, or with characters that its packed text does not have.
enum zelImportChecks : std::int32_t {
  importUnchecked = 0,  ///< All three pass silently; "61x37" is read as 61.
  importTold = 1,       ///< All three are warnings, and the same is stored.
  importChecked = 2,    ///< Malformed numbers and lost parts are errors, altered texts warnings.
  importStrict = 3      ///< All three are errors.
};

/// What the last import found in its documents and what of it is in the library.
struct ZelImportCounts {
  std::int64_t documents = 0;         ///< Documents read; one that was read twice counts twice.
  std::int64_t itemsFound = 0;        ///< Items in the documents.
  std::int64_t itemsStored = 0;       ///< Items that are in the library.
  std::int64_t componentsFound = 0;   ///< Components in the documents.
  std::int64_t componentsStored = 0;  ///< Components that are in the library.
  std::int64_t malformedNumbers = 0;  ///< Malformed numbers; 0 when unchecked.
  std::int64_t alteredTexts = 0;      ///< Altered texts; 0 when unchecked.
  std::int64_t errors = 0;            ///< Errors that were reported.
  std::int64_t warnings = 0;          ///< Warnings that were reported.
  std::int64_t banksFound = 0;        ///< Banks in the documents.
  std::int64_t banksStored = 0;       ///< Banks that are in the library.
  std::int64_t textsFound = 0;        ///< Memos, descriptions and versions in the documents.
  std::int64_t textsStored = 0;       ///< Memos, descriptions and versions that are in the library.
  std::int64_t importsFound = 0;      ///< Elements that import other documents.
  std::int64_t importsFollowed = 0;   ///< Elements whose documents were read.
};

/// What a line of a maintenance log is about.
enum zelLogKinds : std::int32_t {
  logOther = 0,            ///< Something else.
  logMalformedNumber = 1,  ///< A malformed number (zelImportChecks).
  logAlteredText = 2,      ///< An altered text.
  logLostPart = 3,         ///< A lost part.
  logCancelled = 4         ///< The host cancelled the run (Progress.h).
};

/// One error or warning of a maintenance log. Texts are never null and valid only during the call.
struct ZelLogLine {
  bool isError = false;         ///< An error; false: a warning.
  zelLogKinds kind = logOther;  ///< What the line is about.
  char const* document = "";    ///< Name of the file that is read, without its folder.
  std::int32_t line = 0;        ///< Line in that file; 0 when none is known.
  char const* message = "";     ///< The message, with the label of the item in front.
  char const* before = "";      ///< Text in the document, of a malformed number or an altered text.
  char const* after = "";       ///< What the library keeps in its place, "" when nothing.
};

/// What a host implements to receive what is otherwise written to standard output; see
/// LibMaint_p::SetLogSink. It is called in the thread of the run.
class ZEL_API ZelLogSink {
 public:
  /// Receives an error or a warning.
  /// \param line  valid only during the call
  virtual void Line(ZelLogLine const& line) = 0;
  /// Called when an import or export begins a bank.
  /// \param type  type keyword, never null, valid only during the call
  /// \param name  bank name, never null, valid only during the call
  virtual void BankBegins(char const* type, char const* name) = 0;

 protected:
  ~ZelLogSink() = default;
};

/// What one document holds, not including the documents that it imports.
struct ZelDocumentContents {
  /// False if there is no such file, or if it is not a document that an import accepts; all counts
  /// are then 0.
  bool readable = false;
  std::int32_t line = 0;        ///< Line at which it is not readable; 0 when no line is to blame.
  char reason[200] = {};        ///< Why it is not readable; "" when it is.
  std::int64_t banks = 0;       ///< Banks.
  std::int64_t items = 0;       ///< Items.
  std::int64_t components = 0;  ///< Components.
  std::int64_t imports = 0;     ///< Elements that import other documents.
};

/// Reads a document without a library, so that a host can test an exported document before it
/// relies on it. Throws std::bad_alloc. May be called by several threads at the same time.
/// \param path      path of the document; null is the empty path, which is not readable
/// \param contents  receives what the document holds, or why it is not readable
/// \return true when the document is readable
ZEL_API bool ReadDocumentContents(char const* path, ZelDocumentContents& contents);

/// Copies the name of the file that is written for a bank or a component: "Bank-NRTL-A%2FB.xml" for
/// "Bank-NRTL-A/B.xml". What a file name cannot have on this system ("/", on Windows more) is
/// written as "%" and two hexadecimal digits; other names stay as they are. Throws std::bad_alloc.
/// May be called by several threads at the same time.
/// \param name  what the file would be named after; null counts as empty
/// \param file  receives the file's name, cut if there is not enough room; null is ignored
/// \param size  room in `file` in characters, with the terminating 0; at least 1 if it is not null
ZEL_API void GetFileName(char const* name, char* file, std::size_t size);

}  // namespace zel

#endif  // ZELACCESS_INTERCHANGE_H
