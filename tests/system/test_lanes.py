"""./test in a project of its own, whose lanes and tools are played: what is counted as failed, and what an interrupt ends."""
import json
import os
import pathlib
import shutil
import signal
import subprocess
import time

import pytest

from server import CHECKOUT

# A name that only processes of these tests carry in their environment.
MARK = f"KV_LANES_TEST={os.getpid()}"


@pytest.fixture
def project(tmp_path):
    """A project with one source and its header, and with the tools of the style lane, which all succeed."""
    shutil.copy(CHECKOUT / "test", tmp_path)
    shutil.copytree(CHECKOUT / "tools", tmp_path / "tools", ignore=shutil.ignore_patterns("*.?pp"))
    (tmp_path / "packages.txt").write_text("bash\n")
    for directory in ("src/room", "client", "docs", "standins/platform", "standins/cimom", "tests/support", "tests/data", "build"):
        (tmp_path / directory).mkdir(parents=True)
    for source in ("src/room/one.cpp", "src/room/one.hpp", "tests/data/recorded.c", "build/made.cpp"):
        (tmp_path / source).touch()
    (tmp_path / "docs/architecture.md").write_text("| `src/room` | one | nothing of the project |\n")
    (tmp_path / "bin").mkdir()
    (tmp_path / ".clang-tidy").touch()
    compiled(tmp_path, "src/room/one.cpp")
    for tool in ("clang-format-14", "clang-tidy-14"):
        play(tmp_path, tool, f'echo "{tool} $*" >>called')
    play(tmp_path, "cmake", 'echo "cmake $*" >>called; mkdir -p build/clang; cp commands.json build/clang/compile_commands.json')
    play(tmp_path, "compiler", "cat src/room/one.*")
    return tmp_path


def compiled(project, *sources, options=""):
    """The build compiles these sources."""
    (project / "commands.json").write_text(json.dumps([
        {"directory": str(project), "file": source, "command": f"compiler {options} -o some.o -c {source}"} for source in sources]))


def play(project, tool, script):
    path = project / "bin" / tool
    path.write_text(f"#!/bin/bash\n{script}\n")
    path.chmod(0o755)


def add_lane(project, name, commands):
    with (project / "tools/lanes.sh").open("a") as lanes:
        lanes.write(f"lane_{name}() {{\n{commands}\n}}\n")


def command(project, *lanes):
    name, value = MARK.split("=")
    environment = {**os.environ, "PATH": f"{project}/bin:{os.environ['PATH']}", name: value}
    return {"args": [project / "test", *lanes], "env": environment, "stderr": subprocess.STDOUT, "text": True}


def run(project, *lanes):
    return subprocess.run(**command(project, *lanes), stdout=subprocess.PIPE, check=False)


def marked_processes():
    found = []
    for environ in pathlib.Path("/proc").glob("[0-9]*/environ"):
        try:
            if MARK.encode() in environ.read_bytes().split(b"\0"):
                found.append(environ.parent.name)
        except OSError:
            pass
    return found


def test_the_style_lane_alone_succeeds_with_all_its_results(project):
    done = run(project, "style")
    assert (done.returncode, done.stdout.splitlines()[-1]) == (0, "3 passed, 0 failed")
    assert (project / "called").read_text() == (
        "clang-format-14 --dry-run --Werror ./src/room/one.cpp ./src/room/one.hpp\ncmake --preset clang\n"
        "clang-tidy-14 --version\n" + look_at(project, project / "src/room/one.cpp"))


@pytest.mark.parametrize("tool", ["clang-format-14", "clang-tidy-14"])
def test_what_a_style_tool_finds_is_one_failure(project, tool):
    play(project, tool, "[[ $* = --version ]] && exit; echo src/room/one.cpp:1: untidy; exit 1")
    done = run(project, "style")
    assert (done.returncode, done.stdout.splitlines()[-1]) == (1, "2 passed, 1 failed")
    assert "   src/room/one.cpp:1: untidy\n" in done.stdout


def look_at(project, file, options="-Xclang -analyzer-opt-analyze-headers -Xclang -analyzer-config -Xclang max-nodes=10000"):
    """The call by which clang-tidy looks at a file."""
    return (f"clang-tidy-14 --quiet --config-file={project}/.clang-tidy --checks=-bugprone-suspicious-include {file} -- "
            f"{options}").rstrip() + "\n"


def looks(project):
    """How often clang-tidy has looked at the source."""
    return (project / "called").read_text().count(f"{project}/src/room/one.cpp -- ")


