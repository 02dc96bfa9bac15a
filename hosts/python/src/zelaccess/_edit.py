"""Changes of libraries: all of an edit or nothing, with a history and an undo."""

from __future__ import annotations

import math
import os
import tempfile
from typing import Any, Dict, List, Optional

from . import _catalogue, _handles, _native
from ._curves import Correlation
from ._errors import WrongUsage
from ._quantity import Quantity
from ._tables import frame, rows, words


class Edit:
    """A change of a library, to be used with ``with``: made at its end, or not at all.

    If the block raises an exception, nothing has happened.

    Attributes
    ----------
    changes : list of dict
        What was set: item, datum, old, new, unit, old code, new code.
    """

    def __init__(self, library: str, settings: Dict[str, Any], new: bool):
        self.library = library
        self.changes: List[Dict[str, Any]] = []
        _handles.close_readers(library)
        self._native = _native.Change(library, settings, new)

    def __enter__(self) -> "Edit":
        return self

    def __exit__(self, kind: Any, *error: Any) -> None:
        try:
            if kind is None:
                self._native.commit()
        finally:
            self._native.drop()  # unlocks the library if the change cannot be made

    def __getitem__(self, key: Any) -> "EditedItem":
        return EditedItem(self, words(key))

    def __repr__(self) -> str:
        return f"<Edit of {self.library}, {len(self.changes)} data set>"

    def __reduce__(self) -> Any:
        raise TypeError("an edit holds a lock of this process and cannot be pickled; pass the "
                        "path of the library and begin an edit where it is needed")

    def set(self, key: Any, ref: Optional[int] = None, source: Optional[str] = None,
            **values: Any) -> Any:
        """Set data of an item and return what changed as a DataFrame.

        Parameters
        ----------
        key : str or sequence of str
            A component, or a bank and what names the item: ``("NRTL", "ETHANOL", "WATER")``.
        ref : int, optional
            Reference code of what is set.
        source : str, optional
            A library from which the item is copied first if this one does not have it.
        **values
            Numbers in internal units, quantities, texts, correlations; None removes a datum.
        """
        return self._set(words(key), values, ref, source)

    def _set(self, key: List[str], values: Dict[str, Any], ref: Optional[int],
             source: Optional[str]) -> Any:
        made = None
        for datum, value in values.items():
            said, settings = _said(datum, value)
            if ref is not None:
                settings["code"] = ref
            if source is not None:
                settings["source"] = str(source)
            table = self._native.edit([*key, *said], settings)
            self.changes += [{"item": " ".join(key), **row} for row in rows(table)]
            made = table
        return frame(made) if made is not None else None

    def import_table(self, table: Any, bank: str, skip_bad: bool = False) -> Dict[str, Any]:
        """Import a table into a bank; TYPE:NAME makes a new one.

        Parameters
        ----------
        table : str or pandas.DataFrame
            A file (CSV, TSV, JSON), or a DataFrame with the same columns.
        bank : str
            A bank.
        skip_bad : bool, optional
            Leave rows out that are refused; without it they refuse the whole table.

        Returns
        -------
        dict
            read, new, changed, same, refused, and rows: those that changed or were refused.
        """
        if isinstance(table, (str, os.PathLike)):
            done = self._native.import_table(str(table), bank, skip_bad)
        else:
            with tempfile.TemporaryDirectory() as folder:
                path = os.path.join(folder, "table.csv")
                _write_csv(table, path)
                done = self._native.import_table(path, bank, skip_bad)
        names = ("read", "new", "changed", "same", "refused")
        return {**dict(zip(names, done)), "rows": frame(done[5])}

    def import_document(self, path: str, bank: str = "", replace: bool = False,
                        checks: str = "checked") -> Dict[str, Any]:
        """Import an XML document of a library, a bank or, with `bank`, a component.

        Parameters
        ----------
        path : str
            The document.
        bank : str, optional
            For a document of one component.
        replace : bool, optional
            With `bank`, replace a component that exists.
        checks : str, optional
            "lenient", "checked" or "strict".
        """
        done = self._native.import_document(str(path), bank, replace, checks)
        return {"components": done[0], "items": done[1], "banks": done[2], "log": frame(done[3])}

    def merge(self, library: str, choice: str = "refuse", banks: Any = None) -> Any:
        """Add what only the other library has; `choice` for items that differ: refuse, ours, theirs."""
        return frame(self._native.merge(str(library), choice, words(banks)))

    def renumber(self, component: str, number: int) -> Any:
        """Give a component another number in all banks."""
        return frame(self._native.renumber(str(component), number))


class EditedItem:
    """An item of a library that is edited: assign to its data, delete them."""

    _edit: Edit
    _key: List[str]

    def __init__(self, edit: Edit, key: List[str]):
        object.__setattr__(self, "_edit", edit)
        object.__setattr__(self, "_key", key)

    def __setattr__(self, datum: str, value: Any) -> None:
        self._edit._set(self._key, {datum: value}, None, None)

    __setitem__ = __setattr__

    def __delattr__(self, datum: str) -> None:
        self._edit._set(self._key, {datum: None}, None, None)

    __delitem__ = __delattr__

    def __dir__(self) -> List[str]:
        return [*_catalogue.CONSTANTS, *_catalogue.CORRELATIONS]

    def __repr__(self) -> str:
        return f"<{' '.join(self._key)} of {self._edit!r}>"


