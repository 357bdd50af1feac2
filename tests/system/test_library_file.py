"""The library file as the object manager's loader sees it."""

import pathlib
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
LIBRARY = ROOT / "build/dev/src/libLANProvider.so"

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


def symbols(which):
    return {line.split()[-1].split("@")[0] for line in output_of("nm", "-D", which, LIBRARY).splitlines()}


def test_exports_exactly_the_two_entry_points():
    assert symbols("--defined-only") == {"createProviderLANProvider", "getOWVersion"}


def test_imports_every_platform_function():
    assert PLATFORM_FUNCTIONS <= symbols("--undefined-only")


def test_takes_no_lock_and_starts_no_thread():
    """The object manager serialises requests; the platform's semaphore is the only one there is."""
    words = ("pthread", "mutex", "sem_", "thrd", "flock", "lockf", "futex")
    assert not [name for name in symbols("--undefined-only") if any(word in name for word in words)]


def test_needs_neither_tests_nor_an_object_manager():
    needed = [
        line.split("[")[1].rstrip("]")
        for line in output_of("readelf", "-d", LIBRARY).splitlines()
        if "(NEEDED)" in line
    ]
    allowed = {"libopenwbem.so", "libkvplatform.so", "libstdc++.so.6", "libgcc_s.so.1", "libc.so.6", "libm.so.6"}
    assert set(needed) <= allowed
    linked = output_of("ldd", LIBRARY)
    assert "cimom" not in linked and "gtest" not in linked and "not found" not in linked


def test_can_be_unloaded():
    """A symbol of the unique kind would keep the library and its static objects in the process for good."""
    assert not [line for line in output_of("nm", LIBRARY).splitlines() if " u " in line]
