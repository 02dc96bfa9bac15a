#include <algorithm>
#include <map>
#include <set>

#include "banks/catalogue.h"
#include "frame/ascii.h"
#include "verify/bank_checks.h"
#include "verify/item_fields.h"

namespace zel {
namespace {

constexpr std::int32_t kNoGroup = INT32_MAX;
constexpr char kStructureType[] = "STRUCT";
constexpr std::int32_t kGroupWords = 2;

std::string TextField(IZelBankDef& item, char const* field) {
  char text[21] = {};
  item.GetStringField(field, text);
  return text;
}

struct Group {
  std::int32_t key[kGroupWords];
  std::int32_t main = 0;
};

// The contents of a group bank.
struct GroupTable {
  std::string structure;                 // the bank with the groups of components
  std::string context;                   // the model to which the groups belong
  std::map<std::int32_t, Group> groups;  // by number
  std::set<std::int32_t> inPairs;        // main groups
};

GroupTable ReadGroups(CheckedLibrary& library, CheckedBank const& bank, IZelBankDef& item) {
  GroupTable table;
  library.Walk(bank, &item, [&](std::int32_t const* words) {
    if (words[0] == kNoGroup) {
      table.structure = TextField(item, "structure");
      table.context = TextField(item, "context");
    } else if (words[0] == words[1] || words[1] == kNoGroup) {
      Group& group = table.groups[words[0]];
      std::copy_n(words, kGroupWords, group.key);
      item.GetIntField("mainGroup", &group.main);
    } else {
      table.inPairs.insert({words[0], words[1]});
    }
  });
  return table;
}

class GroupUse {
 public:
  GroupUse(CheckedLibrary& library, CheckedBank const& bank, GroupTable const& table)
      : library_(library), bank_(bank), table_(table) {}

  void Structures() {
    CheckedBank structures(kStructureType, table_.structure);
    for (char& c : structures.name) c = ToUpper(c);
    FaceRef<IZelBankDef> const item(NewKnownBank(kStructureType));
    library_.Walk(structures, item.Get(), [&](std::int32_t const* words) {
      std::int32_t count = 0;
      std::int32_t groups[kGroups] = {};
      item->GetIntField("count", &count);
      item->GetIntField("groupNumber", groups);
      Check(structures, words[0], groups, count);
    });
  }

  void Components(CheckedBank const& components) {
    auto const model =
        std::find(kModelKeywords.begin(), kModelKeywords.end(), LowerText(table_.context));
    if (model == kModelKeywords.end()) return;
    auto const index = static_cast<std::uint32_t>(model - kModelKeywords.begin());
    ComponentView const component;
    library_.Walk(components, component.Def(), [&](std::int32_t const* words) {
      std::int32_t count = 0;
      std::int32_t groups[kGroups] = {};
      std::int32_t counts[kGroups] = {};
      if (component.Face()->GetRawStructure(index, &count, groups, counts) == kStatusOk) {
        Check(components, words[0], groups, count);
      }
    });
  }

 private:
  // Reports the groups of a component that the table does not have, as "14 15".
  void Check(CheckedBank const& where, std::int32_t component, std::int32_t const* groups,
             std::int32_t count) {
    std::string unknown;
    for (std::int32_t i = 0; i < std::min<std::int32_t>(count, kGroups); ++i) {
      if (groups[i] <= 0 || table_.groups.count(groups[i]) != 0) continue;
      unknown += (unknown.empty() ? "" : " ") + std::to_string(groups[i]);
    }
    if (unknown.empty()) return;
    library_.Findings().Tell(library_.Item(where, &component, 1, std::to_string(component)),
                             DataFinding("group-use", "groups").Text(unknown).Against(bank_.Text()),
                             "has {datum} that are not in {against}: {value}");
  }

  CheckedLibrary& library_;
  CheckedBank const& bank_;
  GroupTable const& table_;
};

}  // namespace

void CheckGroups(CheckedLibrary& library, CheckedBank const& bank) {
  FaceRef<IZelBankDef> const item(NewKnownBank(bank.type.c_str()));
  if (!item || !HasField(*item.Get(), "structure") || !HasField(*item.Get(), "mainGroup")) return;
  GroupTable const table = ReadGroups(library, bank, *item.Get());
  for (auto const& [number, group] : table.groups) {
    if (table.inPairs.count(group.main) != 0) continue;
    library.Findings().Tell(
        library.Item(bank, group.key, kGroupWords, "group " + std::to_string(number)),
        DataFinding("group-use", "mainGroup").Value(group.main),
        "its main group {value} has no interaction with another");
  }
  GroupUse use(library, bank, table);
  use.Structures();
  for (CheckedBank const& components : library.Banks(kPureComponentType))
    use.Components(components);
}

}  // namespace zel
