"""A made-up installation of OpenWBEM.

It has the layout and the names of one and is put together from the stand-in's headers and objects. So it shows that a build
takes all from there, not how OpenWBEM itself behaves.
"""

import pathlib
import shutil
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[3]
LIBRARIES = ["openwbem", "owprovider", "owcppprovifc"]

# What the stand-in's headers have otherwise: a call that lacks a keyword, and the declaration that has to be seen before all
# else, so that its absence is noticed.
FLAW = """    template <class U>
    void castTo(T const& m_obj) const
    {
        m_obj.cast_to<U>();
    }
"""
FIRST_HEADER = """#ifndef OW_VECTOR_HPP_
#define OW_VECTOR_HPP_
#include "OW_config.h"
#include <vector>
#endif
"""
NOT_FIRST = """#ifndef OW_VECTOR_HPP_
#error "included before OW_vector.hpp"
#endif
"""


def make_library(compiler, path, *sources, libraries=()):
    """A library of sources or object files that needs the named ones beside it."""
    subprocess.run([compiler, "-shared", "-fPIC", f"-I{ROOT}/interfaces/platform", f"-Wl,-soname,{path.name}", "-o", path, *sources,
                    f"-L{path.parent}", "-Wl,--no-as-needed", *(f"-l{name}" for name in libraries)], check=True)  # fmt: skip


def make_prefix(prefix, compiler, build):
    """The prefix, made anew; `build` is a build tree of that compiler's with the stand-in's objects."""
    shutil.rmtree(prefix, ignore_errors=True)
    include = prefix / "include/openwbem"
    shutil.copytree(ROOT / "standins/openwbem/include", include)
    (include / "OW_vector.hpp").write_text(FIRST_HEADER)
    change(include / "OW_config.h", lambda text: NOT_FIRST + text)
    change(include / "OW_SharedLibraryReference.hpp", lambda text: text.replace("  public:\n", "  public:\n" + FLAW, 1))
    (prefix / "lib").mkdir()
    make_library(compiler, prefix / "lib/libowprovider.so")
    make_library(compiler, prefix / "lib/libowcppprovifc.so")
    # As in an installation, one library needs another one, which those who link with it do not name.
    make_library(compiler, prefix / "lib/libowneeded.so")
    objects = build / "standins/openwbem/CMakeFiles/kv_openwbem.dir/src"
    make_library(compiler, prefix / "lib/libopenwbem.so", *objects.glob("*.o"), libraries=["owneeded"])
    return prefix


def made_afresh(tree):
    """The option of CMake for a kept build tree that was made while the checkout lay elsewhere, which CMake refuses."""
    cache = tree / "CMakeCache.txt"
    stays = not cache.exists() or f"CMAKE_HOME_DIRECTORY:INTERNAL={ROOT}\n" in cache.read_text()
    return [] if stays else ["--fresh"]


def change(file, how):
    file.write_text(how(file.read_text()))
