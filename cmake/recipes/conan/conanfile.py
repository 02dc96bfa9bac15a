"""The recipe of a source tree for Conan 2:

    conan create cmake/recipes/conan

It has the library; the desk, zel and the C interface need libcsv, for which there is not a recipe.
"""

import os
import re

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load


class ZelAccess(ConanFile):
    name = "zelaccess"
    description = "Access to component libraries of thermophysical data"
    license = "MIT"
    settings = "os", "compiler", "build_type", "arch"
    options = {"shared": [True, False], "fPIC": [True, False]}
    default_options = {"shared": True, "fPIC": True}
    folders = ("banks", "cmake", "frame", "include", "lists", "maint", "purecomp", "store", "verify", "xml")

    @property
    def tree(self):
        return os.path.normpath(os.path.join(self.recipe_folder, "..", "..", ".."))

    def set_version(self):
        text = load(self, os.path.join(self.tree, "include", "zelaccess", "Version.h"))
        self.version = re.search(r'#define ZELACCESS_VERSION "([0-9.]+)"', text)[1]

    def export_sources(self):
        for pattern in ("CMakeLists.txt", "LICENSE", *(f"{folder}/*" for folder in self.folders)):
            copy(self, pattern, self.tree, self.export_sources_folder)

    def requirements(self):
        self.requires("libxml2/[>=2.9 <3]")

    def layout(self):
        cmake_layout(self)

    def generate(self):
        CMakeDeps(self).generate()
        tools = CMakeToolchain(self)
        for name in ("TESTS", "EXAMPLES", "DESK", "ZEL", "C"):
            tools.cache_variables[f"ZELACCESS_{name}"] = False
        tools.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()

    def package_info(self):
        self.cpp_info.libs = ["ZelAccess"]
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs = [os.path.join("lib", "cmake", "ZelAccess")]
