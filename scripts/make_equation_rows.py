#!/usr/bin/env python3
"""Makes tests/purecomp/equation_rows.inc: values, derivatives and sensitivities of all equation forms,
computed with 50 digits (mpmath), with which the tests compare the library.

    scripts/bootstrap --equations    # installs mpmath
    scripts/make_equation_rows.py > tests/purecomp/equation_rows.inc
    scripts/make_equation_rows.py limits > tests/purecomp/limit_rows.inc

The second file has the points at which a root, a power or a term of a form begins: temperatures equal
to a coefficient or to the critical temperature, and coefficients that are 0. There derivatives are limits
from below and sensitivities limits from above; both are infinite where they grow without bound.

The forms are written here as plain formulas, independently of the library's sources.
"""
import sys

from mpmath import atan, cosh, diff, exp, findroot, inf, log, mp, mpf, sinh, sqrt, tanh  # noqa: F401

mp.dps = 50
R = mpf('8.314471')
LN10 = mpf('2.302585092994046')
END = mpf(0.0001)


def ln(x):
    return mpf(-230) if x == 0 else log(abs(x))


def ex(x):
    return mpf(10) ** 100 if x > 230 else mpf(10) ** -100 if x < -230 else exp(x)


def clamp(x):
    return max(mpf(-60), min(mpf(60), x))


def ec(x):
    return ex(clamp(x))


def ssqrt(x):
    return sqrt(x) if x >= 0 else -sqrt(-x)


def cbrt(x):
    return abs(x) ** (mpf(1) / 3) * (1 if x >= 0 else -1)


class At:
    """One evaluation: C(i) from 1, N, and the symbols of the forms."""

    def __init__(self, e, c, N, T):
        self.__dict__.update(e)
        self.c, self.N, self.T = c, N, T
        self.b = LN10 if self.log == 2 else mpf(1)
        self.tau, self.Tr = 1 - T / self.Tc, T / self.Tc

    def C(self, i):
        return self.c[i - 1] if 1 <= i <= self.N else mpf(0)

    def sum(self, first, last, term):
        return sum((self.C(i) * term(i) for i in range(first, last + 1)), mpf(0))


def chebyshev(s):
    x = (2 * s.T - s.tMax - s.tMin) / (s.tMax - s.tMin)
    a, b, total = mpf(1), x, mpf(0)
    for i in range(1, s.N + 1):
        total += s.C(i) * a
        a, b = b, 2 * x * b - a
    return total


def eq3(s, r):
    return s.C(1) if r <= END else s.sum(1, s.N - 2, lambda i: r ** (s.C(s.N) * (i - 1)))


def eq16(s):
    if s.N < 4:
        return None
    x = 1 - s.T / s.C(3)
    if x < 0:
        x = mpf(1e-14)
    return s.C(1) / s.C(2) ** (1 + s.C(5) + x ** s.C(4))


def eq17(s, a, b):
    third = s.C(3) * s.T if s.C(4) == 0 else 0 if s.T == 0 else a / tanh(s.C(4) / s.T)
    return s.C(1) + s.C(2) * s.T + third - (0 if s.T == 0 else b * tanh(s.C(6) / s.T))


def rational(s, i):
    return 1 + s.C(i) / s.T + s.C(i + 1) / s.T ** 2


def eq20(s):
    T = s.T
    t4 = s.C(4) if s.N == 4 else s.C(4) * T ** s.C(5)
    return ec(s.b * (s.C(1) + s.C(2) / T + s.C(3) * ln(T) + t4 + s.C(6) * T ** 3 + s.C(7) * T ** 6
                     + s.C(8) / T ** 2 + s.C(9) / T ** 4 + s.C(10) * T ** 2))


