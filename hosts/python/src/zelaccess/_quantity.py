"""Numbers that know their unit and where they come from."""

from __future__ import annotations

from typing import Any, Optional

from . import _native


class Quantity(float):
    """A number with a unit. In calculations it is a plain float.

    Attributes
    ----------
    unit : str or None
        Its unit; None for a pure number.
    source : str or None
        The library and bank that it comes from, or the method that derived it.
    code : int or None
        Its reference code.
    state : str
        "stored", "filled in" for a derived value, "missing" for nan, "given" if you made it.
    citation, doi : str or None
        What is cited for it.

    Examples
    --------
    >>> import zelaccess as za
    >>> boiling = za.Q(78.31, "degC", ref=999)
    >>> boiling, boiling.unit, boiling.code
    (78.31 degC, 'degC', 999)
    >>> round(boiling.to("K"), 2)
    351.46
    """

    __slots__ = ("unit", "source", "code", "state", "citation", "doi", "dimension")

    unit: Optional[str]
    source: Optional[str]
    code: Optional[int]
    state: str
    citation: Optional[str]
    doi: Optional[str]
    dimension: str

    def __new__(cls, value: float, unit: Optional[str] = None, source: Optional[str] = None,
                code: Optional[int] = None, state: str = "given", citation: Optional[str] = None,
                doi: Optional[str] = None, dimension: str = "") -> "Quantity":
        self = super().__new__(cls, value)
        self.unit = unit
        self.source = source
        self.code = code
        self.state = state
        self.citation = citation
        self.doi = doi
        self.dimension = dimension
        return self

    def __repr__(self) -> str:
        number = f"{float(self):.7g}"
        return f"{number} {self.unit}" if self.unit else number

    def __str__(self) -> str:
        return repr(self)

    def __format__(self, form: str) -> str:
        return format(float(self), form) if form else str(self)

    def __reduce__(self) -> Any:
        return Quantity, (float(self), self.unit, self.source, self.code, self.state,
                          self.citation, self.doi, self.dimension)

    def to(self, unit: str) -> "Quantity":
        """Return it in another unit."""
        value = _native.convert(float(self), self.unit or "", unit, self.dimension)
        return Quantity(float(value), unit, self.source, self.code, self.state, self.citation,
                        self.doi, self.dimension)


def Q(value: float, unit: Optional[str] = None, ref: Optional[int] = None) -> Quantity:
    """Make a quantity, for an edit for example.

    Parameters
    ----------
    value : float
        The number.
    unit : str, optional
        A unit word such as "bar", "degC" or "kJ/kg-mol". Without one the number is in the internal
        unit of what it is assigned to.
    ref : int, optional
        The reference code that is stored with it.

    Examples
    --------
    >>> Q(1.2, "bar")
    1.2 bar
    """
    return Quantity(value, unit, code=ref)


def convert(values: Any, from_unit: str, to_unit: str, dimension: str = "") -> Any:
    """Convert values from one unit to another.

    Parameters
    ----------
    values : float or array
        The values; nan stays nan.
    from_unit, to_unit : str
        Unit words.
    dimension : str, optional
        The dimension, such as "Temp" or "TempDiff", if the units alone do not say it.

    Examples
    --------
    >>> convert(25.0, "degC", "K")
    298.15
    >>> convert([1.0, 2.0], "bar", "kPa")
    array([100., 200.])
    """
    result = _native.convert(values, from_unit, to_unit, dimension)
    return float(result) if result.ndim == 0 else result
