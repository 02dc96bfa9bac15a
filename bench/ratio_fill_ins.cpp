#include <array>
#include <cmath>

#include "bench/ratio_cases.h"
#include "bench/sample_components.h"
#include "purecomp/fill_in.h"

namespace zel::bench {
namespace {

constexpr std::size_t kFillInsPerRound = 60'000;
constexpr double kFillInLimit = 3000.0;  // ns

// The elements of `completed` that these components get: ZC, acentric factor, solubility parameter,
// parachor, heats, gravity, Watson factor, a boiling point, atoms, fractions, ratio.
constexpr std::size_t kDerived[] = {4,  5,  11, 12, 34, 45, 50, 52, 53, 60,
                                    61, 62, 63, 64, 70, 71, 72, 73, 74, 80};
using Derived = std::array<double, std::size(kDerived)>;

std::uint64_t CheckOf(Derived const& values) {
  constexpr double kDigits = 1e6;
  std::int64_t sum = 0;
  for (double value : values) sum = sum * 31 + std::llround(value * kDigits);
  return static_cast<std::uint64_t>(sum);
}

// The same by the formulas alone: no formula text, no labels, the equations inline.
Derived ByHand(Component const& c, std::array<double, 5> const& atoms) {
  constexpr double kWeights[] = {12.011, 1.00794005, 14.006735, 15.9994, 32.066002};
  double const mw = c.fixed[propertyMW], tc = c.fixed[propertyTC], pc = c.fixed[propertyPC],
               vc = c.fixed[propertyVC];
  double const y = std::sqrt(std::sqrt(tc) * std::cbrt(vc * vc * vc * vc * vc));
  auto const& p = c.correlations[0].coefficients;
  auto const& h = c.correlations[3].coefficients;
  double const t = 0.7 * tc;
  double const pressure = std::exp(p[0] + p[1] / t + p[2] * std::log(t) + p[3] * std::pow(t, p[4]));
  double const r = 298.15 / tc;
  double const latent = h[0] * std::pow(1.0 - r, h[1] + r * (h[2] + r * (h[3] + r * h[4])));
  double const heat = -393510.016 * atoms[0] - 120907.0 * atoms[1] - 296840.0 * atoms[4] -
                      c.fixed[propertyHFORMATION];
  Derived values = {0.12027223379575203 / tc * pc * vc,
                    -std::log10(pressure / pc) - 1.0,
                    std::sqrt((latent - 2478.95952865) / c.fixed[propertyMVOL25C] / 4183.21),
                    176.05005 - 7472.807 * vc - 0.87458088 * tc +
                        y * (1560.4793 + y * (19.309439 + y * 0.05013801)) - 25.691718 / y,
                    -heat,
                    heat,
                    141.5 / c.fixed[propertySG60F] - 131.5,
                    std::cbrt(1.8 * c.fixed[propertyNBP]) / c.fixed[propertySG60F],
                    c.fixed[propertyNBP]};
  for (std::size_t i = 0; i < atoms.size(); ++i) {
    values[9 + i] = atoms[i];
    values[14 + i] = atoms[i] * kWeights[i] / mw;
  }
  values[19] = values[14] / values[15];
  return values;
}

Derived ByFillIn(Component& c) {
  CompleteComponent(c);
  Derived values;
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = c.completed[kDerived[i]];
  return values;
}

template <typename Derive>
Side FillInsOf(Components const& components, Derive derive) {
  return [&components, derive](int) {
    return TimeInMemory(kFillInsPerRound, [&] {
      std::uint64_t sum = 0;
      std::size_t at = 0;
      for (std::size_t i = 0; i < kFillInsPerRound; ++i) {
        sum += CheckOf(derive(at));
        if (++at == components.size()) at = 0;
      }
      return sum;
    });
  };
}

}  // namespace

void CompareFillIns(RatioTable& table) {
  Components const components = SampleComponents();
  std::vector<std::array<double, 5>> atoms;
  for (auto const& component : components) {
    CompleteComponent(*component);
    atoms.push_back({});
    for (std::size_t i = 0; i < 5; ++i) atoms.back()[i] = component->completed[60 + i];
  }
  auto const hand =
      FillInsOf(components, [&](std::size_t at) { return ByHand(*components[at], atoms[at]); });
  auto const own = FillInsOf(components, [&](std::size_t at) { return ByFillIn(*components[at]); });
  table.Compare({"fill-in of a component, all derived", "bare formulas", hand, own,
                 Target::Figure(kFillInLimit)});
}

}  // namespace zel::bench
