"""Preset openwbem on a machine of the server's kind: its package, and the programs of its build tree."""

import os
import re
import subprocess

import pytest

from cim import BUILD
from openwbem_prefix import ROOT, made_afresh, make_library, make_prefix

# Fixed places, so that a second run finds its compilations in the cache.
PREFIX = BUILD / "openwbem-prefix"
TREE = BUILD / "openwbem-native"
DELIVERED = ["LANProvider", "LANProvider_plain", "LANProvider_symbols", "lanprovider-check"]

pytestmark = pytest.mark.xdist_group("openwbem")  # one build tree


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


@pytest.fixture(scope="module")
def tree():
    make_prefix(PREFIX, "g++", BUILD)
    (PREFIX / "platform").mkdir()
    make_library("g++", PREFIX / "platform/libkvu.so", ROOT / "tests/target/AbsentPlatform.cpp")
    subprocess.run(["cmake", *made_afresh(TREE), "--preset", "openwbem", "-B", TREE, f"-DOPENWBEM_ROOT={PREFIX}", "-DCMAKE_BUILD_TYPE=Debug",
                    f"-DKV_PLATFORM_LIBRARIES={PREFIX}/platform/libkvu.so"],
                   cwd=ROOT, check=True, capture_output=True)  # fmt: skip
    subprocess.run(["cmake", "--build", TREE, "-j", str(os.cpu_count()), "--target", *DELIVERED, "unit_serialising"],
                   check=True, capture_output=True)  # fmt: skip
    return TREE


def symbols(library):
    return {line.split()[-1].split("@")[0] for line in output_of("nm", "-D", "--undefined-only", library).splitlines()}


def test_the_delivered_library_is_the_serialising_one_and_the_plain_one_lies_below(tree):
    assert "pthread_mutex_lock" in symbols(tree / "src/libLANProvider.so")
    assert "pthread_mutex_lock" not in symbols(tree / "src/plain/libLANProvider.so")


def test_a_program_of_the_build_tree_finds_the_libraries_that_the_installations_libraries_need(tree):
    program = tree / "tests/unit/serialising/unit_serialising"
    environment = {name: value for name, value in os.environ.items() if name != "LD_LIBRARY_PATH"}
    ran = subprocess.run([program], env=environment, capture_output=True, text=True, check=False)
    assert ran.returncode == 0, ran.stderr
    assert "libowneeded.so" in output_of("ldd", program)


def test_the_package_finds_the_libraries_of_the_installation_and_of_the_server(tree, tmp_path):
    packed = subprocess.run(["cpack", "-D", "CPACK_DEBIAN_PACKAGE_DEBUG=1", "--config", tree / "CPackConfig.cmake", "-B", tmp_path],
                            capture_output=True, text=True, check=False)  # fmt: skip
    assert packed.returncode == 0, packed.stderr
    assert "dpkg-shlibdeps" in packed.stdout + packed.stderr
    assert "cannot find library" not in packed.stdout + packed.stderr
    [package] = [path for path in tmp_path.glob("*.deb") if "dbgsym" not in path.name]
    assert package.name.startswith("lanprovider_")
    depends = output_of("dpkg-deb", "-f", package, "Depends")
    assert {entry.split()[0] for entry in depends.strip().split(", ")} == {"libc6", "libgcc-s1", "libstdc++6"}
    subprocess.run(["dpkg-deb", "-x", package, tmp_path / "root"], check=True)
    library = tmp_path / "root/usr/lib/openwbem/c++providers/libLANProvider.so"
    assert not re.search(r"R(?:UN)?PATH", output_of("readelf", "-d", library))
    assert "pthread_mutex_lock" in symbols(library)
