#include "sense/bank_sense.h"

#include <algorithm>
#include <map>
#include <set>

#include "open/fields.h"
#include "open/item_key.h"
#include "open/item_values.h"
#include "words/letters.h"

namespace zelhost {
namespace {

constexpr std::int32_t kTwoItems = 3;  // a rule of pairs: (i, j) and (j, i) are two items
constexpr std::int32_t kTurnedRound = 2;
constexpr std::int32_t kNoGroup = INT32_MAX;
constexpr char kStructureType[] = "STRUCT";

struct ReleaseIO {
  void operator()(zel::IZelBankIO* io) const { io->Release(); }
};
using BankIO = std::unique_ptr<zel::IZelBankIO, ReleaseIO>;

BankIO IOOf(zel::IZelBankDef& item) {
  void* face = nullptr;
  if (item.QueryInterface(zel::IID_IZelBankIO, &face) != zel::kStatusOk) return nullptr;
  return BankIO(static_cast<zel::IZelBankIO*>(face));
}

std::int32_t PairRule(zel::IZelBankIO& io) {
  char type[kNameSize] = {};
  std::int32_t kind = 0, words = 0, shortest = 0, formats = 0, longest = 0, rule = 0, resident = 0;
  io.GetBlockInfo(type, &kind, &words, &shortest, &formats, &longest, &rule, &resident);
  return rule;
}

std::string TextField(zel::IZelBankDef& item, char const* field) {
  char text[21] = {};
  item.GetStringField(field, text);
  return text;
}

bool HasField(zel::IZelBankDef& item, std::string const& name) {
  std::vector<Field> const fields = FieldsOf(item);
  return std::any_of(fields.begin(), fields.end(),
                     [&](Field const& field) { return field.name == name; });
}

// The contents of a group bank.
struct GroupTable {
  std::string structure;                       // the bank with the groups of components
  std::string context;                         // the model to which the groups belong
  std::map<std::int32_t, std::int32_t> mains;  // main group by group
  std::set<std::int32_t> inPairs;              // main groups
};

GroupTable ReadGroups(Library const& library, BankName const& bank, zel::IZelBankDef& item) {
  GroupTable table;
  std::int32_t words[10] = {};
  library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
  while (library.Maint().NextItem(words, &item)) {
    if (words[0] == kNoGroup) {
      table.structure = TextField(item, "structure");
      table.context = TextField(item, "context");
    } else if (words[0] == words[1] || words[1] == kNoGroup) {
      item.GetIntField("mainGroup", &table.mains[words[0]]);
    } else {
      table.inPairs.insert(words[0]);
      table.inPairs.insert(words[1]);
    }
  }
  library.Maint().EndItemWalk();
  return table;
}

// The groups of a component that the table does not have, as "14 15".
std::string Unknown(GroupTable const& table, std::int32_t const* groups, std::int32_t count) {
  std::string text;
  for (std::int32_t i = 0; i < std::min(count, 10); ++i) {
    if (groups[i] <= 0 || table.mains.count(groups[i]) != 0) continue;
    text += (text.empty() ? "" : " ") + std::to_string(groups[i]);
  }
  return text;
}

class GroupUse {
 public:
  GroupUse(Library const& library, BankName const& bank, GroupTable const& table,
           TellSense const& tell)
      : library_(library), bank_(bank), table_(table), tell_(tell) {}

  void Structures() {
    BankName const structures{kStructureType, UpperCase(table_.structure)};
    zel::Handle<zel::IZelBankDef> const item = BankOfType(structures.type);
    std::int32_t words[10] = {};
    if (!library_.Maint().BeginItemWalk(structures.type.c_str(), structures.name.c_str())) return;
    while (library_.Maint().NextItem(words, item.get())) {
      std::int32_t count = 0;
      std::int32_t groups[10] = {};
      item->GetIntField("count", &count);
      item->GetIntField("groupNumber", groups);
      Tell(structures, words[0], Unknown(table_, groups, count));
    }
    library_.Maint().EndItemWalk();
  }

  void Components(BankName const& components) {
    auto const& models = StructureModels();
    auto const model = std::find(models.begin(), models.end(), LowerCase(table_.context));
    if (model == models.end()) return;
    PureComponent component;
    std::int32_t words[10] = {};
    library_.Maint().BeginItemWalk(components.type.c_str(), components.name.c_str());
    while (library_.Maint().NextItem(words, component.Def())) {
      std::int32_t count = 0;
      std::int32_t groups[10] = {};
      std::int32_t counts[10] = {};
      auto const index = static_cast<std::uint32_t>(model - models.begin());
      if (component->GetRawStructure(index, &count, groups, counts) != zel::kStatusOk) continue;
      Tell(components, words[0], Unknown(table_, groups, count));
    }
    library_.Maint().EndItemWalk();
  }

 private:
  void Tell(BankName const& where, std::int32_t component, std::string const& unknown) const {
    if (unknown.empty()) return;
    tell_("group-use", ToText(where) + " " + std::to_string(component),
          "has groups that are not in " + ToText(bank_) + ": " + unknown);
  }

  Library const& library_;
  BankName const& bank_;
  GroupTable const& table_;
  TellSense const& tell_;
};

}  // namespace

void CheckPairSense(Library const& library, BankName const& bank, TellSense const& tell) {
  zel::Handle<zel::IZelBankDef> const item = BankOrNone(bank.type);
  if (!item) return;  // of a type that this program does not know
  BankFacts const facts(*item);
  BankIO const io = IOOf(*item);
  if (facts.keyKind != 0 || facts.keyWords != 2 || !io || PairRule(*io) == kTwoItems) return;
  bool const turns = PairRule(*io) == kTurnedRound;
  // Values of the pairs in descending order, converted to ascending order.
  std::map<std::pair<std::int32_t, std::int32_t>, std::vector<NamedValue>> falling;
  auto const forEach = [&](auto const& see) {
    std::int32_t words[10] = {};
    library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (library.Maint().NextItem(words, item.get())) see(words[0], words[1]);
    library.Maint().EndItemWalk();
  };
  forEach([&](std::int32_t first, std::int32_t second) {
    if (first <= second) return;
    if (turns) io->SwapPair();
    falling[{second, first}] = ValuesOf(*item);
  });
  if (falling.empty()) return;
  forEach([&](std::int32_t first, std::int32_t second) {
    auto const other = falling.find({first, second});
    if (other == falling.end()) return;
    std::vector<NamedValue> const values = ValuesOf(*item);
    for (std::size_t i = 0; i < std::min(values.size(), other->second.size()); ++i) {
      if (values[i].value == other->second[i].value) continue;
      tell("pair-twice",
           ToText(bank) + " " + std::to_string(first) + " + " + std::to_string(second),
           "is stored in both orders; " + values[i].name + " is " + CellText(values[i].value) +
               " in one and " + CellText(other->second[i].value) + " in the other");
    }
  });
}

void CheckGroupSense(Library const& library, BankName const& bank, TellSense const& tell) {
  zel::Handle<zel::IZelBankDef> const item = BankOrNone(bank.type);
  if (!item || !HasField(*item, "structure") || !HasField(*item, "mainGroup")) return;
  GroupTable const table = ReadGroups(library, bank, *item);
  for (auto const& [group, main] : table.mains) {
    if (table.inPairs.count(main) != 0) continue;
    tell("group-use", ToText(bank) + " group " + std::to_string(group),
         "its main group " + std::to_string(main) + " has no interaction with another");
  }
  GroupUse use(library, bank, table, tell);
  use.Structures();
  for (BankName const& components : library.Banks(kPureType)) use.Components(components);
}

}  // namespace zelhost
