#include "desk/face/item_data.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <variant>

#include "desk/notes/item_codes.h"
#include "desk/notes/parameter_meanings.h"
#include "desk/open/fields.h"
#include "desk/open/item_values.h"

namespace zel::desk {
namespace {

double OrNan(double value) {
  return zel::gen_IsUndefDouble(value) ? std::numeric_limits<double>::quiet_NaN() : value;
}

ItemField FieldOf(zel::IZelBankDef& bank, Field const& field) {
  ItemField result{field.name, field.label, field.unit, {}, "", ""};
  auto const count = static_cast<std::size_t>(field.count > 1 ? field.count : 1);
  if (field.type == zel::fieldReal) {
    result.values.assign(count, zel::gen_GetUndefDouble());
    bank.GetDoubleField(field.name.c_str(), result.values.data());
    for (double& value : result.values) value = OrNan(value);
  } else if (field.type == zel::fieldInteger) {
    std::vector<std::int32_t> whole(count, zel::gen_GetUndefInt());
    bank.GetIntField(field.name.c_str(), whole.data());
    for (std::int32_t const value : whole) {
      bool const isNone = zel::gen_IsUndefInt(value);
      result.values.push_back(isNone ? std::numeric_limits<double>::quiet_NaN() : value);
    }
  } else {
    Cell const cell = ValueOf(bank, field);
    if (!std::holds_alternative<std::monostate>(cell)) result.text = CellText(cell);
  }
  return result;
}

void AddNotes(Library const& library, BankName const& bank, zel::IZelBankDef& item,
              Citations& citations, ItemData& data) {
  ModelMeaning const model = MeaningIn(library, bank, item);
  data.equation = model.equation;
  for (ParameterMeaning const& parameter : model.parameters) {
    auto const field =
        std::find_if(data.fields.begin(), data.fields.end(),
                     [&](ItemField const& one) { return one.name == parameter.field; });
    field->unit = parameter.unit;
    field->meaning = parameter.meaning;
  }
  CodeCounts codes;
  AddCodes(item, codes);
  if (codes.empty()) return;
  Citation const* const citation = citations.Find(library, bank, codes.begin()->first);
  if (citation == nullptr) return;
  data.citation = citation->text;
  data.doi = citation->doi;
}

// A named value of a component.
ItemField FieldOf(NamedValue const& named) {
  ItemField field{named.name, "", named.unit, {}, "", ""};
  if (double const* const number = std::get_if<double>(&named.value)) {
    field.values = {*number};
  } else if (std::int64_t const* const whole = std::get_if<std::int64_t>(&named.value)) {
    field.values = {static_cast<double>(*whole)};
  } else if (!std::holds_alternative<std::monostate>(named.value)) {
    field.text = CellText(named.value);
  }
  return field;
}

}  // namespace

std::shared_ptr<ItemData const> DataOfItem(Library const& library, BankName const& bank,
                                           zel::IZelBankDef& item, zel::Key& key,
                                           Citations& citations) {
  auto data = std::make_shared<ItemData>();
  data->type = bank.type;
  data->source = library.Path() + ":" + ToText(bank);
  if (bank.type == kPureType) {
    PureComponent const component;  // fields of its own
    library.Maint().ReadItem(component.Def(), bank.name.c_str(), &key);
    for (NamedValue const& value : ValuesOf(component)) data->fields.push_back(FieldOf(value));
    return data;
  }
  for (Field const& field : FieldsOf(item)) data->fields.push_back(FieldOf(item, field));
  AddNotes(library, bank, item, citations, *data);
  return data;
}

}  // namespace zel::desk
