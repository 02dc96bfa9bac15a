"""The session of the documentation, as it is printed there."""

import re
from pathlib import Path

import numpy as np
import pytest

import zelaccess as za

DOCUMENT = Path(__file__).resolve().parents[3] / "docs" / "python.md"

SESSION = '''\
import zelaccess as za, numpy as np
libs = za.Libraries("own.lb1", "perry.lb1", "crc.lb1", names="perry.lb1")
eth = libs["ETHANOL"]                        # or "64-17-5", 10000007, "Ethanol"
eth.NBP, eth.NBP.unit, eth.NBP.source        # a float that knows its unit, source, citation, state
libs.why("ETHANOL", "NBP")                   # a DataFrame, one row per library
T = np.linspace(293.15, 383.15, 10)
p, where = eth.VaporPressure(T, unit="bar", status=True)   # arrays; -1, 0, 1
dp = eth.VaporPressure(T, order=1)
eth.VaporPressure.plot()                     # matplotlib axes
df = libs.constants(["TC", "PC", "NBP"], units={"PC": "bar", "NBP": "degC"})
nrtl = libs.pair("NRTL", "ETHANOL", "WATER") # a mapping with attributes; MissingPair if there is none
libs.coverage(["ETHANOL", "WATER", "BENZENE"], models=["NRTL"])
with za.edit("own.lb1") as own:              # all or nothing, as zel's changes
    own["ETHANOL"].NBP = za.Q(78.31, "degC", ref=999)
za.from_dataframe(df, bank="MINE").save("mine.lb1")
eth                                          # in a notebook: a data sheet
'''


def test_session_is_that_of_the_document():
    text = DOCUMENT.read_text()
    assert SESSION in text


def test_session(folder):
    """Each line runs, and has the result that its comment says."""
    space = {}
    exec(compile(SESSION, "session", "exec"), space)
    libs, eth, df, nrtl = space["libs"], space["eth"], space["df"], space["nrtl"]
    # A float that knows its unit, source, citation and state.
    assert isinstance(eth.NBP, float)
    assert eth.NBP == 351.39
    assert eth.NBP.unit == "K"
    assert eth.NBP.source == "crc.lb1:CRC"
    assert eth.NBP.citation.startswith("CRC Handbook")
    assert eth.NBP.state == "stored"
    for word in ("64-17-5", 10000007, "Ethanol"):
        assert libs[word].number == 10000007
    # One row per library: own.lb1 has a component without a boiling point when it is read first.
    why = za.Libraries("perry.lb1", "crc.lb1").why("ETHANOL", "NBP")
    assert list(why["source"]) == ["perry.lb1:PERRY", "crc.lb1:CRC"]
    assert list(why["result"]) == ["has no value", "won"]
    assert why["value"][1] == 351.39
    # Arrays.
    assert space["p"].shape == space["where"].shape == space["dp"].shape == (10,)
    assert space["where"].dtype == np.int32 and set(space["where"]) == {0}
    assert space["p"][0] == pytest.approx(0.0595, rel=0.02)  # bar, published, at 20 C
    step = 1e-3
    ahead, behind = (eth.VaporPressure(space["T"] + sign * step) for sign in (1.0, -1.0))
    assert space["dp"] == pytest.approx((ahead - behind) / (2.0 * step), rel=1e-6)
    # The frame.
    assert list(df.columns[-3:]) == ["TC", "PC", "NBP"]
    assert df.attrs["units"] == {"TC": "K", "PC": "bar", "NBP": "degC"}
    assert df.loc["ETHANOL", "NBP"] == pytest.approx(78.24)
    assert df.loc["WATER", "PC"] == pytest.approx(220.64)
    assert len(df) == len(libs.components())
    # A mapping with attributes.
    assert nrtl["bji"] == nrtl.bji == 624.867
    assert nrtl.bji.unit == "K"
    with pytest.raises(za.MissingPair, match="ETHANOL \\+ ETHANOL"):
        libs.pair("NRTL", "ETHANOL", "ETHANOL")
    coverage = libs.coverage(["ETHANOL", "WATER", "BENZENE"], models=["NRTL"])
    assert list(coverage["one"]) == ["ETHANOL", "ETHANOL", "WATER"]
    assert coverage["from"][0].startswith("own.lb1")
    # The edit is in the library, with its reference.
    assert libs["ETHANOL"].NBP == pytest.approx(351.46)
    assert libs["ETHANOL"].NBP.code == 999
    assert list(za.history("own.lb1")["command"]) == ["zelaccess.edit"]
    # What was saved has the same values.
    mine = za.Libraries("mine.lb1")
    assert mine["ETHANOL"].TC == pytest.approx(df.loc["ETHANOL", "TC"], rel=1e-6)
    assert mine["ETHANOL"].NBP == pytest.approx(351.39, rel=1e-6)
    assert mine["ETHANOL"].cas == "64-17-5"
    assert len(mine) == len(df)
    # A data sheet.
    html = eth._repr_html_()
    assert "351.39" in html and "VaporPressure" in html and "64-17-5" in html


def test_plot(libs):
    axes = libs["ETHANOL"].VaporPressure.plot(unit="bar", temperature_unit="degC")
    line = axes.lines[0]
    assert axes.get_ylabel() == "vapor pressure [bar]"
    assert axes.get_xlabel() == "T [degC]"
    assert [text.get_text() for text in axes.get_legend().get_texts()] == ["Ethanol"]
    low, high = libs["ETHANOL"].VaporPressure.range
    assert line.get_xdata()[0] == pytest.approx(low - 273.15)
    assert line.get_xdata()[-1] == pytest.approx(high - 273.15)
    at = libs["ETHANOL"].VaporPressure(line.get_xdata()[100], "bar", "degC")
    assert line.get_ydata()[100] == at


def test_repr_and_completion(libs):
    eth = za.Libraries("perry.lb1")["ETHANOL"]
    assert repr(eth) == "<Component ETHANOL, Ethanol, C2H6O, 64-17-5>"
    assert repr(libs) == "Libraries('crc.lb1', 'perry.lb1', 'sample.lb1')"
    assert re.match("<VaporPressure of ETHANOL in kPa, equation 20, 159.05 to 514 K",
                    repr(eth.VaporPressure))
    assert {"NBP", "VaporPressure", "cas"} <= set(dir(eth))
    assert "Dielectric" not in dir(eth)
    assert "ETHANOL" in libs._ipython_key_completions_()
    assert "bij" in dir(libs.pair("NRTL", "ETHANOL", "WATER"))
    assert "NRTL:SAMPLE" in za.open("sample.lb1")._ipython_key_completions_()
    assert "NBP" in dir(za.Libraries("perry.lb1")["WATER"])
