"""Open libraries of this process, which an edit has to be able to close."""

from __future__ import annotations

import os
import weakref
from typing import Any, Iterable, List

_open: "weakref.WeakSet[Any]" = weakref.WeakSet()


def file_of(library: str) -> str:
    """The file in LIBRARY or LIBRARY:BANK."""
    head, colon, _ = library.rpartition(":")
    return head if colon and not os.path.exists(library) and head else library


def note(handle: Any) -> None:
    """Remember an object that has `_files()` and `close()`."""
    _open.add(handle)


def close_readers(library: str) -> None:
    """Close what this process has open of a library; it opens again when it is used."""
    for handle in list(_open):
        if any(_same(library, file) for file in handle._files()):
            handle.close()


def _same(one: str, other: str) -> bool:
    try:
        return os.path.samefile(one, other)
    except OSError:
        return False


def absolute(libraries: Iterable[str], path: List[str]) -> List[str]:
    """The libraries by absolute paths, for another process."""
    found = []
    for library in libraries:
        file = file_of(library)
        bank = library[len(file):]
        folders = [""] + path
        for folder in folders:
            place = os.path.join(folder, file)
            if os.path.exists(place):
                file = os.path.abspath(place)
                break
        found.append(file + bank)
    return found
