// What the objects of the face hold.
#pragma once

#include <zelaccess/Desk.h>

#include <string>
#include <vector>

#include "desk/open/names_library.h"
#include "desk/open/preference_list.h"
#include "desk/open/pure_component.h"
#include "desk/open/session.h"

namespace zel::desk {

struct ComponentData {
  std::string word;  // by which it was asked for
  PureComponent component;
};

struct ItemData {
  std::string type;
  std::string source;
  std::vector<ItemField> fields;
};

struct LibrariesData {
  LibrariesData(std::vector<std::string> const& libraries, LibrariesOptions const& options);

  Session session;
  PreferenceList list;
};

}  // namespace zel::desk
