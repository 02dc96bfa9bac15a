// The driver of the relations within a component.
#include <algorithm>
#include <set>

#include "verify/judge/reading.h"
#include "verify/judge/relation_tables.h"

namespace zel {
namespace {

bool IsBefore(Claim const& a, Claim const& b) {
  return a.record != b.record ? std::less<>()(a.record, b.record) : a.datum < b.datum;
}

std::vector<Claim> ClaimsOf(std::vector<Tension::Part> const& parts) {
  std::vector<Claim> claims;
  claims.reserve(parts.size());
  for (Tension::Part const& part : parts) claims.push_back(part.claim);
  std::sort(claims.begin(), claims.end(), IsBefore);
  return claims;
}

// Whether one of the data that matter most is the record's own. If none is, another record has the
// same comparison, but for data that hardly matter.
bool IsOwn(Record const& record, Reading const& reading, Datum about) {
  std::vector<Tension::Part> const& parts = reading.Parts();
  bool const areAllMinor = std::all_of(parts.begin(), parts.end(), [](Tension::Part const& part) {
    return part.stake == Stake::kMinor;
  });
  return std::any_of(parts.begin(), parts.end(), [&](Tension::Part const& part) {
    bool const matters = areAllMinor ? part.claim.datum == about : part.stake == Stake::kFull;
    return matters && part.claim.record == &record;
  });
}

}  // namespace

std::vector<Relation const*> const& AllRelations() {
  static std::vector<Relation const*> const all = [] {
    std::vector<Relation const*> rows;
    for (auto const& table : RelationTables()) {
      for (Relation const& row : table) rows.push_back(&row);
    }
    return rows;
  }();
  return all;
}

void AddRelations(Substance const& substance, std::vector<Tension>& tensions) {
  for (Relation const* const relation : AllRelations()) {
    std::vector<std::vector<Claim>> compared;
    for (Record const* const record : substance.Records()) {
      Reading reading(*record, substance);
      std::optional<Outcome> const outcome = relation->find(reading, relation->rule);
      if (!outcome || !IsOwn(*record, reading, outcome->about)) continue;
      std::vector<Claim> claims = ClaimsOf(reading.Parts());
      if (std::find(compared.begin(), compared.end(), claims) != compared.end()) continue;
      compared.push_back(std::move(claims));
      Tension tension;
      tension.rule = &relation->rule;
      tension.parts = reading.Parts();
      tension.about = reading.ClaimOf(outcome->about);
      tension.value = outcome->value;
      tension.expected = outcome->expected;
      tension.unit = outcome->unit != nullptr ? outcome->unit : outcome->about.Unit();
      tension.isOfRange = outcome->about.IsCurve() && tension.unit == "K";
      tension.quantity = outcome->quantity;
      tension.temperature = outcome->temperature;
      tension.deviation = outcome->deviation;
      tension.from = relation->from;
      tensions.push_back(std::move(tension));
    }
  }
}

}  // namespace zel
