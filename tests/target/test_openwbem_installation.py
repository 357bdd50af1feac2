"""Preset openwbem: the library and the interface's conformance test against an installed OpenWBEM.

There is no installation on a development machine; openwbem_prefix makes one up.
"""

import os
import pathlib
import re
import shutil
import subprocess

import pytest

from openwbem_prefix import LIBRARIES, change, made_afresh, make_library, make_prefix

ROOT = pathlib.Path(__file__).resolve().parents[2]
RELEASE = ROOT / "build/powerpc-release"
# Fixed places, so that a second run finds its compilations in the cache.
PREFIX = ROOT / "build/openwbem-prefix"
BUILD = ROOT / "build/openwbem-target"
WRONG_BUILD = ROOT / "build/openwbem-wrong"

REPAIRED = "openwbem-repaired/OW_SharedLibraryReference.hpp"

COMPILER = "powerpc-linux-gnu-g++"
PLATFORM_LIBRARIES = ["kvu", "kvnet"]


def configure(build, prefix, *options):
    command = ["cmake", *made_afresh(build), "--preset", "openwbem", "-B", build, "--toolchain", ROOT / "cmake/powerpc-linux-gnu.cmake",
               f"-DOPENWBEM_ROOT={prefix}", "-DCMAKE_BUILD_TYPE=Debug", *options]  # fmt: skip
    return subprocess.run(command, cwd=ROOT, capture_output=True, text=True, check=False)


@pytest.fixture(scope="module")
def build():
    """A build against such a prefix and against the server's platform, which is played by two libraries."""
    prefix = make_prefix(PREFIX, COMPILER, RELEASE)
    shutil.copytree(ROOT / "interfaces/platform", prefix / "platform")
    make_library(COMPILER, prefix / "platform/libkvu.so", ROOT / "tests/target/AbsentPlatform.cpp")
    make_library(COMPILER, prefix / "platform/libkvnet.so")
    platform = ";".join(f"{prefix}/platform/lib{name}.so" for name in PLATFORM_LIBRARIES)
    configured = configure(BUILD, prefix, f"-DKV_PLATFORM_INCLUDE_DIR={prefix}/platform", f"-DKV_PLATFORM_LIBRARIES={platform}")
    assert configured.returncode == 0, configured.stderr
    subprocess.run(["cmake", "--build", BUILD, "-j", str(os.cpu_count()), "--target", "LANProvider", "unit_openwbem"], check=True)
    return BUILD


def test_the_flawed_header_is_repaired_in_the_build_tree_and_nowhere_else(build):
    original = (PREFIX / "include/openwbem/OW_SharedLibraryReference.hpp").read_text()
    assert original.count("m_obj.cast_to<U>()") == 1
    assert (build / REPAIRED).read_text() == original.replace("m_obj.cast_to<U>()", "m_obj.template cast_to<U>()")


def test_everything_that_uses_the_interface_sees_the_vectors_and_the_repaired_header_first(build):
    rules = (build / "build.ninja").read_text()
    blocks = [block for block in rules.split("\n\n") if f"-isystem {PREFIX}/include/openwbem" in block]
    assert blocks
    for block in blocks:
        assert "-include OW_vector.hpp -include OW_SharedLibraryReference.hpp" in block
        assert f"-isystem {build}/openwbem-repaired -isystem {PREFIX}/include/openwbem" in block


def needed(file):
    dynamic = subprocess.run(["powerpc-linux-gnu-readelf", "-dW", file], check=True, capture_output=True, text=True).stdout
    return re.findall(r"\(NEEDED\) +Shared library: \[(.*)\]", dynamic)


def test_the_library_is_linked_with_the_installation_and_the_servers_platform(build):
    assert needed(build / "src/libLANProvider.so") == [
        "libopenwbem.so", "libkvu.so", "libstdc++.so.6", "libgcc_s.so.1", "libc.so.6"
    ]  # fmt: skip


def test_no_stand_in_takes_part(build):
    rules = (build / "build.ninja").read_text()
    assert "standins/openwbem" not in rules and "standins/platform" not in rules
    assert f"-isystem {PREFIX}/include/openwbem" in rules
    assert f"-isystem {PREFIX}/platform" in rules
    assert "interfaces/platform" not in rules


def test_the_interface_conforms(build):
    ran = subprocess.run(["qemu-ppc", "-L", "/usr/powerpc-linux-gnu", build / "tests/unit/openwbem/unit_openwbem"],
                         capture_output=True, text=True, check=False)  # fmt: skip
    assert ran.returncode == 0, ran.stdout
    assert re.search(r"\[  PASSED  \] [1-9]\d+ tests", ran.stdout)


