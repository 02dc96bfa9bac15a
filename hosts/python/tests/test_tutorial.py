"""The scripts of the tutorial run, and find what they say that they find."""

import runpy
import sys
from pathlib import Path

import numpy as np
import pytest

TUTORIAL = Path(__file__).resolve().parents[1] / "tutorial"


@pytest.fixture(scope="session")
def workplace(tmp_path_factory):
    return tmp_path_factory.mktemp("tutorial")


@pytest.fixture
def run(workplace, monkeypatch):
    """Runs a script in the folder of the tutorial's libraries and returns what it defines."""
    from matplotlib import pyplot

    monkeypatch.chdir(workplace)
    monkeypatch.setenv("ZEL_CONFIG", "")
    monkeypatch.setattr(sys, "dont_write_bytecode", True)
    monkeypatch.syspath_prepend(str(TUTORIAL))

    def script(name):
        made = runpy.run_path(str(TUTORIAL / f"{name}.py"))
        picture = workplace / f"{name[3:].replace('_', '-')}.png"
        assert pyplot.imread(picture).std() > 0.02  # not an empty page
        pyplot.close("all")
        return made

    yield script
    for name in ("libraries", "nrtl"):
        sys.modules.pop(name, None)


def test_each_script_is_tested():
    tested = {name[5:] for name in globals() if name.startswith("test_")}
    assert {file.stem[3:] for file in TUTORIAL.glob("0*.py")} <= tested
    for file in TUTORIAL.glob("0*.py"):
        assert file.read_text().startswith("# %% [markdown]\n# # ")


def test_first_steps(run):
    found = run("01_first_steps")
    assert len(found["libs"]) == 340
    assert found["boiling"].to("degC") == pytest.approx(78.24)
    assert list(found["status"]) == [-1, 0, 0, 0, 0]
    assert found["table"].loc["WATER", "PC"] == pytest.approx(220.6, abs=0.5)


def test_comparing_sources(run):
    found = run("02_comparing_sources")
    assert list(found["why"]["source"])[:2] == ["perry.lb1:PERRY", "chemsep.lb1:CHEMSEP"]
    assert list(found["why"]["result"])[:2] == ["won", "comes later"]
    assert list(found["why"]["value"])[:2] == pytest.approx([5941.0, 6090.0])
    assert (found["comparison"].constants["deviation"].abs() > 5.0).all()
    assert 3.0 < np.abs(found["deviations"]["TOLUENE"]).max() < 8.0
    assert np.abs(found["deviations"]["WATER"]).max() < 0.3


def test_antoine_fit(run):
    found = run("03_antoine_fit")
    assert np.abs(found["deviation"]).max() < 0.1  # percent
    # The sum of squares is least: it grows when any coefficient changes.
    T, p, antoine = found["T"], found["p"], found["antoine"]

    def squares(coefficients):
        return (np.log(antoine(coefficients)(T) / p) ** 2).sum()

    best = squares(found["found"])
    for i in range(3):
        for factor in (1.0 - 1e-6, 1.0 + 1e-6):
            moved = found["found"].copy()
            moved[i] *= factor
            assert squares(moved) > best
    record = found["water"].VaporPressure
    assert record.source == "own.lb1:PERRY" and record.code == 901
    assert record.citation.startswith("Antoine fit of IAPWS-95")
    assert record(T) == pytest.approx(found["fit"](T), rel=1e-5)  # kept in single precision
    assert found["published"].source == "perry.lb1:PERRY"


def test_ethanol_water(run):
    """The azeotrope is published at 0.8943 and 78.15 degC."""
    found = run("04_ethanol_water")
    composition, temperature = found["azeotrope"]
    assert composition == pytest.approx(0.8943, abs=0.02)
    assert temperature == pytest.approx(78.15, abs=0.15)
    assert temperature == pytest.approx(found["T"].min(), abs=1e-3)
    assert len(found["measured"]) == 15
    assert (np.abs(found["deviations"]).mean(axis=0) < [0.3, 0.01]).all()  # K, mole fraction
    # Gibbs and Duhem: x1 d(ln gamma1)/dx + x2 d(ln gamma2)/dx = 0.
    gamma = found["model"].gamma
    step = 1e-5
    for x in (0.1, 0.5, 0.9):
        ahead, behind = (np.log(gamma(np.array([x + d, 1.0 - x - d]), 350.0)) for d in (step, -step))
        slope = (ahead - behind) / (2.0 * step)
        assert x * slope[0] + (1.0 - x) * slope[1] == pytest.approx(0.0, abs=1e-7)


def test_screening(run):
    found = run("05_screening")
    chosen = found["chosen"]
    assert len(found["table"]) == 340
    assert {"NHEXANE", "THF", "ACN"} <= set(chosen.index)
    assert not {"WATER", "ETHANOL", "BENZENE", "ACETONE"} & set(chosen.index)
    assert chosen["NBP"].between(60.0, 120.0).all() and (chosen["viscosity"] <= 0.6).all()


def test_flash(run):
    found = run("06_flash")
    assert found["missing"] == [("WATER", "BENZENE")]
    v, x, y = found["v"], found["x"], found["y"]
    assert (1.0 - v) * x + v * y == pytest.approx(found["FEED"], abs=1e-9)
    assert x.sum() == pytest.approx(1.0) and y.sum() == pytest.approx(1.0)
    # Both phases have the same fugacities.
    pure = np.array([curve(345.0) for curve in found["curves"]])
    assert y * found["PRESSURE"] == pytest.approx(found["model"].gamma(x, 345.0) * pure * x, rel=1e-9)
    fractions = [one[0] for one in found["results"]]
    assert fractions[0] == 0.0 and fractions[-1] == 1.0 and fractions == sorted(fractions)
