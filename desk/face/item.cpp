#include <zelaccess/Desk.h>

#include <cmath>

#include "desk/face/data.h"
#include "desk/words/letters.h"

namespace zel::desk {

std::string const& Item::Source() const { return data_->source; }

std::string const& Item::Citation() const { return data_->citation; }

std::string const& Item::Doi() const { return data_->doi; }

std::string const& Item::Equation() const { return data_->equation; }

std::vector<ItemField> const& Item::Fields() const { return data_->fields; }

ItemField const& Item::Field(std::string const& name) const {
  for (ItemField const& field : data_->fields) {
    if (UpperCase(field.name) == UpperCase(name)) return field;
  }
  std::string names;
  for (ItemField const& field : data_->fields) names += " " + field.name;
  throw UnknownWord("", "an item of " + data_->type + " has no field " + name + "; it has" + names);
}

std::optional<double> Item::Value(std::string const& field) const {
  std::vector<double> const& values = Field(field).values;
  if (values.empty() || std::isnan(values.front())) return std::nullopt;
  return values.front();
}

}  // namespace zel::desk
