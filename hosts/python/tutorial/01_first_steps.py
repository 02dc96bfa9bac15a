# %% [markdown]
# # First steps
#
# Component libraries are opened in order of preference. For each datum the first library that has it
# wins, and each number knows where it comes from.

# %%
import matplotlib.pyplot as plt
import numpy as np
from libraries import make

import zelaccess as za

make("crc", "perry", "sample")
libs = za.Libraries("crc.lb1", "perry.lb1", "sample.lb1")
print(f"{len(libs)} components in {libs}")

# %% [markdown]
# A component is found by ID, CAS number, number or name.

# %%
ethanol = libs["ETHANOL"]
assert libs["64-17-5"].number == libs["Ethanol"].number == ethanol.number
ethanol

# %% [markdown]
# Constants are attributes. A constant is a float that also has a unit, a source and a citation.

# %%
boiling = ethanol.NBP
print(boiling, "=", boiling.to("degC"), "from", boiling.source)
print(boiling.citation)

# %% [markdown]
# A correlation is called with temperatures. The status is -1 below the range of the record, 0 inside
# and 1 above; values outside are extrapolated.

# %%
T = np.linspace(60.0, 100.0, 5)
p, status = ethanol.VaporPressure(T, unit="bar", temperature_unit="degC", status=True)
for row in zip(T, p, status):
    print("%6.1f degC  %.4f bar  status %d" % row)

# %% [markdown]
# Constants of many components are a DataFrame. nan means that no library has the datum and that it
# cannot be derived.

# %%
names = ["METHANOL", "ETHANOL", "NPROPOH", "WATER"]
table = libs.constants(["TC", "PC", "NBP"], units={"PC": "bar", "NBP": "degC"}, components=names)
print(table.drop(columns=["number", "cas"]).round(2).to_string())

# %% [markdown]
# Vapor pressures from 1 mbar, drawn against the reciprocal of the temperature, are nearly straight
# lines. The records of perry.lb1 reach the critical point, so that library comes first here.

# %%
figure, axes = plt.subplots(figsize=(7, 5))
wide = za.Libraries("perry.lb1", "crc.lb1")
for name in names:
    curve = wide[name].VaporPressure
    T = np.linspace(max(curve.range[0], 250.0), curve.range[1], 200)
    pressure = curve(T, unit="bar")
    shown = pressure >= 1e-3
    axes.semilogy(1000.0 / T[shown], pressure[shown], label=wide[name].name)
axes.set_xlabel("1000 K / T")
axes.set_ylabel("vapor pressure [bar]")
axes.grid(True, which="major", alpha=0.4)
axes.legend()
figure.tight_layout()
figure.savefig("first-steps.png", dpi=120)
