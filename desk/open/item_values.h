// Everything that an item holds, as named values, by which two libraries are compared.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "desk/open/fields.h"
#include "desk/open/pure_component.h"
#include "desk/words/table.h"

namespace zel::desk {

struct NamedValue {
  std::string name;
  Cell value;
  std::int64_t code = 0;    // the stored number, if the value is a word for it
  std::string unit = {};    // internal unit of a number
  bool isNoteUnit = false;  // see Field

  bool operator==(NamedValue const& o) const {
    return name == o.name && value == o.value && code == o.code;
  }
};
// Two values of the same name as they are shown side by side: a word that two codes share is shown
// with its code.
std::pair<Cell, Cell> Beside(NamedValue const& one, NamedValue const& other);
// The values of one name that differ between two items. A value that one item does not have is
// empty there.
struct DifferingValue {
  std::string name;
  Cell one;
  Cell other;
  std::string unit;  // internal unit of both; numbers in different units are texts with theirs
  bool isNoteUnit = false;
};
std::vector<DifferingValue> DifferingValues(std::vector<NamedValue> const& one,
                                            std::vector<NamedValue> const& other);
// The values of an item just read, by the fields of its type.
std::vector<NamedValue> ValuesOf(zel::IZelBankDef& item);
// The same by fields that have the units of notes.
std::vector<NamedValue> ValuesOf(zel::IZelBankDef& item, std::vector<Field> const& fields);
// The values of a pure component, without those that are missing.
std::vector<NamedValue> ValuesOf(PureComponent const& component);

}  // namespace zel::desk
