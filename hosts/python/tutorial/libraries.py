"""Makes the libraries of the tutorial in the working folder, from the published data of the source tree."""

import os
from pathlib import Path

import zelaccess as za

DATA = Path(os.environ.get("ZELACCESS_DATA") or Path(__file__).resolve().parents[3] / "data" / "xml")


def make(*names):
    """Make the libraries that do not exist yet: "perry", "chemsep", "crc", "sample" ..."""
    for name in names:
        if not os.path.exists(f"{name}.lb1"):
            with za.edit(f"{name}.lb1", new=True) as library:
                library.import_document(DATA / f"{name}.xml")
