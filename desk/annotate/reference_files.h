// References in files: BibTeX (.bib) and tables (CSV, TSV, JSON) with the columns code, citation
// and DOI.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/annotate/references.h"

namespace zel::desk {

struct ReferenceImport {
  std::optional<BankName> bank;        // for its data; none: for all data of the library
  std::optional<std::uint32_t> first;  // the first code for entries of BibTeX without one
  std::vector<std::string> ignored;    // columns of a table that are left out
  bool isUsedOnly = false;             // only the codes that data of the library, or bank, have
  bool replace = false;                // other citations of these codes
};

struct ImportedReferences {
  std::int64_t read = 0;
  std::int64_t isNew = 0;
  std::int64_t changed = 0;
  std::int64_t same = 0;
  std::int64_t unused = 0;  // left out: no data have the code, or the row has no citation
  std::int64_t refused = 0;
  Table rows;  // those that are new, changed or refused

  ImportedReferences();
};

// Sets the citations that the file holds in a library that is open for update; a row or an entry
// that is refused changes nothing. The code of an entry of BibTeX is its field "refcode" or "code",
// else its key if that is a number or "ref" and a number. Throws Failure for a file that cannot be
// read, is neither, or has unknown columns.
ImportedReferences ImportReferences(Library const& library, std::string const& path,
                                    ReferenceImport const& options);

// The citations of a library, or of the data of a bank, as text in the form that the ending of the
// path means: .bib, .csv, .tsv or .json; ImportReferences reads it back. Throws WrongUsage for
// another ending. `count` receives the number of citations.
std::string ExportReferences(Library const& library, std::optional<BankName> const& bank,
                             std::string const& path, std::int64_t& count);

}  // namespace zel::desk
