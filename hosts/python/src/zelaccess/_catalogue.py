"""The names of constants, correlations and bank types."""

from __future__ import annotations

import difflib
from typing import Any, Dict, NamedTuple

from . import _native
from ._errors import MissingDatum


class Datum(NamedTuple):
    """A constant or a correlation."""

    name: str
    number: int
    unit: str
    label: str


CONSTANTS: Dict[str, Datum] = {row[0]: Datum(*row) for row in _native.constants()}
CORRELATIONS: Dict[str, Datum] = {row[0]: Datum(*row) for row in _native.correlations()}


def constant(name: str) -> Datum:
    """The constant of a keyword, in any case of letters."""
    found = CONSTANTS.get(name) or CONSTANTS.get(name.upper())
    if found is None:
        raise missing(name, CONSTANTS, "a constant")
    return found


def correlation(name: str) -> Datum:
    """The correlation of a name, in any case of letters."""
    found = CORRELATIONS.get(name)
    if found is None:
        by_lower = {key.lower(): row for key, row in CORRELATIONS.items()}
        found = by_lower.get(name.lower())
    if found is None:
        raise missing(name, CORRELATIONS, "a correlation")
    return found


def missing(name: str, among: Any, what: str) -> MissingDatum:
    """The error for a name that does not exist."""
    by_lower = {key.lower(): key for key in among}
    near = [key for key in by_lower if sorted(key) == sorted(name.lower())]  # letters swapped
    near = near or difflib.get_close_matches(name.lower(), list(by_lower), 1)
    hint = f"; did you mean {by_lower[near[0]]}?" if near else f"; {', '.join(list(among)[:4])} are"
    return MissingDatum(f'"{name}" is not {what}{hint}')


def bank_types() -> Any:
    """Return the bank types as a DataFrame: type, description, key, parts, formats.

    Examples
    --------
    >>> types = bank_types()
    >>> len(types), types.loc["NRTL", "description"]
    (50, 'Nrtl VLE binary data')
    """
    import pandas as pd

    heads = ["type", "description", "key", "parts", "fewest parts", "formats"]
    return pd.DataFrame(_native.bank_types(), columns=heads).set_index("type")


def fields(bank_type: str) -> Any:
    """Return the fields of a bank type as a DataFrame: label, unit, kind, count.

    Examples
    --------
    >>> fields("NRTL").loc["bij", "kind"]
    'number'
    """
    import pandas as pd

    rows = _native.fields_of_type(bank_type)
    heads = ["field", "label", "unit", "kind", "count"]
    return pd.DataFrame(rows, columns=heads).set_index("field")