def test_what_clang_tidy_found_clean_is_not_looked_at_again(project):
    for _ in range(2):
        assert run(project, "style").stdout.endswith("3 passed, 0 failed\n")
    assert looks(project) == 1


@pytest.mark.parametrize("changed, content", [
    ("src/room/one.cpp", "// NOLINT\n"), ("src/room/one.hpp", "#define ONE\n"), (".clang-tidy", "Checks: misc-*\n"),
    ("bin/clang-tidy-14", '#!/bin/bash\necho "clang-tidy-14 $*" >>called; echo another version\n'),
    ("bin/compiler", "#!/bin/bash\nexit 1\n")])
def test_clang_tidy_looks_again_after_a_change(project, changed, content):
    run(project, "style")
    (project / changed).write_text(content)
    run(project, "style")
    assert looks(project) == 2


def test_what_clang_tidy_complains_of_is_looked_at_each_time(project):
    play(project, "clang-tidy-14", 'echo "clang-tidy-14 $*" >>called; [[ $* = --version ]]')
    for _ in range(2):
        assert run(project, "style").stdout.endswith("2 passed, 1 failed\n")
    assert looks(project) == 2


def test_clang_tidy_looks_again_when_the_source_is_compiled_otherwise(project):
    run(project, "style")
    compiled(project, "src/room/one.cpp", options="-g")
    run(project, "style")
    assert look_at(project, project / "src/room/one.cpp", "-g -Xclang -analyzer-opt-analyze-headers -Xclang -analyzer-config -Xclang max-nodes=10000") in (
        project / "called").read_text()


def add_second_source(project):
    (project / "src/room/two.cpp").touch()
    (project / "src/room/two.hpp").touch()
    compiled(project, "src/room/one.cpp", "src/room/two.cpp")


def test_clang_tidy_looks_at_the_files_of_a_folder_together(project):
    add_second_source(project)
    for _ in range(2):
        assert run(project, "style").stdout.endswith("3 passed, 0 failed\n")
    joint = project / "build/clang/tidy/src+room+one.cpp.cpp"
    assert (project / "called").read_text().count(look_at(project, joint)) == 1
    assert joint.read_text() == f'#include "{project}/src/room/one.cpp"\n#include "{project}/src/room/two.cpp"\n'


def test_the_static_analyzer_sees_into_files_that_are_looked_at_together(project):
    add_second_source(project)
    (project / "bin/clang-tidy-14").unlink()
    play(project, "compiler", 'exec clang++-14 "$@"')
    (project / ".clang-tidy").write_text("Checks: '-*,clang-analyzer-core.*'\nWarningsAsErrors: '*'\nHeaderFilterRegex: 'room/'\n")
    (project / "src/room/two.cpp").write_text("int two(int x) {\n    int* p = nullptr;\n    return x > 3 ? *p : 0;\n}\n")
    done = run(project, "style")
    assert done.stdout.endswith("2 passed, 1 failed\n")
    assert "src/room/two.cpp:3:20: error: Dereference of null pointer" in done.stdout


def test_what_is_wrong_with_one_of_them_leaves_none_clean(project):
    add_second_source(project)
    play(project, "clang-tidy-14", 'echo "clang-tidy-14 $*" >>called; [[ $* = --version ]]')
    for _ in range(2):
        assert run(project, "style").stdout.endswith("2 passed, 1 failed\n")
    assert (project / "called").read_text().count("one.cpp.cpp -- ") == 2


def test_files_that_cannot_be_compiled_together_are_looked_at_alone(project):
    add_second_source(project)
    play(project, "compiler", "[[ $* != *-fsyntax-only* ]]")
    assert run(project, "style").stdout.endswith("3 passed, 0 failed\n")
    called = (project / "called").read_text()
    assert look_at(project, project / "src/room/one.cpp") in called
    assert look_at(project, project / "src/room/two.cpp") in called


def test_a_source_that_only_other_builds_compile_is_looked_at_as_its_neighbours(project):
    (project / "src/room/two.cpp").touch()
    (project / "src/room/two.hpp").touch()
    compiled(project, "src/room/one.cpp", options="-g")
    assert run(project, "style").stdout.endswith("3 passed, 0 failed\n")
    assert f'#include "{project}/src/room/two.cpp"' in (project / "build/clang/tidy/src+room+one.cpp.cpp").read_text()


def test_a_source_in_a_folder_that_nobody_compiles_is_a_failure(project):
    compiled(project)
    done = run(project, "style")
    assert done.stdout.endswith("2 passed, 1 failed\n")
    assert f"the build compiles nothing in the folder of {project}/src/room/one.cpp" in done.stdout


