"""Libraries in order of preference."""

from __future__ import annotations

import threading
import weakref
from typing import Any, Dict, Iterator, List, Optional, Sequence, Tuple

from . import _catalogue, _handles, _native
from ._component import Component, Page
from ._errors import MissingComponent, MissingItem, MissingPair, WrongUsage
from ._items import Item
from ._tables import frame, words


class Libraries:
    """Open libraries in order of preference: for each datum the first one that has it wins.

    Parameters
    ----------
    *libraries : str
        Each as LIBRARY or LIBRARY:BANK, the preferred one first.
    names : str, optional
        A library for IDs and CAS numbers that the others do not know.
    accept_identity : bool, optional
        Merge sources that mean different substances instead of raising IdentityConflict.
    wait : float, optional
        How many seconds to wait for a library that another program uses.
    path : sequence of str, optional
        Folders in which libraries are found that are named without one; those of the environment
        variable ZEL_PATH and of the user's configuration file without it.

    Examples
    --------
    >>> libs = Libraries("crc.lb1", "perry.lb1")
    >>> libs["64-17-5"]
    <Component ETHANOL, Ethanol, C2H6O, 64-17-5>
    >>> libs["ETHANOL"].NBP
    351.39 K
    """

    def __init__(self, *libraries: str, names: Optional[str] = None,
                 accept_identity: bool = False, wait: float = 0.0,
                 path: Optional[Sequence[str]] = None):
        if not libraries:
            raise WrongUsage('name a library: Libraries("perry.lb1")')
        self.libraries: Tuple[str, ...] = tuple(str(library) for library in libraries)
        self.names = str(names) if names else ""
        self.accept_identity = accept_identity
        self.wait = wait
        self.path: List[str] = _folders(path)
        self._native = _native.Sources(list(self.libraries), self.names, accept_identity, wait,
                                       self.path)
        self._native.open()
        self._ids: Optional[List[str]] = None
        _handles.note(self)

    def __getitem__(self, component: Any) -> Component:
        return Component(self, self._native.component(str(component)))

    def __contains__(self, component: Any) -> bool:
        try:
            self._native.component(str(component))
        except MissingComponent:
            return False
        return True

    def __iter__(self) -> Iterator[Component]:
        for identity in self._native.components():
            yield self[identity[0]]

    def __len__(self) -> int:
        return len(self._native.components())

    def _ipython_key_completions_(self) -> List[str]:
        if self._ids is None:
            self._ids = [id for identity in self._native.components() for id in identity[1]]
        return self._ids

    def __repr__(self) -> str:
        return f"Libraries({', '.join(repr(library) for library in self.libraries)})"

    def __reduce__(self) -> Any:
        libraries = _handles.absolute(self.libraries, self.path)
        names = _handles.absolute([self.names], self.path)[0] if self.names else ""
        return _opened, (libraries, names, self.accept_identity, self.wait, self.path)

    def __enter__(self) -> "Libraries":
        return self

    def __exit__(self, *error: Any) -> None:
        self.close()

    def close(self) -> None:
        """Close the files. They are opened again when the object is used again."""
        self._ids = None
        self._native.close()

    def _files(self) -> List[str]:
        files = [_handles.file_of(library) for library in self.libraries]
        return _handles.absolute(files + ([self.names] if self.names else []), self.path)

    def _settings(self, units: Any = "") -> Tuple[str, str, bool, float, List[str]]:
        return (self.names, _unit_words(units), self.accept_identity, self.wait, self.path)

    def components(self) -> Any:
        """Return who the components are, as a DataFrame: number, name, cas, formula, by ID."""
        import pandas as pd

        found = self._native.components()
        return _identities(pd, found)

    def constants(self, names: Any = None, units: Optional[Dict[str, str]] = None,
                  components: Any = None, identity: bool = True, sources: bool = False) -> Any:
        """Return constants of many components as a DataFrame, merged and completed.

        Parameters
        ----------
        names : str or sequence of str, optional
            Keywords of constants; all constants without it.
        units : dict, optional
            The unit of each constant that is not to be in its internal unit.
        components : sequence of str, optional
            By ID, CAS number, number or name; all components without it.
        identity : bool, optional
            Columns number, name, cas and formula in front.
        sources : bool, optional
            A column "NAME source" for each constant.

        Returns
        -------
        pandas.DataFrame
            A row for each component, by its first ID; ``attrs["units"]`` has the units.

        Examples
        --------
        >>> libs = Libraries("crc.lb1", "perry.lb1")
        >>> df = libs.constants(["NBP", "PC"], {"PC": "bar"}, ["ETHANOL", "WATER"], identity=False)
        >>> df.round(2)
                      NBP      PC
        component                
        ETHANOL    351.39   61.37
        WATER      373.12  220.48
        """
        import pandas as pd

        chosen = [_catalogue.constant(name) for name in
                  (words(names) if names is not None else _catalogue.CONSTANTS)]
        wanted = {_catalogue.constant(name).name: unit for name, unit in (units or {}).items()}
        given = [wanted.get(datum.name, "") for datum in chosen]
        found, columns = self._native.constants([datum.number for datum in chosen], given,
                                                words(components))
        made = _identities(pd, found)
        if not identity:
            made = made[[]].copy()
        for datum, (values, origin) in zip(chosen, columns):
            made[datum.name] = values
            if sources:
                made[f"{datum.name} source"] = origin
        made.attrs["units"] = {datum.name: unit or datum.unit
                               for datum, unit in zip(chosen, given) if unit or datum.unit}
        return made

    def why(self, component: Any, datum: str, units: Any = "") -> Any:
        """Say where a datum comes from: a DataFrame with a row for each source.

        Examples
        --------
        >>> Libraries("perry.lb1", "crc.lb1").why("ETHANOL", "NBP")[["source", "value", "result"]]
                    source   value        result
        0  perry.lb1:PERRY     NaN  has no value
        1      crc.lb1:CRC  351.39           won
        """
        return frame(_native.why_of(list(self.libraries), str(component), datum,
                                    self._settings(units)))

    def pair(self, model: str, one: Any, other: Any) -> Item:
        """Return the parameters of a pair, for the components in this order.

        Each library is searched with the numbers that it has for the components itself.

        Raises
        ------
        MissingPair
            If no library has the pair.

        Examples
        --------
        >>> libs = Libraries("sample.lb1", names="perry.lb1")
        >>> libs.pair("NRTL", "ETHANOL", "WATER").bji
        624.867 K
        """
        try:
            return self.item(model, one, other)
        except MissingItem as error:
            raise MissingPair(
                f"{error}; libs.pairs({model!r}) lists the pairs that there are") from None

    def item(self, bank_type: str, *key: Any) -> Item:
        """Return an item of any bank type, by its components, numbers or text."""
        named = words(key)
        return Item(self._native.item(bank_type, named), named, bank_type.upper())

    def pairs(self, model: str, components: Any = None, fields: Any = None,
              units: Any = "") -> Any:
        """Return the pairs of a model as a DataFrame, the first library that has a pair winning.

        Parameters
        ----------
        model : str
            A bank type of pairs, "NRTL" for example.
        components : sequence of str, optional
            One component for all of its pairs, more for the pairs of two of them.
        fields : sequence of str, optional
            Fields to show; all numbers of the type without it.
        """
        files = [_handles.file_of(library) for library in self.libraries]
        if fields is None:
            fields = [row[0] for row in _native.fields_of_type(model)
                      if row[3] == "number" and row[4] == 1]
        return frame(_native.pairs_of(files, model, words(fields), words(components),
                                      self._settings(units)))

    def coverage(self, components: Any = None, models: Any = ("NRTL",)) -> Any:
        """Say which pairs models have: a DataFrame with model, one, other and from.

        Parameters
        ----------
        components : sequence of str, optional
            The components; those of each model's pairs without it.
        models : sequence of str
            Bank types of pairs.
        """
        import pandas as pd

        parts = []
        for model in words(models):
            table = _native.coverage_of(list(self.libraries), model, words(components),
                                        self._settings())
            parts.append(frame(table))
            parts[-1].insert(0, "model", model.upper())
        return pd.concat(parts, ignore_index=True)

    def compare(self, first: str, second: str, components: Any = None,
                tolerance: float = 0.0, units: Any = "") -> "Comparison":
        """Compare the data of two sources by value; see `compare`."""
        return compare(first, second, components, tolerance, settings=self._settings(units))

    def check(self, silence: Any = None, structure_only: bool = False,
              min_strength: float = 0.5) -> Any:
        """Check the libraries, each also with the others; see `check`."""
        files = [_handles.file_of(library) for library in self.libraries]
        return frame(_native.check_of(files, words(silence), structure_only, min_strength,
                                      self._settings()))

    def flatten(self, path: str, components: Any = None) -> Any:
        """Save what these libraries have as one new library; return what came from where."""
        return frame(_native.flatten(list(self.libraries), str(path), words(components),
                                     self._settings()))

    def sheet(self, components: Any, each: bool = False, units: Any = "") -> Page:
        """Return a page with the data of components side by side."""
        return Page(_native.sheet_of(list(self.libraries), words(components), each,
                                     self._settings(units)))

    def report(self, units: Any = "") -> Page:
        """Return a page with all components and what the checks of data find."""
        return Page(_native.report_of(list(self.libraries), self._settings(units)))