def eq23(s):
    if not 3 <= s.N <= 9:
        return None
    if s.N == 3:
        return R * (s.C(1) + s.C(3) * s.T)
    C4, u = s.C(4), s.T + s.C(4)
    a1, a2, a3, a4, a5 = (s.C(i) for i in range(5, 10))
    S0 = 2 + a1 + a2 + a3 + a4 + a5
    S1 = 1 + 2 * a1 + 3 * a2 + 4 * a3 + 5 * a4 + 6 * a5
    S2 = a1 + 3 * a2 + 6 * a3 + 10 * a4 + 15 * a5
    S3 = a2 + 4 * a3 + 10 * a4 + 20 * a5
    S4, S5, S6 = a3 + 5 * a4 + 15 * a5, a4 + 6 * a5, a5
    sign = 1 if s.N == 8 else -1
    G = (-S0 * u * ln(u) / s.b - S1 * C4 + S2 * C4 ** 2 / (2 * u) - S3 * C4 ** 3 / (3 * u ** 2)
         + S4 * C4 ** 4 / (4 * u ** 3) + sign * S5 * C4 ** 5 / (5 * u ** 4)
         + S6 * C4 ** 6 / (6 * u ** 5))
    return R * (s.C(1) + s.C(3) * s.T + G * C4 * (s.C(3) - s.C(2)) / u)


def eq24(s):
    total = s.C(1) + s.C(2) * s.T
    for a in (3, 5, 7):
        if s.N >= a + 1:
            total += s.C(a) * s.C(a + 1) / (ex(s.C(a + 1) / s.T) - 1)
    return total


def collision(u, dipole):
    return (mpf('1.1645') * u ** mpf('-0.14874') + mpf('0.52487') * ex(mpf('-0.7732') * u)
            + mpf('2.16178') * ex(mpf('-2.43787') * u) + mpf('0.2') * dipole / u)


def eq28(s):
    last = s.C(6) if s.N == 6 else s.C(6) * s.T ** s.C(7) if s.N == 7 else 0
    return ec(s.b * (s.C(1) + s.C(2) / (s.C(3) + s.T) + s.C(4) * s.T + s.C(5) * ln(s.T) + last))


def powers(s, exponents):
    return s.C(1) + s.sum(2, len(exponents) + 1, lambda i: s.tau ** exponents[i - 2])


def eq35(s):
    t = max(s.tau, END)
    return R * s.Tc * (s.C(1) - s.C(2) * ln(t) / s.b - s.sum(3, s.N, lambda i: t ** (i - 2)))


def eq36(s):
    if s.tau <= END:
        return mpf(0)
    y = ex(ln(s.tau) / 3)
    return R * s.Tc * (s.C(1) * y + s.C(2) * y ** 2 + s.C(3) * s.tau + s.C(4) * s.tau ** 2
                       + s.C(5) * s.tau ** 6)


def D(T):
    return 9 - mpf(0.0078125) * T + mpf(2) ** -20 * T ** 2


def P(T):
    return 5 + mpf(0.25) * T + mpf(2) ** -10 * T ** 2


def H(T):
    return 100 + 30 * T + mpf(2) ** -6 * T ** 2


def eq38(s):
    return ec(s.b * s.C(1) + s.C(2) * ln(D(s.T)) + s.C(3) * ln(P(s.T)) + s.b * s.C(4) * s.T
              + s.b * s.C(5) * s.T ** 2 + s.C(6) * ln(s.T))


def eq39(s, z=None):
    r = s.tau / (1 - s.C(2) / s.Tc)
    if r <= END:
        return mpf(0)
    z = (s.T - s.C(6)) / (s.C(7) - s.Tc) if z is None else z
    return s.C(1) * r ** (s.C(3) + s.C(4) * z + s.C(5) * z ** 2)


def eq40(s):
    base = s.C(1) + s.C(2) * s.T + s.C(3) * ex(-s.C(4) / s.T) / s.C(4)
    if s.T <= s.C(9):
        return R * base
    C5, C6, C7, C8, C9 = (s.C(i) for i in range(5, 10))
    y = (s.T - C9) / (s.T + C8)
    p = C6 * (3 * y ** 2 + 5 * y ** 3 / 3 + y ** 4 + 3 * y ** 5 / 5 + y ** 6 / 3)
    q = (2 * C5 + 8 * C6) * ln(1 - y) / s.b
    v = y * (C6 * (1 / (1 - y) + 7) + C5 * (1 + 1 / (1 - y)))
    w = (C6 - C7 / (C9 + C8) ** 2) * y ** 7 / 7
    return R * ((C9 + C8) * (p + q + v + w) + base)


