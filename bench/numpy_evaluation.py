"""Evaluates an equation with numpy: value and slope of a million temperatures, in chunks of 4096.

    python3 numpy_evaluation.py EQUATION TC PC FIRST LAST COEFFICIENT...

The temperatures are spread evenly from FIRST to LAST. Prints the processor time per temperature in
nanoseconds, and the sums of values and slopes.
"""

import sys
import time

import numpy as np

COUNT = 1_000_000
CHUNK = 4096

equation = int(sys.argv[1])
Tc, Pc, first, last = (float(text) for text in sys.argv[2:6])
c = [float(text) for text in sys.argv[6:]]


def polynomial(coefficients, x):
    value = np.full_like(x, coefficients[-1])
    slope = np.zeros_like(x)
    for k in reversed(coefficients[:-1]):
        slope = slope * x + value
        value = value * x + k
    return value, slope


def watson(T):
    Tr = T / Tc
    tau = 1.0 - Tr
    e, de = polynomial(c[1:], Tr)
    value = c[0] * tau**e
    return value, value * (de * np.log(tau) - e / tau) / Tc


def rackett(T):
    x = 1.0 - T / c[2]
    p = x ** c[3]
    value = c[0] * c[1] ** (-1.0 - p)
    return value, value * (np.log(c[1]) * c[3] / c[2]) * p / x


def dippr102(T):
    i = 1.0 / T
    d = 1.0 + (c[2] + c[3] * i) * i
    value = c[0] * T ** c[1] / d
    return value, value * i * (c[1] + (c[2] + 2.0 * c[3] * i) * i / d)


def dippr101(T):
    i = 1.0 / T
    p = c[3] * T ** c[4]
    value = np.exp(c[0] + c[1] * i + c[2] * np.log(T) + p)
    return value, value * (c[2] - c[1] * i + c[4] * p) * i


def antoine(T):
    i = 1.0 / (c[2] + T)
    value = np.exp(c[0] + c[1] * i)
    return value, value * (-c[1] * i * i)


def wagner(T):
    Tr = T / Tc
    tau = 1.0 - Tr
    root = np.sqrt(tau)
    t2 = tau * tau
    t5 = t2 * t2 * tau
    if equation == 47:
        u, du, v, dv = t2 * tau, 3.0 * t2, t5 * tau, 6.0 * t5
    else:
        u, du, v, dv = t2 * root, 2.5 * tau * root, t5, 5.0 * t2 * t2
    s = c[0] * tau + c[1] * tau * root + c[2] * u + c[3] * v
    ds = c[0] + 1.5 * c[1] * root + c[2] * du + c[3] * dv
    value = Pc * np.exp(s / Tr)
    return value, value * (-ds - s / Tr) / T


FORMS = {
    1: lambda T: polynomial(c, T),
    15: watson,
    16: rackett,
    19: dippr102,
    20: dippr101,
    21: antoine,
    47: wagner,
    48: wagner,
}
form = FORMS[equation]
temperatures = first + (last - first) / COUNT * np.arange(COUNT)
values = np.empty(COUNT)
slopes = np.empty(COUNT)


def run():
    for start in range(0, COUNT, CHUNK):
        part = slice(start, start + CHUNK)
        values[part], slopes[part] = form(temperatures[part])


run()  # warms up
start = time.thread_time_ns()
run()
print((time.thread_time_ns() - start) / COUNT, values.sum(), slopes.sum())
