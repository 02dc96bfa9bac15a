// What the substances of all libraries are described by, so that one can be foretold from others.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "verify/judge/structure_groups.h"
#include "verify/judge/substance.h"

namespace zel {

// How a regression sees the atoms of a formula.
enum class AtomFeatures : std::uint8_t {
  kSize,  // size, and the shares of hydrogen, hetero atoms and unsaturation
  kKind,  // size, and the share of each element: for data that grow with a power of the size
  kSums,  // the atoms of each element: for data that are sums over atoms and bonds
  kKindAndSums,
  kStructure,      // size, and the share of each group of the structure
  kStructureSums,  // the groups of the structure
};

// The features of a regression.
struct FeatureSet {
  static constexpr std::size_t kMostData = 4;
  static constexpr std::uint32_t kNone = ~0U;

  AtomFeatures atoms;
  // Constants, as the medians of a substance's records; their logarithms, except the dipole moment.
  std::array<std::uint32_t, kMostData> data{kNone, kNone, kNone, kNone};
  bool isSpare = false;

  constexpr FeatureSet(AtomFeatures which) : atoms(which) {}
  template <typename... Constant>
  constexpr FeatureSet(AtomFeatures which, Constant... constants)
      : atoms(which), data{kNone, kNone, kNone, kNone} {
    std::size_t i = 0;
    ((data[i++] = constants), ...);
  }
  // A set for libraries that lack the data of the others.
  constexpr FeatureSet AsSpare() const {
    FeatureSet spare = *this;
    spare.isSpare = true;
    return spare;
  }
  std::span<std::uint32_t const> Data() const;
  // "atoms, TC and NBP", "groups, TC and NBP"
  std::string Text() const;
};

class KinFeatures {
 public:
  struct Near {
    std::uint32_t substance;
    double distance;  // squared
  };
  static constexpr std::size_t kNearest = 40;

  explicit KinFeatures(std::vector<Substance> const& substances);

  std::size_t Count() const { return described_.size(); }
  // The substances that regressions are fitted to: all, or an even sample of very many.
  std::vector<std::uint32_t> const& Sample() const { return sample_; }
  // Numbers in a row of the features.
  static std::size_t CountOf(FeatureSet const& set);
  // Appends a row; false, and nothing is appended, if the substance lacks some.
  bool Append(std::uint32_t substance, FeatureSet const& set, std::vector<double>& row) const;
  // Those of the sample that are most like the substance, the nearest first, without itself.
  std::span<Near const> NearestOf(std::uint32_t substance) const {
    return described_[substance].nearest;
  }
  // The median of a constant; undefined if no record has it.
  double Median(std::uint32_t substance, std::uint32_t constant) const;

 private:
  static constexpr std::size_t kElements = 11;  // ten elements, and all others together
  using Atoms = std::array<double, kElements>;

  struct Described {
    Atoms atoms{};
    double all = 0.0;  // atoms; 0 without a formula
    double unsaturation = 0.0;
    std::array<double, kElements + 1> place{};  // similar substances have near places
    std::optional<GroupCounts> groups;          // empty without a structure
    std::vector<double> medians;                // in the order of kFeatureConstants
    std::vector<Near> nearest;
  };

  static Described Describe(Substance const& substance);
  void FindNearest();

  std::vector<Described> described_;
  std::vector<std::uint32_t> sample_;
};

}  // namespace zel
