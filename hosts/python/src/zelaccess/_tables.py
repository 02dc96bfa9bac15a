"""Tables of the library as DataFrames."""

from __future__ import annotations

from typing import Any, Iterable, List


def words(given: Any) -> List[str]:
    """One word, a number or several of them as a list of words."""
    if given is None:
        return []
    if isinstance(given, (str, int)):
        return [str(given)]
    return [str(word) for word in given]


def frame(table: Any) -> Any:
    """Make a DataFrame of a table; ``attrs["units"]`` has the units of its columns."""
    import numpy as np
    import pandas as pd

    _, columns, data = table
    series = {}
    for (name, unit), values in zip(columns, data):
        kinds = {type(value) for value in values} - {type(None)}
        is_number = kinds and kinds <= {int, float} or not kinds and unit
        if is_number and (float in kinds or None in values):
            values = np.array([np.nan if value is None else value for value in values], float)
        series[name] = values
    made = pd.DataFrame(series, columns=[name for name, _ in columns])
    made.attrs["units"] = {name: unit for name, unit in columns if unit}
    return made


def rows(table: Any) -> Iterable[dict]:
    """Yield each row of a table as a dict."""
    _, columns, data = table
    names = [name for name, _ in columns]
    for values in zip(*data):
        yield dict(zip(names, values))


def html_table(heads: List[str], lines: Iterable[Iterable[Any]]) -> str:
    """Make an HTML table for a notebook."""
    from html import escape

    head = "".join(f"<th>{escape(text)}</th>" for text in heads)
    body = "".join(
        "<tr>" + "".join(f"<td>{escape('' if cell is None else str(cell))}</td>" for cell in line)
        + "</tr>"
        for line in lines
    )
    return f"<table><thead><tr>{head}</tr></thead><tbody>{body}</tbody></table>"
