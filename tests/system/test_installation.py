"""What cmake --install and cpack make of the development build, and that it serves from where it was installed."""

import json
import os
import re
import subprocess

import pytest

from cimom import BUILD, PROGRAM

# Both build in build/dev, which is for one at a time: test_run.py and test_installation.py.
pytestmark = pytest.mark.xdist_group("build")

PROVIDERS = "lib/openwbem/c++providers"
CLASSES = "share/openwbem/mof"
PROVIDER_FILES = {
    f"{PROVIDERS}/libLANProvider.so",
    f"{CLASSES}/ORX_ALGService.mof",
    f"{CLASSES}/ORX_LANEndpoint.mof",
    f"{CLASSES}/ORX_LANServiceSetting.mof",
    "share/doc/lanprovider/deployment.md",
    "bin/lanprovider-check",
}
SYMBOL_FILES = {f"{PROVIDERS}/.debug/libLANProvider.so.debug"}

CLIENT_FILES = {
    "bin/lanctl",
    "share/man/man1/lanctl.1",
    "share/bash-completion/completions/lanctl",
    "share/doc/lanctl/lanctl.md",
}
ALL_FILES = PROVIDER_FILES | SYMBOL_FILES | CLIENT_FILES


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def install(prefix, *options, staging=None):
    environment = os.environ | ({"DESTDIR": str(staging)} if staging else {})
    subprocess.run(["cmake", "--install", BUILD, "--prefix", prefix, *options], check=True, capture_output=True, env=environment)


def files_below(directory):
    return {str(path.relative_to(directory)) for path in directory.rglob("*") if path.is_file()}


def sections(file):
    return set(re.findall(r"\] (\.\S+)", output_of("readelf", "-SW", file)))


@pytest.fixture
def prefix(tmp_path):
    install(tmp_path / "prefix")
    return tmp_path / "prefix"


def test_everything_is_where_the_object_manager_looks_by_default(prefix):
    assert files_below(prefix) == ALL_FILES


def test_the_symbols_can_be_left_out(tmp_path):
    install(tmp_path, "--component", "provider")
    assert files_below(tmp_path) == PROVIDER_FILES


def test_it_can_be_staged_for_a_packager(tmp_path):
    install("/opt/server", staging=tmp_path)
    assert files_below(tmp_path / "opt/server") == ALL_FILES
    assert ".symtab" not in sections(tmp_path / "opt/server" / PROVIDERS / "libLANProvider.so")


def test_the_installed_library_is_stripped_and_names_the_file_with_its_symbols(prefix):
    library = prefix / PROVIDERS / "libLANProvider.so"
    assert not {name for name in sections(library) if name == ".symtab" or name.startswith(".debug")}
    assert "libLANProvider.so.debug" in output_of("readelf", "--debug-dump=links", library)
    assert ".debug_info" in sections(prefix / PROVIDERS / ".debug/libLANProvider.so.debug")


def test_the_installed_library_searches_no_directory_of_the_building_machine(prefix):
    dynamic = output_of("readelf", "-dW", prefix / PROVIDERS / "libLANProvider.so")
    assert "(RUNPATH)" not in dynamic and "(RPATH)" not in dynamic


def test_the_installed_program_finds_the_installed_library_fit(prefix):
    library = prefix / PROVIDERS / "libLANProvider.so"
    environment = os.environ | {"LD_LIBRARY_PATH": f"{BUILD}/standins/platform:{BUILD}/standins/openwbem"}
    checked = subprocess.run([prefix / "bin/lanprovider-check", library], capture_output=True, text=True, check=False,
                             env=environment)  # fmt: skip
    assert (checked.returncode, checked.stdout, checked.stderr) == (0, f"{library}: can be used by OpenWBEM 3.0.3\n", "")


@pytest.mark.parametrize("instance, name, value", [
    ('ORX_LANEndpoint.Name="eth1"', "Description", "Customer LAN"),
    ("ORX_LANServiceSetting", "DomainName", "site.example"),
    ('ORX_ALGService.SystemCreationClassName="SCCN",SystemName="SN",CreationClassName="CCN",Name="Name"', "KLonKLEnabled", False),
])  # fmt: skip
def test_the_installed_library_serves_the_installed_classes(server, prefix, instance, name, value):
    command = (f"LD_LIBRARY_PATH={BUILD}/standins/platform {PROGRAM} --mof {prefix}/{CLASSES} --provider-dir {prefix}/{PROVIDERS} "
               f"call --json getInstance 'root/cimv2:{instance}'")  # fmt: skip
    answer = json.loads(server.sh(command))
    assert answer["properties"][name] == value


@pytest.fixture(scope="module")
def packages(tmp_path_factory):
    directory = tmp_path_factory.mktemp("packages")
    subprocess.run(["cpack", "--config", BUILD / "CPackConfig.cmake", "-B", directory], check=True, capture_output=True)
    return directory


def package(packages, name):
    [file] = packages.glob(f"{name}_*.deb")
    return file


def test_there_is_a_debian_package_of_the_provider_one_of_its_symbols_and_one_of_the_client(packages):
    assert sorted(path.name.split("_")[0] for path in packages.glob("*.deb")) == [
        "lanctl", "lanprovider-standin", "lanprovider-standin-dbgsym"]  # fmt: skip


@pytest.mark.parametrize("name, files", [
    ("lanprovider-standin", PROVIDER_FILES), ("lanprovider-standin-dbgsym", SYMBOL_FILES), ("lanctl", CLIENT_FILES)])
def test_a_debian_package_unpacks_below_usr(packages, tmp_path, name, files):
    subprocess.run(["dpkg-deb", "-x", package(packages, name), tmp_path], check=True)
    assert files_below(tmp_path) == {f"usr/{file}" for file in files}


def test_the_provider_package_asks_for_the_packages_of_the_libraries_that_it_needs(packages):
    depends = output_of("dpkg-deb", "-f", package(packages, "lanprovider-standin"), "Depends")
    assert {entry.split()[0] for entry in depends.strip().split(", ")} == {"libc6", "libgcc-s1", "libstdc++6"}


def test_the_installed_client_is_stripped_and_small(prefix):
    client = prefix / "bin/lanctl"
    assert ".symtab" not in sections(client)
    assert client.stat().st_size < 2 << 20
    assert subprocess.run([client, "--version"], capture_output=True, text=True, check=True).stdout == "1.0.0\n"


def test_the_client_package_asks_for_the_packages_of_the_libraries_that_it_needs(packages):
    depends = output_of("dpkg-deb", "-f", package(packages, "lanctl"), "Depends")
    assert {entry.split()[0] for entry in depends.strip().split(", ")} == {
        "libc6", "libcurl4", "libexpat1", "libgcc-s1", "libmicrohttpd12", "libstdc++6", "libyaml-cpp0.7"}


@pytest.mark.parametrize("name, summary", [
    ("lanprovider-standin", "LAN management provider for the OpenWBEM object manager"),
    ("lanprovider-standin-dbgsym", "Debug symbols of libLANProvider.so"),
    ("lanctl", "Shows, plans and changes the network of a telephony server over CIM-XML")])
def test_each_debian_package_is_described_as_what_it_is(packages, name, summary):
    assert output_of("dpkg-deb", "-f", package(packages, name), "Description") == f"{summary}\n"
