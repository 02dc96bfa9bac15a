#include "verify/judge/substance.h"

#include <algorithm>
#include <map>

namespace zel {
namespace {

template <typename Value>
std::vector<std::pair<double, Record const*>> Sorted(std::vector<Record const*> const& records,
                                                     Value const& valueOf) {
  std::vector<std::pair<double, Record const*>> values;
  for (Record const* const record : records) {
    double const value = valueOf(*record);
    if (IsDefined(value)) values.emplace_back(value, record);
  }
  std::stable_sort(values.begin(), values.end(),
                   [](auto const& a, auto const& b) { return a.first < b.first; });
  return values;
}

}  // namespace

Record const* Substance::MedianRecord(std::uint32_t constant) const {
  auto const values = Sorted(records_, [=](Record const& r) { return r.Constant(constant); });
  return values.empty() ? nullptr : values[(values.size() - 1) / 2].second;
}

double Substance::Median(std::uint32_t constant) const {
  auto const values = Sorted(records_, [=](Record const& r) { return r.Constant(constant); });
  if (values.empty()) return gen_GetUndefDouble();
  std::size_t const upper = values.size() / 2;
  return values.size() % 2 == 1 ? values[upper].first
                                : (values[upper - 1].first + values[upper].first) / 2;
}

Record const* Substance::RecordAt(std::uint32_t curve, double kelvin) const {
  auto const values = Sorted(records_, [=](Record const& r) { return r.At(curve, kelvin); });
  return values.empty() ? nullptr : values[(values.size() - 1) / 2].second;
}

Composition const& Substance::Atoms() const {
  static Composition const none;
  for (Record const* const record : records_) {
    if (!record->Atoms().empty()) return record->Atoms();
  }
  return none;
}

std::vector<Substance> SubstancesOf(std::deque<Record> const& records) {
  std::vector<Substance> substances;
  std::map<std::int32_t, std::vector<std::size_t>> byCas;
  std::map<std::int32_t, std::vector<std::size_t>> byNumber;
  std::vector<Record const*> withoutCas;
  for (Record const& record : records) {
    ZelIdentity const& identity = record.Identity();
    if (identity.casNumber == 0) {
      withoutCas.push_back(&record);
      continue;
    }
    auto& known = byCas[identity.casNumber];
    if (known.empty()) {
      known.push_back(substances.size());
      byNumber[identity.number].push_back(substances.size());
      substances.emplace_back();
    }
    substances[known.front()].Add(record);
  }
  for (Record const* const record : withoutCas) {
    ZelIdentity const& identity = record->Identity();
    auto& known = byNumber[identity.number];
    auto const at = std::find_if(known.begin(), known.end(), [&](std::size_t place) {
      return CompareIdentities(substances[place].Records().front()->Identity(), identity) ==
             identityAgrees;
    });
    bool const isKnown = identity.number != 0 && at != known.end();
    std::size_t const place = isKnown ? *at : substances.size();
    if (!isKnown) {
      known.push_back(place);
      substances.emplace_back();
    }
    substances[place].Add(*record);
  }
  return substances;
}

}  // namespace zel
