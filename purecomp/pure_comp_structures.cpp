// Group structures of a pure component under the seven models.
#include <algorithm>
#include <array>
#include <span>

#include "purecomp/group_conversion.h"
#include "purecomp/pure_comp.h"

namespace zel {
namespace {

// What is returned for a model without its own structure.
enum class Fallback : std::uint8_t { kNone, kConverted, kAsTheyAre };

struct Model {
  Fallback fallback;  // to the legacy structure
  std::span<GroupPair const> groups;
};

// By model number, like the keywords.
// clang-format off
constexpr std::array<Model, kModels> kModelRows = {{
    {Fallback::kNone,      {}},
    {Fallback::kConverted, kOriginalGroups},
    {Fallback::kConverted, kOriginalGroups},
    {Fallback::kConverted, kDortmundPublicGroups},
    {Fallback::kConverted, kDortmundConsortiumGroups},
    {Fallback::kAsTheyAre, {}},
    {Fallback::kNone,      {}},
}};
// clang-format on

// False when the table does not have the group.
bool Convert(std::span<GroupPair const> groups, std::int32_t& id) noexcept {
  auto const found = std::find_if(groups.begin(), groups.end(),
                                  [&](GroupPair const& pair) { return pair.legacy == id; });
  if (found == groups.end()) return false;
  id = found->group;
  return true;
}

}  // namespace

ZelStatus PureComp_i::GetRawStructure(std::uint32_t model, std::int32_t* count, std::int32_t* ids,
                                      std::int32_t* counts) {
  if (model >= c_.structures.size()) return kStatusFailed;
  if (NothingWanted(count, ids, counts)) return kStatusFailed;
  Structure const& own = c_.structures[model];
  Give(count, own.count);
  if (ids != nullptr) std::copy(own.groupIds.begin(), own.groupIds.end(), ids);
  if (counts != nullptr) std::copy(own.groupCounts.begin(), own.groupCounts.end(), counts);
  return own.count == 0 ? kStatusFailed : kStatusOk;
}

ZelStatus PureComp_i::GetStructure(std::uint32_t model, std::int32_t* count, std::int32_t* ids,
                                   std::int32_t* counts) {
  if (model >= kModelRows.size() || NothingWanted(count, ids, counts)) return kStatusFailed;
  std::int32_t unwantedCount = 0;
  std::array<std::int32_t, kGroups> unwantedIds{};
  if (count == nullptr) count = &unwantedCount;
  if (ids == nullptr) ids = unwantedIds.data();
  if (GetRawStructure(model, count, ids, counts) == kStatusOk) return kStatusOk;
  Model const& row = kModelRows[model];
  if (row.fallback == Fallback::kNone) return kStatusFailed;
  if (GetLegacyStructure(count, ids, counts) != kStatusOk) return kStatusFailed;
  if (row.fallback == Fallback::kAsTheyAre) return kStatusOk;
  for (std::int32_t i = 0; i < *count; ++i) {
    if (Convert(row.groups, ids[i])) continue;
    *count = 0;
    return kStatusFailed;
  }
  return kStatusOk;
}

ZelStatus PureComp_i::GetLegacyStructure(std::int32_t* count, std::int32_t* ids,
                                         std::int32_t* counts) {
  return GetRawStructure(0, count, ids, counts);
}

ZelStatus PureComp_i::SetStructure(std::uint32_t model, std::int32_t count, std::int32_t const* ids,
                                   std::int32_t const* counts) {
  if (model >= c_.structures.size()) return kStatusFailed;
  if (count > 0 && (ids == nullptr || counts == nullptr)) return kStatusFailed;
  Structure& own = c_.structures[model];
  own = {};
  own.count = std::clamp(count, 0, kGroups);
  std::copy_n(ids, own.count, own.groupIds.begin());
  std::copy_n(counts, own.count, own.groupCounts.begin());
  return kStatusOk;
}

ZelStatus PureComp_i::SetLegacyStructure(std::int32_t count, std::int32_t const* ids,
                                         std::int32_t const* counts) {
  return SetStructure(0, count, ids, counts);
}

}  // namespace zel
