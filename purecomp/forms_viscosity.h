// Equation forms for viscosities of gases. W in their formulas is the collision integral.
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

// Equation 26, Chapman-Enskog: 2.669e-6 sqrt(C1 T)/(C2^2 W(T/C3, C4^2)).
// Units: C1, the molecular weight, kg/kg-mol, C2, the collision diameter, 1e-10 m, C3, the energy
// parameter over the Boltzmann constant, K, C4, the polar parameter, no unit; the value is in Pa s.
template <typename S>
typename S::Result Eq26(S const& s) {
  typename S::Value const u = s.T / s.c(3);
  typename S::Value const dipole = s.c(4) * s.c(4);
  auto const W = CollisionIntegral(u, dipole);
  return kChapmanEnskog * Sqrt(typename S::Value(s.c(1) * s.T)) / (s.c(2) * s.c(2) * W);
}

// Equation 126, Chapman-Enskog: 2.669e-6 C1 ssqrt(T)/W(T/C2, C3).
// Units: C1, the square root of the molecular weight over the square of the collision diameter, as
// in 26, C2 K, C3 no unit; the value is in Pa s.
template <typename S>
typename S::Result Eq126(S const& s) {
  typename S::Value const u = s.T / s.c(2);
  typename S::Value const dipole = s.c(3);
  return kChapmanEnskog * s.c(1) * SignedSqrt(s.T) / CollisionIntegral(u, dipole);
}

}  // namespace zel::forms
