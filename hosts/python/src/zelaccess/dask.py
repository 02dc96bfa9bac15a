"""Properties as columns of a Dask DataFrame, evaluated partition by partition.

Dask is imported by whoever made the DataFrame, not here; a pandas DataFrame is accepted as well, and is
one partition. What the tasks carry are correlations and lists of libraries. A correlation of a component
and a list of libraries are pickled by the paths of their files, which each worker opens; all workers of
a machine share the pages of these files. A detached correlation is pickled by value and needs no file.

Examples
--------
>>> import pandas as pd
>>> import zelaccess as za
>>> libs = za.Libraries("crc.lb1", "perry.lb1")
>>> frame = pd.DataFrame({"component": ["ETHANOL", "WATER", "NOTHING"], "T": [351.39, 373.12, 300.0]})
>>> za.dask.evaluate_components(frame, libs, "VaporPressure", unit="bar").round(3)
  component       T  VaporPressure
0   ETHANOL  351.39          1.011
1     WATER  373.12          1.012
2   NOTHING  300.00            NaN
"""

from __future__ import annotations

from typing import Any, Mapping, Sequence, Union

from . import _catalogue
from ._curves import Curve
from ._errors import MissingComponent, MissingDatum
from ._libraries import Libraries
from ._tables import words


def evaluate(frame: Any, curves: Mapping[str, Curve], temperature: str = "T", *, unit: str = "",
             temperature_unit: str = "K", order: int = 0, mode: str = "exact") -> Any:
    """Add a column for each correlation, evaluated at a column of temperatures.

    Parameters
    ----------
    frame : dask.dataframe.DataFrame or pandas.DataFrame
        It is not changed.
    curves : dict
        The correlation for each new column.
    temperature : str, optional
        The column of the temperatures.
    unit, temperature_unit, order, mode
        As for a call of a `Curve`.

    Returns
    -------
    dask.dataframe.DataFrame or pandas.DataFrame
        As `frame`, with the new columns; lazy if `frame` is.

    Examples
    --------
    >>> import pandas as pd
    >>> import zelaccess as za
    >>> water = za.Libraries("perry.lb1")["WATER"]
    >>> evaluate(pd.DataFrame({"T": [300.0, 400.0]}), {"p": water.VaporPressure}).round(2)
           T       p
    0  300.0    3.54
    1  400.0  245.26
    """
    settings = {"unit": unit, "temperature_unit": temperature_unit, "order": order, "mode": mode}
    return _by_partition(frame, _curve_columns, list(curves), dict(curves), temperature, settings)


def evaluate_components(frame: Any, libs: Libraries, data: Union[str, Sequence[str]],
                        component: str = "component", temperature: str = "T", *, unit: str = "",
                        temperature_unit: str = "K", order: int = 0, mode: str = "exact") -> Any:
    """Add a column for each correlation, of the component and at the temperature of each row.

    Parameters
    ----------
    frame : dask.dataframe.DataFrame or pandas.DataFrame
        It is not changed.
    libs : Libraries
        Where the components are.
    data : str or sequence of str
        Names of correlations, which are also those of the new columns.
    component, temperature : str, optional
        The columns with the components, by ID, CAS number, number or name, and the temperatures.
    unit, temperature_unit, order, mode
        As for a call of a `Curve`.

    Returns
    -------
    dask.dataframe.DataFrame or pandas.DataFrame
        As `frame`, with the new columns; lazy if `frame` is. There is nan for a component that no
        library has, or that does not have the correlation.
    """
    names = [_catalogue.correlation(name).name for name in words(data)]
    settings = {"unit": unit, "temperature_unit": temperature_unit, "order": order, "mode": mode}
    return _by_partition(frame, _component_columns, names, libs, names, component, temperature,
                         settings)


def _by_partition(frame: Any, function: Any, columns: Sequence[str], *args: Any) -> Any:
    """Call a function with each partition; the new columns are numbers."""
    if not hasattr(frame, "map_partitions"):
        return function(frame, *args)
    meta = frame._meta.assign(**{name: float() for name in columns})
    return frame.map_partitions(function, *args, meta=meta)


def _curve_columns(part: Any, curves: Mapping[str, Curve], temperature: str, settings: Any) -> Any:
    import numpy as np

    at = np.ascontiguousarray(part[temperature], dtype=float)
    return part.assign(**{name: curve(at, **settings) for name, curve in curves.items()})


def _component_columns(part: Any, libs: Libraries, names: Sequence[str], component: str,
                       temperature: str, settings: Any) -> Any:
    import numpy as np
    import pandas as pd

    at = np.asarray(part[temperature], dtype=float)
    made = {name: np.full(len(part), np.nan) for name in names}
    codes, known = pd.factorize(part[component])
    order = np.argsort(codes, kind="stable")
    starts = np.searchsorted(codes[order], np.arange(len(known) + 1))
    for i, word in enumerate(known):
        rows = order[starts[i]:starts[i + 1]]
        try:
            found = libs[word]
        except MissingComponent:
            continue
        for name in names:
            try:
                curve = found.correlation(name)
            except MissingDatum:
                continue
            made[name][rows] = curve(np.ascontiguousarray(at[rows]), **settings)
    return part.assign(**made)
