# %% [markdown]
# # Screening by a window of properties
#
# Which of 340 components could be a working fluid or a solvent? The constants and correlations of all
# of them are columns of a DataFrame, and a window is a condition on columns.

# %%
import matplotlib.pyplot as plt
import numpy as np
from libraries import make

import zelaccess as za

make("chemsep", "perry", "crc")
libs = za.Libraries("chemsep.lb1", "perry.lb1", "crc.lb1")
table = libs.constants(["MW", "TC", "PC", "NBP", "NMP", "FLASHPOINT"],
                       units={name: "degC" for name in ("NBP", "NMP", "FLASHPOINT")})
print(f"{len(table)} components")
print(table[["MW", "TC", "PC", "NBP", "NMP", "FLASHPOINT"]].notna().sum().to_string())

# %% [markdown]
# The first window, by constants: boils between 60 and 120 degC, melts below -20 degC. A component whose
# boiling point is not known does not pass; it is counted, so that it is not overlooked.

# %%
window = table[table["NBP"].between(60.0, 120.0) & (table["NMP"] < -20.0)].copy()
unknown = table["NBP"].isna() | table["NMP"].isna()
print(f"{len(window)} in the window, {unknown.sum()} without one of the two constants")

# %% [markdown]
# The second window, by correlations at 25 degC: heat of vaporization at most 36 kJ/mol and viscosity of
# the liquid at most 0.6 cP. The status says whether the record applies at this temperature; what is
# extrapolated does not count.


# %%
def at_25(name, datum):
    """The value at 25 degC in internal units, nan if it is missing or extrapolated."""
    try:
        value, status = libs[name].correlation(datum)(298.15, status=True)
    except za.MissingDatum:
        return np.nan
    return value if status == 0 else np.nan


window["heat"] = [at_25(name, "LatentHeat") / 1000.0 for name in window.index]
window["viscosity"] = [at_25(name, "LiquidViscosity") for name in window.index]
chosen = window[(window["heat"] <= 36.0) & (window["viscosity"] <= 0.6)].sort_values("NBP")
print(chosen[["name", "NBP", "heat", "viscosity"]].round(2).to_string())

# %%
figure, axes = plt.subplots(figsize=(7, 5))
axes.plot(window["heat"], window["viscosity"], "o", color="0.7", label="in the first window")
axes.plot(chosen["heat"], chosen["viscosity"], "C0o", label="in both windows")
axes.axvline(36.0, color="black", linewidth=0.8, linestyle="--")
axes.axhline(0.6, color="black", linewidth=0.8, linestyle="--")
axes.set_yscale("log")
axes.set_yticks([0.3, 0.6, 1.0, 2.0, 3.0], ["0.3", "0.6", "1", "2", "3"])
axes.tick_params(axis="y", which="minor", labelleft=False)
axes.set_xlabel("heat of vaporization at 25 degC [kJ/mol]")
axes.set_ylabel("viscosity of the liquid at 25 degC [cP]")
axes.set_title(f"{len(chosen)} of {len(table)} components")
axes.grid(True, which="both", alpha=0.3)
axes.legend()
figure.tight_layout()
figure.savefig("screening.png", dpi=120)
