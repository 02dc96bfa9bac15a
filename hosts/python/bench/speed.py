"""Prints how long the package takes for what it promises, beside numpy in the same run.

    PYTHONPATH=build/python/python /usr/bin/python3 hosts/python/bench/speed.py [PAIRS]

Each figure is the least of several, and the sides of a ratio take turns. PAIRS, by default a million,
is the size of the bank that is read into a DataFrame. Ratios and limits are those of docs/python.md.
"""

import subprocess
import sys
import tempfile
import time
from pathlib import Path

import numpy as np

import zelaccess as za

DATA = Path(__file__).resolve().parents[3] / "data" / "xml"
COUNT = 1_000_000


def least(*works, rounds=9, clock=time.thread_time):
    """The least processor time of each work in s, taking turns."""
    times = [float("inf")] * len(works)
    for _ in range(rounds):
        for i, work in enumerate(works):
            start = clock()
            work()
            times[i] = min(times[i], clock() - start)
    return times


def show(what, figure, limit, text):
    print(f"{what:<62} {text:>22}  {'ok' if figure <= limit else 'MISSED'}")


def import_time():
    def run(code):
        return lambda: subprocess.run([sys.executable, "-c", code], check=True)

    numpy, package = least(run("import numpy"), run("import numpy, zelaccess"),
                           clock=time.perf_counter)
    added = 1000.0 * (package - numpy)
    show("import, beside numpy, at most 100 ms", added, 100.0, f"{added:.1f} ms")


def scalar_call(curve):
    def calls():
        for _ in range(100_000):
            curve(351.4)

    taken = least(calls)[0] / 100_000 * 1e6
    show("scalar call, at most 1 us", taken, 1.0, f"{taken:.2f} us")


def numpy_side(equation, c, tc, pc, T):
    """Value and slope by formulas on whole arrays."""
    if equation == 20:
        i = 1.0 / T
        p = c[3] * T ** c[4]
        value = np.exp(c[0] + c[1] * i + c[2] * np.log(T) + p)
        return value, value * (c[2] - c[1] * i + c[4] * p) * i
    if equation == 21:
        i = 1.0 / (c[2] + T)
        value = np.exp(c[0] + c[1] * i)
        return value, value * (-c[1] * i * i)
    if equation == 19:
        i = 1.0 / T
        d = 1.0 + (c[2] + c[3] * i) * i
        value = c[0] * T ** c[1] / d
        return value, value * i * (c[1] + (c[2] + 2.0 * c[3] * i) * i / d)
    if equation == 16:
        x = 1.0 - T / c[2]
        p = x ** c[3]
        value = c[0] * c[1] ** (-1.0 - p)
        return value, value * (np.log(c[1]) * c[3] / c[2]) * p / x
    raise ValueError(equation)


FORMS = [
    ("VaporPressure", 20, [82.718, -6904.5, -8.8622, 7.4664e-6, 2.0]),
    ("VaporPressure", 21, [16.57, -3626.55, -34.29]),
    ("VaporViscosity", 19, [3.0663e-4, 0.69655, 205.0, 100.0]),
    ("LiquidDensity", 16, [2.288, 0.2685, 512.5, 0.2453]),
]


def arrays():
    T = np.linspace(200.0, 500.0, COUNT)
    for name, equation, c in FORMS:
        curve = za.Correlation(name, equation, c, 175.0, 512.0, tc=512.5, pc=8084.0)
        value, slope = numpy_side(equation, c, 512.5, 8084.0, T)
        found = curve.both(T)
        assert np.allclose(found[0], value, rtol=1e-9) and np.allclose(found[1], slope, rtol=1e-9)
        peer, exact, vector = least(lambda: numpy_side(equation, c, 512.5, 8084.0, T),
                                    lambda: curve.both(T), lambda: curve.both(T, mode="vector"))
        what = f"value and slope of 10^6, equation {equation}"
        show(f"{what}, exact, at most 2.0 of numpy", exact / peer, 2.0,
             f"{exact * 1e3:.1f} ms, {exact / peer:.2f}")
        show(f"{what}, vector, at most 0.6 of numpy", vector / peer, 0.6,
             f"{vector * 1e3:.1f} ms, {vector / peer:.2f}")


def frames(pairs):
    import pandas as pd

    side = int(pairs ** 0.5) + 1
    one, other = np.divmod(np.arange(pairs), side)
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "pairs.lb1"
        table = pd.DataFrame({"item 1": one + 1, "item 2": other + 100_001, "kij": one * 1e-4})
        with za.edit(path, new=True) as library:
            library.import_table(table, "SRKO:MANY")
        bank = za.open(path)["SRKO"]
        frame = bank.to_dataframe()
        assert len(frame) == pairs
        columns = [frame[name].to_numpy() for name in frame.columns]
        taken, peer = least(bank.to_dataframe, lambda: [one.copy() for one in columns])
    show(f"{pairs} pairs into a DataFrame, at most 3 numpy copies", taken / peer, 3.0,
         f"{taken * 1e3:.0f} ms, {taken / peer:.2f}")


def main():
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "perry.lb1"
        with za.edit(path, new=True) as library:
            library.import_document(DATA / "perry.xml")
        curve = za.Libraries(path)["ETHANOL"].VaporPressure
        import_time()
        scalar_call(curve)
    arrays()
    frames(int(sys.argv[1]) if len(sys.argv) > 1 else 1_000_000)


if __name__ == "__main__":
    main()
