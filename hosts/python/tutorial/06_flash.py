# %% [markdown]
# # A flash, with the coverage of the interactions first
#
# A mixture model with a missing pair still returns numbers, as if the pair were ideal. So the first
# question is which pairs the libraries have.

# %%
import matplotlib.pyplot as plt
import numpy as np
from libraries import make
from nrtl import Nrtl, bubble_point

import zelaccess as za

make("perry", "sample")
libs = za.Libraries("perry.lb1", "sample.lb1")


def missing_pairs(components):
    """The pairs without parameters of NRTL."""
    found = libs.coverage(components, models=["NRTL"])
    missing = found[found["from"].isna()]
    print(f"{', '.join(components)}: {len(found) - len(missing)} of {len(found)} pairs")
    return [tuple(row) for row in missing[["one", "other"]].to_numpy()]


five = ["ACETONE", "METHANOL", "ETHANOL", "WATER", "BENZENE"]
missing = missing_pairs(five)
print("missing:", missing)

# %% [markdown]
# Water and benzene hardly mix, and to take the pair for ideal would be wrong by orders of magnitude. The
# model refuses the mixture: MissingPair. Without benzene all pairs are there.

# %%
try:
    Nrtl(libs, five)
except za.MissingPair as error:
    print(error)
components = five[:4]
assert not missing_pairs(components)

# %% [markdown]
# The flash at a temperature and a pressure: K_i = gamma_i p_i / p, the fraction of vapor from the
# equation of Rachford and Rice, repeated until the composition of the liquid no longer changes.

# %%
model = Nrtl(libs, components)
curves = [libs[name].VaporPressure for name in components]


def vapor_fraction(z, k):
    """The root of sum z_i (K_i - 1) / (1 + v (K_i - 1)) between 0 and 1; 0 or 1 if one phase."""
    if (z * k).sum() <= 1.0:
        return 0.0
    if (z / k).sum() <= 1.0:
        return 1.0
    low, high = 0.0, 1.0
    for _ in range(60):
        v = 0.5 * (low + high)
        low, high = (v, high) if (z * (k - 1.0) / (1.0 + v * (k - 1.0))).sum() > 0.0 else (low, v)
    return v


def flash(z, temperature, pressure):
    """Fraction of vapor, and mole fractions of liquid and vapor."""
    z = np.asarray(z)
    pure = np.array([curve(temperature) for curve in curves])
    x = z
    for _ in range(500):
        k = model.gamma(x, temperature) * pure / pressure
        v = vapor_fraction(z, k)
        liquid = z / (1.0 + v * (k - 1.0))
        liquid /= liquid.sum()
        if np.abs(liquid - x).max() < 1e-12:
            break
        x = liquid
    return v, x, k * x / (k * x).sum()


FEED = np.array([0.2, 0.2, 0.2, 0.4])
PRESSURE = 101.325  # kPa
v, x, y = flash(FEED, 345.0, PRESSURE)
print(f"at 345 K and {PRESSURE} kPa {v:.4f} of the feed is vapor")
for row in zip(components, FEED, x, y):
    print("%-10s feed %.4f  liquid %.4f  vapor %.4f" % row)

# %% [markdown]
# From the boiling point to the dew point.

# %%
boiling = bubble_point(curves, model, FEED, PRESSURE)[0]
T = np.linspace(boiling - 2.0, boiling + 18.0, 101)
results = [flash(FEED, one, PRESSURE) for one in T]
figure, (left, right) = plt.subplots(1, 2, figsize=(10, 4.5))
left.plot(T - 273.15, [one[0] for one in results], "k")
left.set_ylabel("fraction of vapor")
for i, name in enumerate(components):
    two = [(one - 273.15, found[1][i], found[2][i])
           for one, found in zip(T, results) if 0.0 < found[0] < 1.0]
    at, liquid, vapor = np.array(two).T
    right.plot(at, liquid, f"C{i}", label=libs[name].name)
    right.plot(at, vapor, f"C{i}--")
right.set_ylabel("mole fraction")
right.set_title("liquid: solid, vapor: dashed")
right.set_ylim(0.0)
right.legend()
for axes in (left, right):
    axes.set_xlabel("T [degC]")
    axes.grid(True, alpha=0.4)
figure.tight_layout()
figure.savefig("flash.png", dpi=120)
