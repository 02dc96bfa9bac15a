// Descriptions and pure parameters of groups, and the groups of a component.
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <tuple>
#include <utility>

#include "banks/typed_bank.h"

namespace zel {
namespace {

// --- GRPDESC -------------------------------------------------------------------------------------

struct GroupDesItem {
  char name[21];
  char formula[21];
  char image[21];
};

constexpr FieldRow kGroupDesRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"name", "NAME", kText, 21, "", 0, 1, offsetof(GroupDesItem, name)},
    {"formula", "FORMULA", kText, 21, "", 20, 1, offsetof(GroupDesItem, formula)},
    {"image", "IMAGE", kText, 21, "", 40, 1, offsetof(GroupDesItem, image)},
};

constexpr auto kGroupDesArguments =
    std::make_tuple(&GroupDesItem::name, &GroupDesItem::formula, &GroupDesItem::image);

class GroupDes_i final : public TypedBank<GroupDesItem, IZelGroupDes> {
 public:
  GroupDes_i(BankType const& type, ZelIid const& id)
      : TypedBank<GroupDesItem, IZelGroupDes>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(char* name, char* formula, char* image) override {
    return GiveData(this->item_, kGroupDesArguments, name, formula, image);
  }
  ZelStatus PutData(char const* name, char const* formula, char const* image) override {
    return TakeData(this->item_, kGroupDesArguments, name, formula, image);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kGroupDesRows), kGroupDesRows);
    return fields;
  }
};

// --- UNFPURE, UNF2PUR ----------------------------------------------------------------------------

struct UnfPureItem {
  std::int32_t mainGroup;
  double area;
  double volume;
};

constexpr FieldRow kUnfPureRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"mainGroup", "Main group number", kInteger, 1, "", 0, 1, offsetof(UnfPureItem, mainGroup)},
    {"area", "Area", kReal, 1, "area", 4, 1, offsetof(UnfPureItem, area)},
    {"volume", "Volume", kReal, 1, "vol", 8, 1, offsetof(UnfPureItem, volume)},
};

constexpr auto kUnfPureArguments =
    std::make_tuple(&UnfPureItem::mainGroup, &UnfPureItem::area, &UnfPureItem::volume);

template <typename Interface>
class UnfPureBank final : public TypedBank<UnfPureItem, Interface> {
 public:
  UnfPureBank(BankType const& type, ZelIid const& id)
      : TypedBank<UnfPureItem, Interface>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(std::int32_t* mainGroup, double* area, double* volume) override {
    return GiveData(this->item_, kUnfPureArguments, mainGroup, area, volume);
  }
  ZelStatus PutData(std::int32_t mainGroup, double area, double volume) override {
    return TakeData(this->item_, kUnfPureArguments, mainGroup, area, volume);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kUnfPureRows), kUnfPureRows);
    return fields;
  }
};
using UnfPure_i = UnfPureBank<IZelUnfPure>;
using Unf2Pure_i = UnfPureBank<IZelUnf2Pure>;

// --- STRUCT --------------------------------------------------------------------------------------

struct StructItem {
  std::int32_t count;
  std::int32_t groupNumber[10];
  std::int32_t groupCount[10];
};

constexpr FieldRow kStructRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"count", "number of groups", kInteger, 1, "", 0, 1, offsetof(StructItem, count)},
    {"groupNumber", "group numbers", kInteger, 10, "", 4, 1, offsetof(StructItem, groupNumber)},
    {"groupCount", "repeat counts", kInteger, 10, "", 44, 1, offsetof(StructItem, groupCount)},
};

constexpr std::int32_t kStructGroups = 10;

// A component's groups. Entries behind the count come out, and go in, as 0; a stored count can be
// anything, and at most ten entries are copied.
class Struct_i final : public TypedBank<StructItem, IZelStruct> {
 public:
  Struct_i(BankType const& type, ZelIid const& id)
      : TypedBank<StructItem, IZelStruct>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(std::int32_t* count, std::int32_t* groupNumber,
                    std::int32_t* groupCount) override {
    *count = item_.count;
    CopyEntries(item_.count, item_.groupNumber, groupNumber);
    CopyEntries(item_.count, item_.groupCount, groupCount);
    return kStatusOk;
  }
  ZelStatus PutData(std::int32_t count, std::int32_t const* groupNumber,
                    std::int32_t const* groupCount) override {
    item_.count = count;
    CopyEntries(count, groupNumber, item_.groupNumber);
    CopyEntries(count, groupCount, item_.groupCount);
    return kStatusOk;
  }

 private:
  static void CopyEntries(std::int32_t count, std::int32_t const* from, std::int32_t* to) {
    std::int32_t const used = std::clamp(count, 0, kStructGroups);
    std::copy_n(from, used, to);
    std::fill(to + used, to + kStructGroups, 0);
  }
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kStructRows), kStructRows);
    return fields;
  }
};

}  // namespace

IZelBankDef* NewGroupDes() { return MakeBank<GroupDes_i>("GRPDESC", IID_IZelGroupDes); }
IZelBankDef* NewStruct() { return MakeBank<Struct_i>("STRUCT", IID_IZelStruct); }
IZelBankDef* NewUnfPure() { return MakeBank<UnfPure_i>("UNFPURE", IID_IZelUnfPure); }
IZelBankDef* NewUnf2Pure() { return MakeBank<Unf2Pure_i>("UNF2PUR", IID_IZelUnf2Pure); }

}  // namespace zel
