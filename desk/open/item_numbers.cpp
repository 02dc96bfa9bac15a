#include "desk/open/item_numbers.h"

#include <algorithm>

#include "desk/open/fields.h"

namespace zel::desk {
namespace {

constexpr std::int32_t kNoComponent = INT32_MAX;  // fills a key that was given short
constexpr std::int32_t kComponentKey = 0;
constexpr std::int32_t kTextKey = 2;
constexpr char kNumberToName[] = "ORWMAP";  // its plain number is that of a component
constexpr char kNumberField[] = "libnum";

}  // namespace

ItemNumbers::ItemNumbers(zel::IZelBankDef& item) : item_(item) {
  BankFacts const facts(item);
  if (facts.keyKind == kComponentKey || facts.type == kNumberToName) place_ = Place::kKey;
  if (facts.keyKind != kTextKey) return;
  std::vector<Field> const fields = FieldsOf(item);
  bool const isMapping = std::any_of(fields.begin(), fields.end(),
                                     [](Field const& field) { return field.name == kNumberField; });
  if (isMapping) place_ = Place::kField;
}

char const* ItemNumbers::FieldName() { return kNumberField; }

std::vector<std::int32_t> ItemNumbers::Of(StoredWords const& key) const {
  std::vector<std::int32_t> numbers;
  if (place_ == Place::kKey) {
    std::copy_if(key.begin(), key.end(), std::back_inserter(numbers),
                 [](std::int32_t word) { return word != kNoComponent; });
  } else if (place_ == Place::kField) {
    item_.GetIntField(kNumberField, &numbers.emplace_back());
  }
  return numbers;
}

void ItemNumbers::Replace(StoredWords& key,
                          std::function<std::int32_t(std::int32_t)> const& to) const {
  if (place_ == Place::kKey) {
    for (std::int32_t& word : key) {
      if (word != kNoComponent) word = to(word);
    }
  } else if (place_ == Place::kField) {
    std::int32_t number = 0;
    item_.GetIntField(kNumberField, &number);
    number = to(number);
    item_.SetIntField(kNumberField, &number);
  }
}

}  // namespace zel::desk
