"""One library and its banks."""

from __future__ import annotations

import os
import tempfile
from typing import Any, Dict, Iterator, List, Optional, Sequence, Tuple

from . import _catalogue, _handles, _native
from ._errors import MissingBank, MissingItem, WrongUsage
from ._items import Item
from ._tables import words


class Library:
    """One library, open for reading: its banks by name or type.

    Parameters
    ----------
    library : str
        A library file.
    names : str, optional
        A library for IDs and CAS numbers that this one does not know.
    wait : float, optional
        How many seconds to wait for a library that another program uses.
    path : sequence of str, optional
        Folders in which a library is found that is named without one.

    Examples
    --------
    >>> library = Library("sample.lb1", names="perry.lb1")
    >>> library["NRTL"]
    <Bank NRTL:SAMPLE, 218 items>
    >>> library["NRTL"]["ETHANOL", "WATER"].bji
    624.867 K
    """

    def __init__(self, library: str, names: Optional[str] = None, wait: float = 0.0,
                 path: Optional[Sequence[str]] = None):
        self.library = str(library)
        self.names = str(names) if names else ""
        self.wait = wait
        self.path: List[str] = _native.search_path() if path is None else [str(f) for f in path]
        self._native = _native.BankFile(self.library, self.names, wait, self.path)
        self._native.open()
        _handles.note(self)

    @property
    def banks(self) -> Any:
        """The banks as a DataFrame: type, name, items, format."""
        import pandas as pd

        return pd.DataFrame(self._native.banks(), columns=["type", "name", "items", "format"])

    def __getitem__(self, bank: str) -> "Bank":
        return Bank(self, *self._native.bank(bank))

    def __contains__(self, bank: str) -> bool:
        try:
            self._native.bank(bank)
        except MissingBank:
            return False
        return True

    def __iter__(self) -> Iterator["Bank"]:
        for row in self._native.banks():
            yield Bank(self, *row)

    def __len__(self) -> int:
        return len(self._native.banks())

    def _ipython_key_completions_(self) -> List[str]:
        return [f"{row[0]}:{row[1]}" for row in self._native.banks()]

    def __repr__(self) -> str:
        return f"Library({self.library!r})"

    def __reduce__(self) -> Any:
        library = _handles.absolute([self.library], self.path)[0]
        names = _handles.absolute([self.names], self.path)[0] if self.names else ""
        return Library, (library, names, self.wait, self.path)

    def __enter__(self) -> "Library":
        return self

    def __exit__(self, *error: Any) -> None:
        self.close()

    def close(self) -> None:
        """Close the files. They are opened again when the object is used again."""
        self._native.close()

    def _files(self) -> List[str]:
        files = [self.library] + ([self.names] if self.names else [])
        return _handles.absolute(files, self.path)

    @property
    def memo(self) -> str:
        """The memo of the library."""
        return self._native.memo()

    def export(self, target: str, bank: str = "") -> int:
        """Write XML documents, all or none, and return their number.

        Parameters
        ----------
        target : str
            A document, or a folder for documents with the usual names.
        bank : str, optional
            Only this bank.
        """
        return self._native.export(str(target), bank)

    def dump(self, folder: str) -> int:
        """Write the tab-separated text indexes into a folder, and return the number of files."""
        return self._native.dump(str(folder))

    def table_text(self, bank: str, form: str = "csv", kind: str = "", units: str = "") -> str:
        """Return a bank as the text of a table, which `Edit.import_table` reads back."""
        settings = (self.names, units, False, self.wait, self.path)
        return _native.table_text_of(self.library, bank, form, kind, settings)

    def pick_list(self, bank: str = "", path: Optional[str] = None) -> Any:
        """Return the components for a picker as a DataFrame: id, cas, formula, NBP, MW, name.

        Parameters
        ----------
        bank : str, optional
            A bank of pure components; the only one without it.
        path : str, optional
            A file, .lst, in which the list is kept.
        """
        import pandas as pd

        name = self[bank or "PURECOMP"].name
        with tempfile.TemporaryDirectory() as folder:
            file = str(path) if path else os.path.join(folder, "list.lst")
            found = self._native.pick_list(name, file)
        return pd.DataFrame(found, columns=["id", "cas", "formula", "NBP", "MW", "name"])


