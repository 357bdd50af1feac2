"""What is delivered to the server: the archives that cpack makes of build/powerpc-release."""

import pathlib
import re
import subprocess
import tarfile
import zlib

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
RELEASE = ROOT / "build/powerpc-release"
TESTS = ROOT / "build/powerpc"
NAME = "lanprovider-1.0.0-powerpc-linux-standin"

PROVIDERS = "usr/lib/openwbem/c++providers"
SERIALISING = RELEASE / "src/serialising/libLANProvider.so"
CLASSES = "usr/share/openwbem/mof"

# The versions of the C and C++ libraries of 2006 and before: GLIBC 2.4, GCC 4.1.
NEWEST_VERSIONS = {"GLIBC": (2, 4), "GLIBCXX": (3, 4, 8), "CXXABI": (1, 3, 1), "GCC": (3, 0)}


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def binutils(tool, *arguments):
    return output_of(f"powerpc-linux-gnu-{tool}", *arguments)


@pytest.fixture(scope="module")
def archives(tmp_path_factory):
    """Directory with the archives, freshly made."""
    directory = tmp_path_factory.mktemp("packages")
    subprocess.run(["cpack", "--config", RELEASE / "CPackConfig.cmake", "-B", directory], check=True, capture_output=True)
    return directory


def files_of(archive):
    with tarfile.open(archive) as opened:
        return {member.name for member in opened.getmembers() if member.isfile()}


@pytest.fixture(scope="module")
def server(archives, tmp_path_factory):
    """The root of a server with both archives unpacked."""
    root = tmp_path_factory.mktemp("server")
    for archive in archives.glob("*.tar.gz"):
        with tarfile.open(archive) as opened:
            opened.extractall(root)
    return root


@pytest.fixture
def library(server):
    return server / PROVIDERS / "libLANProvider.so"


@pytest.fixture
def symbols(server):
    return server / PROVIDERS / ".debug/libLANProvider.so.debug"


def dynamic(library, tag):
    return re.findall(rf"\({tag}\) +(.*)", binutils("readelf", "-dW", library))


def sections(file):
    return set(re.findall(r"\] (\.\S+)", binutils("readelf", "-SW", file)))


def test_there_is_one_archive_of_the_provider_and_one_of_its_symbols(archives):
    assert {path.name for path in archives.glob("*.tar.gz")} == {f"{NAME}.tar.gz", f"{NAME}-debug.tar.gz"}


def test_the_provider_archive_holds_library_class_definitions_deployment_guide_and_check(archives):
    assert files_of(archives / f"{NAME}.tar.gz") == {
        f"{PROVIDERS}/libLANProvider.so",
        f"{CLASSES}/ORX_ALGService.mof",
        f"{CLASSES}/ORX_LANEndpoint.mof",
        f"{CLASSES}/ORX_LANServiceSetting.mof",
        "usr/share/doc/lanprovider/deployment.md",
        "usr/bin/lanprovider-check",
    }


def test_the_symbols_archive_holds_what_a_debugger_looks_for_beside_the_library(archives):
    assert files_of(archives / f"{NAME}-debug.tar.gz") == {f"{PROVIDERS}/.debug/libLANProvider.so.debug"}


def test_the_library_is_for_the_servers_processor(library):
    header = binutils("readelf", "-hW", library)
    for line in (r"Class: +ELF32", r"Data: +2's complement, big endian", r"Type: +DYN", r"Machine: +PowerPC$"):
        assert re.search(line, header, re.MULTILINE), line


def test_the_library_is_small(library):
    assert library.stat().st_size < 200 * 1024


def test_the_library_is_stripped(library):
    assert not {name for name in sections(library) if name == ".symtab" or name.startswith(".debug")}


def test_the_symbols_fit_the_library(library, symbols):
    assert {".symtab", ".debug_info", ".debug_line"} <= sections(symbols)
    link = binutils("readelf", "--debug-dump=links", library)
    assert "libLANProvider.so.debug" in link
    checksum = re.search(r"CRC value: (0x[0-9a-f]+)", link).group(1)
    assert int(checksum, 16) == zlib.crc32(symbols.read_bytes())


