#include "xml/field_tags.h"

#include <algorithm>
#include <memory>

namespace zel {

namespace {

std::vector<FieldTag::Choice> ChoicesOf(IZelBankDef* bank, char const* field) {
  std::int32_t count = 0;
  if (bank->GetEnumCount(field, &count) != kStatusOk || count <= 0) return {};
  auto const rows = static_cast<std::size_t>(count);
  auto const names = std::make_unique<char[][13]>(rows);
  std::vector<std::int32_t> values(rows);
  std::int32_t byDefault = 0;
  bank->GetEnumList(field, names.get(), values.data(), &byDefault);
  std::vector<FieldTag::Choice> choices;
  for (std::size_t i = 0; i < rows; ++i) choices.push_back({names[i], values[i]});
  return choices;
}

}  // namespace

FieldTags::FieldTags(IZelBankDef* bank, std::int32_t format) {
  std::int32_t count = 0;
  if (bank->GetFieldCount(format, &count) != kStatusOk) return;
  auto const rows = static_cast<std::size_t>(count);
  auto const names = std::make_unique<char[][13]>(rows);
  auto const labels = std::make_unique<char[][20]>(rows);
  auto const units = std::make_unique<char[][20]>(rows);
  std::vector<std::int32_t> types(rows);
  std::vector<std::int32_t> counts(rows);
  bank->GetFieldList(format, names.get(), labels.get(), types.data(), counts.data(), units.get());
  for (std::size_t i = 0; i < rows; ++i) {
    auto const values = static_cast<std::size_t>(std::max(counts[i], 1));
    largest = std::max(largest, values);
    tags.push_back({names[i], types[i], values, {}});
    if (types[i] == fieldEnumerated) tags.back().choices = ChoicesOf(bank, names[i]);
  }
}

}  // namespace zel
