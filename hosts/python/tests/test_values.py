"""Quantities, curves and arrays."""

import math
import pickle
import sys

import numpy as np
import pytest

import zelaccess as za


@pytest.fixture
def ethanol(folder):
    return za.Libraries("crc.lb1", "perry.lb1")["ETHANOL"]


def test_quantity_knows_what_it_is(ethanol):
    weight = ethanol.MW
    assert weight + 1.0 == float(weight) + 1.0 and type(weight + 1.0) is float
    assert (weight.unit, weight.state) == ("kg/kg-mol", "stored")
    carbons = ethanol.CNUM
    assert (carbons, carbons.state, carbons.citation) == (2.0, "filled in", None)
    assert carbons.unit is None
    missing = ethanol.CHAO
    assert math.isnan(missing) and missing.state == "missing"
    assert (missing.source, missing.code, missing.citation) == (None, None, None)
    assert ethanol.constant("NBP", "degC") == pytest.approx(78.24)
    assert ethanol.constant("nbp", "degC").unit == "C"
    assert ethanol.NBP.to("degC") == pytest.approx(78.24)
    assert f"{ethanol.NBP:.1f}" == "351.4" and str(ethanol.NBP) == "351.39 K"
    again = pickle.loads(pickle.dumps(ethanol.NBP))
    assert (again, again.unit, again.source, again.code) == (351.39, "K", "crc.lb1:CRC", 54)


def test_units_that_do_not_suit(ethanol):
    with pytest.raises(za.WrongUsage, match="bar is not a unit of normal boiling point"):
        ethanol.constant("NBP", "bar")
    with pytest.raises(za.WrongUsage):
        ethanol.VaporPressure(300.0, unit="W")
    with pytest.raises(za.WrongUsage, match="order is 0"):
        ethanol.VaporPressure(300.0, order=4)
    with pytest.raises(za.WrongUsage, match="vector"):
        ethanol.VaporPressure(300.0, mode="quick")
    with pytest.raises(za.WrongUsage, match="cannot be converted"):
        za.convert(1.0, "bar", "degC")
    assert za.convert(1.0, "degC", "degF", "TempDiff") == pytest.approx(1.8)


def test_scalars_and_arrays_agree(ethanol):
    curve = ethanol.VaporPressure
    temperatures = np.linspace(-5.0, 600.0, 5001)
    values, where = curve(temperatures, status=True)
    alone = np.array([curve(float(one)) for one in temperatures])
    np.testing.assert_array_equal(values, alone)
    assert np.isnan(values[temperatures < 0.0]).all()
    assert np.isfinite(values[temperatures > 1.0]).all()
    low, high = curve.range
    np.testing.assert_array_equal(where, np.where(temperatures < low, -1, temperatures > high))
    assert isinstance(curve(300.0), float) and isinstance(curve(300), float)
    assert curve([[300.0, 310.0]]).shape == (1, 2)
    value, status = curve(300.0, status=True)
    assert (value, status) == (curve(300.0), -1)
    np.testing.assert_array_equal(curve(temperatures[::2]), values[::2])
    both, slopes = curve.both(temperatures)
    np.testing.assert_array_equal(both, values)
    np.testing.assert_array_equal(slopes, curve(temperatures, order=1))
    fast = curve(temperatures[10:], mode="vector")
    np.testing.assert_allclose(fast, values[10:], rtol=1e-12)


def test_contiguous_doubles_are_not_copied(ethanol):
    import tracemalloc

    temperatures = np.linspace(300.0, 400.0, 1_000_000)
    tracemalloc.start()
    values = ethanol.VaporPressure(temperatures)
    peak = tracemalloc.get_traced_memory()[1]
    tracemalloc.stop()
    assert values.nbytes <= peak < values.nbytes + 100_000


def test_sensitivities(ethanol):
    curve = ethanol.VaporPressure.detach()
    weights = curve.sensitivities(np.array([360.0]))
    record = curve.record()
    step = 1e-6
    record["coefficients"][0] += step
    moved = za.Correlation._of(record)
    assert weights[0, 0] == pytest.approx((moved(360.0) - curve(360.0)) / step, rel=1e-4)


def test_detached_correlation(ethanol):
    curve = ethanol.VaporPressure.detach()
    temperatures = np.linspace(300.0, 500.0, 100)
    np.testing.assert_array_equal(curve(temperatures), ethanol.VaporPressure(temperatures))
    assert curve.range == ethanol.VaporPressure.range
    again = pickle.loads(pickle.dumps(curve))
    assert again(351.0) == curve(351.0)
    values = za.evaluate_each([curve, again], [350.0, 360.0])
    assert list(values) == [curve(350.0), curve(360.0)]
    with pytest.raises(za.WrongUsage, match="15"):
        za.Correlation("VaporPressure", 21, [1.0] * 16)
    with pytest.raises(za.MissingDatum, match="did you mean VaporPressure"):
        za.Correlation("VapourPressure", 21, [1.0])


def test_messages_teach(ethanol):
    with pytest.raises(za.MissingDatum, match="did you mean NBP"):
        ethanol.NPB
    with pytest.raises(za.MissingDatum, match="no correlation of dielectric"):
        za.Libraries("perry.lb1")["ETHANOL"].Dielectric
    assert not hasattr(za.Libraries("perry.lb1")["ETHANOL"], "Dielectric")
    with pytest.raises(za.MissingDatum, match="zelaccess.edit"):
        ethanol.NBP = 350.0
    pair = za.Libraries("sample.lb1", names="perry.lb1").pair("NRTL", "ETHANOL", "WATER")
    with pytest.raises(za.MissingDatum, match="it has"):
        pair.cij9
    with pytest.raises(za.MissingField, match="has no field cij9; it has"):
        pair["cij9"]
    assert isinstance(pytest.raises(KeyError, lambda: pair["cij9"]).value, za.MissingDatum)
    assert pair.get("cij9") is None and not hasattr(pair, "cij9")


def test_objects_do_not_leak(ethanol):
    curve = ethanol.VaporPressure
    temperatures = np.linspace(300.0, 400.0, 10)
    curve(temperatures, status=True)
    before = sys.getrefcount(temperatures)
    for _ in range(100):
        curve(temperatures, status=True)
    assert sys.getrefcount(temperatures) == before