class Bank:
    """A bank of a library: a mapping from what names an item to the item.

    Attributes
    ----------
    type, name : str
        Keyword of its type, and its name.
    items, format : int
        Number of its items, and its record format.
    """

    def __init__(self, library: Library, bank_type: str, name: str, items: int, record: int):
        self.library = library
        self.type = bank_type
        self.name = name
        self.items = items
        self.format = record

    @property
    def id(self) -> str:
        """TYPE:NAME."""
        return f"{self.type}:{self.name}"

    @property
    def memo(self) -> str:
        """The memo of the bank."""
        return self.library._native.memo(self.id)

    def __len__(self) -> int:
        return self.items

    def __getitem__(self, key: Any) -> Item:
        named = words(key)
        return Item(self.library._native.item(self.id, named), named, self.type)

    def __contains__(self, key: Any) -> bool:
        try:
            self[key]
        except MissingItem:
            return False
        return True

    def keys(self) -> List[Tuple[str, ...]]:
        """What names each item, in key order."""
        return self.library._native.keys(self.id)

    def __iter__(self) -> Iterator[Tuple[str, ...]]:
        return iter(self.keys())

    def values(self) -> Iterator[Item]:
        """Read each item."""
        for key in self.keys():
            yield self[key]

    def columns(self, fields: Any = None) -> Dict[str, Any]:
        """Read fields of all items into arrays, in key order.

        Parameters
        ----------
        fields : sequence of str, optional
            Names of fields, or keywords of constants; all fields without it.

        Returns
        -------
        dict
            "key 1", "key 2" ...: the words of the keys, component numbers for example; then an array
            for each field, with a column for each of several values. Undefined numbers are nan, also
            whole numbers, whose array is then one of doubles. Texts are bytes.
        """
        found = self.library._native.columns(self.type, self.name, self._wishes(fields), self.items)
        return dict(found)

    def to_dataframe(self, fields: Any = None) -> Any:
        """Read fields of all items into a DataFrame, in key order, without copying the numbers.

        Examples
        --------
        >>> frame = Library("sample.lb1")["NRTL"].to_dataframe(["bij", "bji"])
        >>> frame.shape, list(frame.columns)
        ((218, 4), ['key 1', 'key 2', 'bij', 'bji'])
        """
        import pandas as pd

        series: Dict[str, Any] = {}
        for name, values in self.columns(fields).items():
            if values.ndim == 2:
                for i in range(values.shape[1]):
                    series[f"{name} {i + 1}"] = values[:, i]
            elif values.dtype.kind == "S":
                series[name] = [text.split(b"\0")[0].decode("utf-8", "replace")
                                for text in values.tolist()]
            else:
                series[name] = values
        return pd.DataFrame(series, copy=False)

    def _wishes(self, fields: Any) -> List[Tuple[str, str, int]]:
        known = _PURE if self.type == "PURECOMP" else {
            row[0].lower(): (row[0], row[3], row[4]) for row in _native.fields_of_type(self.type)}
        if fields is None:
            return list(known.values())
        wishes = []
        for name in words(fields):
            if name.lower() not in known:
                raise WrongUsage(f"{self.id} has no field {name}; it has "
                                 f"{', '.join(row[0] for row in known.values())}")
            wishes.append(known[name.lower()])
        return wishes

    def __repr__(self) -> str:
        return f"<Bank {self.id}, {self.items} items>"


# The columns of pure components.
_PURE = {name.lower(): (name, "number", 1) for name in _catalogue.CONSTANTS}
_PURE.update({name.lower(): (name, "whole number", 1)
              for name in ("number", "cas", "refCode", "keepFormula")})
_PURE.update({name.lower(): (name, "text", size) for name, size in
              (("ids", 108), ("name", 41), ("formula", 21), ("smiles", 101))})


def open(library: str, **options: Any) -> Library:  # noqa: A001
    """Open one library for reading; see `Library`."""
    return Library(library, **options)