def eq41(s):
    if s.N == 1:
        return mpf(0)
    if s.N == 2:
        return s.C(1)
    y = s.C(s.N) / (s.T + s.C(s.N))
    total = s.C(1)
    if s.N >= 3:
        total += s.C(2) / y
    if s.N >= 4:
        total += s.C(3) * ln(y) / s.b
    return total + s.sum(4, s.N - 1, lambda i: y ** (i - 3))


def eq42(s):
    return (s.sum(1, 6, lambda i: s.T ** (i - 1))
            + s.C(7) * ln(max(s.C(8) - s.T, END)) / s.b)


def boiling(s):
    return (s.Tc - s.T) / (s.Tc - s.Tb)


def eq46(s):
    t = s.tau
    if t < END:
        return mpf(0)
    C2, C3, C4, C5 = (s.C(i) for i in range(2, 6))
    return s.C(1) - s.Tc * (C2 ** 2 * ln(t) + C3 * t - (C2 * C4 + C4 ** 2 * t ** 2 / 12) * t ** 2
                            - t ** 3 * (C2 * C5 / 3 + (C4 * C5 / 10 + C5 ** 2 * t / 30) * t ** 2))


def wagner(s, third, fourth, end):
    if s.tau < end:
        return None
    t = s.tau
    return (s.Pc - s.o) / s.f * ec(s.b * (s.C(1) * t + s.C(2) * t ** mpf(1.5) + s.C(3) * t ** third
                                          + s.C(4) * t ** fourth) / s.Tr)


def eq49(s):
    t, C = s.tau, s.C
    return (C(1) - s.b * C(2) ** 2 * s.Tc * ln(t) - C(3) * s.Tc * t + C(2) * C(4) * s.Tc * t ** 2
            + s.Tc * t ** 3 / 3 * (C(2) * C(5) + C(4) * C(5) * t ** 2 / 5)
            + s.Tc * t ** 6 * C(6) ** 2 / 30)


def eq51(s):
    M = s.N - 8
    first = lambda i: s.C(i) if M > i - 1 else mpf(0)  # noqa: E731
    C3 = first(3)
    L = s.C(1) + s.C(2) / (s.T + C3) + first(4) * s.T + first(5) * s.T ** 2
    if M > 5 and abs(s.C(6)) > mpf(2e-35):
        L += s.C(6) * ln(s.T)
    y = ec(s.b * L)
    w = s.C(7) / s.T ** 2 if M == 7 else mpf(0)
    if M == 7:
        y = ex(findroot(lambda x: x / s.b - L - w * exp(x), log(y)))
    d = 1 / y - w
    terms = [s.C(9), s.C(10) / (C3 + s.T), -s.C(2) * s.C(11) / (C3 + s.T) ** 2, s.C(12) * s.T,
             s.C(13) * s.T ** 2, s.C(14) * ln(s.T), s.C(15) * y / s.T ** 2]
    return sum(terms[:max(M, 0)], mpf(0)) / d


def eq52(s):
    r = boiling(s)
    return mpf(0) if r <= END else (s.C(1) + s.C(3) * (s.T - s.Tb) / (s.Tc - s.T)) * r ** s.C(2)


def eq53(s):
    x = 1 - s.T / s.C(2)
    p, q, r = x ** (mpf(5) / 6), x ** mpf('1.208'), x ** (mpf(1) / 3)
    A = (mpf('-28.215') * p - mpf('82.958') * q - mpf('0.133') * r
         + x * (99 + x * (mpf('19.105') - mpf('2.796') * x)))
    B = (mpf('-2.467') * p - mpf('77.521') * q + mpf('6.537') * r
         + x * (mpf('59.634') + x * (mpf('36.009') - mpf('14.606') * x)))
    return R * s.C(2) * (4 * (s.C(1) - mpf('0.21')) * A + B)


