"""The library file as the object manager's loader sees it, in both variants."""

import pathlib
import re
import subprocess

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PLAIN = ROOT / "build/dev/src/libLANProvider.so"
SERIALISING = ROOT / "build/dev/src/serialising/libLANProvider.so"

PLATFORM_FUNCTIONS = {
    "KvuGetRegEntryUint16Ex",
    "KvuSetRegEntryUint16Ex",
    "KvuDiagRegisterModule",
    "KvuDiagDeregisterModule",
    "KvuDiagAddLogEntry",
    "osGetProcessId",
    "osIsZODAOnePresent",
    "osResetRouter",
    "dhcpIpInfoGetIPInfo",
    "dhcpIpInfoGetDefaultGateway",
    "dhcpIpInfoIsIPAddrValid",
    "dhcpIpInfoRequestDHCPLANSemaphore",
    "dhcpIpInfoReleaseDHCPLANSemaphore",
    "dhcpIpInfoInformDHCPProviderOfIPConfigChange",
    "EmsConnectionOpen",
    "EmsIpAddressChange",
    "EmsConnectionClose",
    "runcommand",
    "freeresultbuf",
}


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


@pytest.fixture(params=[PLAIN, SERIALISING], ids=["plain", "serialising"])
def library(request):
    return request.param


def symbols(which, library):
    return {line.split()[-1].split("@")[0] for line in output_of("nm", "-D", which, library).splitlines()}


def test_exports_exactly_the_two_entry_points(library):
    assert symbols("--defined-only", library) == {"createProviderLANProvider", "getOWVersion"}


def test_imports_every_platform_function(library):
    assert PLATFORM_FUNCTIONS <= symbols("--undefined-only", library)


@pytest.mark.parametrize("library, locks", [(PLAIN, set()), (SERIALISING, {"pthread_mutex_lock", "pthread_mutex_unlock"})])
def test_takes_no_lock_but_the_serialising_variants_and_starts_no_thread(library, locks):
    """The classes themselves leave it to their caller to come one at a time."""
    words = ("pthread", "mutex", "sem_", "thrd", "flock", "lockf", "futex")
    assert {name for name in symbols("--undefined-only", library) if any(word in name for word in words)} == locks


def test_the_variants_differ_in_nothing_else():
    without_locks = symbols("--undefined-only", SERIALISING) - {"pthread_mutex_lock", "pthread_mutex_unlock"}
    assert without_locks == symbols("--undefined-only", PLAIN)


def test_needs_neither_tests_nor_an_object_manager(library):
    needed = [
        line.split("[")[1].rstrip("]")
        for line in output_of("readelf", "-d", library).splitlines()
        if "(NEEDED)" in line
    ]
    allowed = {"libopenwbem.so", "libkvplatform.so", "libstdc++.so.6", "libgcc_s.so.1", "libc.so.6", "libm.so.6"}
    assert set(needed) <= allowed
    linked = output_of("ldd", library)
    assert "cimom" not in linked and "gtest" not in linked and "not found" not in linked


def test_can_be_unloaded(library):
    """A symbol of the unique kind would keep the library and its static objects in the process for good."""
    assert not [line for line in output_of("nm", library).splitlines() if " u " in line]


@pytest.mark.parametrize("option, delivered, below", [
    ("ON", "SerialisingFactory", "plain"), ("OFF", "PlainFactory", "serialising"), ("AUTO", "PlainFactory", "serialising")
])  # fmt: skip
def test_the_option_decides_which_variant_is_delivered(tmp_path, option, delivered, below):
    configured = ["cmake", "-S", ROOT, "-B", tmp_path, "-G", "Ninja", "-DBUILD_TESTING=OFF", f"-DKV_SERIALISE_REQUESTS={option}"]
    subprocess.run(configured, check=True, capture_output=True)
    rules = (tmp_path / "build.ninja").read_text()
    linked = dict(re.findall(r"^build (src/\S*libLANProvider\.so): \S+ (\S+)", rules, re.MULTILINE))
    assert linked.keys() == {"src/libLANProvider.so", f"src/{below}/libLANProvider.so"}
    assert delivered in output_of("ninja", "-C", tmp_path, "-t", "query", "src/libLANProvider.so")