def _said(datum: str, value: Any) -> Any:
    """The words and settings by which an edit sets a datum."""
    if value is None or (isinstance(value, float) and math.isnan(value)):
        return [], {"unset": [datum]}
    if isinstance(value, Correlation):
        return [datum], _curve_settings(value)
    settings: Dict[str, Any] = {}
    if isinstance(value, Quantity):
        if value.code is not None:
            settings["code"] = value.code
        return [f"{datum}={float(value)!r}{value.unit or ''}"], settings
    if isinstance(value, (list, tuple)) or hasattr(value, "tolist"):
        listed = value.tolist() if hasattr(value, "tolist") else list(value)
        listed = listed if isinstance(listed, list) else [listed]
        return [f"{datum}={' '.join(repr(one) for one in listed)}"], settings
    return [f"{datum}={value!r}" if isinstance(value, float) else f"{datum}={value}"], settings


def _curve_settings(curve: Correlation) -> Dict[str, Any]:
    record = curve.record()
    if record["factor"] != 1.0:
        raise WrongUsage("an edit stores coefficients for values in the internal unit of the "
                         "correlation; a factor cannot be stored, so convert the coefficients")
    letter = {10: "K", 11: "C", 12: "R", 13: "F"}[record["tempUnit"]]
    ends = [f"{end!r}{letter}" if end == end else "" for end in (record["tMin"], record["tMax"])]
    settings = {
        "equation": record["equation"],
        "coefficients": [repr(one) for one in record["coefficients"]],
        "temperature_unit": letter,
        "logarithm": "natural" if record["logBasis"] == 1 else "decimal",
    }
    if ends != ["", ""]:
        settings["range"] = ":".join(ends)
    if curve.code is not None:
        settings["code"] = curve.code
    return settings


def _write_csv(table: Any, path: str) -> None:
    """Write a DataFrame with the heads that an import reads: "PC [bar]"."""
    if table.index.name and table.index.name not in table.columns:
        table = table.reset_index()
    units = table.attrs.get("units", {})
    heads = {name: f"{name} [{units[name]}]" for name in table.columns if units.get(name)}
    renamed = table.rename(columns={"component": "ids", **heads})
    renamed = renamed[[name for name in renamed.columns if not str(name).endswith(" source")]]
    renamed.to_csv(path, index=False, float_format="%.17g")


def edit(library: str, *, new: bool = False, password: str = "", names: str = "",
         units: str = "", note: str = "zelaccess.edit", wait: float = 0.0, keep: int = 10,
         dry_run: bool = False) -> Edit:
    """Begin a change of a library, which other programs cannot use meanwhile.

    Parameters
    ----------
    library : str
        A library file.
    new : bool, optional
        Make the library, which must not exist yet.
    password : str, optional
        Of a protected library.
    names : str, optional
        A library for IDs and CAS numbers that this one does not know.
    units : str, optional
        Units of numbers without one, "bar,degC" for example; internal units without it.
    note : str, optional
        What the history says about the change.
    wait : float, optional
        How many seconds to wait for a library that another program uses.
    keep : int, optional
        Versions that are kept for `undo`.
    dry_run : bool, optional
        Do everything except the change itself.

    Examples
    --------
    >>> with edit("own.lb1") as own:
    ...     own["ETHANOL"].NBP = Quantity(78.31, "degC", code=999)
    >>> undo("own.lb1")[["field", "before", "after"]]
          field  before   after
    0       NBP  351.46  351.39
    1  NBP code  999.00   54.00
    """
    return Edit(str(library), _settings(password, names, units, note, wait, keep, dry_run), new)


def undo(library: str, *, password: str = "", units: str = "", wait: float = 0.0,
         keep: int = 10, dry_run: bool = False) -> Any:
    """Take back the last change of a library and return what is restored as a DataFrame."""
    _handles.close_readers(library)
    settings = _settings(password, "", units, "zelaccess.undo", wait, keep, dry_run)
    return frame(_native.undo(str(library), settings))


def history(library: str) -> Any:
    """Return the changes that the history of a library keeps: change, time, command."""
    return frame(_native.history(str(library)))


def _settings(password: str, names: str, units: str, note: str, wait: float, keep: int,
              dry_run: bool) -> Dict[str, Any]:
    return {"password": password, "names": str(names), "units": units, "note": note,
            "wait": wait, "keep": keep, "dry_run": dry_run}


class TableToSave:
    """A DataFrame that is saved as a bank of a library; see `from_dataframe`."""

    def __init__(self, table: Any, bank: str, units: Dict[str, str]):
        self.table = table
        self.bank = bank
        self.units = units

    def save(self, library: str, *, names: str = "") -> Dict[str, Any]:
        """Write the bank into a library, which is made if it does not exist.

        Returns
        -------
        dict
            As `Edit.import_table`.
        """
        new = not os.path.exists(library)
        with edit(library, new=new, names=names, note=f"from_dataframe, {self.bank}") as own:
            table = self.table.copy()
            table.attrs["units"] = self.units
            return own.import_table(table, self.bank)


def from_dataframe(table: Any, bank: str, units: Optional[Dict[str, str]] = None) -> TableToSave:
    """Prepare a DataFrame to be saved as a bank.

    Parameters
    ----------
    table : pandas.DataFrame
        Its columns are those of a table that an import reads: for components `ids` (or the index),
        `number`, `name`, `cas`, `formula` and constants; for pairs `item 1`, `item 2` and fields.
    bank : str
        "MINE", a bank of pure components, or TYPE:NAME.
    units : dict, optional
        Units of columns; else those of ``table.attrs["units"]``, else internal units.
    """
    named = bank if ":" in bank else f"PURECOMP:{bank}"
    known = {name: unit for name, unit in {**table.attrs.get("units", {}), **(units or {})}.items()
             if name in table.columns}
    return TableToSave(table, named, known)