def eq54(s):
    x = 1 - s.T / s.C(3)
    t = cbrt(x)
    h1 = mpf('1.45') * (1 - x) - mpf('0.45') * ln(x)
    h2 = mpf('17.11') * (1 - x) - mpf('1.742') * ln(x)
    h3 = mpf('25.2') * (3 * t - sqrt(mpf(3)) * atan((1 + 2 * t) / sqrt(mpf(3)))
                        - ln((t * (1 + t) + 1) / (t - 1) ** 2) / 2)
    return R * (s.C(1) + s.C(3) * (h1 + s.C(2) / 4 * (h2 + h3))) + (H(s.T) - s.o) / s.f


def thirds(*n):
    return [mpf(k) / 3 for k in n]


FORMS = {
    1: lambda s: s.sum(1, s.N, lambda i: s.T ** (i - 1)),
    2: chebyshev,
    3: lambda s: eq3(s, s.T / s.C(s.N - 1)),
    4: lambda s: eq3(s, 1 - s.T / s.C(s.N - 1)),
    5: lambda s: s.C(1) * s.T ** s.C(2) / (s.C(3) + s.T),
    6: lambda s: s.tau * s.sum(1, s.N, lambda i: s.tau ** (i - 1)),
    12: lambda s: ex(s.b * s.sum(1, s.N, lambda i: s.T ** (1 - i))),
    13: lambda s: (lambda r: s.C(5) * ex((s.C(1) + s.C(2) * r) * cbrt(r)))(
        (s.C(3) - s.T) / (s.T - s.C(4))),
    14: lambda s: s.C(1) if s.tau <= END else ec(s.b * (s.C(1) + s.tau * (
        s.C(2) + s.C(3) * ssqrt(s.tau) + (s.C(4) + s.C(5) * s.tau ** 3) * s.tau ** 2) / s.Tr)),
    15: lambda s: mpf(0) if s.tau <= END else s.C(1) * s.tau ** s.sum(
        2, s.N, lambda i: s.Tr ** (i - 2)),
    16: eq16,
    17: lambda s: eq17(s, s.C(3) * s.C(4), s.C(5) * s.C(6)),
    18: lambda s: s.C(1) + s.C(2) * s.T ** s.C(3) / rational(s, 4),
    19: lambda s: s.C(1) * s.T ** s.C(2) / rational(s, 3),
    20: eq20,
    21: lambda s: ec(s.b * (s.C(1) + s.C(2) / (s.C(3) + s.T) + s.C(4) * s.T + s.C(5) * s.T ** 2
                            + (s.C(6) * ln(s.T) if abs(s.C(6)) > mpf(2e-35) else 0))),
    22: lambda s: ec(s.b * chebyshev(s) / s.T),
    23: eq23,
    24: eq24,
    25: lambda s: s.sum(1, 5, lambda i: s.T ** (i - 1)) + s.C(6) / s.T + s.C(7) / s.T ** 2,
    26: lambda s: mpf('2.669e-06') * sqrt(s.C(1) * s.T) / (
        s.C(2) ** 2 * collision(s.T / s.C(3), s.C(4) ** 2)),
    27: lambda s: s.C(1) * s.Tr * abs(1 - s.C(2) * s.tau * s.Tr ** s.C(3)) ** (mpf(-1) / 6),
    28: eq28,
    29: lambda s: (s.C(1) + s.C(2) * s.tau) ** (-1 - abs(s.tau) ** (mpf(2) / 7)) / s.C(3),
    30: lambda s: None if s.tau <= END else s.C(1) * s.tau ** s.C(2) * (1 + s.C(3) * s.tau),
    31: lambda s: powers(s, thirds(1, 2, 5, 16, 43, 110)),
    32: lambda s: s.C(1) if s.tau <= END else powers(
        s, [mpf('0.35'), mpf(2) / 3, mpf(1), mpf(4) / 3]),
    33: lambda s: ssqrt(s.Tr) / s.sum(1, s.N, lambda i: s.Tr ** (1 - i)),
    34: lambda s: s.C(1) if s.tau <= END else s.C(1) * (
        1 + s.C(2) * cbrt(s.tau) + s.C(3) * cbrt(s.tau) ** 2 + s.C(4) * s.tau),
    35: eq35,
    36: eq36,
    37: lambda s: ec(s.b * (s.C(1) + s.C(2) * ((1 - s.T / s.C(3)) ** 2) ** (mpf(1) / 7))),
    38: eq38,
    39: eq39,
    40: eq40,
    41: eq41,
    42: eq42,
    43: lambda s: mpf(0) if boiling(s) <= END else s.C(1) * boiling(s) ** s.C(2),
    44: lambda s: ec(s.C(1) + ln(s.tau) / s.b * s.sum(2, s.N, lambda i: s.Tr ** (i - 2))),
    45: lambda s: s.C(1) - s.C(2) * s.Tc * ln(s.Tc - s.T) / s.b + sum(
        (s.C(k + 2) * s.T ** k / k for k in range(1, s.N - 1)), mpf(0)),
    46: eq46,
    47: lambda s: wagner(s, 3, 6, mpf(0)),
    48: lambda s: wagner(s, mpf(2.5), 5, END),
    49: eq49,
    51: eq51,
    52: eq52,
    53: eq53,
    54: eq54,
    117: lambda s: eq17(s, s.C(3), s.C(5)),
    126: lambda s: mpf('2.669e-06') * s.C(1) * ssqrt(s.T) / collision(s.T / s.C(2), s.C(3)),
    134: lambda s: s.C(1) if s.tau <= END else s.sum(1, s.N, lambda i: s.tau ** (mpf(i - 1) / 3)),
}
NO_WEIGHTS = {4, 39, 51, 52}

