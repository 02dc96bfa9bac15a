// Reads and writes BibTeX, the form in which programs for references exchange them.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace zel::desk {

struct BibEntry {
  std::size_t line = 0;  // where it begins, from 1
  std::string type;      // "article", in lower case
  std::string key;
  std::map<std::string, std::string> fields;  // by name in lower case; plain text in UTF-8

  // The field; empty if the entry does not have it.
  std::string const& Field(std::string const& name) const;
};

// Reads a text of BibTeX. Values can be in braces or quotes, numbers, names of @string and these
// joined with #; the names of months are known. Accents, dashes and the usual commands of LaTeX
// become characters; braces and other commands are left out. @comment, @preamble and text between
// entries are skipped. Throws Failure with `shownAs` and the line for a text that is not BibTeX, a
// name that no @string has set, a field or a key that occurs twice, and bytes that are not UTF-8.
std::vector<BibEntry> ParseBibTeX(std::string const& text, std::string const& shownAs);

// The entry as a citation of one line: "Hankinson, R. W., and G. H. Thomson, A new correlation ...,
// AIChE J. 25 (1979) 653-663". Empty if the entry has nothing to cite.
std::string CitationText(BibEntry const& entry);

// An entry @misc that reads back to the same citation and DOI.
std::string ToBibTeX(std::string const& key, std::string const& citation, std::string const& doi);

}  // namespace zel::desk
