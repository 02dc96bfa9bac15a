// Structures under the seven models, and the conversion from the legacy one.
#include <algorithm>

#include "purecomp/group_conversion.h"
#include "tests/purecomp/record_fixture.h"

namespace zel {
namespace {

using test::ComponentBank;

struct Given {
  ZelStatus status;
  std::int32_t count = 55;
  std::int32_t ids[10] = {-1};
  std::int32_t counts[10] = {-1};
};

Given Structure(ComponentBank& bank, std::uint32_t model) {
  Given given{};
  given.status = bank->GetStructure(model, &given.count, given.ids, given.counts);
  return given;
}

void SetLegacy(ComponentBank& bank, std::int32_t id) {
  std::int32_t const ids[] = {900, id};
  std::int32_t const counts[] = {2, 1};
  bank->SetLegacyStructure(2, ids, counts);
}

TEST(Structures, OwnStructureIsGivenAsItIs) {
  ComponentBank bank;
  SetLegacy(bank, 901);
  std::int32_t const ids[] = {77};
  std::int32_t const counts[] = {4};
  for (std::uint32_t model = 1; model < 7; ++model) {
    bank->SetStructure(model, 1, ids, counts);
    Given const given = Structure(bank, model);
    EXPECT_EQ(given.status, kStatusOk);
    EXPECT_EQ(given.count, 1);
    EXPECT_EQ(given.ids[0], 77);
    EXPECT_EQ(given.counts[0], 4);
  }
}

TEST(Structures, LegacyGroupsAreConvertedByTheTableOfTheModel) {
  struct Case {
    std::uint32_t model;
    std::int32_t legacy, group;
  };
  // Groups that differ between the tables.
  for (Case const& c : {Case{1, 1722, 37}, Case{2, 1722, 37}, Case{3, 1723, 37}, Case{4, 702, 129},
                        Case{4, 2941, 143}, Case{1, 2941, 93}, Case{3, 611, 27}, Case{1, 122, 114},
                        Case{4, 122, 90}, Case{5, 4711, 4711}}) {
    ComponentBank bank;
    SetLegacy(bank, c.legacy);
    Given const given = Structure(bank, c.model);
    EXPECT_EQ(given.status, kStatusOk) << c.model << " " << c.legacy;
    EXPECT_EQ(given.count, 2);
    EXPECT_EQ(given.ids[0], c.model == 5 ? 900 : 1);
    EXPECT_EQ(given.ids[1], c.group);
    EXPECT_EQ(given.counts[0], 2);
    EXPECT_EQ(given.counts[1], 1);
    std::int32_t count, ids[10], counts[10];
    EXPECT_EQ(bank->GetRawStructure(c.model, &count, ids, counts), kStatusFailed);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(ids[0], 0) << "both arrays are cleared";
    EXPECT_EQ(counts[0], 0);
  }
}

TEST(Structures, GroupWithoutCounterpartFailsWithCountZero) {
  ComponentBank bank;
  for (std::uint32_t model = 1; model <= 4; ++model) {
    SetLegacy(bank, 4711);
    Given const given = Structure(bank, model);
    EXPECT_EQ(given.status, kStatusFailed);
    EXPECT_EQ(given.count, 0);
  }
}

TEST(Structures, JobackAndLegacyStandForThemselves) {
  ComponentBank bank;
  EXPECT_EQ(Structure(bank, 0).status, kStatusFailed);
  EXPECT_EQ(Structure(bank, 1).status, kStatusFailed);
  SetLegacy(bank, 901);
  EXPECT_EQ(Structure(bank, 0).status, kStatusOk);
  EXPECT_EQ(Structure(bank, 6).status, kStatusFailed);
}

TEST(Structures, IndicesBeyondTheModelsFail) {
  ComponentBank bank;
  SetLegacy(bank, 901);
  std::int32_t const one[] = {1};
  for (std::uint32_t model : {7U, 8U, 4294967295U}) {
    EXPECT_EQ(Structure(bank, model).status, kStatusFailed);
    EXPECT_EQ(bank->SetStructure(model, 1, one, one), kStatusFailed);
    std::int32_t count = 5, ids[10], counts[10];
    EXPECT_EQ(bank->GetRawStructure(model, &count, ids, counts), kStatusFailed);
    EXPECT_EQ(count, 5) << "nothing is changed";
  }
}

TEST(Structures, SettingZeroesTheRestAndKeepsTenAtMost) {
  ComponentBank bank;
  std::int32_t ids[30];
  std::int32_t counts[30];
  for (int i = 0; i < 30; ++i) ids[i] = counts[i] = i + 1;
  EXPECT_EQ(bank->SetStructure(4, 30, ids, counts), kStatusOk);
  std::int32_t count, gotIds[10], gotCounts[10];
  bank->GetRawStructure(4, &count, gotIds, gotCounts);
  EXPECT_EQ(count, 10);
  EXPECT_EQ(gotIds[9], 10);
  bank->SetStructure(4, 1, ids, counts);
  bank->GetRawStructure(4, &count, gotIds, gotCounts);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(gotIds[1], 0);
  EXPECT_EQ(gotCounts[9], 0);
  bank->SetStructure(4, -3, ids, counts);
  EXPECT_EQ(bank->GetRawStructure(4, &count, gotIds, gotCounts), kStatusFailed);
  EXPECT_EQ(count, 0);
}

template <std::size_t N>
std::int64_t Checksum(GroupPair const (&pairs)[N]) {
  EXPECT_TRUE(std::is_sorted(pairs, pairs + N, [](GroupPair const& a, GroupPair const& b) {
    return a.legacy < b.legacy;
  })) << "each legacy group once";
  std::int64_t sum = 0;
  for (std::size_t i = 0; i < N; ++i) {
    sum += static_cast<std::int64_t>(i + 1) * (10000 * pairs[i].legacy + pairs[i].group);
  }
  return sum;
}

// The sums weight each pair by its place: they were made from the printed tables.
TEST(Structures, ConversionTablesAreWhole) {
  EXPECT_EQ(Checksum(kOriginalGroups), 121754734492);
  EXPECT_EQ(Checksum(kDortmundPublicGroups), 66127097934);
  EXPECT_EQ(Checksum(kDortmundConsortiumGroups), 143515816426);
}

}  // namespace
}  // namespace zel
