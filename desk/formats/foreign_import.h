// Writes what a file of another program's form says into a bank of components, by the rows of
// tables (desk/tables/row_form.h).
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "desk/findings/finding.h"
#include "desk/formats/foreign_record.h"
#include "desk/open/library.h"
#include "desk/words/table.h"

namespace zel::desk {

struct ForeignTarget {
  Library* library = nullptr;  // open for update
  BankName bank;
  std::string citation;               // of the file
  std::optional<std::uint32_t> code;  // the reference code of the data; else one is chosen
};

struct ForeignImport {
  std::uint32_t code = 0;
  bool isCited = false;   // the code has got its citation now
  std::int64_t read = 0;  // components
  std::int64_t isNew = 0;
  std::int64_t changed = 0;
  std::int64_t same = 0;
  std::int64_t refused = 0;  // components of which nothing was taken
  std::int64_t taken = 0;    // data
  std::int64_t converted = 0;
  std::int64_t noPlace = 0;
  std::int64_t refusedData = 0;
  std::vector<Finding> findings;
  Table given{"given numbers", {{"component", ""}, {"number", ""}}};
  Table components{"components", {{"line", ""}, {"component", ""}, {"result", ""}, {"what", ""}}};
  // By tag, what became of it in all components.
  Table tags{"tags",
             {{"tag", ""},
              {"datum", ""},
              {"taken", ""},
              {"converted", ""},
              {"no place", ""},
              {"refused", ""}}};
  // By tag and reason, in how many components it has no place or is refused.
  Table leftOut{"left out", {{"tag", ""}, {"result", ""}, {"components", ""}, {"why", ""}}};
  // Each datum of the file.
  Table data{
      "data",
      {{"line", ""}, {"component", ""}, {"tag", ""}, {"result", ""}, {"datum", ""}, {"what", ""}}};
};

// Which component of the bank one is, and the ID of a new one, is up to ForeignIdentities
// (foreign_identity.h). All data get one reference code, whose citation is that of the file: the
// code that has this citation already, else the next free one. The caller must not keep the library
// if data are refused and it wants all or nothing. Throws Failure.
ForeignImport ImportForeign(ForeignTarget const& target, ForeignFile const& file);

}  // namespace zel::desk
