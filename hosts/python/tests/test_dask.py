"""Properties as columns of Dask DataFrames, on one machine with several processes."""

import gc
import os
import pickle
import signal
import threading
import time

import numpy as np
import pandas as pd
import pytest

import zelaccess as za

dd = pytest.importorskip("dask.dataframe")
distributed = pytest.importorskip("distributed")


@pytest.fixture
def two_workers(folder, tmp_path):
    """A scheduler and two worker processes on the loopback address."""
    import dask

    with dask.config.set({"distributed.worker.memory.terminate": False}):
        with distributed.LocalCluster(
                n_workers=2, threads_per_worker=1, host="127.0.0.1", dashboard_address=None,
                local_directory=str(tmp_path / "workers")) as cluster:
            with distributed.Client(cluster) as client:
                yield client


def frame_of(points, parts, pause=0.0):
    """A lazy frame with `points` temperatures from 280 to 500 K in `parts` partitions, each of which
    takes `pause` seconds as if it were read from a disk."""
    size = points // parts

    def chunk(i):
        import time

        import numpy
        import pandas

        time.sleep(pause)
        first = i * size
        return pandas.DataFrame({"T": 280.0 + (numpy.arange(first, first + size) * (220.0 / points))})

    return dd.from_map(chunk, range(parts), meta={"T": float})


def test_partitions_have_the_values_of_calls(libs):
    curve = libs["ETHANOL"].VaporPressure
    frame = frame_of(10_000, 4)
    curves = {"p": curve, "density": libs["ETHANOL"].LiquidDensity}
    found = za.dask.evaluate(frame, curves, unit="")
    assert list(found.columns) == ["T", "p", "density"]
    assert str(found.dtypes["p"]) == "float64"
    computed = found.compute(scheduler="synchronous")
    T = computed["T"].to_numpy()
    assert (computed["p"] == curve(T)).all()
    slopes = za.dask.evaluate(frame, {"dp": curve}, order=1, unit="bar").compute()
    assert (slopes["dp"] == curve(T, order=1, unit="bar")).all()
    assert list(frame.columns) == ["T"]
    # Constants by name, and a frame of pandas.
    assert za.dask.evaluate(pd.DataFrame({"t": [78.3]}), {"p": curve}, "t", unit="bar",
                            temperature_unit="degC")["p"][0] == curve(78.3, "bar", "degC")


def test_components_in_a_column(libs):
    names = ["ETHANOL", "64-17-5", "WATER", "NOTHING", "WATER", "NOTHING"]
    frame = pd.DataFrame({"who": names * 50, "T": np.linspace(300.0, 360.0, 300)},
                         index=np.arange(300)[::-1])
    data = ["VaporPressure", "SurfaceTension"]
    lazy = za.dask.evaluate_components(dd.from_pandas(frame, npartitions=3, sort=False), libs, data,
                                       component="who")
    assert list(lazy.columns) == ["who", "T", *data]
    found = lazy.compute(scheduler="synchronous")
    assert (found.index == frame.index).all()
    for row in found.iloc[::7].itertuples():
        for name in data:
            if row.who == "NOTHING" or (name == "SurfaceTension" and row.who == "WATER"):
                assert np.isnan(getattr(row, name))
            else:
                assert getattr(row, name) == libs[row.who].correlation(name)(row.T)
    assert found.notna().sum()[data].tolist() == [200, 100]
    with pytest.raises(za.MissingDatum, match="VaporPressure"):
        za.dask.evaluate_components(frame, libs, ["VapourPressure"], component="who")


@pytest.mark.slow
def test_a_worker_dies(two_workers, libs):
    """10^7 points in 40 partitions; one worker is killed when a fifth is done."""
    client, parts, points = two_workers, 40, 10_000_000
    curve = libs["ETHANOL"].VaporPressure
    frame = za.dask.evaluate(frame_of(points, parts, 0.05), {"p": curve})
    sums = [client.compute(part["p"].agg(["sum", "count"])) for part in frame.to_delayed()]
    before = client.run(os.getpid)
    assert len(set(before.values())) == 2 and os.getpid() not in before.values()
    done = distributed.as_completed(sums)
    for _ in range(parts // 5):
        next(done)
    killed = next(iter(before.values()))
    unfinished = sum(future.status != "finished" for future in sums)
    os.kill(killed, signal.SIGKILL)
    found = pd.DataFrame(client.gather(sums))
    assert unfinished > 0
    assert found["count"].sum() == points
    T = 280.0 + np.arange(points) * (220.0 / points)
    assert found["sum"].sum() == pytest.approx(curve(T).sum(), rel=1e-12)
    with pytest.raises(ProcessLookupError):
        wait_until_gone(killed)


def wait_until_gone(process):
    """Raises ProcessLookupError when the process has ended and was waited for."""
    for _ in range(200):
        os.kill(process, 0)
        time.sleep(0.05)


def test_workers_share_the_pages_of_files(two_workers, libs, folder):
    """Each process maps the file for reading only, as shared; none has a copy of its own."""
    curve = libs["ETHANOL"].VaporPressure

    def mapped(one):
        assert one(351.4) > 0.0
        found = []
        with open("/proc/self/smaps") as file:
            for line in file:
                head = line.split()
                if "-" in head[0] and not head[0].endswith(":"):
                    mine = line.rstrip().endswith(".lb2")
                    if mine:
                        found.append({"mode": head[1], "file": head[-1]})
                elif mine and head[0] in ("Private_Dirty:", "Anonymous:", "Rss:"):
                    found[-1][head[0]] = int(head[1])
        return found

    for maps in two_workers.run(mapped, curve).values():
        assert any(one["file"] == str(folder / "crc.lb2") for one in maps)
        for one in maps:
            assert one["mode"] == "r--s"
            assert one["Private_Dirty:"] == one["Anonymous:"] == 0
        assert sum(one["Rss:"] for one in maps) > 0


def test_tasks_of_a_process_share_a_handle(libs, folder):
    text = pickle.dumps(libs["ETHANOL"].VaporPressure)
    made, wrong = [], []

    def unpickle():
        try:
            made.extend(pickle.loads(text) for _ in range(20))
        except Exception as error:
            wrong.append(error)

    threads = [threading.Thread(target=unpickle) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert wrong == [] and len(made) == 80
    assert len({id(one._component._libraries) for one in made}) == 1
    assert {one(351.4) for one in made} == {libs["ETHANOL"].VaporPressure(351.4)}
    del made
    gc.collect()
    libs.close()
    with za.edit("crc.lb1") as own:  # no process has it open any longer
        own["ETHANOL"].NBP = 351.5
    assert pickle.loads(text)._component.NBP == 351.5
