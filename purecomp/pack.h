// Several doubles that are computed together, with the vector instructions of the processor.
//
// A form whose temperature is a Jet of packs yields the values and slopes at several temperatures.
// Where a form or a function would branch, packs select. A lane that a function cannot do becomes
// NaN, and is then evaluated by itself: negative, zero and subnormal arguments of powers, and
// results near the ends of the range of doubles.
//
// Sources that are compiled for other processors include this (pack_loop.h). Everything here is
// local to such a source, and so is everything that is made from it: code for one kind of processor
// cannot get into other sources by way of shared templates.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>

#include "purecomp/equation_symbols.h"
#include "purecomp/jet.h"

#define ZEL_PACK_INLINE [[gnu::always_inline]] inline

namespace zel {
namespace {  // NOLINT(google-build-namespaces): see above

template <int W>
struct Pack {
  using Lanes [[gnu::vector_size(W * sizeof(double))]] = double;
  using Bits [[gnu::vector_size(W * sizeof(double))]] = std::int64_t;

  Lanes v;

  ZEL_PACK_INLINE Pack() noexcept : v{} {}
  ZEL_PACK_INLINE Pack(Pack const& o) noexcept : v(o.v) {}
  ZEL_PACK_INLINE Pack(double x) noexcept
      : v(x - Lanes{}) {}  // NOLINT(google-explicit-constructor)
  ZEL_PACK_INLINE Pack& operator=(Pack const& o) noexcept {
    v = o.v;
    return *this;
  }
  ZEL_PACK_INLINE Pack& operator+=(Pack const& o) noexcept {
    v += o.v;
    return *this;
  }
  ZEL_PACK_INLINE Pack& operator-=(Pack const& o) noexcept {
    v -= o.v;
    return *this;
  }
  ZEL_PACK_INLINE Pack& operator*=(Pack const& o) noexcept {
    v *= o.v;
    return *this;
  }
  ZEL_PACK_INLINE friend Pack operator+(Pack a, Pack const& b) noexcept { return a += b; }
  ZEL_PACK_INLINE friend Pack operator-(Pack a, Pack const& b) noexcept { return a -= b; }
  ZEL_PACK_INLINE friend Pack operator*(Pack a, Pack const& b) noexcept { return a *= b; }
  ZEL_PACK_INLINE friend Pack operator/(Pack a, Pack const& b) noexcept {
    a.v /= b.v;
    return a;
  }
  ZEL_PACK_INLINE friend Pack operator-(Pack a) noexcept {
    a.v = -a.v;
    return a;
  }

  ZEL_PACK_INLINE static Pack Load(double const* from) noexcept {
    Pack p;
    std::memcpy(&p.v, from, sizeof p.v);
    return p;
  }
  ZEL_PACK_INLINE void Store(double* to) const noexcept { std::memcpy(to, &v, sizeof v); }
};

// All bits of a lane, or none.
template <int W>
struct Mask {
  typename Pack<W>::Bits m;

