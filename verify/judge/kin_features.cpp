#include "verify/judge/kin_features.h"

#include <algorithm>
#include <cmath>

namespace zel {
namespace {

constexpr std::size_t kLargestSample = 1200;

constexpr std::array<char const*, 10> kElementNames = {"C",  "H",  "N", "O", "F",
                                                       "Cl", "Br", "I", "S", "Si"};
constexpr std::size_t kCarbon = 0, kHydrogen = 1, kNitrogen = 2, kOxygen = 3, kSilicon = 9;

constexpr std::array<std::uint32_t, 8> kFeatureConstants = {propertyMW,  propertyTC,    propertyPC,
                                                            propertyVC,  propertyNMP,   propertyNBP,
                                                            propertyTTP, propertyDIPOLE};

bool IsPlain(std::uint32_t constant) { return constant == propertyDIPOLE; }

double Squared(double x) { return x * x; }

}  // namespace

std::span<std::uint32_t const> FeatureSet::Data() const {
  auto const end = std::find(data.begin(), data.end(), kNone);
  return std::span(data).first(static_cast<std::size_t>(end - data.begin()));
}

std::string FeatureSet::Text() const {
  bool const isOfGroups =
      atoms == AtomFeatures::kStructure || atoms == AtomFeatures::kStructureSums;
  std::string text = isOfGroups ? "groups" : "atoms";
  auto const constants = Data();
  for (std::size_t i = 0; i < constants.size(); ++i) {
    text += i + 1 == constants.size() ? " and " : ", ";
    text += Datum::Constant(constants[i]).Name();
  }
  return text;
}

KinFeatures::KinFeatures(std::vector<Substance> const& substances) {
  described_.reserve(substances.size());
  std::vector<std::uint32_t> known;
  for (Substance const& substance : substances) {
    described_.push_back(Describe(substance));
    if (described_.back().all > 0.0)
      known.push_back(static_cast<std::uint32_t>(described_.size() - 1));
  }
  std::size_t const step = 1 + known.size() / (kLargestSample + 1);
  for (std::size_t i = 0; i < known.size(); i += step) sample_.push_back(known[i]);
  FindNearest();
}

KinFeatures::Described KinFeatures::Describe(Substance const& substance) {
  Described one;
  for (auto const& [element, count] : substance.Atoms()) {
    auto const at = std::find(kElementNames.begin(), kElementNames.end(), element);
    one.atoms[static_cast<std::size_t>(at - kElementNames.begin())] += static_cast<double>(count);
    one.all += static_cast<double>(count);
  }
  Atoms const& a = one.atoms;
  double const halogens = a[4] + a[5] + a[6] + a[7];
  // Rings and double bonds; the number can be negative for salts and radicals.
  double const bonds =
      (2.0 * (a[kCarbon] + a[kSilicon]) + 2.0 + a[kNitrogen] - a[kHydrogen] - halogens) / 2.0;
  one.unsaturation = std::max(-2.0, bonds);
  for (std::size_t i = 0; i < kElements; ++i) one.place[i] = std::sqrt(std::max(0.0, a[i]));
  one.place[kElements] = 0.5 * one.unsaturation;
  for (Record const* const record : substance.Records()) {
    if (one.groups || record->Smiles().empty()) continue;
    one.groups = GroupsOf(record->Smiles(), substance.Atoms());
  }
  for (std::uint32_t const constant : kFeatureConstants) {
    one.medians.push_back(substance.Median(constant));
  }
  return one;
}

double KinFeatures::Median(std::uint32_t substance, std::uint32_t constant) const {
  auto const at = std::find(kFeatureConstants.begin(), kFeatureConstants.end(), constant);
  return described_[substance].medians[static_cast<std::size_t>(at - kFeatureConstants.begin())];
}

void KinFeatures::FindNearest() {
  std::vector<Near> all;
  for (std::uint32_t i = 0; i < described_.size(); ++i) {
    Described& one = described_[i];
    if (one.all <= 0.0) continue;
    all.clear();
    for (std::uint32_t const j : sample_) {
      if (j == i) continue;
      double distance = 0.0;
      for (std::size_t k = 0; k < one.place.size(); ++k) {
        distance += Squared(one.place[k] - described_[j].place[k]);
      }
      all.push_back({j, distance});
    }
    std::size_t const count = std::min(kNearest, all.size());
    auto const end = all.begin() + static_cast<std::ptrdiff_t>(count);
    std::partial_sort(all.begin(), end, all.end(), [](Near const& x, Near const& y) {
      return x.distance != y.distance ? x.distance < y.distance : x.substance < y.substance;
    });
    one.nearest.assign(all.begin(), end);
  }
}

std::size_t KinFeatures::CountOf(FeatureSet const& set) {
  constexpr std::size_t kKindCount = 2 + kElements + 3;
  constexpr std::size_t kSumCount = kElements + 1;
  std::size_t const data = set.Data().size();
  switch (set.atoms) {
    case AtomFeatures::kSize: return data + 6;
    case AtomFeatures::kKind: return data + kKindCount;
    case AtomFeatures::kSums: return data + kSumCount;
    case AtomFeatures::kStructure: return data + 4 + 2 + kStructureGroups;
    case AtomFeatures::kStructureSums: return data + 3 + kStructureGroups;
    case AtomFeatures::kKindAndSums: break;
  }
  return data + kKindCount + kSumCount;
}

bool KinFeatures::Append(std::uint32_t substance, FeatureSet const& set,
                         std::vector<double>& row) const {
  Described const& one = described_[substance];
  bool const isOfGroups =
      set.atoms == AtomFeatures::kStructure || set.atoms == AtomFeatures::kStructureSums;
  if (one.all <= 0.0 || (isOfGroups && !one.groups)) return false;
  std::array<double, FeatureSet::kMostData> data{};
  std::size_t known = 0;
  for (std::uint32_t const constant : set.Data()) {
    double const value = Median(substance, constant);
    if (!IsDefined(value) || (!IsPlain(constant) && value <= 0.0)) return false;
    data[known++] = IsPlain(constant) ? value : std::log(value);
  }
  Atoms const& a = one.atoms;
  double const heavy = std::max(1.0, one.all - a[kHydrogen]);
  double const donors = std::min(a[kHydrogen], a[kNitrogen] + a[kOxygen]);  // hydrogen bonds
  if (set.atoms == AtomFeatures::kSize) {
    row.insert(row.end(), {std::log(one.all), std::log(heavy), a[kHydrogen] / heavy,
                           (heavy - a[kCarbon]) / heavy, one.unsaturation / heavy, 1.0 / heavy});
  }
  if (set.atoms == AtomFeatures::kKind || set.atoms == AtomFeatures::kKindAndSums) {
    row.insert(row.end(), {std::log(one.all), std::log(heavy)});
    for (double const count : a) row.push_back(count / heavy);
    row.insert(row.end(), {one.unsaturation / heavy, 1.0 / heavy, donors});
  }
  if (set.atoms == AtomFeatures::kSums || set.atoms == AtomFeatures::kKindAndSums) {
    row.insert(row.end(), a.begin(), a.end());
    row.push_back(one.unsaturation);
  }
  if (set.atoms == AtomFeatures::kStructure) {
    row.insert(row.end(), {std::log(one.all), std::log(heavy), 1.0 / heavy, donors,
                           a[kHydrogen] / heavy, a[kElements - 1] / heavy});
    for (double const count : *one.groups) row.push_back(count / heavy);
  }
  if (set.atoms == AtomFeatures::kStructureSums) {
    row.insert(row.end(), {one.all, a[kHydrogen], a[kElements - 1]});
    row.insert(row.end(), one.groups->begin(), one.groups->end());
  }
  row.insert(row.end(), data.begin(), data.begin() + static_cast<std::ptrdiff_t>(known));
  return true;
}

}  // namespace zel
