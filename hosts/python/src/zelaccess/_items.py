"""Items of banks: pairs, groups, mappings and so on."""

from __future__ import annotations

from collections.abc import Mapping
from typing import Any, Dict, Iterator, List

from . import _native
from ._errors import MissingField
from ._quantity import Quantity
from ._tables import html_table


class Item(Mapping):
    """An item: a mapping from the names of its fields to their values, which are attributes too.

    A number is a `Quantity`, nan if undefined; several numbers are an array; a text or a word is a
    str, None if undefined. Names are compared without regard to case.

    Attributes
    ----------
    source : str
        "perry.lb1:NRTL:PERRY" for example.
    citation, doi, equation : str or None
        What is cited for the item, and the equation that its parameters are for, if known.
    """

    def __init__(self, native: _native.Item, words: List[str], type_name: str):
        self.words = words
        self.type = type_name
        self.source: str = native.source
        self.citation = native.citation
        self.doi = native.doi
        self.equation = native.equation
        self._rows = native.fields()
        self._values: Dict[str, Any] = {row[0]: self._value(row) for row in self._rows}
        self._names = {name.lower(): name for name in self._values}

    def _value(self, row: Any) -> Any:
        import numpy as np

        _, _, unit, values, text, _ = row
        if not values:
            return text
        if len(values) > 1:
            return np.array(values)
        unit_text = unit if unit not in ("", "-") else None
        return Quantity(values[0], unit_text, self.source, state="stored", citation=self.citation,
                        doi=self.doi)

    def __getitem__(self, name: str) -> Any:
        found = self._names.get(name.lower())
        if found is None:
            raise MissingField(
                f"an item of {self.type} has no field {name}; it has {', '.join(self._values)}")
        return self._values[found]

    def __getattr__(self, name: str) -> Any:
        if name.startswith("_"):
            raise AttributeError(name)
        return self[name]

    def __iter__(self) -> Iterator[str]:
        return iter(self._values)

    def __len__(self) -> int:
        return len(self._values)

    def __dir__(self) -> List[str]:
        return [*super().__dir__(), *self._values]

    def __getstate__(self) -> Dict[str, Any]:
        return self.__dict__

    def __setstate__(self, state: Dict[str, Any]) -> None:
        self.__dict__.update(state)

    def fields(self) -> Any:
        """Return the fields as a DataFrame: value, unit, label, meaning."""
        import pandas as pd

        rows = [(row[0], self._values[row[0]], row[2] or None, row[1] or None, row[5] or None)
                for row in self._rows]
        heads = ["field", "value", "unit", "label", "meaning"]
        return pd.DataFrame(rows, columns=heads).set_index("field")

    def __repr__(self) -> str:
        return f"<{self.type} {' + '.join(self.words)} from {self.source}>"

    def _repr_html_(self) -> str:
        lines = [(row[0], self._values[row[0]], row[5] or row[1]) for row in self._rows]
        return (f"<h3>{self.type} {' + '.join(self.words)}</h3><p>{self.source}</p>"
                + html_table(["field", "value", "meaning"], lines))
