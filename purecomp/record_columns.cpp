// The columns of a bank of pure components: what its main blocks hold, as fields. The values are
// those that a read of the item into an empty component yields.

#include <algorithm>
#include <array>
#include <cstring>

#include "banks/block_words.h"
#include "frame/ascii.h"
#include "purecomp/component.h"
#include "purecomp/pure_comp.h"
#include "purecomp/record_format.h"
#include "purecomp/tables.h"
#include "store/packed_text.h"

namespace zel {
namespace {

namespace r = record;

constexpr std::size_t kIdSize = sizeof(Component::libraryIds) / kLibraryIds;
constexpr std::string_view kIdsColumn = "ids";
constexpr std::string_view kKeepFormulaColumn = "keepFormula";

// Rows before the end of those that are written are the constants with their keywords.
constexpr std::size_t CountConstants() {
  std::size_t count = 0;
  while (kPropertyRows[count].index != kEndOfWritten) ++count;
  return count;
}
constexpr std::size_t kConstantColumns = CountConstants();

constexpr Field MakeColumn(std::string_view name, FieldType type, std::int32_t count, int word) {
  Field field;
  field.name = name;
  field.type = type;
  field.count = count;
  field.format = 1;
  field.firstWord = word;
  field.runElements = count;
  return field;
}

constexpr std::array kOtherColumns = {
    MakeColumn("number", kInteger, 1, r::kNumber),
    MakeColumn("cas", kInteger, 1, r::kCasNumber),
    MakeColumn("refCode", kInteger, 1, r::kRefCode),
    MakeColumn(kKeepFormulaColumn, kInteger, 1, r::kKeepFormula),
    MakeColumn(kIdsColumn, kText, sizeof(Component::libraryIds), r::kIds),
    MakeColumn("name", kText, sizeof(Component::name), r::kName),
    MakeColumn("formula", kText, sizeof(Component::formula), r::kFormula),
    MakeColumn("smiles", kText, sizeof(Component::smiles), r::kSmiles),
};

using Columns = std::array<Field, kConstantColumns + kOtherColumns.size()>;
constexpr Columns MakeColumns() {
  Columns columns;
  for (std::size_t i = 0; i < kConstantColumns; ++i) {
    PropertyRow const& row = kPropertyRows[i];
    columns[i] = MakeColumn(row.keyword, kReal, 1, r::kConstants + row.index);
  }
  std::copy(kOtherColumns.begin(), kOtherColumns.end(), columns.begin() + kConstantColumns);
  return columns;
}
constexpr Columns kColumns = MakeColumns();

// Decodes each ID once, up to the first empty one.
void DecodeIds(std::int32_t const* mainBlock, char* ids) {
  std::memset(ids, 0, sizeof(Component::libraryIds));
  char* end = ids;
  for (int i = 0; i < kLibraryIds; ++i) {
    WordsToText(mainBlock + r::kIds + r::kIdWords * i, r::kIdWords, end);
    if (*end == '\0') return;
    char const* first = ids;
    while (std::strcmp(first, end) != 0) first += kIdSize;  // ends at `end` itself
    if (first == end) end += kIdSize;
  }
  if (end < ids + sizeof(Component::libraryIds)) *end = '\0';
}

// The mark belongs to the formula: without one it is not read.
bool KeepsFormula(std::int32_t const* mainBlock) {
  std::array<char, sizeof(Component::formula)> formula;
  WordsToText(mainBlock + r::kFormula, r::kFormulaWords, formula.data());
  return formula[0] != '\0' && mainBlock[r::kKeepFormula] == 1;
}

}  // namespace

Field const* PureComp_i::FindColumn(std::string_view name, FieldType type,
                                    FieldType otherType) const {
  for (Field const& column : kColumns) {
    if ((column.type == type || column.type == otherType) && SameText(column.name, name)) {
      return &column;
    }
  }
  return nullptr;
}

std::int32_t PureComp_i::ColumnBlockWords() const { return r::kMainWords; }

void PureComp_i::DecodeColumn(Field const& field, std::int32_t const* record, std::int32_t format,
                              void* to) const {
  if (field.type == kReal) {
    double const value = RealOfWord(record[field.firstWord]);
    *static_cast<double*>(to) = gen_IsUndefDouble(value) ? gen_GetUndefDouble() : value;
  } else if (field.name == kIdsColumn) {
    DecodeIds(record, static_cast<char*>(to));
  } else if (field.name == kKeepFormulaColumn) {
    *static_cast<std::int32_t*>(to) = KeepsFormula(record) ? 1 : 0;
  } else {
    BankBase_i::DecodeColumn(field, record, format, to);
  }
}

}  // namespace zel
