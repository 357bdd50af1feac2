"""Missing packages are installed for root and named to everybody else."""
import os
import stat
import subprocess

import pytest

from server import CHECKOUT

LIST = "# what the demonstration needs\n\nbash   # is there\nno-such-package-1 # is not\n\tno-such-package-2\n"


@pytest.fixture
def place(tmp_path):
    """A directory with a package list and, first in PATH, an apt-get and an id that play the machine."""
    (tmp_path / "packages.txt").write_text(LIST)
    return tmp_path


def command(place, name, script):
    file = place / name
    file.write_text(f"#!/bin/bash\n{script}\n")
    file.chmod(file.stat().st_mode | stat.S_IXUSR)


def ensure(place):
    script = f". {CHECKOUT}/tools/packages.sh; ensure_packages {place}/packages.txt"
    return subprocess.run(["bash", "-euo", "pipefail", "-c", script], capture_output=True, text=True, check=False,
                          env={"PATH": f"{place}:{os.environ['PATH']}"})


def test_nothing_missing_needs_neither_root_nor_apt(place):
    command(place, "id", "echo 1000")
    command(place, "apt-get", "exit 1")
    (place / "packages.txt").write_text("bash\ncoreutils\n")
    done = ensure(place)
    assert (done.returncode, done.stdout, done.stderr) == (0, "", "")


def test_an_ordinary_user_gets_the_line_to_type(place):
    command(place, "id", "echo 1000")
    command(place, "apt-get", f"touch {place}/called")
    done = ensure(place)
    assert (done.returncode, done.stdout) == (1, "")
    assert done.stderr == ("These packages are missing; install them and try again:\n"
                           "  sudo apt-get install --no-install-recommends no-such-package-1 no-such-package-2\n")
    assert not (place / "called").exists()


def test_root_installs_what_is_missing_and_nothing_else(place):
    command(place, "id", "echo 0")
    command(place, "apt-get", f'echo "$DEBIAN_FRONTEND: $*" >>{place}/called')
    assert ensure(place).returncode == 0
    assert (place / "called").read_text() == (
        "noninteractive: update -qq\n"
        "noninteractive: install -qq -y --no-install-recommends no-such-package-1 no-such-package-2\n")


def test_a_list_that_cannot_be_read_is_an_error(place):
    command(place, "apt-get", f"touch {place}/called")
    (place / "packages.txt").unlink()
    done = ensure(place)
    assert (done.returncode, done.stdout) == (1, "")
    assert done.stderr == f"the list of packages cannot be read: {place}/packages.txt\n"
    assert not (place / "called").exists()


@pytest.mark.parametrize("failing", ["update", "install"])
def test_a_failed_installation_is_told(place, failing):
    command(place, "id", "echo 0")
    command(place, "apt-get", f'[ "$1" != {failing} ]')
    done = ensure(place)
    assert done.returncode == 1
    assert done.stderr.endswith("apt-get could not install: no-such-package-1 no-such-package-2\n")


def test_a_package_that_was_removed_but_left_its_configuration_counts_as_missing(place):
    command(place, "id", "echo 1000")
    command(place, "dpkg-query", 'case "${!#}" in bash) echo -n config-files ;; *) exit 1 ;; esac')
    assert "--no-install-recommends bash no-such-package-1 no-such-package-2\n" in ensure(place).stderr
