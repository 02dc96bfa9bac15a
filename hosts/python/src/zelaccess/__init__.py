"""Component libraries of thermophysical data.

Examples
--------
>>> import zelaccess as za
>>> libs = za.Libraries("crc.lb1", "perry.lb1", names="perry.lb1")
>>> ethanol = libs["ETHANOL"]
>>> ethanol.NBP, ethanol.NBP.source
(351.39 K, 'crc.lb1:CRC')
>>> round(ethanol.VaporPressure(351.4, unit="bar"), 4)
1.0118
"""

from . import dask
from ._banks import Bank, Library, open
from ._catalogue import bank_types, fields
from ._component import Component, Page
from ._curves import Correlation, Curve, evaluate_each
from ._edit import Edit, edit, from_dataframe, history, undo
from ._errors import (DamagedLibrary, IdentityConflict, LibraryInUse, LibraryNotFound, MissingBank,
                      MissingComponent, MissingDatum, MissingField, MissingItem, MissingPair,
                      OpenError, WrongUsage, ZelError)
from ._items import Item
from ._libraries import Comparison, Libraries, check, compare
from ._native import version as __version__
from ._quantity import Q, Quantity, convert

__all__ = [
    "Bank", "Comparison", "Component", "Correlation", "Curve", "DamagedLibrary", "Edit",
    "IdentityConflict", "Item", "Libraries", "Library", "LibraryInUse", "LibraryNotFound",
    "MissingBank", "MissingComponent", "MissingDatum", "MissingField", "MissingItem", "MissingPair",
    "OpenError", "Page", "Q", "Quantity", "WrongUsage", "ZelError", "bank_types", "check", "compare", "convert",
    "dask", "edit", "evaluate_each", "fields", "from_dataframe", "history", "open", "undo",
]
