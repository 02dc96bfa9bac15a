// Banks that map between component names of another system and component numbers.
#include <cstddef>
#include <iterator>
#include <tuple>
#include <utility>

#include "banks/typed_bank.h"

namespace zel {
namespace {

// --- MAPORW, OLI ---------------------------------------------------------------------------------

struct MapOrwItem {
  std::int32_t libnum;
};

constexpr FieldRow kMapOrwRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"libnum", "libnum", kInteger, 1, "", 0, 1, offsetof(MapOrwItem, libnum)},
};

constexpr auto kMapOrwArguments = std::make_tuple(&MapOrwItem::libnum);

template <typename Interface>
class MapOrwBank final : public TypedBank<MapOrwItem, Interface> {
 public:
  MapOrwBank(BankType const& type, ZelIid const& id)
      : TypedBank<MapOrwItem, Interface>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(std::int32_t* libnum) override {
    return GiveData(this->item_, kMapOrwArguments, libnum);
  }
  ZelStatus PutData(std::int32_t libnum) override {
    return TakeData(this->item_, kMapOrwArguments, libnum);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kMapOrwRows), kMapOrwRows);
    return fields;
  }
};
using MapOrw_i = MapOrwBank<IZelMapOrw>;
using Oli_i = MapOrwBank<IZelOli>;

// --- ORWMAP --------------------------------------------------------------------------------------

struct OrwMapItem {
  char name[13];
};

constexpr FieldRow kOrwMapRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"name", "name", kText, 13, "", 0, 1, offsetof(OrwMapItem, name)},
};

constexpr auto kOrwMapArguments = std::make_tuple(&OrwMapItem::name);

class OrwMap_i final : public TypedBank<OrwMapItem, IZelOrwMap> {
 public:
  OrwMap_i(BankType const& type, ZelIid const& id)
      : TypedBank<OrwMapItem, IZelOrwMap>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(char* name) override { return GiveData(this->item_, kOrwMapArguments, name); }
  ZelStatus PutData(char const* name) override {
    return TakeData(this->item_, kOrwMapArguments, name);
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields(1, std::size(kOrwMapRows), kOrwMapRows);
    return fields;
  }
};

}  // namespace

IZelBankDef* NewMapOrw() { return MakeBank<MapOrw_i>("MAPORW", IID_IZelMapOrw); }
IZelBankDef* NewOli() { return MakeBank<Oli_i>("OLI", IID_IZelOli); }
IZelBankDef* NewOrwMap() { return MakeBank<OrwMap_i>("ORWMAP", IID_IZelOrwMap); }

}  // namespace zel
