# %% [markdown]
# # An Antoine fit of own data, kept in an own library
#
# Eleven vapor pressures are fitted with the Antoine equation, ln p = A + B / (T + C), and the result is
# written to a library with a reference. That library is then the first in the list of libraries.

# %%
import matplotlib.pyplot as plt
import numpy as np
from libraries import make

import zelaccess as za

make("perry")

# %% [markdown]
# The data: saturation pressure of water after the IAPWS-95 formulation (Wagner and Pruss, J. Phys.
# Chem. Ref. Data 31 (2002) 387), in K and kPa.

# %%
T = np.arange(300.0, 401.0, 10.0)
p = np.array([3.5368, 6.2311, 10.546, 17.213, 27.188, 41.682, 62.194, 90.535, 128.85, 179.64,
              245.77])

# %% [markdown]
# T ln p = A T - C ln p + (A C + B) is linear in A, C and A C + B: a start without iteration. It does not
# weight the points alike, so a few Gauss-Newton steps follow, which make the sum of the squares of the
# deviations of ln p least. `sensitivities` are the derivatives of the pressure with respect to the
# coefficients.

# %%
left = np.column_stack([T, -np.log(p), np.ones_like(T)])
a, c, rest = np.linalg.lstsq(left, T * np.log(p), rcond=None)[0]
found = np.array([a, rest - a * c, c])


def antoine(coefficients):
    """The correlation with these coefficients, for the range of the data."""
    return za.Correlation("VaporPressure", 21, list(coefficients), T[0], T[-1], ref=901)


for _ in range(5):
    curve = antoine(found)
    slopes = curve.sensitivities(T)[:, :3] / curve(T)[:, np.newaxis]
    found = found + np.linalg.lstsq(slopes, np.log(p / curve(T)), rcond=None)[0]
fit = antoine(found)
deviation = 100.0 * (fit(T) / p - 1.0)
print("A, B, C:", np.round(found, 4), " greatest deviation: %.3f %%" % np.abs(deviation).max())

# %% [markdown]
# The own library is made with a memo that says what the reference code 901 means. `source` copies the
# component from another library first; then the fit replaces its vapor pressure. All of it happens, or
# nothing.

# %%
DOCUMENT = """<library>
  <description> Own data </description>
  <version> 1 </version>
  <memo><![CDATA[ ref 901: Antoine fit of IAPWS-95 saturation pressures, 300 to 400 K ]]></memo>
</library>
"""
with open("own.xml", "w", encoding="utf-8") as file:
    file.write(DOCUMENT)
with za.edit("own.lb1", new=True, note="vapor pressure of water") as own:
    own.import_document("own.xml")
    own.set("WATER", source="perry.lb1", VaporPressure=fit)

# %% [markdown]
# Read back: the own record is used, and it says where it comes from. A library keeps numbers in single
# precision, so the values agree with the fit to about 1e-5.

# %%
water = za.Libraries("own.lb1", "perry.lb1")["WATER"]
print(water.VaporPressure, water.VaporPressure.code, water.VaporPressure.citation)

# %%
published = za.Libraries("perry.lb1")["WATER"].VaporPressure
figure, (above, below) = plt.subplots(2, 1, figsize=(7, 6), sharex=True,
                                      gridspec_kw={"height_ratios": [2, 1]})
above.semilogy(T, p, "ko", label="data")
fine = np.linspace(T[0], T[-1], 200)
above.semilogy(fine, water.VaporPressure(fine), label="Antoine fit")
above.set_ylabel("vapor pressure [kPa]")
above.legend()
below.plot(T, deviation, "o-", label="fit")
below.plot(T, 100.0 * (published(T) / p - 1.0), "s--", label="Perry's record")
below.axhline(0.0, color="black", linewidth=0.8)
below.set_xlabel("T [K]")
below.set_ylabel("deviation [%]")
below.legend()
for axes in (above, below):
    axes.grid(True, alpha=0.4)
figure.tight_layout()
figure.savefig("antoine-fit.png", dpi=120)