ENV = dict(Tc=512.5, Pc=8100.0, Tb=337.75, tMin=175.5, tMax=520.0, f=1.0, o=0.0)
SMALL = [1.25, -0.5, 0.375, -0.25, 0.5, 0.125, -0.0625, 0.25, -0.375, 0.5, 0.75, -0.25, 0.125,
         0.0625, -0.5]


def poly(scale):
    return [2.5 * scale ** -i * (-1) ** i * (1 + 0.25 * i) for i in range(15)]


INSIDE = [180.0, 300.25, 450.0]
PAST = INSIDE + [512.5 * 0.99995, 512.5, 514.0]
ANTOINE = [16.5, -3600.0, -34.5, 0.0009765625, -1e-06, 0.375, 1.5]
# equation: list of (coefficients, numbers of coefficients in use, temperatures)
CASES = {
    1: [(poly(300), [1, 2, 5, 15], [-40.0, 0.0] + INSIDE)],
    2: [(SMALL, [1, 2, 3, 9, 15], INSIDE)],
    3: [([3.0, -1.5, 0.75, 400.0, 0.5], [5], INSIDE + [0.03, -5.0]),
        ([3.0, 400.0, 0.5], [3], INSIDE), ([2.0, 400.0], [2], INSIDE)],
    4: [([3.0, -1.5, 0.75, 512.5, 0.5], [5], PAST), ([3.0, 512.5, 0.5], [3], INSIDE)],
    5: [([2.0, 1.25, 90.0], [1, 2, 3], INSIDE)],
    6: [(SMALL, [1, 3, 7, 15], PAST)],
    12: [([1.5, -300.0, 25000.0, -1e6], [1, 2, 3, 4], INSIDE), ([250.0, 1.0], [2], [300.0]),
         ([-250.0, 1.0], [2], [300.0])],
    13: [([0.75, 1.125, 550.0, 60.0, 0.015625], [5], INSIDE + [600.0])],
    14: [([4.5, -7.5, 1.5, -2.5, -3.0], [1, 2, 3, 4, 5], PAST), ([80.0, -1.0], [2], [300.0])],
    15: [([52000.0, 0.375, -0.25, 0.125, 0.0625], [1, 2, 3, 5], PAST)],
    16: [([2.25, 0.27, 512.5, 0.2353, 0.125], [3, 4, 5], INSIDE + [512.0, 530.0])],
    17: [([100.0, 33.0, 87.0, 1900.0, 53.0, 890.0], [3, 4, 5, 6], INSIDE),
         ([100.0, 33.0, 87.0, 0.0, 53.0, 890.0], [6], INSIDE)],
    18: [([5.0, 0.125, 1.25, 150.0, -2500.0], [2, 3, 4, 5], INSIDE)],
    19: [([0.0003125, 0.6875, 205.0, -2500.0], [1, 2, 3, 4], INSIDE)],
    20: [([12.5, -4500.0, 1.25, 0.0625, 0.5, 1e-9, 1e-18, 2500.0, 1e6, 1e-6, 9.0],
          [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11], INSIDE), ([90.0, -1.0], [2], [300.0])],
    21: [(ANTOINE, [2, 3, 4, 5, 6, 7], INSIDE), (ANTOINE[:5] + [1e-35], [6], INSIDE)],
    22: [([900.0, 350.0, -40.0, 12.5], [1, 2, 3, 4], INSIDE)],
    23: [([150.0, 4.0, 12.5, 90.0, 0.5, -0.375, 0.25, 0.125, -0.0625, 3.0],
          [2, 3, 4, 5, 6, 7, 8, 9, 10], INSIDE)],
    24: [([10.0, 30.0, 25.0, 700.0, 40.0, 1500.0, 15.0, 3200.0], [2, 3, 4, 5, 6, 7, 8], INSIDE)],
    25: [([30.0, 0.125, -0.0001, 1e-7, -1e-10, 4000.0, -90000.0], [1, 3, 5, 6, 7], INSIDE)],
    26: [([32.0, 3.75, 480.0, 0.5], [3, 4], INSIDE)],
    27: [([0.02, 0.75, 1.5], [1, 2, 3], INSIDE + [513.0])],
    28: [(ANTOINE + [4.0], [2, 3, 4, 5, 6, 7, 8], INSIDE),
         (ANTOINE[:5] + [0.0005, 1.25], [7], INSIDE)],
    29: [([0.75, 0.5, 0.125], [3], INSIDE + [514.0])],
    30: [([0.0625, 1.25, -0.125], [1, 2, 3], PAST)],
    31: [([8.5, 12.0, 4.0, -3.0, 2.0, -1.5, 9.0], [1, 2, 3, 5, 7], INSIDE)],
    32: [([272.0, 500.0, -250.0, 125.0, 60.0], [1, 2, 3, 4, 5], PAST)],
    33: [([20.0, 5.0, -1.5, 0.25], [1, 2, 4], INSIDE)],
    34: [([8.5, 1.75, 0.625, 0.25], [1, 2, 3, 4], PAST)],
    35: [([20.0, 3.5, 12.0, -4.0, 1.5], [1, 2, 3, 5], PAST)],
    36: [([7.5, 11.0, -4.0, 2.0, 1.0], [1, 2, 3, 5], PAST)],
    37: [([-3.5, 2.25, 520.0], [3], INSIDE + [525.0])],
    38: [([1.5, 0.75, -0.25, 0.001953125, -1e-6, 0.125], [1, 2, 3, 4, 5, 6], INSIDE)],
    39: [([2.5, 90.0, 0.375, 0.125, -0.0625, 300.0, 700.0], [7], INSIDE + [512.5, 514.0])],
    40: [([-900.0, 4.0, 250.0, 800.0, 6.0, -4.5, 90000.0, 190.0, 210.0], [9], [180.0, 300.25, 900.0])],
    41: [([12.0, 0.5, 3.0, 1.25, -0.75, 250.0], [1, 2, 3, 4, 5, 6], INSIDE)],
    42: [([30.0, 0.125, -0.0001, 1e-7, -1e-10, 1e-13, -4.0, 515.0], [8], INSIDE + [515.0, 519.0])],
    43: [([38000.0, 0.375], [1, 2], PAST)],
    44: [([4.0, -0.375, 0.25, 0.125], [1, 2, 3, 4], INSIDE)],
    45: [([1000.0, 2.5, 40.0, 0.0625, -1e-5], [1, 2, 3, 5], INSIDE)],
    46: [([-9000.0, 8.0, 45.0, -3.5, 2.25], [2, 3, 4, 5], PAST)],
    47: [([-8.5, 1.25, -2.75, -1.5], [1, 2, 3, 4], INSIDE + [512.5 * 0.99995, 514.0])],
    48: [([-8.5, 1.25, -2.75, -1.5], [1, 2, 3, 4], PAST)],
    49: [([-9000.0, 8.0, 45.0, -3.5, 2.25, 1.5], [2, 4, 5, 6], INSIDE)],
    51: [([9.0, -2500.0, -20.0, 0.0009765625, 1e-06, 0.25, -800.0, 3.0, 25000.0, 1500.0, 300.0, 4.0,
           0.0625, 12.0, 5000.0], [9, 10, 11, 12, 13, 14, 15], INSIDE)],
    52: [([38000.0, 0.375, 150.0], [1, 2, 3], INSIDE + [512.5, 514.0])],
    53: [([0.28125, 540.0], [2], INSIDE)],
    54: [([-800.0, 0.25, 540.0], [3], INSIDE + [545.0])],
    117: [([100.0, 33.0, 165000.0, 1900.0, 47000.0, 890.0], [4, 5, 6], INSIDE),
          ([100.0, 33.0, 87.0, 0.0, 47000.0, 890.0], [6], INSIDE)],
    126: [([5.5, 480.0, 0.25], [2, 3], INSIDE)],
    134: [([8.5, 12.0, 4.0, -3.0], [1, 2, 3, 4], PAST)],
}
USES_LOG = {12, 14, 20, 21, 22, 23, 28, 35, 37, 38, 40, 41, 42, 44, 45, 47, 48, 49, 51}


