// The data of the objects that hosts see.
#pragma once

#include <zelaccess/Desk.h>

#include <chrono>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "desk/notes/citations.h"
#include "desk/notes/merged_citations.h"
#include "desk/open/component_numbers.h"
#include "desk/open/names_library.h"
#include "desk/open/preference_list.h"
#include "desk/open/pure_component.h"
#include "desk/open/session.h"

namespace zel::desk {

// How long an open waits.
std::chrono::milliseconds PatienceOf(double seconds);

struct ComponentData {
  mutable std::mutex lock;  // of the component
  std::string word;         // by which it was asked for
  PureComponent component;
  MergedCitations citations;
};

struct ItemData {
  std::string type;
  std::string source;
  std::vector<ItemField> fields;
  std::string citation;
  std::string doi;
  std::string equation;
};

struct LibrariesData {
  LibrariesData(std::vector<std::string> const& libraries, LibrariesOptions const& options);

  Session session;
  PreferenceList list;
  Citations citations;
  // The results by the words of PreferenceList::Lookup. They stay valid, since libraries that are
  // open for reading do not change.
  std::map<std::string, ComponentNumbers> numbers;
};

}  // namespace zel::desk
