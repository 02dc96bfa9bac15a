"""Libraries of published data, made once from their documents."""

import shutil
from pathlib import Path

import matplotlib
import pytest

matplotlib.use("Agg")

import zelaccess as za  # noqa: E402

DATA = Path(__file__).resolve().parents[3] / "data" / "xml"


@pytest.fixture(scope="session")
def originals(tmp_path_factory):
    """A folder with sample.lb1 (pairs and groups), perry.lb1 and crc.lb1 (components)."""
    folder = tmp_path_factory.mktemp("libraries")
    for name in ("sample", "perry", "crc"):
        with za.edit(folder / f"{name}.lb1", new=True) as library:
            library.import_document(DATA / f"{name}.xml")
    # Ethanol and water, a few others and the pairs: what a user's own library may have.
    with za.edit(folder / "own.lb1", new=True) as own:
        own.import_document(DATA / "sample.xml")
        libs = za.Libraries(str(folder / "perry.lb1"), str(folder / "crc.lb1"))
        some = libs.constants(["MW", "TC", "PC"], components=["ETHANOL", "WATER"])
        own.import_table(some, "PURECOMP:OWN")
    return folder


@pytest.fixture
def folder(originals, tmp_path, monkeypatch):
    """A copy of the libraries, which is the working folder."""
    for file in originals.iterdir():
        if file.is_file():
            shutil.copy(file, tmp_path)
    monkeypatch.chdir(tmp_path)
    monkeypatch.delenv("ZEL_PATH", raising=False)
    monkeypatch.setenv("ZEL_CONFIG", "")
    return tmp_path


@pytest.fixture
def libs(folder):
    return za.Libraries("crc.lb1", "perry.lb1", "sample.lb1")