def test_the_deep_analysis_keeps_verdicts_of_its_own(project):
    run(project, "style")
    for _ in range(2):
        assert run(project, "--analyze").stdout.endswith("1 passed, 0 failed\n")
    assert (project / "called").read_text().count(look_at(project, project / "src/room/one.cpp", "-Xclang -analyzer-opt-analyze-headers")) == 1


def test_an_include_of_a_room_that_the_table_does_not_allow_is_one_failure(project):
    (project / "src/room/one.cpp").write_text('#include "elsewhere/two.hpp"\n')
    done = run(project, "style")
    assert (done.returncode, done.stdout.splitlines()[-1]) == (1, "2 passed, 1 failed")
    assert '   src/room/one.cpp:1: "elsewhere/two.hpp" names no header by its room\n' in done.stdout


def test_the_style_lane_fails_without_a_directory_that_it_looks_at(project):
    (project / "tests/support").rmdir()
    done = run(project, "style")
    assert (done.returncode, done.stdout.splitlines()[-1]) == (1, "0 passed, 0 failed")
    assert "tests/support" in done.stdout
    assert not (project / "called").exists()


def test_the_style_lane_fails_without_sources(project):
    (project / "src/room/one.cpp").unlink()
    done = run(project, "style")
    assert (done.returncode, done.stdout.splitlines()[-1]) == (1, "0 passed, 0 failed")
    assert "there is no file to look at: src " in done.stdout


def test_a_failing_command_ends_its_lane_but_not_the_next(project):
    add_lane(project, "unit", "false\nrecord_result unit never 0")
    add_lane(project, "target", "record_result target one 0")
    done = run(project, "unit", "target")
    assert done.returncode == 1
    assert "== target    ok" in done.stdout
    assert done.stdout.endswith("== failed: unit\n1 passed, 0 failed\n")


def test_a_result_that_breaks_off_is_a_failure_with_its_name(project):
    add_lane(project, "unit", "record_result unit one 0\necho '<testsuite><testcase' >build/results/two.xml")
    done = run(project, "unit")
    assert done.returncode == 1
    assert "build/results/two.xml: no whole result: " in done.stdout
    assert done.stdout.endswith("1 passed, 1 failed\n")
    assert "Traceback" not in done.stdout


def test_the_state_directory_of_the_caller_does_not_reach_a_soak_run(project, monkeypatch):
    (project / "standins/server").mkdir(parents=True)
    server = project / "standins/server/run"
    server.write_text('#!/bin/bash\necho "soak: state ${KV_STATE_DIR-none}"\n')
    server.chmod(0o755)
    monkeypatch.setenv("KV_STATE_DIR", str(project))
    assert "   state none\n" in run(project, "--soak", "1").stdout


@pytest.fixture
def with_openwbem(project):
    """The project with a system test, a server that is played, and an installation in it."""
    (project / "installed/sbin").mkdir(parents=True)
    play(project, "../installed/sbin/owcimomd", "true")
    (project / "standins/server").mkdir(parents=True)
    play(project, "../standins/server/run", 'echo "$KV_OPENWBEM_ROOT $KV_BUILD_DIR ${KV_STATE_DIR-}"; echo all came true')
    play(project, "ctest", 'echo "ctest $*" >>called')
    (project / "tests/system").mkdir()
    (project / "tests/system/test_served.py").write_text(
        "import os\n\ndef test_served():\n"
        f"    assert os.environ['KV_OPENWBEM_ROOT'] == '{project}/installed'\n"
        f"    assert os.environ['KV_BUILD_DIR'] == '{project}/build/openwbem'\n")
    return project


def test_the_lane_of_an_installed_openwbem_builds_tests_tours_and_serves(with_openwbem, monkeypatch):
    monkeypatch.chdir(with_openwbem.parent)
    monkeypatch.setenv("KV_STATE_DIR", str(with_openwbem))
    done = run(with_openwbem, "--openwbem", f"{with_openwbem.name}/installed")
    assert (done.returncode, done.stdout.splitlines()[-1]) == (0, "4 passed, 0 failed"), done.stdout
    assert "   run: all came true\n" in done.stdout
    assert "   tour: all came true\n" in done.stdout
    assert (with_openwbem / "build/logs/openwbem-tour.log").read_text().startswith(
        f"{with_openwbem}/installed {with_openwbem}/build/openwbem \n")
    called = (with_openwbem / "called").read_text()
    assert f"cmake --preset openwbem -DOPENWBEM_ROOT={with_openwbem}/installed " in called
    assert "cmake --build build/openwbem " in called and "ctest --test-dir build/openwbem " in called


