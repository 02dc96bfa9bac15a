#include "desk/notes/cited_codes.h"

#include <algorithm>

namespace zel::desk {

Column CitationColumn() {
  constexpr bool kHidden = true;
  return {"citation", "", false, false, kHidden};
}

Cell CitedCodes::Cite(std::string const& source, Citation const* citation) {
  if (citation == nullptr) return {};
  bool const isKnown = std::any_of(rows_.begin(), rows_.end(), [&](Row const& row) {
    return row.source == source && row.citation == *citation;
  });
  if (!isKnown) rows_.push_back({source, *citation});
  return citation->text;
}

Table CitedCodes::ToTable(bool withSource) const {
  std::vector<Column> columns;
  if (withSource) columns.push_back({"source", ""});
  columns.push_back({"code", ""});
  bool const hasDoi = std::any_of(rows_.begin(), rows_.end(),
                                  [](Row const& row) { return !row.citation.doi.empty(); });
  columns.push_back({"DOI", "", false, false, !hasDoi});
  columns.push_back({"citation", ""});
  std::vector<Row> rows = rows_;
  std::stable_sort(rows.begin(), rows.end(), [](Row const& one, Row const& other) {
    return std::pair(one.source, one.citation.code) < std::pair(other.source, other.citation.code);
  });
  Table table("references", std::move(columns));
  for (Row const& row : rows) {
    std::vector<Cell> cells;
    if (withSource) cells.emplace_back(row.source);
    cells.push_back(Code(row.citation.code));
    cells.push_back(Text(row.citation.doi));
    cells.push_back(Text(row.citation.text));
    table.Add(std::move(cells));
  }
  return table;
}

}  // namespace zel::desk
