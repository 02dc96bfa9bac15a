// The fields of a bank type, and the lengths of its records that follow from them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace zel {

enum FieldType : std::int32_t { kInteger = 0, kReal = 1, kText = 2, kEnumerated = 3 };

// Value that Clear gives to the elements of a field.
enum class FieldDefault : std::uint8_t {
  kUndefined,  // the undefined integer or double
  kFromEnum    // the entry that the field's enumeration names as its default
};

inline constexpr std::int32_t kByHand = -1;  // block offset of a field that the type codes itself

// One field, as in the printed tables.
struct FieldRow {
  std::string_view name;   // also the XML tag; 12 characters are kept
  std::string_view label;  // for people; 19 characters are kept
  FieldType type;
  std::int32_t count;     // elements; for a text its buffer, terminator included
  std::string_view unit;  // unit class in lower case, empty for none; 19 characters are kept
  std::int32_t offset;    // in bytes from the start of the data block, or kByHand
  std::int32_t format;    // first record format that has the field
  std::size_t member;     // offset in bytes in the type's item
  FieldDefault byDefault = FieldDefault::kUndefined;
};

// Words that a field takes in a data block.
constexpr std::int32_t BlockWordsOf(FieldRow const& row) noexcept {
  return row.type == kText ? (row.count + 2) / 4 : row.count;
}

// Built once per type, when its first bank is made.
class FieldTable {
 public:
  static constexpr int kFormats = 2;  // no type has more

  // `capacity` is the number of rows that the table takes; a further row is dropped.
  FieldTable(std::int32_t formatCount, std::size_t capacity, std::span<FieldRow const> rows);

  // Adds a row and extends the record of its format to the field's end. Lengths of formats are kept
  // apart: a later format is as long as the fields added under it reach.
  void AddField(FieldRow const& row);
  // For types whose block is coded by hand.
  void SetRecordLength(std::int32_t format, std::int32_t words) noexcept;

  std::span<FieldRow const> Rows() const noexcept { return rows_; }
  std::int32_t FormatCount() const noexcept { return formatCount_; }
  std::int32_t MaxRecordWords() const noexcept { return maxRecordWords_; }
  // Format from 1.
  std::int32_t RecordWords(std::int32_t format) const noexcept {
    return recordWords_[static_cast<std::size_t>(format - 1)];
  }
  // The first row with this name, without regard to case, and one of the two types; null when there
  // is none.
  FieldRow const* Find(std::string_view name, FieldType type, FieldType otherType) const noexcept;

 private:
  std::int32_t formatCount_;
  std::size_t capacity_;
  std::vector<FieldRow> rows_;
  std::array<std::int32_t, kFormats> recordWords_{};
  std::int32_t maxRecordWords_ = 0;
};

}  // namespace zel
