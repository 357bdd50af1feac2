"""lanprovider-check says before the object manager starts what OpenWBEM would make of a provider library."""

import subprocess

import pytest

from cim import BUILD

PROGRAM = BUILD / "tools/lanprovider-check/lanprovider-check"

VERSION = 'extern "C" const char* getOWVersion() { return "3.0.3"; }\n'
FACTORY = 'extern "C" void* createProviderSample() { return 0; }\n'


def check(*arguments, directory=None):
    checked = subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, check=False, cwd=directory)
    return checked.returncode, checked.stdout, checked.stderr


@pytest.fixture
def library(tmp_path):
    """Compiles a library of this source and name."""

    def compile_library(source, name="libSample.so", *options):
        file = tmp_path / name
        subprocess.run(["g++", "-shared", "-fPIC", "-o", file, "-x", "c++", "-", *options], input=source, text=True, check=True)
        return file

    return compile_library


def test_a_provider_of_this_version_is_fit(library):
    file = library(VERSION + FACTORY)
    assert check(file) == (0, f"{file}: can be used by OpenWBEM 3.0.3\n", "")


@pytest.mark.parametrize("place", ["src", "src/serialising"])
def test_both_variants_of_the_library_are_fit(place):
    file = BUILD / place / "libLANProvider.so"
    assert check(file) == (0, f"{file}: can be used by OpenWBEM 3.0.3\n", "")


def test_a_name_without_a_folder_is_the_file_in_this_one(library):
    file = library(VERSION + FACTORY)
    assert check(file.name, directory=file.parent) == (0, f"{file.name}: can be used by OpenWBEM 3.0.3\n", "")


@pytest.mark.parametrize("source, reason", [
    (FACTORY, "has no function getOWVersion: it is no C++ provider of OpenWBEM"),
    (VERSION, "has no function createProviderSample, which OpenWBEM derives from the name of the file"),
    (VERSION.replace('"3.0.3"', "nullptr") + FACTORY, "was built for version (none) of the provider interface, not for 3.0.3"),
    (VERSION.replace("3.0.3", "3.1.0") + FACTORY, "was built for version 3.1.0 of the provider interface, not for 3.0.3"),
])  # fmt: skip
def test_a_library_that_openwbem_refuses_is_unfit(library, source, reason):
    file = library(source)
    assert check(file) == (1, "", f"{file}: {reason}\n")


DEADLY = "cannot be loaded, and OpenWBEM would end at the first request to it: "


def test_a_function_that_nobody_has_is_named_even_if_it_is_never_called(library):
    file = library(VERSION + FACTORY + 'extern "C" void runcommand(); void never() { runcommand(); }\n')
    assert check(file) == (1, "", f"{file}: {DEADLY}{file}: undefined symbol: runcommand\n")


def test_a_library_that_is_not_there_is_named(library):
    needed = library("", "libneeded.so")
    file = library(VERSION + FACTORY, "libSample.so", "-Wl,--no-as-needed", f"-L{needed.parent}", "-lneeded")
    needed.unlink()
    status, printed, complaint = check(file)
    assert (status, printed) == (1, "")
    assert complaint.startswith(f"{file}: {DEADLY}") and "libneeded.so: cannot open shared object file" in complaint


def test_a_file_that_is_no_library_is_unfit(tmp_path):
    file = tmp_path / "libSample.so"
    file.write_text("text")
    assert check(file) == (1, "", f"{file}: {DEADLY}{file}: file too short\n")


def test_a_file_that_is_not_there_is_named(tmp_path):
    file = tmp_path / "libSample.so"
    assert check(file) == (1, "", f"{file}: there is no such file\n")


@pytest.mark.parametrize("name", ["Sample.so", "libSample.so.1", "lib.so", "libSample"])
def test_a_file_whose_name_openwbem_does_not_take_is_unfit(library, name):
    file = library(VERSION + FACTORY, name)
    assert check(file) == (1, "", f"{file}: has not the form lib<provider>.so, by which OpenWBEM finds a provider\n")


def test_help_tells_how_it_is_used():
    status, printed, complaint = check("--help")
    assert (status, complaint) == (0, "")
    assert printed.startswith("usage: lanprovider-check FILE\n")
    assert check("-h") == (status, printed, complaint)


@pytest.mark.parametrize("arguments", [[], ["a", "b"], ["--verbose"], [""]])
def test_wrong_usage_is_answered_with_the_right_one(arguments):
    assert check(*arguments) == (2, "", check("--help")[1])
