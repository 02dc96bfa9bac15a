#include <map>

#include "banks/catalogue.h"
#include "maint/block_info.h"
#include "verify/bank_checks.h"
#include "verify/item_fields.h"

namespace zel {
namespace {

constexpr std::int32_t kPair = 2;

std::vector<FieldValue> ValuesOf(IZelBankDef& item, std::vector<ItemField> const& fields) {
  std::vector<FieldValue> values;
  values.reserve(fields.size());
  for (ItemField const& field : fields) values.push_back(ValueOf(item, field));
  return values;
}

// The unit of a field's values: fields have a dimension if their numbers are in its internal unit.
std::string UnitOf(ItemField const& field) {
  if (field.unit == "temp") return "K";
  if (field.unit == "pres") return "kPa";
  return field.unit;
}

}  // namespace

void CheckPairs(CheckedLibrary& library, CheckedBank const& bank) {
  FaceRef<IZelBankDef> const item(NewKnownBank(bank.type.c_str()));
  auto const io = FaceRef<IZelBankIO>::Of(item.Get(), IID_IZelBankIO);
  if (!io) return;  // of a type that this library does not have
  BlockInfo const info(io.Get());
  if (info.keyKind != kComponentKeys || info.keyWords != kPair || info.pairRule == kOrdered) return;
  std::vector<ItemField> const fields = FieldsOf(*item.Get());
  // Values of the pairs in descending order, converted to ascending order.
  std::map<std::pair<std::int32_t, std::int32_t>, std::vector<FieldValue>> falling;
  library.Walk(bank, item.Get(), [&](std::int32_t const* words) {
    if (words[0] <= words[1]) return;
    if (info.pairRule == kAsymmetric) io->SwapPair();
    falling[{words[1], words[0]}] = ValuesOf(*item.Get(), fields);
  });
  if (falling.empty()) return;
  library.Walk(bank, item.Get(), [&](std::int32_t const* words) {
    auto const other = falling.find({words[0], words[1]});
    if (other == falling.end()) return;
    std::vector<FieldValue> const values = ValuesOf(*item.Get(), fields);
    CheckedItem const place = library.Item(
        bank, words, kPair, std::to_string(words[0]) + " + " + std::to_string(words[1]));
    for (std::size_t i = 0; i < values.size(); ++i) {
      FieldValue const& swapped = other->second[i];
      if (values[i] == swapped) continue;
      DataFinding finding("pair-twice", fields[i].name);
      finding.Value(values[i].number, UnitOf(fields[i])).Text(values[i].text);
      finding.Expect(Expected(swapped.number, swapped.number, swapped.text));
      library.Findings().Tell(
          place, finding,
          "is stored in both orders; {datum} is {value} in one and {expected} in the other");
    }
  });
}

}  // namespace zel