def problems_of(prefix):
    configured = configure(WRONG_BUILD, prefix, "-DBUILD_TESTING=OFF")
    assert configured.returncode != 0
    assert "is no development installation of OpenWBEM" in configured.stderr
    return re.findall(r"^ +((?:no |OW_config).*)", configured.stderr, re.MULTILINE)


@pytest.fixture
def prefix(tmp_path, build):
    # The build is asked for because it comes first: it leaves a complete prefix to spoil.
    shutil.copytree(PREFIX, tmp_path / "prefix")
    return tmp_path / "prefix"


def test_an_empty_prefix_lacks_the_first_header_and_all_libraries(tmp_path):
    assert problems_of(tmp_path) == [
        f"no header OW_config.h in {tmp_path}/include/openwbem or {tmp_path}/include",
        *(f"no library {name} in {tmp_path}/lib" for name in LIBRARIES),
    ]


@pytest.mark.parametrize("header", ["OW_vector.hpp", "OW_SharedLibraryReference.hpp", "OW_CppInstanceProviderIFC.hpp",
                                    "OW_CIMValue.hpp", "OW_String.hpp"])  # fmt: skip
def test_a_missing_header_is_named(prefix, header):
    (prefix / "include/openwbem" / header).unlink()
    assert problems_of(prefix) == [f"no header {header} in {prefix}/include/openwbem"]


@pytest.mark.parametrize("name", LIBRARIES)
def test_a_missing_library_is_named(prefix, name):
    (prefix / f"lib/lib{name}.so").unlink()
    assert problems_of(prefix) == [f"no library {name} in {prefix}/lib"]


def configured_without_tests(prefix):
    shutil.rmtree(WRONG_BUILD, ignore_errors=True)
    return configure(WRONG_BUILD, prefix, "-DBUILD_TESTING=OFF", "-DKV_ALLOW_UNRESOLVED=ON")


def test_a_header_that_compiles_is_left_alone(prefix):
    header = prefix / "include/openwbem/OW_SharedLibraryReference.hpp"
    change(header, lambda text: text.replace("m_obj.cast_to<U>()", "m_obj.template cast_to<U>()"))
    configured = configured_without_tests(prefix)
    assert configured.returncode == 0, configured.stderr
    assert f"OpenWBEM: {header} needs no repair" in configured.stdout
    assert not (WRONG_BUILD / REPAIRED).exists()
    assert f"-isystem {prefix}/include/openwbem" in (WRONG_BUILD / "build.ninja").read_text()


def test_a_repaired_copy_is_told_and_not_written_again(prefix):
    configured = configured_without_tests(prefix)
    assert configured.returncode == 0, configured.stderr
    assert f"OpenWBEM: using a repaired copy of {prefix}/include/openwbem/OW_SharedLibraryReference.hpp" in configured.stdout
    written = (WRONG_BUILD / REPAIRED).stat().st_mtime_ns
    assert configure(WRONG_BUILD, prefix).returncode == 0
    assert (WRONG_BUILD / REPAIRED).stat().st_mtime_ns == written


def test_a_header_that_does_not_compile_even_so_is_named(prefix):
    header = prefix / "include/openwbem/OW_SharedLibraryReference.hpp"
    change(header, lambda text: text.replace("m_obj.cast_to<U>()", "m_obj.cast_to<U >()"))
    configured = configured_without_tests(prefix)
    assert configured.returncode != 0
    assert f"{header} does not compile" in " ".join(configured.stderr.split())


def test_a_build_without_the_servers_libraries_has_to_be_asked_for(prefix):
    shutil.rmtree(WRONG_BUILD, ignore_errors=True)
    configured = configure(WRONG_BUILD, prefix, "-DBUILD_TESTING=OFF")
    assert configured.returncode != 0
    assert "KV_PLATFORM_LIBRARIES is empty." in configured.stderr and "KV_ALLOW_UNRESOLVED=ON" in configured.stderr


def test_another_version_is_refused(prefix):
    config = prefix / "include/openwbem/OW_config.h"
    change(config, lambda text: text.replace('"3.0.3"', '"3.1.0"'))
    assert problems_of(prefix) == ['OW_config.h does not define OW_VERSION as "3.0.3"']


def test_headers_may_lie_directly_in_include(prefix):
    for header in (prefix / "include/openwbem").iterdir():
        header.rename(prefix / "include" / header.name)
    configured = configured_without_tests(prefix)
    assert configured.returncode == 0, configured.stderr
    assert re.search(rf"-isystem {re.escape(str(prefix))}/include$", (WRONG_BUILD / "build.ninja").read_text(), re.MULTILINE)


def test_a_package_of_it_does_not_call_itself_a_stand_in(build):
    config = (build / "CPackConfig.cmake").read_text()
    assert 'set(CPACK_ARCHIVE_PROVIDER_FILE_NAME "lanprovider-1.0.0-powerpc-linux")' in config