class Comparison:
    """What differs between two sources.

    Attributes
    ----------
    components : int
        Components that were compared.
    constants, correlations, not_compared, one_sided : pandas.DataFrame
        What differs beyond the tolerance, what could not be compared, and what only one source has.
    """

    def __init__(self, found: Any):
        self.components: int = found[0]
        self.constants = frame(found[1])
        self.correlations = frame(found[2])
        self.not_compared = frame(found[3])
        self.one_sided = frame(found[4])

    def __repr__(self) -> str:
        return (f"<Comparison of {self.components} components: {len(self.constants)} constants "
                f"and {len(self.correlations)} correlations differ>")


def compare(first: str, second: str, components: Any = None, tolerance: float = 0.0,
            settings: Any = None, path: Optional[Sequence[str]] = None) -> Comparison:
    """Compare the data of two sources by value, whatever equations and units they use.

    Parameters
    ----------
    first, second : str
        LIBRARY or LIBRARY:BANK.
    components : sequence of str, optional
        All that both have without it.
    tolerance : float, optional
        Relative to the first source; 0.01 for one percent.
    path : sequence of str, optional
        Folders in which libraries are looked up that are named without a folder; without it, those
        of the settings and of the environment (`Libraries`).
    """
    if settings is None:
        settings = ("", "", False, 0.0, _folders(path))
    return Comparison(_native.compare(str(first), str(second), words(components), tolerance,
                                      settings))


