// The citations that a report shows: each one once, below the data that have their codes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desk/notes/citations.h"
#include "desk/words/table.h"

namespace zel::desk {

// A column of citations for programs; text shows them in a table of their own.
Column CitationColumn();

class CitedCodes {
 public:
  // Notes the citation of a datum of a source, which may be null, and returns its text.
  Cell Cite(std::string const& source, Citation const* citation);
  bool Empty() const { return rows_.empty(); }
  // A table "references": source, code, DOI, citation. Without the source if `withSource` is not
  // set.
  Table ToTable(bool withSource) const;

 private:
  struct Row {
    std::string source;
    Citation citation;
  };
  std::vector<Row> rows_;
};

}  // namespace zel::desk
