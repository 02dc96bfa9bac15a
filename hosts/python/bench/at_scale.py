"""Prints what evaluations with Dask take on this machine, and what 10^10 of them would.

    PYTHONPATH=$PWD/build/python/python /usr/bin/python3 hosts/python/bench/at_scale.py [POINTS] [WORKERS]

POINTS, by default 4 * 10^7, are vapor pressures of ethanol at random temperatures, in partitions of
10^6, whose sums are taken. Figures are processor time, of all processes together, the least of three runs.
"""

import os
import sys
import tempfile
import time
from pathlib import Path

import numpy as np

import zelaccess as za

DATA = Path(__file__).resolve().parents[3] / "data" / "xml"
SIZE = 1_000_000
GOAL = 1e10


def chunk(i):
    """A partition of temperatures."""
    import numpy
    import pandas

    return pandas.DataFrame({"T": numpy.random.default_rng(i).uniform(280.0, 500.0, SIZE)})


def least(work, clock=time.process_time):
    """The least processor time of three runs in s; each is passed its number."""
    times = []
    for run in range(3):
        start = clock()
        work(run)
        times.append(clock() - start)
    return min(times)


def show(what, points, seconds):
    core_hours = seconds / points * GOAL / 3600.0
    print(f"{what:<42} {points / seconds / 1e6:7.1f} million/s of a core {core_hours:7.2f} core hours")


def on_dask(curve, points, workers, mode):
    import dask.dataframe as dd
    from distributed import Client, LocalCluster

    with LocalCluster(n_workers=workers, threads_per_worker=1, host="127.0.0.1",
                      dashboard_address=None) as cluster, Client(cluster) as client:
        count = points // SIZE

        def frame(run):  # other temperatures in each run, or Dask would not compute them again
            return dd.from_map(chunk, range(run * count, (run + 1) * count), meta={"T": float})

        def clock():  # of the workers, and of this process, which has the scheduler
            return sum(client.run(time.process_time).values()) + time.process_time()

        def evaluated(run):
            made = za.dask.evaluate(frame(run), {"p": curve}, mode=mode)
            assert made["p"].sum().compute() > 0.0

        show(f"Dask, {workers} workers, {mode}", points, least(evaluated, clock))
        bare = least(lambda run: frame(run + 3)["T"].sum().compute(), clock)
        show(f"Dask, {workers} workers, temperatures only", points, bare)


def main():
    points = int(float(sys.argv[1])) if len(sys.argv) > 1 else 40_000_000
    workers = int(sys.argv[2]) if len(sys.argv) > 2 else min(2, os.cpu_count() or 1)
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "perry.lb1"
        with za.edit(path, new=True) as library:
            library.import_document(DATA / "perry.xml")
        curve = za.Libraries(path)["ETHANOL"].VaporPressure
        temperatures = np.random.default_rng(0).uniform(280.0, 500.0, SIZE)
        for mode in ("exact", "vector"):
            show(f"one process, arrays of 10^6, {mode}", SIZE,
                 least(lambda run: curve(temperatures, mode=mode)))
        for mode in ("exact", "vector"):
            on_dask(curve, points, workers, mode)


if __name__ == "__main__":
    main()
