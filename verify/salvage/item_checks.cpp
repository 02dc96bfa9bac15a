#include "verify/salvage/item_checks.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace zel {

namespace {

constexpr std::int32_t kMostCoded = 99'999'999;  // of packed text, and of numbers of eight digits
constexpr std::int32_t kWildcard = INT32_MAX;    // a part of a key that was left out
// Numbers in records are between these, or 0, or undefined.
constexpr double kLeast = 1e-28;
constexpr double kMost = 1e34;

bool IsPossible(double value) {
  double const size = std::abs(value);
  return gen_IsUndefDouble(value) || size == 0.0 || (size > kLeast && size < kMost);
}

// Numbers of components have eight digits.
bool IsPossibleInt(std::int32_t value) {
  constexpr std::int32_t kMostInt = 100'000'000;
  return gen_IsUndefInt(value) || (value > -kMostInt && value < kMostInt);
}

}  // namespace

ItemChecks::Type::Type(BankShape const& of)
    : item(NewKnownBank(of.type.c_str())),
      io(FaceRef<IZelBankIO>::Of(item.Get(), IID_IZelBankIO)),
      fields(FieldsOf(*item.Get())),
      shape(&of) {
  if (of.shape.isAddressed) return;
  // A word is used if, for one of these values, it is not 0 after a record of such words was read
  // and written again. The values are valid as reals, texts or whole numbers.
  auto const count = static_cast<std::size_t>(of.shape.dataWords);
  used.resize(count);
  for (std::int32_t const word : {1'050'000'001, 10'101'010, 1, 1001, -5, 12'345'678}) {
    std::vector<std::int32_t> const data(count, word);
    std::vector<std::int32_t> again(count);
    item->Clear();
    io->ReadBlock(data.data(), of.format);
    io->WriteBlock(again.data(), of.format);
    for (std::size_t i = 0; i < count; ++i) used[i] = used[i] || again[i] != 0;
  }
}

ItemChecks::Type* ItemChecks::TypeOf(BankHeading const& bank) {
  for (BankShape const& shape : BankShapes()) {
    if (shape.type != bank.type || shape.shape != bank.shape || shape.shape.isAddressed) continue;
    return &TypeOf(shape);
  }
  return nullptr;
}

bool ItemChecks::IsPlausible(BankHeading const& bank, std::int32_t const* entry) {
  Type* const type = TypeOf(bank);
  return type == nullptr || IsPlausible(*type->shape, entry);
}

bool ItemChecks::IsOfFormat(BankShape const& shape, std::int32_t const* data,
                            std::vector<bool>& used) {
  used = TypeOf(shape).used;
  for (std::size_t i = 0; i < used.size(); ++i) {
    if (!used[i] && data[i] != 0) return false;
  }
  return true;
}

bool ItemChecks::IsPlausible(BankShape const& shape, std::int32_t const* entry) {
  Type* const type = &TypeOf(shape);
  std::int32_t const* data = entry + shape.shape.keyWords;
  bool const isText = type->shape->keyKind == kCharacterKey;
  bool const hasKey = std::all_of(entry, data, [&](std::int32_t word) {
    return word >= 0 && (word <= kMostCoded || (!isText && word == kWildcard));
  });
  if (!hasKey) return false;
  type->io->Clear();
  type->io->ReadBlock(data, type->shape->format);
  for (ItemField const& field : type->fields) {
    if (field.count < 1 || field.type == fieldText) continue;
    if (field.type == fieldReal) {
      std::vector<double> const values = RealsOf(*type->item.Get(), field);
      if (!std::all_of(values.begin(), values.end(), IsPossible)) return false;
    } else {
      std::vector<std::int32_t> values(static_cast<std::size_t>(field.count));
      type->item->GetIntField(field.name.c_str(), values.data());
      if (!std::all_of(values.begin(), values.end(), IsPossibleInt)) return false;
    }
  }
  return true;
}

std::vector<std::string> ItemChecks::Mend(BankHeading const& bank, std::int32_t* data) {
  std::vector<std::string> mended;
  Type* const type = TypeOf(bank);
  if (type == nullptr) return mended;
  type->io->Clear();
  type->io->ReadBlock(data, type->shape->format);
  for (ItemField const& field : type->fields) {
    if (field.type != fieldReal || field.count < 1) continue;
    std::vector<double> values = RealsOf(*type->item.Get(), field);
    bool bad = false;
    for (double& value : values) {
      if (std::isfinite(value)) continue;
      value = gen_GetUndefDouble();
      bad = true;
    }
    if (!bad) continue;
    type->item->SetDoubleField(field.name.c_str(), values.data());
    mended.push_back(field.name);
  }
  if (!mended.empty()) type->io->WriteBlock(data, type->shape->format);
  return mended;
}

}  // namespace zel
