// The component numbers in the items of a bank, whatever its type.
#pragma once

#include <zelaccess/ZelAccess.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace zel::desk {

// The words of a stored key.
using StoredWords = std::vector<std::int32_t>;

class ItemNumbers {
 public:
  // `item` is an object of the bank's type and must outlive this one.
  explicit ItemNumbers(zel::IZelBankDef& item);

  bool HasAny() const { return place_ != Place::kNowhere; }
  // True for mappings from a text to a number: Of and Replace then need the item to be read.
  bool AreInField() const { return place_ == Place::kField; }
  // The field that has the number.
  static char const* FieldName();
  std::vector<std::int32_t> Of(StoredWords const& key) const;
  // Replaces each number with what the function returns, in the key or in the item.
  void Replace(StoredWords& key, std::function<std::int32_t(std::int32_t)> const& to) const;

 private:
  enum class Place { kNowhere, kKey, kField };

  zel::IZelBankDef& item_;
  Place place_ = Place::kNowhere;
};

}  // namespace zel::desk
