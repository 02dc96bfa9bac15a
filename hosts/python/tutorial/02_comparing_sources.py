# %% [markdown]
# # Comparing sources
#
# Two sources rarely agree. Before a number is used it helps to know which source it comes from, what
# the others say, and how far apart they are.

# %%
import matplotlib.pyplot as plt
import numpy as np
from libraries import make

import zelaccess as za

make("perry", "chemsep", "crc")
libs = za.Libraries("perry.lb1", "chemsep.lb1", "crc.lb1")

# %% [markdown]
# One datum: a row for each library, and which one wins.

# %%
why = libs.why("PGLYCOL", "PC")
print(why[["source", "value", "code", "result"]].to_string())

# %% [markdown]
# All data of two sources, compared by value whatever equations and units they use. Only what differs by
# more than 5 % is listed.

# %%
comparison = za.compare("perry.lb1", "chemsep.lb1", tolerance=0.05)
print(comparison)
counts = comparison.correlations.groupby("correlation").size().sort_values(ascending=False)
print(counts.to_string())
print(comparison.constants.sort_values("deviation", key=abs).tail(5).to_string())

# %% [markdown]
# Where do the vapor pressures of a component differ? The deviation is shown where both records apply.

# %%
figure, axes = plt.subplots(figsize=(7, 5))
one, other = za.Libraries("perry.lb1"), za.Libraries("chemsep.lb1")
deviations = {}
for name in ["BENZENE", "ETHANOL", "WATER", "TOLUENE"]:
    first, second = one[name].VaporPressure, other[name].VaporPressure
    low = max(first.range[0], second.range[0], 280.0)
    high = min(first.range[1], second.range[1])
    T = np.linspace(low, high, 300)
    deviations[name] = 100.0 * (second(T) / first(T) - 1.0)
    axes.plot(T, deviations[name], label=one[name].name)
axes.axhline(0.0, color="black", linewidth=0.8)
axes.set_xlabel("T [K]")
axes.set_ylabel("vapor pressure, ChemSep against Perry [%]")
axes.grid(True, alpha=0.4)
axes.legend()
figure.tight_layout()
figure.savefig("comparing-sources.png", dpi=120)

# %% [markdown]
# The checks of the data look at each library by itself and at all of them together. Findings are a
# DataFrame.

# %%
findings = za.check("crc.lb1")
print(findings.groupby("severity").size().to_string() if len(findings) else "nothing found")
