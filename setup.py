"""Builds the package for Python: CMake makes the module, which has the library in it.

    pip install --no-build-isolation .
    ZELACCESS_BUNDLE=1 pip wheel --no-build-isolation --no-deps .

With ZELACCESS_BUNDLE the wheel also carries the libraries of the system that the module needs, for
machines that do not have them.
"""

import os
import re
import shutil
import subprocess
import sys
from pathlib import Path

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

ROOT = Path(__file__).resolve().parent
# Every Linux system with Python has these.
SYSTEM = re.compile(r"lib(c|m|dl|pthread|stdc\+\+|gcc_s|rt)\.so|ld-linux|linux-vdso|libpython")


class CMakeBuild(build_ext):
    """Has CMake build the module."""

    def build_extension(self, extension):
        target = Path(self.get_ext_fullpath(extension.name)).resolve()
        folder = Path(os.environ.get("ZELACCESS_BUILD") or Path(self.build_temp) / "cmake").resolve()
        folder.mkdir(parents=True, exist_ok=True)
        subprocess.run(["cmake", "--preset", "python", "-B", str(folder),
                        f"-DPython3_EXECUTABLE={sys.executable}"], check=True, cwd=ROOT)
        subprocess.run(["cmake", "--build", str(folder), "--target", "zel_python"], check=True)
        target.parent.mkdir(parents=True, exist_ok=True)
        built = next((folder / "python" / "zelaccess").glob("_native*"))
        shutil.copy2(built, target)
        shutil.rmtree(target.parent / ".libs", ignore_errors=True)  # of an earlier build
        if os.environ.get("ZELACCESS_BUNDLE"):
            bundle(target)


def bundle(module):
    """Copy the libraries that a module needs into .libs next to it, where it looks for them."""
    libraries = module.parent / ".libs"
    libraries.mkdir()
    listed = subprocess.run(["ldd", str(module)], check=True, capture_output=True, text=True)
    for line in listed.stdout.splitlines():
        found = re.match(r"\s*(\S+) => (/\S+)", line)
        if found and not SYSTEM.match(found[1]):
            shutil.copy2(found[2], libraries / found[1])


def version():
    text = (ROOT / "include/zelaccess/Version.h").read_text()
    return re.search(r'#define ZELACCESS_VERSION "([0-9.]+)"', text)[1]


setup(version=version(), ext_modules=[Extension("zelaccess._native", [])],
      cmdclass={"build_ext": CMakeBuild})
