"""An installed OpenWBEM on the disposable server, played by a made-up installation (tests/openwbem)."""
import os
import shutil
import subprocess

import pytest

from cim import WITH_OBJECT_MANAGER
from server import CHECKOUT, RUN

DEVELOPMENT = CHECKOUT / "build/dev"
MAKE_INSTALLATION = CHECKOUT / "tests/openwbem/make-installation"


@pytest.fixture(scope="module")
def made_up(tmp_path_factory):
    """The prefix of the installation; beside it lies `build`, a build tree for it with what the server takes from there."""
    prefix = tmp_path_factory.mktemp("openwbem") / "installation"
    subprocess.run([MAKE_INSTALLATION, prefix], env={**os.environ, "KV_BUILD_DIR": str(DEVELOPMENT)}, check=True)
    link(DEVELOPMENT / "src/serialising/libLANProvider.so", prefix.parent / "build/src/libLANProvider.so")
    link(DEVELOPMENT / "standins/server/libkv_netfilter.so", prefix.parent / "build/standins/server/libkv_netfilter.so")
    return prefix


@pytest.fixture
def spoilt(made_up, tmp_path):
    """A copy of it, to be spoilt by the test, of which no server has run yet."""
    shutil.copytree(made_up.parent, tmp_path / "copy", symlinks=True, ignore=shutil.ignore_patterns("openwbem-repository"))
    return tmp_path / "copy/installation"


def link(target, path):
    path.parent.mkdir(parents=True)
    path.symlink_to(target)


def play(program, script):
    program.write_text(f"#!/bin/bash\n{script}\n")


def run(prefix, *command):
    environment = {**os.environ, "KV_OPENWBEM_ROOT": str(prefix), "KV_BUILD_DIR": str(prefix.parent / "build"),
                   "KV_CLIENT_DIR": str(DEVELOPMENT / "client")}
    return subprocess.run(command, cwd=CHECKOUT, env=environment, capture_output=True, text=True, check=False)


def on_server(prefix, *command):
    return run(prefix, RUN, WITH_OBJECT_MANAGER, *command)


def test_its_object_manager_serves_and_none_of_the_project(made_up):
    done = on_server(made_up, "bash", "-c", "readlink /proc/$(cat /run/object-manager.pid)/exe; "
                                            "wbemcli ein pbx/root/cimv2:ORX_LANEndpoint | wc -l")
    assert (done.stderr, done.stdout) == ("", f"{made_up}/libexec/openwbem/kv-cimom\n3\n")


def test_the_tour_says_whose_object_manager_it_is_and_finds_everything_as_expected(made_up):
    done = on_server(made_up, "/usr/bin/python3", "demo/walkthrough.py")
    assert done.returncode == 0, done.stdout + done.stderr
    assert "The OpenWBEM object manager loads it, as on the server." in " ".join(done.stdout.split())


def test_the_system_tests_ask_for_what_is_particular_to_it(made_up):
    chosen = ["test_idle_unloading.py", "test_class_definitions.py", "test_marking_operations.py", "test_cimom_command.py",
              "test_lanctl_commands.py"]
    done = run(made_up, "/usr/bin/python3", "-m", "pytest", "-q", *(f"tests/system/{name}" for name in chosen), "-k",
               "idle or fits or restart or enumerates or created or signal or export_diff")
    assert done.returncode == 0, done.stdout + done.stderr
    assert " passed, " in done.stdout and " skipped" not in done.stdout


def test_the_storm_drives_it_by_its_port(made_up):
    environment = "PYTHONPATH=tests/support/python"
    done = on_server(made_up, "env", environment, "/usr/bin/python3", "tests/soak/storm.py", "400", "at", "5988")
    assert (done.returncode, done.stdout) == (
        0, "storm: 8 clients, 400 requests, 0 wrong answers, the object manager at port 5988\n"), done.stderr


def test_the_system_tests_leave_out_what_is_about_the_projects_own_programs(made_up):
    chosen = run(made_up, "/usr/bin/python3", "-m", "pytest", "-q", "--collect-only", "tests/system").stdout
    for served in ("test_endpoint_operations", "test_setting_operations", "test_marking_operations", "test_idle_unloading"):
        assert f"{served}.py::" in chosen
    for own in ("test_cimom_command", "test_cimom_robustness", "test_server_helpers", "test_run.py", "test_lanes"):
        assert own not in chosen


def test_the_classes_are_imported_once_for_a_build_tree(spoilt):
    assert on_server(spoilt, "true").returncode == 0
    play(spoilt / "bin/owmofc", "exit 1")
    assert on_server(spoilt, "wbemcli", "ein", "pbx/root/cimv2:ORX_ALGService").stdout.count('Name="Name"') == 1


def test_an_object_manager_that_does_not_start_is_told_with_its_reason(spoilt):
    shutil.rmtree(spoilt / "lib/openwbem/services")
    done = on_server(spoilt, "true")
    assert (done.returncode, done.stdout) == (1, "")
    assert done.stderr == ("the object manager cannot start:\nowcimomd: owcimomd.services_path names nothing of this "
                           f"installation: {spoilt}/lib/openwbem/services\n")


def test_classes_that_cannot_be_imported_are_told_with_the_reason(spoilt):
    (spoilt / "share/openwbem/cim28/Core28_Qualifiers.mof").unlink()
    done = on_server(spoilt, "true")
    assert (done.returncode, done.stdout) == (1, "")
    assert done.stderr.startswith("the classes cannot be imported:\n")
    assert "Core28_Qualifiers.mof" in done.stderr
