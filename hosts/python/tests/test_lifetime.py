"""Errors, order of deletion, threads and pickles."""

import gc
import itertools
import pickle
import subprocess
import sys
import threading

import numpy as np
import pytest

import zelaccess as za


def test_hierarchy():
    special = [za.OpenError, za.LibraryInUse, za.LibraryNotFound, za.DamagedLibrary,
               za.MissingComponent, za.MissingItem, za.MissingPair, za.MissingBank,
               za.MissingDatum, za.IdentityConflict, za.WrongUsage]
    assert all(issubclass(one, za.ZelError) for one in special)
    assert issubclass(za.MissingComponent, KeyError) and issubclass(za.MissingPair, za.MissingItem)
    assert issubclass(za.MissingDatum, AttributeError) and issubclass(za.WrongUsage, ValueError)
    again = pickle.loads(pickle.dumps(za.MissingPair("no pair", "own.lb1")))
    assert (str(again), again.file) == ("no pair", "own.lb1")


def test_missing_things(folder):
    libs = za.Libraries("perry.lb1")
    with pytest.raises(za.MissingComponent, match="ETHANOL"):
        libs["ETHANLO"]
    assert "ETHANLO" not in libs and "ETHANOL" in libs
    with pytest.raises(za.LibraryNotFound, match="none.lb1: not found") as raised:
        za.Libraries("none.lb1")
    assert raised.value.file == "none.lb1"
    with pytest.raises(za.MissingBank, match="it has PURECOMP:PERRY"):
        za.open("perry.lb1")["NRTL"]
    with pytest.raises(za.WrongUsage, match="NRLT"):
        libs.pair("NRLT", "ETHANOL", "WATER")
    with pytest.raises(za.WrongUsage):
        za.Libraries()
    (folder / "text.lb1").write_text("this is not a library")
    with pytest.raises(za.OpenError, match="not a component library"):
        za.Libraries("text.lb1")


def test_library_in_use(folder):
    script = ("import sys, zelaccess as za\n"
              "with za.edit('crc.lb1'):\n"
              "    print('begun', flush=True); sys.stdin.readline()\n")
    other = subprocess.Popen([sys.executable, "-c", script], stdin=subprocess.PIPE,
                             stdout=subprocess.PIPE, text=True)
    try:
        assert other.stdout.readline() == "begun\n"
        with pytest.raises(za.LibraryInUse):
            za.Libraries("crc.lb1")
        with pytest.raises(za.LibraryInUse):
            za.edit("crc.lb1")
    finally:
        other.communicate("\n")
    assert za.Libraries("crc.lb1")["ETHANOL"].NBP == 351.39


def test_damaged_library(folder):
    data = folder / "perry.lb2"
    data.write_bytes(data.read_bytes()[:1024])
    with pytest.raises(za.DamagedLibrary, match="perry.lb1"):
        za.Libraries("perry.lb1")["ETHANOL"]
    assert not za.check("perry.lb1").empty


def test_identity_conflict(folder):
    with za.edit("other.lb1", new=True) as other:
        other.import_table(
            __import__("pandas").DataFrame({"number": [10000007], "ids": ["ETHANOL"],
                                            "name": ["Benzene"], "cas": ["71-43-2"],
                                            "formula": ["C6H6"], "TC": [562.0]}),
            "PURECOMP:OTHER")
    with pytest.raises(za.IdentityConflict, match="Benzene"):
        za.Libraries("other.lb1", "perry.lb1")["ETHANOL"]
    accepting = za.Libraries("other.lb1", "perry.lb1", accept_identity=True)
    assert accepting["ETHANOL"].name == "Benzene"


def test_no_order_of_deletion_crashes(folder):
    def make():
        libs = za.Libraries("own.lb1", "perry.lb1")
        library = za.open("sample.lb1", names="perry.lb1")
        component = libs["ETHANOL"]
        bank = library["NRTL"]
        return {"libs": libs, "library": library, "component": component,
                "curve": component.VaporPressure, "pair": libs.pair("NRTL", "ETHANOL", "WATER"),
                "bank": bank, "columns": bank.columns(["bij"])}

    expected = make()["curve"](351.4)
    names = list(make())
    for order in itertools.islice(itertools.permutations(names), 0, None, 41):
        made = make() if order[0] == names[0] else {**make()}
        for name in order:
            del made[name]
            gc.collect(0)
            if "curve" in made:
                assert made["curve"](351.4) == expected
            if "component" in made:
                assert made["component"].constant("TC") > 0.0
            if "columns" in made:
                assert made["columns"]["bij"].size == 218
            if "bank" in made:
                assert made["bank"]["ETHANOL", "WATER"].bji == 624.867
            if "pair" in made:
                assert made["pair"].source


def test_many_threads_read_one_handle(folder):
    libs = za.Libraries("crc.lb1", "perry.lb1", "sample.lb1")
    bank = za.open("sample.lb1", names="perry.lb1")["NRTL"]
    ethanol = libs["ETHANOL"]
    temperatures = np.linspace(200.0, 500.0, 20_000)
    expected = (libs["WATER"].TC, bank["ETHANOL", "WATER"].bji,
                ethanol.VaporPressure(temperatures).sum())
    wrong = []

    def read():
        try:
            for i in range(20):
                found = (libs["WATER"].TC, bank["ETHANOL", "WATER"].bji,
                         ethanol.VaporPressure(temperatures).sum())
                if found != expected or ethanol.constant("NBP") != 351.39:
                    wrong.append(found)
                if i % 5 == 0:
                    libs.close()  # opens again
        except Exception as error:
            wrong.append(error)

    threads = [threading.Thread(target=read) for _ in range(8)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert wrong == []


def test_batches_release_the_lock_of_the_interpreter(folder):
    curve = za.Libraries("perry.lb1")["ETHANOL"].VaporPressure
    temperatures = np.linspace(200.0, 500.0, 3_000_000)
    ended = threading.Event()
    ticks = []

    def tick():
        while not ended.wait(0.001):
            ticks.append(1)

    thread = threading.Thread(target=tick)
    thread.start()
    curve(temperatures)
    count = len(ticks)
    ended.set()
    thread.join()
    assert count >= 3


def test_handles_pickle_by_path(folder, monkeypatch, tmp_path_factory):
    libs = za.Libraries("crc.lb1:CRC", "perry.lb1", names="perry.lb1", wait=1.5)
    ethanol = libs["ETHANOL"]
    texts = [pickle.dumps(one) for one in
             (libs, ethanol, ethanol.VaporPressure, za.open("sample.lb1", names="perry.lb1"),
              libs.item("PURECOMP", "ETHANOL"))]
    monkeypatch.chdir(tmp_path_factory.mktemp("elsewhere"))
    again, component, curve, library, item = (pickle.loads(text) for text in texts)
    assert again.wait == 1.5 and again["ETHANOL"].NBP == 351.39
    assert component.VaporPressure(351.4) == curve(351.4) == ethanol.VaporPressure(351.4)
    assert library["NRTL"]["ETHANOL", "WATER"].bji == 624.867
    assert item["NBP"] == 351.39
    with za.edit(str(folder / "own.lb1")) as own:
        with pytest.raises(TypeError, match="path of the library"):
            pickle.dumps(own)


def test_import_reports_a_failed_start():
    run = subprocess.run([sys.executable, "-c", "import zelaccess"], capture_output=True, text=True,
                         env={**__import__("os").environ, "TMPDIR": "/missing"})
    assert run.returncode == 1
    assert "ImportError: zelaccess cannot start" in run.stderr and "TMPDIR" in run.stderr
