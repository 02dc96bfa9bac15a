#include "banks/field_table.h"

#include <algorithm>

#include "frame/ascii.h"

namespace zel {
namespace {
constexpr std::int32_t kWordBytes = 4;
constexpr std::size_t kNameLimit = 12;
constexpr std::size_t kLabelLimit = 19;
}  // namespace

FieldTable::FieldTable(std::int32_t formatCount, std::size_t capacity,
                       std::span<FieldRow const> rows)
    : formatCount_(formatCount), capacity_(capacity) {
  rows_.reserve(capacity);
  for (FieldRow const& row : rows) AddField(row);
}

void FieldTable::AddField(FieldRow const& row) {
  if (rows_.size() >= capacity_) return;
  rows_.push_back(row);
  FieldRow& added = rows_.back();
  added.name = row.name.substr(0, kNameLimit);
  added.label = row.label.substr(0, kLabelLimit);
  added.unit = row.unit.substr(0, kLabelLimit);
  if (row.offset == kByHand || row.format > formatCount_) return;
  std::int32_t const end = row.offset / kWordBytes + BlockWordsOf(row);
  std::int32_t& words = recordWords_[static_cast<std::size_t>(row.format - 1)];
  words = std::max(words, end);
  maxRecordWords_ = std::max(maxRecordWords_, end);
}

void FieldTable::SetRecordLength(std::int32_t format, std::int32_t words) noexcept {
  if (format < 1 || format > formatCount_) return;
  recordWords_[static_cast<std::size_t>(format - 1)] = words;
  maxRecordWords_ = words;
}

FieldRow const* FieldTable::Find(std::string_view name, FieldType type,
                                 FieldType otherType) const noexcept {
  for (FieldRow const& row : rows_) {
    if ((row.type == type || row.type == otherType) && SameText(row.name, name)) return &row;
  }
  return nullptr;
}

}  // namespace zel
