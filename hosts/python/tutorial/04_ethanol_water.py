# %% [markdown]
# # Vapor and liquid of ethanol and water
#
# Modified Raoult's law, y_i p = x_i gamma_i p_i(T), with activity coefficients of the NRTL model and
# vapor pressures from the libraries. At atmospheric pressure the vapor is nearly ideal.

# %%
import matplotlib.pyplot as plt
import numpy as np
from libraries import make
from nrtl import Nrtl, bubble_point

import zelaccess as za

make("perry", "sample")
libs = za.Libraries("perry.lb1", "sample.lb1")
pair = libs.pair("NRTL", "ETHANOL", "WATER")
print(pair, pair.equation)
print(pair.citation)

# %% [markdown]
# The boiling point and the vapor at each composition of the liquid, at 101.325 kPa.

# %%
components = ["ETHANOL", "WATER"]
model = Nrtl(libs, components)
curves = [libs[name].VaporPressure for name in components]
PRESSURE = 101.325  # kPa
x = np.linspace(0.0, 1.0, 201)
points = [bubble_point(curves, model, [one, 1.0 - one], PRESSURE) for one in x]
T = np.array([point[0] for point in points]) - 273.15
y = np.array([point[1][0] for point in points])

# %% [markdown]
# At the azeotrope the vapor has the composition of the liquid: y - x changes its sign.

# %%
low, high = 0.5, 0.99
while high - low > 1e-9:
    middle = 0.5 * (low + high)
    temperature, vapor = bubble_point(curves, model, [middle, 1.0 - middle], PRESSURE)
    low, high = (middle, high) if vapor[0] > middle else (low, middle)
azeotrope = (middle, temperature - 273.15)
print("azeotrope: %.4f mole fraction of ethanol at %.2f degC" % azeotrope)

# %% [markdown]
# Published: points measured at 101.3 kPa by Carey and Lewis, Ind. Eng. Chem. 24 (1932) 882, whose last
# one is the azeotrope, 0.8943 mole fraction of ethanol at 78.15 degC.

# %%
measured = np.array([  # degC, x, y
    [95.5, 0.0190, 0.1700], [89.0, 0.0721, 0.3891], [86.7, 0.0966, 0.4375],
    [85.3, 0.1238, 0.4704], [84.1, 0.1661, 0.5089], [82.7, 0.2337, 0.5445],
    [82.3, 0.2608, 0.5580], [81.5, 0.3273, 0.5826], [80.7, 0.3965, 0.6122],
    [79.8, 0.5079, 0.6564], [79.7, 0.5198, 0.6599], [79.3, 0.5732, 0.6841],
    [78.74, 0.6763, 0.7385], [78.41, 0.7472, 0.7815], [78.15, 0.8943, 0.8943]])
deviations = np.array([
    (temperature - 273.15 - t, vapor[0] - published)
    for t, liquid, published in measured
    for temperature, vapor in [bubble_point(curves, model, [liquid, 1.0 - liquid], PRESSURE)]])
print("mean deviation from the measured points: %.2f K, %.4f in y"
      % tuple(np.abs(deviations).mean(axis=0)))

# %%
figure, (whole, near) = plt.subplots(1, 2, figsize=(11, 4.8))
for axes in (whole, near):
    axes.plot(x, T, label="liquid, calculated")
    axes.plot(y, T, label="vapor, calculated")
    axes.plot(measured[:, 1], measured[:, 0], "C0o", fillstyle="none", label="liquid, measured")
    axes.plot(measured[:, 2], measured[:, 0], "C1s", fillstyle="none", label="vapor, measured")
    axes.plot(*azeotrope, "k*", markersize=11,
              label="azeotrope, calculated: %.3f, %.2f degC" % azeotrope)
    axes.set_xlabel("mole fraction of ethanol")
    axes.set_ylabel("T [degC]")
    axes.grid(True, alpha=0.4)
whole.set_xlim(0.0, 1.0)
whole.set_title("Ethanol and water at 101.325 kPa")
whole.legend()
near.set_xlim(0.7, 1.0)
near.set_ylim(77.9, 79.1)
near.set_title("near the azeotrope")
figure.tight_layout()
figure.savefig("ethanol-water.png", dpi=120)
