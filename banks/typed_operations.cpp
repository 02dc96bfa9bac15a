// How the typed operations of all bank types process their arguments.
#include <algorithm>
#include <cstddef>

#include "banks/bank_base.h"
#include "frame/ascii.h"

namespace zel {
namespace {

// Copies the elements in use and sets the rest to 0.
template <typename Type>
void CopyUsed(Type const* from, std::int32_t used, std::int32_t count, void* to) {
  auto* elements = static_cast<Type*>(to);
  std::copy_n(from, used, elements);
  std::fill(elements + used, elements + count, Type{0});
}

void DefaultUndefined(Field const& field, void* out) {
  auto* values = static_cast<double*>(out);
  std::replace_if(values, values + field.count, gen_IsUndefDouble, field.byDefault);
}

}  // namespace

// The number of elements in use according to the field's counter; a stored count can be any number.
std::int32_t BankBase_i::UsedElements(Field const& field) const noexcept {
  if (field.counter == Field::kNone) return field.count;
  return std::clamp(*Integers(fields_.Rows()[field.counter]), 0, field.count);
}

void BankBase_i::GiveField(Field const& field, void* to) const {
  std::int32_t const used = UsedElements(field);
  switch (field.type) {
    case kInteger:
    case kEnumerated: CopyUsed(Integers(field), used, field.count, to); break;
    case kReal: CopyUsed(Reals(field), used, field.count, to); break;
    case kText:
      CopyText(Text(field), static_cast<char*>(to), static_cast<std::size_t>(field.count));
      break;
  }
}

ZelStatus BankBase_i::GiveFields(Arguments const& arguments, std::initializer_list<void*> outs,
                                 bool defaulted) const {
  ZelStatus status = kStatusFailed;  // until something is returned
  auto out = outs.begin();
  for (Field const* field : arguments.List()) {
    void* to = *out++;
    if (to == nullptr) continue;
    GiveField(*field, to);
    if (defaulted && field->type == kReal && !field->isBound) DefaultUndefined(*field, to);
    status = kStatusOk;
  }
  return status;
}

ZelStatus BankBase_i::GiveData(Arguments const& arguments,
                               std::initializer_list<void*> outs) const {
  return GiveFields(arguments, outs, false);
}
ZelStatus BankBase_i::GiveDefaulted(Arguments const& arguments,
                                    std::initializer_list<void*> outs) const {
  return GiveFields(arguments, outs, true);
}

// An array may be null if the counter among the arguments leaves none of its elements in use.
bool BankBase_i::CanTake(Arguments const& arguments,
                         std::initializer_list<void const*> ins) const noexcept {
  auto const fields = arguments.List();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (ins.begin()[i] != nullptr || fields[i]->type == kText) continue;
    if (fields[i]->counter == Field::kNone) return false;
    auto const counter =
        std::find(fields.begin(), fields.end(), &fields_.Rows()[fields[i]->counter]);
    if (*static_cast<std::int32_t const*>(ins.begin()[counter - fields.begin()]) > 0) return false;
  }
  return true;
}

void BankBase_i::TakeField(Field const& field, void const* from) {
  std::int32_t const used = UsedElements(field);  // its counter was stored before it
  switch (field.type) {
    case kInteger:
    case kEnumerated:
      CopyUsed(static_cast<std::int32_t const*>(from), used, field.count, Integers(field));
      break;
    case kReal: CopyUsed(static_cast<double const*>(from), used, field.count, Reals(field)); break;
    case kText:
      CopyText(TextOrEmpty(static_cast<char const*>(from)), Text(field),
               static_cast<std::size_t>(field.count));
      break;
  }
}

ZelStatus BankBase_i::TakeData(Arguments const& arguments, std::initializer_list<void const*> ins) {
  if (!CanTake(arguments, ins)) return kStatusFailed;
  auto in = ins.begin();
  for (Field const* field : arguments.List()) TakeField(*field, *in++);
  return kStatusOk;
}

// No swap tests for undefined values: they are swapped like others.
ZelStatus BankBase_i::SwapPair() {
  if (type_.pairRule != kAsymmetric) return kStatusNotImplemented;
  for (Field const& field : fields_.Rows()) {
    double* const values = field.type == kReal ? Reals(field) : nullptr;
    switch (field.turn) {
      case Turn::kStays: break;
      case Turn::kExchanged:
        std::swap_ranges(values, values + field.count, Reals(fields_.Rows()[field.exchanged]));
        break;
      case Turn::kNegated:
        std::transform(values, values + field.count, values, [](double x) { return -x; });
        break;
      case Turn::kOneMinus:
        std::transform(values, values + field.count, values, [](double x) { return 1.0 - x; });
        break;
    }
  }
  return kStatusOk;
}

}  // namespace zel
