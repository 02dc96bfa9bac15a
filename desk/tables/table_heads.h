// The heads of tables that can be imported.
#pragma once

#include <string>
#include <vector>

namespace zel::desk {

// The heads that name part `part`, from 0, of the key of an item with `parts` parts; the one that
// exports write is the first.
std::vector<std::string> HeadsOfKey(std::size_t part, std::size_t parts);

// What the tables of a bank type hold. Only pure components have more than one kind.
enum class TableKind { kItems, kCorrelations, kGroups };
// "constants", "correlations" or "groups"; kItems for an empty word. Throws WrongUsage for another
// word, and for one of the last two with a type that is not of pure components.
TableKind TableKindNamed(std::string const& word, std::string const& type);

// A head, the internal unit of its values, and what they mean.
struct TableHead {
  std::string name;
  std::string unit;
  std::string meaning;
};
// All heads of a table of this type. Throws Failure for a type that does not exist.
std::vector<TableHead> HeadsOf(std::string const& type, TableKind kind);
// "TC [K]"
std::string ToText(TableHead const& head);

}  // namespace zel::desk
