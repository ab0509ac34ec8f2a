import os
import re

from conan import ConanFile
from conan.errors import ConanInvalidConfiguration
from conan.tools.cmake import CMake, CMakeToolchain
from conan.tools.files import copy, load
from conan.tools.microsoft import is_msvc_static_runtime


class RevitMappingEditorConan(ConanFile):
    name = "revit-mapping-editor"
    license = "MIT"
    description = "Classifies the elements of a building model"
    package_type = "shared-library"
    settings = "os", "arch", "compiler", "build_type"

    # The recipe is two folders below the sources that it builds.
    _root = os.path.join("..", "..")

    def set_version(self):
        project = load(self, os.path.join(self.recipe_folder, self._root, "CMakeLists.txt"))
        self.version = re.search(r"project\(\w+ VERSION ([0-9.]+)", project).group(1)

    def export_sources(self):
        root = os.path.join(self.recipe_folder, self._root)
        for pattern in ("CMakeLists.txt", "LICENSE", "cmake/*", "data/*", "docs/*", "include/*",
                        "packaging/RevitMappingEditorDll.*", "src/*"):
            copy(self, pattern, root, self.export_sources_folder)

    def layout(self):
        self.folders.root = self._root
        self.folders.source = "."
        self.folders.build = os.path.join("build", "conan", str(self.settings.build_type))
        self.folders.generators = os.path.join(self.folders.build, "generators")

    def validate(self):
        if self.settings.os not in ("Linux", "Windows") or self.settings.arch != "x86_64":
            raise ConanInvalidConfiguration("For 64-bit Windows and Linux alone")
        # Callers free memory that the DLL allocates.
        if is_msvc_static_runtime(self):
            raise ConanInvalidConfiguration("The C++ runtime has to be the dynamic one")

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["CMAKE_COMPILE_WARNING_AS_ERROR"] = False
        toolchain.cache_variables["REVIT_MAPPING_EDITOR_INSTALL"] = True
        toolchain.cache_variables["REVIT_MAPPING_EDITOR_TESTS"] = False
        toolchain.cache_variables["REVIT_MAPPING_EDITOR_TOOLS"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))

    def package_info(self):
        # The package has its own CMake configuration.
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs = [os.path.join("lib", "cmake", "RevitMappingEditor")]
        self.cpp_info.includedirs = [os.path.join("include", "RevitMappingEditorDll")]
        self.cpp_info.libs = ["RevitMappingEditorDll"]