def test_the_library_needs_the_object_manager_and_the_languages_libraries_alone(library):
    needed = dynamic(library, "NEEDED")
    assert needed == [f"Shared library: [{name}]" for name in
                      ("libopenwbem.so", "libstdc++.so.6", "libgcc_s.so.1", "libc.so.6")]  # fmt: skip


def test_no_directory_of_the_building_machine_is_searched(library):
    assert dynamic(library, "RPATH") == dynamic(library, "RUNPATH") == []


def test_code_is_shared_between_processes_and_never_writable(library):
    assert dynamic(library, "TEXTREL") == []
    assert not [line for line in dynamic(library, "FLAGS") if "TEXTREL" in line]
    program_headers = binutils("readelf", "-lW", library)
    assert not re.search(r"^ +\w+ .* RWE ", program_headers, re.MULTILINE)
    assert re.search(r"^ +GNU_STACK .* RW +0x", program_headers, re.MULTILINE)


def test_the_loader_resolves_everything_at_once_and_finds_names_with_either_hash(library):
    assert dynamic(library, "FLAGS") == ["BIND_NOW"]
    assert dynamic(library, "HASH") and dynamic(library, "GNU_HASH")


def test_nothing_but_the_entry_points_is_visible(library):
    names = {line.split()[-1] for line in binutils("nm", "-D", "--defined-only", library).splitlines()}
    assert names == {"createProviderLANProvider", "getOWVersion"}


@pytest.mark.parametrize("file", [f"{PROVIDERS}/libLANProvider.so", SERIALISING, "usr/bin/lanprovider-check"])
def test_old_c_and_cpp_libraries_suffice(server, file):
    versions = set(re.findall(r"Name: (\w+?)_([0-9.]+)", binutils("readelf", "-VW", server / file)))
    assert {name for name, _ in versions} == set(NEWEST_VERSIONS)
    for name, version in versions:
        assert tuple(int(part) for part in version.split(".")) <= NEWEST_VERSIONS[name], f"{name}_{version}"


def test_the_delivered_library_loads_creates_its_provider_and_unloads(library):
    libraries = f"{TESTS}/standins/openwbem:{TESTS}/tests/target"
    printed = output_of("qemu-ppc", "-L", "/usr/powerpc-linux-gnu", "-E", f"LD_LIBRARY_PATH={libraries}",
                        TESTS / "tests/target/load_library", library)  # fmt: skip
    assert printed == "3.0.3\n"


def check(library, environment):
    command = ["qemu-ppc", "-L", "/usr/powerpc-linux-gnu", *(part for item in environment for part in ("-E", item))]
    checked = subprocess.run([*command, RELEASE / "tools/lanprovider-check/lanprovider-check", library],
                             capture_output=True, text=True, check=False)  # fmt: skip
    return checked.returncode, checked.stdout, checked.stderr


def test_the_delivered_program_finds_the_delivered_library_fit(library):
    environment = [f"LD_LIBRARY_PATH={TESTS}/standins/openwbem", f"LD_PRELOAD={TESTS}/tests/target/libabsent_platform.so"]
    assert check(library, environment) == (0, f"{library}: can be used by OpenWBEM 3.0.3\n", "")


def test_it_names_a_platform_function_that_nobody_brings_along(library):
    status, printed, complaint = check(library, [f"LD_LIBRARY_PATH={TESTS}/standins/openwbem"])
    assert (status, printed) == (1, "")
    unloadable = f"{library}: cannot be loaded, and OpenWBEM would end at the first request to it: {library}: undefined symbol: "
    assert re.fullmatch(re.escape(unloadable) + r"\w+\n", complaint)


def test_it_names_a_library_that_is_not_there(library):
    assert check(library, []) == (1, "", f"{library}: cannot be loaded, and OpenWBEM would end at the first request to it: "
                                  "libopenwbem.so: cannot open shared object file: No such file or directory\n")