  ZEL_PACK_INLINE explicit Mask(typename Pack<W>::Bits const& bits) noexcept : m(bits) {}
  ZEL_PACK_INLINE Mask(Mask const& o) noexcept : m(o.m) {}
  ZEL_PACK_INLINE Mask& operator=(Mask const& o) noexcept {
    m = o.m;
    return *this;
  }
  ZEL_PACK_INLINE friend Mask operator&(Mask const& a, Mask const& b) noexcept {
    return Mask(a.m & b.m);
  }
};

template <int W>
ZEL_PACK_INLINE Mask<W> operator<(Pack<W> const& a, Pack<W> const& b) noexcept {
  return Mask<W>(a.v < b.v);
}
template <int W>
ZEL_PACK_INLINE Mask<W> operator<(Pack<W> const& a, double b) noexcept {
  return a < Pack<W>(b);
}
template <int W>
ZEL_PACK_INLINE Mask<W> operator<=(Pack<W> const& a, double b) noexcept {
  return Mask<W>(a.v <= Pack<W>(b).v);
}
template <int W>
ZEL_PACK_INLINE Mask<W> operator>(Pack<W> const& a, double b) noexcept {
  return Mask<W>(a.v > Pack<W>(b).v);
}
template <int W>
ZEL_PACK_INLINE Mask<W> operator>=(Pack<W> const& a, double b) noexcept {
  return Mask<W>(a.v >= Pack<W>(b).v);
}

template <int W>
ZEL_PACK_INLINE Pack<W> Select(Mask<W> const& mask, Pack<W> const& yes,
                               Pack<W> const& no) noexcept {
  Pack<W> chosen;
  chosen.v = mask.m ? yes.v : no.v;
  return chosen;
}
template <int W, int N>
ZEL_PACK_INLINE Jet<N, Pack<W>> Select(Mask<W> const& mask, Jet<N, Pack<W>> const& yes,
                                       Jet<N, Pack<W>> const& no) noexcept {
  Jet<N, Pack<W>> chosen;
  for (std::size_t i = 0; i <= N; ++i) chosen.d[i] = Select(mask, yes.d[i], no.d[i]);
  return chosen;
}

// --- functions of packs --------------------------------------------------------------------------

namespace pack {

template <int W>
ZEL_PACK_INLINE Pack<W> FromBits(typename Pack<W>::Bits const& bits) noexcept {
  Pack<W> p;
  p.v = reinterpret_cast<typename Pack<W>::Lanes>(bits);
  return p;
}
template <int W>
ZEL_PACK_INLINE Pack<W> NaNUnless(Mask<W> const& good, Pack<W> const& x) noexcept {
  return Select(good, x, Pack<W>(std::numeric_limits<double>::quiet_NaN()));
}

// ln 2 in two parts, of which the first has trailing zeros: n times it is exact.
inline constexpr double kLn2High = 6.93147180369123816490e-01;
inline constexpr double kLn2Low = 1.90821492927058770002e-10;
inline constexpr std::int64_t kOne = 0x3ff0000000000000;      // the bits of 1
inline constexpr std::int64_t kTwoTo52 = 0x4330000000000000;  // of 2^52

// Natural logarithm of normal positive numbers, within 1 in the last place: with f = m - 1 for the
// part m of x from sqrt(1/2) to sqrt(2), and s = f/(2 + f), it is 2 atanh(s) as a polynomial.
template <int W>
ZEL_PACK_INLINE Pack<W> Log(Pack<W> const& x) noexcept {
  constexpr std::int64_t kRootHalf = 0x3fe6a09e667f3bcd;  // of sqrt(1/2)
  constexpr double kCoefficients[] = {6.666666666666735130e-01, 3.999999999940941908e-01,
                                      2.857142874366239149e-01, 2.222219843214978396e-01,
                                      1.818357216161805012e-01, 1.531383769920937332e-01,
                                      1.479819860511658591e-01};
  using Bits = typename Pack<W>::Bits;
  using Unsigned [[gnu::vector_size(W * sizeof(double))]] = std::uint64_t;
  Bits const bits = (Bits)x.v;
  Bits const exponent = (Bits)((Unsigned)(bits + (kOne - kRootHalf)) >> 52);
  Pack<W> const m = FromBits<W>(bits - ((exponent << 52) - kOne));
  Pack<W> const k = FromBits<W>(exponent | kTwoTo52) - (4503599627370496.0 + 1023.0);
  Pack<W> const f = m - 1.0;
  Pack<W> const s = f / (f + 2.0);
  Pack<W> const z = s * s;
  Pack<W> const w = z * z;
  Pack<W> const odd = w * (kCoefficients[1] + w * (kCoefficients[3] + w * kCoefficients[5]));
  Pack<W> const even = z * (kCoefficients[0] +
                            w * (kCoefficients[2] + w * (kCoefficients[4] + w * kCoefficients[6])));
  Pack<W> const half = f * f * 0.5;
  Pack<W> const log = k * kLn2High - ((half - (s * (half + (odd + even)) + k * kLn2Low)) - f);
  constexpr double kSmallest = std::numeric_limits<double>::min();
  constexpr double kLargest = std::numeric_limits<double>::max();
  return NaNUnless((x >= kSmallest) & (x <= kLargest), log);
}

// Exponential from -700 to 700: x = n ln 2 + r, the Taylor series of exp(r), 2^n by the exponent.
template <int W>
ZEL_PACK_INLINE Pack<W> Exp(Pack<W> const& x) noexcept {
  using Bits = typename Pack<W>::Bits;
  constexpr double kLimit = 700.0;
  constexpr double kInverseLn2 = 1.44269504088896338700;
  constexpr double kRound = 6755399441055744.0;  // 1.5 * 2^52: adding it rounds to whole numbers
  constexpr double c[] = {1.0 / 2,       1.0 / 6,        1.0 / 24,       1.0 / 120,
                          1.0 / 720,     1.0 / 5040,     1.0 / 40320,    1.0 / 362880,
                          1.0 / 3628800, 1.0 / 39916800, 1.0 / 479001600};
  Pack<W> const shifted = x * kInverseLn2 + kRound;
  Pack<W> const n = shifted - kRound;
  Pack<W> const r = (x - n * kLn2High) - n * kLn2Low;
  Pack<W> const r2 = r * r;
  Pack<W> const r4 = r2 * r2;
  Pack<W> const low = (c[0] + r * c[1]) + r2 * (c[2] + r * c[3]);
  Pack<W> const middle = (c[4] + r * c[5]) + r2 * (c[6] + r * c[7]);
  Pack<W> const high = (c[8] + r * c[9]) + r2 * c[10];
  Pack<W> const e = 1.0 + (r + r2 * (low + r4 * (middle + r4 * high)));
  Pack<W> const power = FromBits<W>((Bits)e.v + ((Bits)shifted.v << 52));
  return NaNUnless((x >= -kLimit) & (x <= kLimit), power);
}

template <int W>
ZEL_PACK_INLINE Pack<W> Sqrt(Pack<W> const& x) noexcept {
  double lanes[W];
  x.Store(lanes);
  for (double& lane : lanes) lane = std::sqrt(lane);
  return Pack<W>::Load(lanes);
}

}  // namespace pack

// --- the guarded functions, as in jet.h ----------------------------------------------------------

template <int N, int W>
ZEL_PACK_INLINE Jet<N, Pack<W>> Ln(Jet<N, Pack<W>> const& x) noexcept {
  Pack<W> const i = 1.0 / x.d[0];
  return Compose(x, pack::Log(x.d[0]), i, -i * i, 2.0 * i * i * i);
}

template <int N, int W>
ZEL_PACK_INLINE Jet<N, Pack<W>> Exp(Jet<N, Pack<W>> const& x) noexcept {
  using J = Jet<N, Pack<W>>;
  Pack<W> const e = pack::Exp(x.d[0]);
  J const inside = Compose(x, e, e, e, e);
  J const notAbove = Select(x.d[0] > kExpLimit, J(kExpHigh), inside);
  return Select(x.d[0] < -kExpLimit, J(kExpLow), notAbove);
}

template <int N, int W>
ZEL_PACK_INLINE Jet<N, Pack<W>> Clamp(Jet<N, Pack<W>> const& x) noexcept {
  using J = Jet<N, Pack<W>>;
  J const notAbove = Select(x.d[0] > kClamp, J(kClamp), x);
  return Select(x.d[0] < -kClamp, J(-kClamp), notAbove);
}

template <int N, int W>
ZEL_PACK_INLINE Jet<N, Pack<W>> PowOneAndHalf(Jet<N, Pack<W>> const& x) noexcept {
  Pack<W> const v = x.d[0];
  Pack<W> const root = pack::Sqrt(v);
  return Compose(x, v * root, 1.5 * root, 0.75 / root, -0.375 / (v * root));
}

template <int N, int W>
ZEL_PACK_INLINE Jet<N, Pack<W>> Pow(Jet<N, Pack<W>> const& x, double c) noexcept {
  Pack<W> const p = pack::Exp(c * pack::Log(x.d[0]));
  Pack<W> const g1 = c * p / x.d[0];
  Pack<W> const g2 = (c - 1.0) * g1 / x.d[0];
  return Compose(x, p, g1, g2, (c - 2.0) * g2 / x.d[0]);
}
template <int N, int W>
ZEL_PACK_INLINE Jet<N, Pack<W>> Pow(double x, Jet<N, Pack<W>> const& e) noexcept {
  double const log = x > 0.0 ? std::log(x) : std::numeric_limits<double>::quiet_NaN();
  Pack<W> const p = pack::Exp(e.d[0] * log);
  return Compose(e * log, p, p, p, p);
}
template <int N, int W>
ZEL_PACK_INLINE Jet<N, Pack<W>> Pow(Jet<N, Pack<W>> const& x, Jet<N, Pack<W>> const& e) noexcept {
  Jet<N, Pack<W>> const exponent = e * Ln(x);
  Pack<W> const p = pack::Exp(exponent.d[0]);
  return Compose(exponent, p, p, p, p);
}

// The rest of a form, or its end in the lanes where it has ended.
template <typename S, int W, typename Rest>
ZEL_PACK_INLINE typename S::Result UnlessEnded(Mask<W> const& hasEnded,
                                               typename S::Result const& end,
                                               Rest const& rest) noexcept {
  typename S::Result const going(rest());
  return Select(hasEnded, *end, *going);
}

// A value, or another in the lanes where the condition holds.
template <int N, int W>
ZEL_PACK_INLINE Jet<N, Pack<W>> ReplaceBelow0(Jet<N, Pack<W>> const& x, double other) noexcept {
  return Select(x.d[0] < 0.0, Jet<N, Pack<W>>(other), x);
}

}  // namespace

// The result of a form: NaN in lanes where it has no value.
template <int N, int W>
struct ResultFor<Jet<N, Pack<W>>> {
  class Type {
   public:
    ZEL_PACK_INLINE Type() noexcept : result_(Pack<W>(std::numeric_limits<double>::quiet_NaN())) {}
    ZEL_PACK_INLINE Type(Jet<N, Pack<W>> const& result) noexcept  // NOLINT: a result
        : result_(result) {}
    ZEL_PACK_INLINE Type(double result) noexcept : result_(Pack<W>(result)) {}  // NOLINT
    ZEL_PACK_INLINE Jet<N, Pack<W>> const& operator*() const noexcept { return result_; }

   private:
    Jet<N, Pack<W>> result_;
  };
};

}  // namespace zel

#undef ZEL_PACK_INLINE
