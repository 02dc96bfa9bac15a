"""Correlations that are called with temperatures."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Optional, Sequence, Tuple

from . import _catalogue, _native
from ._errors import WrongUsage

if TYPE_CHECKING:
    from ._component import Component

_TEMPERATURES = {"K": 10, "C": 11, "R": 12, "F": 13}


class Curve(_native.Curve):
    """A correlation; call it with temperatures.

    ``curve(T, unit="", temperature_unit="K", order=0, status=False, mode="exact")`` returns a float
    for a float and an array for an array. `order` 1 to 3 evaluates that derivative with respect to
    the temperature. With ``status=True`` it returns a pair, whose second part is -1 below the range
    of the record, 0 inside and 1 above. ``mode="vector"`` is faster, and within 1e-12 of the value.
    There is nan where the correlation has no value.

    Attributes
    ----------
    name, label : str
        Its name, "VaporPressure", and what it is.
    """

    name: str
    label: str
    _record: Any

    def plot(self, ax: Any = None, temperatures: Any = None, unit: str = "",
             temperature_unit: str = "K", points: int = 200, **line: Any) -> Any:
        """Draw the correlation and return the axes of matplotlib.

        Parameters
        ----------
        ax : matplotlib.axes.Axes, optional
            Where to draw; new axes without it.
        temperatures : array, optional
            Where to evaluate; `points` temperatures of the range without it.
        unit, temperature_unit : str, optional
            Units of the axes.
        **line
            Passed to ``ax.plot``.
        """
        import numpy as np

        if temperatures is None:
            low, high = _native.convert(self._ends(), "K", temperature_unit, "Temp")
            temperatures = np.linspace(float(low), float(high), points)
        if ax is None:
            from matplotlib import pyplot

            ax = pyplot.subplots()[1]
        line.setdefault("label", self._title())
        ax.plot(temperatures, self(temperatures, unit=unit, temperature_unit=temperature_unit),
                **line)
        shown = unit or self.unit
        ax.set_xlabel(f"T [{temperature_unit}]")
        ax.set_ylabel(f"{self.label} [{shown}]" if shown else self.label)
        ax.legend()
        return ax

    def both(self, temperature: Any, unit: str = "", temperature_unit: str = "K", order: int = 1,
             mode: str = "exact") -> Any:
        """Return values and derivatives of an order, from one pass over the temperatures."""
        return super().both(temperature, unit, temperature_unit, order, mode)

    def sensitivities(self, temperature: Any) -> Any:
        """Return the derivatives of the value with respect to the coefficients.

        Parameters
        ----------
        temperature : array
            In the unit of the record's temperatures.

        Returns
        -------
        numpy.ndarray
            A row for each temperature, with a column for each of 15 coefficients.
        """
        return super().sensitivities(temperature)

    def detach(self) -> "Correlation":
        """Return the correlation by itself, which refers to no component and pickles by value."""
        return Correlation._of(self.record())

    def _ends(self) -> Tuple[float, float]:
        low, high = self.range
        if low != low or high != high:
            raise WrongUsage(f"{self.name} has no range; pass temperatures")
        return low, high

    @property
    def range(self) -> Tuple[float, float]:
        """Lowest and highest temperature of the record in K; nan for an open end."""
        raise NotImplementedError

    def _title(self) -> str:
        return self.name


class ComponentCurve(Curve):
    """A correlation of a component.

    Attributes
    ----------
    equation : int
        Number of its equation.
    coefficients : list of float
        In the units of the record.
    source, citation, doi, code
        Where it comes from.
    """

    def __init__(self, component: "Component", datum: _catalogue.Datum):
        super().__init__(component._native, datum.number)
        self.name = datum.name
        self.label = datum.label
        self._component = component
        record = component._native.correlation(datum.number)
        assert record is not None  # or the call above has raised MissingDatum
        (self.equation, self.coefficients, self._low, self._high, self.record_unit, self.source,
         self.code, self.citation, self.doi) = record

    @property
    def range(self) -> Tuple[float, float]:
        return self._low, self._high

    def _title(self) -> str:
        return f"{self._component.name or self._component.id}"

    def __repr__(self) -> str:
        low, high = self.range
        unit = f" in {self.unit}" if self.unit else ""
        return (f"<{self.name} of {self._component.id}{unit}, equation {self.equation}, "
                f"{low:g} to {high:g} K, from {self.source}>")

    def __reduce__(self) -> Any:
        return getattr, (self._component, self.name)


class Correlation(Curve):
    """A correlation by itself: for fits, and for candidates that no library has.

    Parameters
    ----------
    name : str
        What it is, "VaporPressure" for example. It decides on the unit of the value.
    equation : int
        Number of the equation.
    coefficients : sequence of float
        At most 15.
    tmin, tmax : float, optional
        The range, in `temperature_unit`.
    temperature_unit : str, optional
        "K", "C", "R" or "F", of coefficients and range.
    factor : float, optional
        What turns the value of the equation into the internal unit: 100 for bar in kPa.
    logarithm : str, optional
        "natural" or "decimal", for equations with a logarithm.
    tc, pc, tb, mw : float, optional
        Constants that equations use, in K, kPa, K and kg/kg-mol.

    Examples
    --------
    >>> antoine = Correlation("VaporPressure", 21, [16.57, -3626.55, -34.29], 250.0, 400.0)
    >>> round(antoine(350.0), 3)
    161.263
    """

    def __init__(self, name: str, equation: int, coefficients: Sequence[float],
                 tmin: Optional[float] = None, tmax: Optional[float] = None, *,
                 temperature_unit: str = "K", factor: float = 1.0, logarithm: str = "natural",
                 tc: Optional[float] = None, pc: Optional[float] = None,
                 tb: Optional[float] = None, mw: Optional[float] = None,
                 ref: Optional[int] = None):
        if temperature_unit not in _TEMPERATURES:
            raise WrongUsage(f"temperature_unit is K, C, R or F, not {temperature_unit}")
        if logarithm not in ("natural", "decimal"):
            raise WrongUsage(f"logarithm is natural or decimal, not {logarithm}")
        self._fill({
            "index": _catalogue.correlation(name).number, "equation": equation,
            "coefficients": list(coefficients), "tMin": tmin, "tMax": tmax,
            "tempUnit": _TEMPERATURES[temperature_unit], "factor": factor,
            "logBasis": 1 if logarithm == "natural" else 2, "criticalTemperature": tc,
            "criticalPressure": pc, "boilingPoint": tb, "molecularWeight": mw,
        })
        self.code = ref

    @classmethod
    def _of(cls, record: dict) -> "Correlation":
        made = cls.__new__(cls)
        made._fill(record)
        made.code = None
        return made

    def _fill(self, record: dict) -> None:
        super().__init__(record)
        datum = list(_catalogue.CORRELATIONS.values())[record["index"]]
        self.name, self.label = datum.name, datum.label
        self.equation = record["equation"]
        self.coefficients = list(record["coefficients"])

    @property
    def range(self) -> Tuple[float, float]:
        record = self.record()
        unit = {code: word for word, code in _TEMPERATURES.items()}[record["tempUnit"]]
        low, high = _native.convert([record["tMin"], record["tMax"]], unit, "K", "Temp")
        return float(low), float(high)

    def __repr__(self) -> str:
        return f"<{self.name} by itself, equation {self.equation}>"

    def __reduce__(self) -> Any:
        return Correlation._of, (self.record(),)


def evaluate_each(correlations: Sequence[Curve], temperatures: Any) -> Any:
    """Evaluate correlation i at temperature i, for all i, and return the values.

    Examples
    --------
    >>> low = Correlation("VaporPressure", 21, [16.57, -3626.55, -34.29])
    >>> high = Correlation("VaporPressure", 21, [17.57, -3626.55, -34.29])
    >>> values = evaluate_each([low, high], [350.0, 350.0])
    >>> round(values[1] / values[0], 6)
    2.718282
    """
    return _native.evaluate_each(list(correlations), temperatures)
