#include "verify/judge/substance.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>

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

// The names by which a component without a CAS number is recognised: its number, then its IDs.
std::vector<std::string> NamesOf(ZelIdentity const& identity) {
  std::vector<std::string> names;
  if (identity.number != 0) names.push_back("#" + std::to_string(identity.number));
  for (char const* const id : identity.ids) {
    if (*id != '\0') names.emplace_back(id);
  }
  return names;
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
  std::map<std::int32_t, std::size_t> byCas;
  std::map<std::string, std::vector<std::size_t>, std::less<>> byName;
  auto const add = [&](std::size_t place, Record const& record) {
    if (place == substances.size()) substances.emplace_back();
    substances[place].Add(record);
    for (std::string const& name : NamesOf(record.Identity())) {
      auto& places = byName[name];
      if (std::find(places.begin(), places.end(), place) == places.end()) places.push_back(place);
    }
  };
  for (Record const& record : records) {
    std::int32_t const cas = record.Identity().casNumber;
    if (cas != 0) add(byCas.emplace(cas, substances.size()).first->second, record);
  }
  for (Record const& record : records) {
    ZelIdentity const& identity = record.Identity();
    if (identity.casNumber != 0) continue;
    std::optional<std::size_t> known;
    for (std::string const& name : NamesOf(identity)) {
      for (std::size_t const place : byName[name]) {
        ZelIdentity const& other = substances[place].Records().front()->Identity();
        if (!known && CompareIdentities(other, identity) == identityAgrees) known = place;
      }
    }
    add(known.value_or(substances.size()), record);
  }
  return substances;
}

}  // namespace zel