def row(eq, coefficients, N, T, logBasis):
    form = FORMS[eq]
    e = {k: mpf(v) for k, v in ENV.items()}
    e['log'] = logBasis
    c = [mpf(x) for x in coefficients[:15]]
    used = min(N, len(c))
    at = lambda t, cc=c: At(e, cc, used, t)  # noqa: E731
    t0 = mpf(T)
    value = form(at(t0))
    if value is None:
        return eq, N, logBasis, T, c, None, [mpf(0)] * 3, [mpf(0)] * used

    def derivative(f, x, n):
        return diff(f, x, n) if n else f(x)

    d = [derivative(lambda t: form(at(t)), t0, n) for n in (1, 2, 3)]
    if eq == 39 and value != 0:
        z0 = (t0 - c[5]) / (c[6] - e['Tc'])
        d[0] = diff(lambda t: eq39(at(t), z0 - (t - t0) / e['Tc']), t0)
    if eq == 2:
        d[1] = d[2] = d[0]
    if eq == 52:
        d[1] = d[2] = mpf(0)
    if eq in (126, 134):
        d = [mpf(0)] * 3
    weights = []
    for k in range(used):
        def moved(x, k=k):
            return form(at(t0, c[:k] + [x] + c[k + 1:]))
        weights.append(mpf(0) if eq in NO_WEIGHTS else weight(eq, moved, c, k))
    return eq, N, logBasis, T, c, value, d, weights


