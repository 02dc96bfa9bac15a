"""Runs the recipe for Conan without Conan: its modules are those below, which run the commands that Conan's
run. Then a host is built with what was installed.

    conan_recipe.py RECIPE SCRATCH HOST VERSION
"""
import importlib.machinery
import pathlib
import shutil
import subprocess
import sys
import types

recipe_file, work, host = (pathlib.Path(word).resolve() for word in sys.argv[1:4])
version = sys.argv[4]
sources, package = work / "source", work / "package"
build = sources / "build" / "Release"  # as in Conan's layout


def run(*command):
    result = subprocess.run(list(map(str, command)), stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if result.returncode:
        sys.exit(f"{command}\n{result.stdout}")


class ConanFile:
    def __init__(self):
        self.recipe_folder = str(recipe_file.parent)
        self.export_sources_folder = str(sources)
        self.required = []
        self.cpp_info = types.SimpleNamespace(set_property=lambda *words: None)

    def requires(self, reference):
        self.required.append(reference)


class CMakeToolchain:
    def __init__(self, recipe):
        recipe.toolchain = self
        self.cache_variables = {}

    def generate(self):
        pass


class CMake:
    def __init__(self, recipe):
        self.recipe = recipe

    def configure(self):
        values = {**self.recipe.toolchain.cache_variables, "BUILD_SHARED_LIBS": self.recipe.default_options["shared"],
                  "CMAKE_BUILD_TYPE": "Release", "CMAKE_INSTALL_PREFIX": package, "CMAKE_INSTALL_LIBDIR": "lib",
                  "ZELACCESS_WERROR": True}
        words = [f"-D{name}={'ON' if value is True else 'OFF' if value is False else value}"
                 for name, value in values.items()]
        run("cmake", "-G", "Ninja", "-S", sources, "-B", build, *words)

    def build(self):
        run("cmake", "--build", build)

    def install(self):
        run("cmake", "--install", build)


def copy(_, pattern, source, target):
    found = [path for path in pathlib.Path(source).glob(pattern.replace("/*", "/**/*")) if path.is_file()]
    if not found:
        sys.exit(f"{pattern}: not found")
    for path in found:
        to = pathlib.Path(target) / path.relative_to(source)
        to.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(path, to)


def module(name, **members):
    sys.modules[name] = types.ModuleType(name)
    vars(sys.modules[name]).update(members)


module("conan", ConanFile=ConanFile)
module("conan.tools")
module("conan.tools.cmake", CMake=CMake, CMakeToolchain=CMakeToolchain, cmake_layout=lambda recipe: None,
       CMakeDeps=lambda recipe: types.SimpleNamespace(generate=lambda: None))
module("conan.tools.files", copy=copy, load=lambda recipe, path: pathlib.Path(path).read_text(encoding="utf-8"))
for folder in (sources, package, work / "host"):
    shutil.rmtree(folder, ignore_errors=True)
sources.mkdir(parents=True)
conanfile = importlib.machinery.SourceFileLoader("conanfile", str(recipe_file)).load_module()
recipe = conanfile.ZelAccess()
recipe.set_version()
if recipe.version != version:
    sys.exit(f"the recipe has the version {recipe.version}, not {version}")
recipe.requirements()
if not recipe.required:
    sys.exit("the recipe requires nothing")
for step in (recipe.export_sources, recipe.layout, recipe.generate, recipe.build, recipe.package, recipe.package_info):
    step()
run("cmake", "-G", "Ninja", "-S", host, "-B", work / "host", f"-DZelAccess_DIR={package / recipe.cpp_info.builddirs[0]}")
run("cmake", "--build", work / "host")
run(work / "host" / "small_host")
