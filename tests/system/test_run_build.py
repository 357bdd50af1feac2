"""What ./run does before the server starts, in a project of its own whose build tools and server are played."""
import os
import shutil
import signal
import subprocess
import time

import pytest

from server import CHECKOUT, free_port


@pytest.fixture
def project(tmp_path):
    """Its tools note how they were called in the file `called`; its server tells its arguments."""
    project = tmp_path / "project"
    (project / "standins/server").mkdir(parents=True)
    (tmp_path / "bin").mkdir()
    shutil.copy(CHECKOUT / "run", project)
    shutil.copytree(CHECKOUT / "tools", project / "tools")
    (project / "packages.txt").write_text("bash\n")
    for tool in ("cmake", "ninja"):
        play(tmp_path / "bin" / tool, f'echo "{tool} $*" >>called')
    play(project / "standins/server/run", 'echo "server $*"')
    return project


def play(path, script):
    path.write_text(f"#!/bin/bash\n{script}\n")
    path.chmod(0o755)


def tools_of(project):
    return project.parent / "bin"


def start(project, *arguments):
    environment = {**os.environ, "PATH": f"{tools_of(project)}:{os.environ['PATH']}"}
    return subprocess.Popen([project / "run", *arguments], env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                            text=True, start_new_session=True)


def run(project, *arguments):
    process = start(project, *arguments)
    out, err = process.communicate(timeout=60)
    return process.returncode, out, err


def test_the_server_starts_after_the_build(project):
    status, out, err = run(project)
    assert (status, err) == (0, "")
    assert out.startswith("Building (log: build/run.log) ...\nserver standins/server/with-object-manager ")
    assert (project / "called").read_text() == "cmake --preset dev\nninja -C build/dev LANProvider kv-cimom kv_netfilter lanctl\n"


@pytest.mark.parametrize("arguments, program", [([], "lanctl_tour.py"), (["tour"], "walkthrough.py")])
def test_the_short_tour_is_what_comes_without_a_name(project, arguments, program):
    assert run(project, *arguments)[1].endswith(f" /usr/bin/python3 demo/{program}\n")


def test_the_short_tour_takes_an_installed_openwbem(project):
    (project.parent / "installed/sbin").mkdir(parents=True)
    play(project.parent / "installed/sbin/owcimomd", "true")
    status, out, err = run(project, "--openwbem", str(project.parent / "installed"))
    assert (status, out.endswith(" /usr/bin/python3 demo/lanctl_tour.py\n"), err) == (0, True, "")


@pytest.mark.parametrize("tool", ["cmake", "ninja"])
def test_a_failed_build_is_shown_and_nothing_started(project, tool):
    play(tools_of(project) / tool, "echo no compiler; exit 1")
    status, out, err = run(project)
    assert (status, out) == (1, "Building (log: build/run.log) ...\n")
    assert err.endswith("no compiler\nthe build failed\n")


def test_a_log_that_cannot_be_written_is_told_and_nothing_started(project):
    (project / "build/run.log").mkdir(parents=True)
    assert run(project) == (1, "", f"run: {project}/build/run.log cannot be written\n")
    assert not (project / "called").exists()


def test_an_interrupt_ends_the_build_with_its_own_status(project):
    # As ninja does it: asked to stop, it ends by itself and with a status of its own.
    play(tools_of(project) / "ninja", "trap 'exit 2' INT; touch begun; while :; do sleep 0.1; done")
    process = start(project)
    deadline = time.monotonic() + 30
    while not (project / "begun").exists():
        assert time.monotonic() < deadline
        time.sleep(0.02)
    os.killpg(process.pid, signal.SIGINT)
    out, err = process.communicate(timeout=30)
    assert (process.returncode, out, err) == (130, "Building (log: build/run.log) ...\n", "")


def test_a_build_tree_from_where_the_checkout_lay_before_is_made_anew(project):
    for tool in ("cmake", "ninja"):
        (tools_of(project) / tool).unlink()
    (project / "CMakeLists.txt").write_text("cmake_minimum_required(VERSION 3.25)\nproject(moved LANGUAGES NONE)\n"
                                            "foreach(target LANProvider kv-cimom kv_netfilter lanctl)\n"
                                            "  add_custom_target(${target})\nendforeach()\n")
    shutil.copy(CHECKOUT / "CMakePresets.json", project)
    assert run(project)[0] == 0
    project.rename(project.with_name("moved project"))
    status, out, err = run(project.with_name("moved project"))
    assert (status, out.splitlines()[-1].split()[0], err) == (0, "server", "")


def ports_of(command):
    """Those that nobody has at the moment, for a command that takes ports."""
    return ["--port", str(free_port()), "--page-port", str(free_port())] if command == "serve" else []


@pytest.mark.parametrize("command", ["tour", "shell", "serve"])
def test_an_installed_openwbem_is_named_from_where_the_caller_is(project, monkeypatch, command):
    (project.parent / "installed/sbin").mkdir(parents=True)
    play(project.parent / "installed/sbin/owcimomd", "true")
    play(project / "standins/server/run", 'echo "$KV_OPENWBEM_ROOT $KV_BUILD_DIR"')
    monkeypatch.chdir(project.parent)
    status, out, err = run(project, command, *ports_of(command), "--openwbem", "installed")
    assert (status, err) == (0, "")
    assert out.splitlines()[-1] == f"{project.parent}/installed {project}/build/openwbem"
    assert (project / "called").read_text() == (
        "cmake --preset dev\n"
        "cmake --build build/dev --target kv_platform\n"
        f"cmake --preset openwbem -DOPENWBEM_ROOT={project.parent}/installed "
        f"-DKV_PLATFORM_LIBRARIES={project}/build/dev/standins/platform/libkvplatform.so\n"
        "ninja -C build/openwbem LANProvider kv_netfilter\n"
        "ninja -C build/dev lanctl\n")


def test_a_folder_without_openwbem_is_told_before_anything_is_built(project):
    assert run(project, "serve", "--openwbem", "/nowhere") == (
        1, "", "run: no OpenWBEM is installed there: /nowhere/sbin/owcimomd\n")
    assert not (project / "called").exists()


@pytest.mark.parametrize("word", ["serve --port 6000", "shell ", "tour bench"])
def test_several_words_in_one_are_no_command(project, word):
    status, out, err = run(project, word)
    assert (status, out) == (2, "")
    assert err.startswith("usage: ./run ")