def weight(eq, moved, c, k):
    # A coefficient that is the threshold of its own term has no sensitivity; a power of 0 has a
    # one-sided one.
    if eq in (21, 51) and k == 5 and abs(c[k]) <= mpf(2e-35):
        return mpf(0)
    if eq in (17, 117) and k == 3 and c[k] == 0:
        return mpf(0)
    return diff(moved, c[k])


STEPS = mpf(10) ** -60, mpf(10) ** -66


def limit_of(f, x, side, order):
    """The limit of the derivative of f as x is approached from one side: a number, an infinity, or None."""
    with mp.workdps(500):
        near, nearer = (diff(f, x + side * step, order, h=step * mpf(10) ** -15) for step in STEPS)
        if abs(nearer) > 1000 and abs(nearer) > mpf(1.5) * abs(near):
            return inf if nearer > 0 else -inf
        if abs(nearer - near) > mpf(10) ** -9 * max(abs(near), mpf(10) ** -30):
            return mpf(0) if abs(nearer) < mpf(10) ** -9 and abs(nearer) < abs(near) else None
        return nearer


def limit_row(eq, coefficients, T):
    form, N = FORMS[eq], len(coefficients)
    e = {k: mpf(v) for k, v in ENV.items()}
    e['log'] = 1
    c, t0 = [mpf(x) for x in coefficients], mpf(T)

    def at(t, cc=c):
        return form(At(e, cc, N, t))

    value = at(t0)
    with mp.workdps(500):
        beside = at(t0 - STEPS[0])
        # There is a guard at this very point, or a pole.
        if value is None or abs(value) > mpf(10) ** 100 or (
                abs(value - beside) > mpf(10) ** -4 * max(abs(value), mpf(10) ** -20)):
            return None
    d = [limit_of(at, t0, -1, n) for n in (1, 2, 3)]
    weights = [mpf(0) if eq in NO_WEIGHTS else None if is_guarded(eq, k, c, t0) else
               limit_of(lambda x, k=k: at(t0, c[:k] + [x] + c[k + 1:]), c[k], 1, 1)
               for k in range(N)]
    return (eq, N, 1, T, c, value, d, weights)