def check(*libraries: str, silence: Any = None, structure_only: bool = False,
          accept_identity: bool = False, min_strength: float = 0.5,
          path: Optional[Sequence[str]] = None) -> Any:
    """Check the structure and the data of libraries: a DataFrame with a row for each finding.

    Parameters
    ----------
    *libraries : str
        Library files; the data of each are also compared with the others.
    silence : str or list of str, optional
        IDs of checks that are left out.
    structure_only : bool, optional
        The data are not checked.
    accept_identity : bool, optional
        Different substances under one name are a warning, not an error.
    min_strength : float, optional
        Findings of a lower strength, 0 to 1, are left out. The strength says how likely the
        datum is wrong.
    path : sequence of str, optional
        Folders in which libraries are looked up that are named without a folder; without it, those
        of the settings and of the environment (`Libraries`).

    Examples
    --------
    >>> check("perry.lb1", structure_only=True).empty
    True
    """
    return frame(_native.check_of([str(library) for library in libraries], words(silence),
                                  structure_only, min_strength,
                                  ("", "", accept_identity, 0.0, _folders(path))))


def _folders(path: Optional[Sequence[str]]) -> List[str]:
    return _native.search_path() if path is None else [str(folder) for folder in path]


def _identities(pd: Any, found: Any) -> Any:
    index = pd.Index([ids[0] if ids else str(number) for number, ids, *_ in found],
                     name="component")
    return pd.DataFrame({
        "number": [row[0] for row in found],
        "name": [row[3] for row in found],
        "cas": [row[2] for row in found],
        "formula": [row[4] for row in found],
    }, index=index)


def _unit_words(units: Any) -> str:
    return units if isinstance(units, str) else ",".join(units)


def _opened(libraries: List[str], names: str, accept_identity: bool, wait: float,
            path: List[str]) -> Libraries:
    # All that a process unpickles shares one handle, however many tasks bring it.
    key = (*libraries, names, accept_identity, wait, *path)
    with _unpickling:
        found = _unpickled.get(key)
        if found is None:
            found = Libraries(*libraries, names=names, accept_identity=accept_identity, wait=wait,
                              path=path)
            _unpickled[key] = found
        return found


_unpickled: "weakref.WeakValueDictionary[Any, Libraries]" = weakref.WeakValueDictionary()
_unpickling = threading.Lock()


__all__ = ["Libraries", "Comparison", "compare", "check"]
