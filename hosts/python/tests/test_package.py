"""The wheel, with the libraries of the system that it needs in it."""

import os
import subprocess
import sys
import zipfile
from pathlib import Path

import pytest

import zelaccess as za

ROOT = Path(__file__).resolve().parents[3]
BUILD = Path(za.__file__).resolve().parents[2]

CODE = """
import zelaccess as za
with za.edit('perry.lb1', new=True) as library:
    library.import_document(r'{document}')
assert za.Libraries('perry.lb1')['ETHANOL'].TC == 514.0
print(za.__file__)
print(*sorted({{line.split()[-1] for line in open('/proc/self/maps') if 'libxml2' in line}}))
"""


@pytest.mark.slow
@pytest.mark.skipif(not (BUILD / "CMakeCache.txt").exists(), reason="not in a build folder")
def test_wheel_carries_what_it_needs(tmp_path):
    environment = {**os.environ, "ZELACCESS_BUILD": str(BUILD), "ZELACCESS_BUNDLE": "1"}
    subprocess.run([sys.executable, "-m", "pip", "wheel", "-q", "--no-build-isolation", "--no-deps",
                    "-w", str(tmp_path), str(ROOT)], check=True, env=environment)
    wheel, = tmp_path.glob("zelaccess-*.whl")
    with zipfile.ZipFile(wheel) as archive:
        names = set(archive.namelist())
        archive.extractall(tmp_path / "installed")
    assert {"zelaccess/py.typed", "zelaccess/_native.pyi", "zelaccess/.libs/libxml2.so.2"} <= names
    code = CODE.format(document=ROOT / "data" / "xml" / "perry.xml")
    run = subprocess.run([sys.executable, "-c", code], check=True, capture_output=True, text=True,
                         cwd=tmp_path, env={**os.environ,
                                            "PYTHONPATH": str(tmp_path / "installed")})
    module, loaded = run.stdout.split("\n")[:2]
    assert module.startswith(str(tmp_path))
    assert loaded == str(tmp_path / "installed/zelaccess/.libs/libxml2.so.2")


def test_nothing_slow_is_imported():
    code = "import sys, zelaccess; print([m for m in ('pandas', 'matplotlib') if m in sys.modules])"
    run = subprocess.run([sys.executable, "-c", code], check=True, capture_output=True, text=True)
    assert run.stdout == "[]\n"
