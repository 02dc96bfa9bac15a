"""Components, merged from libraries."""

from __future__ import annotations

import math
from typing import TYPE_CHECKING, Any, List, Optional

from . import _catalogue, _native
from ._curves import ComponentCurve
from ._errors import MissingDatum
from ._quantity import Quantity
from ._tables import html_table

if TYPE_CHECKING:
    from ._libraries import Libraries


class Component:
    """A pure component: its data are attributes.

    ``ethanol.NBP`` is a `Quantity`; nan if no library has the constant and it cannot be derived.
    ``ethanol.VaporPressure`` is a `Curve`; MissingDatum if no library has it.

    Attributes
    ----------
    number : int
        Component number.
    id : str
        Its first ID.
    ids : list of str
        All of its IDs.
    cas, name, formula : str or None
        CAS number, name and formula.
    """

    def __init__(self, libraries: "Libraries", native: _native.Component):
        self._libraries = libraries
        self._native = native
        number, ids, cas, name, formula = native.identity()
        self.number: int = number
        self.ids: List[str] = ids
        self.id: str = ids[0] if ids else str(number)
        self.cas: Optional[str] = cas
        self.name: Optional[str] = name
        self.formula: Optional[str] = formula

    def constant(self, name: str, unit: str = "") -> Quantity:
        """Return a constant, in the internal unit or in `unit`."""
        datum = _catalogue.constant(name)
        found = self._native.constant(datum.number, unit)
        if found is None:
            return Quantity(math.nan, unit or datum.unit or None, state="missing")
        value, unit_text, source, code, state, citation, doi = found
        return Quantity(value, unit_text, source, code, state, citation, doi)

    def correlation(self, name: str) -> ComponentCurve:
        """Return a correlation."""
        return ComponentCurve(self, _catalogue.correlation(name))

    def __getattr__(self, name: str) -> Any:
        if name.startswith("_"):
            raise AttributeError(name)
        made: Any
        if name in _catalogue.CONSTANTS:
            made = self.constant(name)
        elif name in _catalogue.CORRELATIONS:
            made = self.correlation(name)
        else:
            known = [*_catalogue.CONSTANTS, *_catalogue.CORRELATIONS]
            raise _catalogue.missing(name, known, "a constant or a correlation")
        self.__dict__[name] = made  # the data of a component do not change
        return made

    def __setattr__(self, name: str, value: Any) -> None:
        if name in _catalogue.CONSTANTS or name in _catalogue.CORRELATIONS:
            raise MissingDatum(
                f"{name} cannot be set here, because the libraries are open for reading; write "
                f'`with zelaccess.edit("own.lb1") as own: own["{self.id}"].{name} = ...`')
        super().__setattr__(name, value)

    def __dir__(self) -> List[str]:
        curves = [name for name, row in _catalogue.CORRELATIONS.items()
                  if self._native.correlation(row.number) is not None]
        return [*super().__dir__(), *_catalogue.CONSTANTS, *curves]

    def __repr__(self) -> str:
        parts = [self.id, self.name, self.formula, self.cas]
        return f"<Component {', '.join(str(part) for part in parts if part)}>"

    def __reduce__(self) -> Any:
        return _component_of, (self._libraries, str(self.number))

    def constants(self) -> Any:
        """Return the constants as a DataFrame: value, unit, state, source, code, citation."""
        import pandas as pd

        rows = []
        for name in _catalogue.CONSTANTS:
            one = self.constant(name)
            if one.state != "missing":
                rows.append((name, float(one), one.unit, one.state, one.source, one.code,
                             one.citation))
        heads = ["constant", "value", "unit", "state", "source", "code", "citation"]
        return pd.DataFrame(rows, columns=heads).set_index("constant")

    def correlations(self) -> List[ComponentCurve]:
        """Return the correlations that it has."""
        return [self.correlation(name) for name, row in _catalogue.CORRELATIONS.items()
                if self._native.correlation(row.number) is not None]

    def sheet(self, each: bool = False) -> "Page":
        """Return a page with all data, charts and citations; `each`: a column for each source."""
        return self._libraries.sheet([str(self.number)], each=each)

    def _repr_html_(self) -> str:
        title = " · ".join(str(part) for part in (self.name, self.formula, self.cas) if part)
        constants = self.constants().reset_index()
        values = html_table(
            ["constant", "", "value", "unit", "state", "source"],
            [(row.constant, _catalogue.CONSTANTS[row.constant].label, f"{row.value:.7g}",
              row.unit, row.state, row.source) for row in constants.itertuples()])
        curves = html_table(
            ["correlation", "equation", "from [K]", "to [K]", "unit", "source"],
            [(curve.name, curve.equation, f"{curve.range[0]:g}", f"{curve.range[1]:g}",
              curve.unit, curve.source) for curve in self.correlations()])
        return f"<h3>{self.id}</h3><p>{title}</p>{values}{curves}"


def _component_of(libraries: "Libraries", word: str) -> Component:
    return libraries[word]


class Page(str):
    """A page of HTML, which a notebook shows."""

    def save(self, path: str) -> None:
        """Write it to a file."""
        with open(path, "w", encoding="utf-8") as file:
            file.write(self)

    def _repr_html_(self) -> str:
        from html import escape

        return (f'<iframe srcdoc="{escape(self)}" style="width:100%;height:600px;border:0">'
                "</iframe>")