@pytest.mark.parametrize("part", ["ctest", "tour", "system"])
def test_a_part_of_that_lane_that_fails_does_not_hide_the_others(with_openwbem, part):
    if part == "system":
        (with_openwbem / "tests/system/test_served.py").write_text("def test_served():\n    assert False\n")
    else:
        play(with_openwbem, {"ctest": "ctest", "tour": "../standins/server/run"}[part], "echo not so; exit 1")
    done = run(with_openwbem, "--openwbem", str(with_openwbem / "installed"))
    assert (done.returncode, "== failed: openwbem" in done.stdout) == (1, True)
    assert done.stdout.splitlines()[-1] == {
        "ctest": "4 passed, 0 failed", "tour": "1 passed, 3 failed", "system": "3 passed, 1 failed"}[part]


def test_the_lane_of_an_openwbem_that_is_not_installed_is_refused(project):
    done = run(project, "--openwbem", "/nowhere")
    assert (done.returncode, done.stdout) == (
        2, "test: --openwbem needs the prefix of an installation: no owcimomd in /nowhere/sbin\n")


@pytest.fixture
def with_coverage(project):
    """The project with what the lane of coverage calls, and a test of the client."""
    (project / "packages-coverage.txt").write_text("bash\n")
    (project / "build/coverage").mkdir()
    play(project, "ctest", 'echo "ctest $*" >>called')
    play(project, "gcovr", 'echo "lines: 96.0% (96 out of 100)"')
    (project / "tests/system").mkdir()
    (project / "tests/system/test_lanctl_played.py").write_text(
        f"import os\n\ndef test_played():\n    assert os.environ['LANCTL'] == '{project}/build/coverage/client/lanctl'\n")
    return project


def test_the_lane_of_coverage_counts_product_and_client(with_coverage):
    done = run(with_coverage, "--coverage")
    assert (done.returncode, done.stdout.splitlines()[-1]) == (0, "1 passed, 0 failed"), done.stdout
    for part in ("src", "client"):
        assert f"   {part}: lines: 96.0% (96 out of 100)\n" in done.stdout


@pytest.mark.parametrize("part", ["src", "client"])
def test_too_little_coverage_of_either_fails_and_both_are_told(with_coverage, part):
    play(with_coverage, "gcovr", f'echo "lines: 90.0% (9 out of 10)"; [[ $* != *" {part}/ "* ]]')
    done = run(with_coverage, "--coverage")
    assert (done.returncode, done.stdout.count(": lines: 90.0%"), "== failed: coverage" in done.stdout) == (1, 2, True)


def test_it_may_be_started_through_a_link(project, tmp_path_factory):
    link = tmp_path_factory.mktemp("elsewhere") / "test"
    link.symlink_to(project / "test")
    done = subprocess.run(**{**command(project, "style"), "args": [link, "style"]}, stdout=subprocess.PIPE, check=False)
    assert done.stdout.endswith("3 passed, 0 failed\n")


# What a lane starts may end at an interrupt, clean up first and fail then, have a group of its own or ignore the interrupt.
LANES = {
    "sleeps": "sleep 600",
    "cleans up": "/usr/bin/python3 -c 'import time\ntry: time.sleep(600)\nfinally: open(\"cleaned\", \"w\")' || true\nsleep 600",
    "has a group of its own": "set -m; sleep 600 & wait",
}


@pytest.mark.parametrize("number, status", [(signal.SIGINT, 130), (signal.SIGTERM, 143), (signal.SIGHUP, 129)])
@pytest.mark.parametrize("lane", LANES)
def test_an_interrupt_ends_the_lane_and_no_further_one_begins(project, lane, number, status):
    add_lane(project, "unit", "touch begun\n" + LANES[lane])
    add_lane(project, "target", "touch wrong")
    test = subprocess.Popen(**command(project, "unit", "target"), stdout=subprocess.PIPE)
    wait_for(project / "begun")
    time.sleep(0.3)
    test.send_signal(number)
    printed, _ = test.communicate(timeout=60)
    assert test.returncode == status
    assert printed == "== unit      \n== interrupted\n"
    assert marked_processes() == []
    assert not (project / "wrong").exists()
    assert (project / "cleaned").exists() == (lane == "cleans up")


def wait_for(path, seconds=30.0):
    deadline = time.monotonic() + seconds
    while not path.exists():
        assert time.monotonic() < deadline, f"{path} is not there"
        time.sleep(0.02)
