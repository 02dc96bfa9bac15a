"""The examples of the docstrings and of the document are run."""

import doctest
import importlib
import shutil
from pathlib import Path

import pytest

import zelaccess as za

ROOT = Path(__file__).resolve().parents[3]
OPTIONS = doctest.NORMALIZE_WHITESPACE | doctest.ELLIPSIS
MODULES = ["zelaccess"] + [f"zelaccess.{file.stem}" for file in
                           sorted(Path(za.__file__).parent.glob("*.py")) if file.stem != "__init__"]


@pytest.mark.parametrize("name", MODULES)
def test_docstrings(name, folder):
    shutil.copy("crc.lb1", "own.lb1")
    shutil.copy("crc.lb2", "own.lb2")
    result = doctest.testmod(importlib.import_module(name), optionflags=OPTIONS)
    assert result.failed == 0


def test_there_are_examples():
    finder = doctest.DocTestFinder()
    found = [test for name in MODULES for test in finder.find(importlib.import_module(name))
             if test.examples]
    assert len(found) >= 12


def test_document(tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    result = doctest.testfile(str(ROOT / "docs" / "python.md"), module_relative=False,
                              optionflags=OPTIONS, globs={"DATA": str(ROOT / "data" / "xml")})
    assert result.failed == 0 and result.attempted >= 20
