// The fields of a bank type, and the lengths of its records that follow from them.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "frame/ascii.h"

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

// The table of a type, a constant: nothing is made at the first use that memory could be short for,
// and nothing ends before a bank that a host gives back late.
class FieldTable {
 public:
  static constexpr int kFormats = 2;            // no type has more
  static constexpr std::size_t kMostRows = 20;  // nor more rows

  // `capacity` is the number of rows that the table takes; a further row is dropped.
  constexpr FieldTable(std::int32_t formatCount, std::size_t capacity,
                       std::span<FieldRow const> rows) noexcept
      : formatCount_(formatCount), capacity_(std::min(capacity, kMostRows)) {
    for (FieldRow const& row : rows) AddField(row);
  }

  // Adds a row and extends the record of its format to the field's end. Lengths of formats are kept
  // apart: a later format is as long as the fields added under it reach.
  constexpr void AddField(FieldRow const& row) noexcept {
    if (rowCount_ >= capacity_) return;
    FieldRow& added = rows_[rowCount_++];
    added = row;
    added.name = row.name.substr(0, kNameLimit);
    added.label = row.label.substr(0, kLabelLimit);
    added.unit = row.unit.substr(0, kLabelLimit);
    if (row.offset == kByHand || row.format > formatCount_) return;
    std::int32_t const end = row.offset / kWordBytes + BlockWordsOf(row);
    std::int32_t& words = recordWords_[static_cast<std::size_t>(row.format - 1)];
    words = std::max(words, end);
    maxRecordWords_ = std::max(maxRecordWords_, end);
  }
  // For types whose block is coded by hand.
  constexpr void SetRecordLength(std::int32_t format, std::int32_t words) noexcept {
    if (format < 1 || format > formatCount_) return;
    recordWords_[static_cast<std::size_t>(format - 1)] = words;
    maxRecordWords_ = words;
  }

  constexpr std::span<FieldRow const> Rows() const noexcept { return {rows_.data(), rowCount_}; }
  constexpr std::int32_t FormatCount() const noexcept { return formatCount_; }
  constexpr std::int32_t MaxRecordWords() const noexcept { return maxRecordWords_; }
  // Format from 1.
  constexpr std::int32_t RecordWords(std::int32_t format) const noexcept {
    return recordWords_[static_cast<std::size_t>(format - 1)];
  }
  // The first row with this name, without regard to case, and one of the two types; null when there
  // is none.
  FieldRow const* Find(std::string_view name, FieldType type, FieldType otherType) const noexcept {
    for (FieldRow const& row : Rows()) {
      if ((row.type == type || row.type == otherType) && SameText(row.name, name)) return &row;
    }
    return nullptr;
  }

 private:
  static constexpr std::int32_t kWordBytes = 4;
  static constexpr std::size_t kNameLimit = 12;
  static constexpr std::size_t kLabelLimit = 19;

  std::int32_t formatCount_;
  std::size_t capacity_;
  std::array<FieldRow, kMostRows> rows_{};
  std::size_t rowCount_ = 0;
  std::array<std::int32_t, kFormats> recordWords_{};
  std::int32_t maxRecordWords_ = 0;
};

}  // namespace zel