def is_guarded(eq, k, c, T):
    # At this number the form has another term, or takes the logarithm of 0.
    return (eq in (17, 117) and k == 3 and c[3] == 0) or (eq == 16 and k in (2, 3) and c[2] == T)


def limit_rows():
    for eq, cases in CASES.items():
        if eq in (2, 22, 39, 51, 52, 126, 134):  # derivatives of their own, or none
            continue
        coefficients = cases[0][0][:max(cases[0][1])]
        T = ENV['Tc']
        if eq in (44, 45):  # a logarithm of 0, which is guarded
            T = INSIDE[2]
        for temperature in (300.25, T):
            for k in range(len(coefficients)):
                for instead in (0.0, temperature):
                    yield eq, coefficients[:k] + [instead] + coefficients[k + 1:], temperature
        yield eq, coefficients, T
        for N in range(1, len(coefficients)):
            yield eq, coefficients[:N], T


def text_of(x):
    return 'kNone' if x is None else 'kInfinite' if x == inf else '-kInfinite' if x == -inf else number(x)


def main_limits():
    print('// Made by scripts/make_equation_rows.py limits: do not edit.')
    print('// equation, N, log basis, T, {C}, written, value, {derivatives}, {sensitivities}')
    print('// clang-format off')
    for eq, coefficients, T in limit_rows():
        try:
            r = limit_row(eq, coefficients, T)
        except (ZeroDivisionError, TypeError, ValueError, OverflowError):
            continue  # a pole, or a power of a negative number
        if r is not None:
            print('{%d, %d, %d, %s, {%s}, true, %s, {%s}, {%s}},' % (
                r[0], r[1], r[2], number(r[3]), ', '.join(map(number, r[4])), number(r[5]),
                ', '.join(map(text_of, r[6])), ', '.join(map(text_of, r[7]))))
    print('// clang-format on')


def number(x):
    return '%.17g' % float(x)


def main():
    print('// Made by scripts/make_equation_rows.py: do not edit.')
    print('// equation, N, log basis, T, {C}, written, value, {derivatives}, {sensitivities}')
    print('// clang-format off')
    for eq, cases in CASES.items():
        for coefficients, counts, temperatures in cases:
            for N in counts:
                for T in temperatures:
                    for logBasis in (1, 2) if eq in USES_LOG else (1,):
                        r = row(eq, coefficients, N, T, logBasis)
                        value = 'false, 0' if r[5] is None else 'true, ' + number(r[5])
                        print('{%d, %d, %d, %s, {%s}, %s, {%s}, {%s}},' % (
                            r[0], r[1], r[2], number(r[3]), ', '.join(map(number, r[4])), value,
                            ', '.join(map(number, r[6])), ', '.join(map(number, r[7]))))
    print('// clang-format on')


if __name__ == '__main__':
    main_limits() if sys.argv[1:] == ['limits'] else main()
