// Equation forms for viscosities of gases, and the implicit form in two coefficient sets.
#pragma once

#include <cmath>

#include "purecomp/equation_symbols.h"
#include "purecomp/forms_exponential.h"

namespace zel::forms {

inline constexpr double kChapmanEnskog = 2.669e-06;

// Collision integral of the Lennard-Jones potential, with a term in 1/u for the dipole. The leading
// factor is 1.1645 in these forms, where the published correlation has 1.16145.
template <typename U, typename D>
Wider<U, D> CollisionIntegral(U const& u, D const& dipole) {
  return 1.1645 * PowConst(u, -0.14874) + 0.52487 * Exp(-0.7732 * u) + 2.16178 * Exp(-2.43787 * u) +
         0.2 * dipole / u;
}

template <typename S>
typename S::Result Eq26(S const& s) {
  typename S::Value const u = s.T / s.c(3);
  typename S::Value const dipole = s.c(4) * s.c(4);
  auto const W = CollisionIntegral(u, dipole);
  return kChapmanEnskog * Sqrt(typename S::Value(s.c(1) * s.T)) / (s.c(2) * s.c(2) * W);
}

template <typename S>
typename S::Result Eq126(S const& s) {
  typename S::Value const u = s.T / s.c(2);
  typename S::Value const dipole = s.c(3);
  return kChapmanEnskog * s.c(1) * SignedSqrt(s.T) / CollisionIntegral(u, dipole);
}

}  // namespace zel::forms
