"""./run shows the whole job, serves, or leaves a shell, as its help says."""
import contextlib
import fcntl
import json
import os
import re
import select
import shutil
import signal
import socket
import subprocess
import termios
import textwrap
import time
import urllib.request

import pytest

from server import CHECKOUT, RUN as SERVER, Server, free_port

# Both build in build/dev, which is for one at a time: test_run.py and test_installation.py.
pytestmark = pytest.mark.xdist_group("build")

RUN = str(CHECKOUT / "run")
WITH_OBJECT_MANAGER = str(CHECKOUT / "standins/server/with-object-manager")


def run(*arguments, **options):
    return subprocess.run([RUN, *arguments], capture_output=True, text=True, check=False, **options)


@pytest.fixture(scope="module")
def home(tmp_path_factory):
    """An operator's, whose own lanctl asks another server."""
    folder = tmp_path_factory.mktemp("home")
    (folder / ".config").mkdir()
    (folder / ".config/lanctl.yaml").write_text("default: elsewhere\nservers:\n  elsewhere:\n    url: http://127.0.0.1:9\n")
    return folder


def unsuitable(home):
    """Surroundings that do not suit it: a proxy that nobody is behind, a language that the machine lacks, and an operator's
    settings."""
    ours = {name: value for name, value in os.environ.items() if not name.startswith(("LANCTL", "XDG_"))}
    return {**ours, "http_proxy": "http://127.0.0.1:9", "LANG": "tlh_KX", "HOME": str(home),
            "LANCTL_SERVER": "http://127.0.0.1:9"}


@pytest.fixture(scope="module")
def look(home):
    return run(stdin=subprocess.DEVNULL, env=unsuitable(home))


@pytest.fixture(scope="module")
def walkthrough(home):
    return run("tour", stdin=subprocess.DEVNULL, env=unsuitable(home))


def test_the_short_tour_ends_by_itself_with_everything_as_expected(look, home):
    assert look.returncode == 0, look.stdout + look.stderr
    assert look.stdout.endswith("\n7 expectations came true, 0 did not.\n")
    assert (look.stdout.count("[ok]"), "[WRONG]" in look.stdout, look.stderr) == (7, False, "")
    assert [path.name for path in home.rglob("*")] == [".config", "lanctl.yaml"]


def test_the_short_tour_fits_100_lines_of_100_columns(look):
    lines = look.stdout.splitlines()
    assert len(lines) <= 100
    assert [line for line in lines if len(line) > 100] == []


def test_the_short_tour_looks_changes_is_refused_and_points_to_more(look):
    for shown in ("# lanctl show eth1\n", "10.0.0.5  ->  10.0.0.6\n", "Costs: 1 interface restart, ",
                  'runcommand("ifdown eth1;ifup eth1") = 0\n', "inet 10.0.0.6/24 ",
                  "Refused: eth1 address: The IP/mask pair overlaps with another interface.",
                  "./run tour ", "./run shell ", "./run serve ", "docs/lanctl.md "):
        assert shown in look.stdout


def test_the_excerpt_in_the_readme_is_what_the_short_tour_prints(look):
    readme = (CHECKOUT / "README.md").read_text()
    excerpt = re.search(r"^    \$ \./run\n((?:(?:    .*)?\n)+)", readme, re.MULTILINE).group(1)
    parts = [part.strip("\n") for part in textwrap.dedent(excerpt).split("...\n") if part.strip()]
    assert len(parts) > 1
    for part in parts:
        assert part in look.stdout


@pytest.mark.usefixtures("look")  # builds
@pytest.mark.parametrize("program", ["lanctl_tour.py", "walkthrough.py"])
def test_a_tour_that_meets_another_server_than_it_expects_fails(program):
    moved = f"lanctl set --yes eth1 mtu=1401 >/dev/null && /usr/bin/python3 demo/{program}"
    done = subprocess.run([SERVER, WITH_OBJECT_MANAGER, "sh", "-c", moved], capture_output=True, text=True, check=False,
                          cwd=CHECKOUT)
    assert done.returncode == 1, done.stdout
    assert "[WRONG]" in done.stdout
    assert " expectations came true, 0 did not." not in done.stdout


def test_the_walk_through_ends_by_itself_with_everything_as_expected(walkthrough):
    assert walkthrough.returncode == 0, walkthrough.stdout + walkthrough.stderr
    assert walkthrough.stdout.endswith("\n52 expectations came true, 0 did not.\n")
    assert "[WRONG]" not in walkthrough.stdout
    assert walkthrough.stderr == ""


def test_the_walk_through_shows_all_three_classes_and_what_stands_in(walkthrough):
    for shown in ("Stand-ins are:", "wbemcli ein pbx/root/cimv2:ORX_LANEndpoint", "ORX_LANServiceSetting",
                  "ORX_ALGService", 'runcommand("ifdown eth1;ifup eth1") = 0', "0x8004AB05 1"):
        assert shown in walkthrough.stdout


def test_the_walk_through_fits_a_terminal_of_100_columns(walkthrough):
    assert [line for line in walkthrough.stdout.splitlines() if len(line) > 100] == []


def test_a_shell_has_the_object_manager_beside_it():
    done = run("shell", input="wbemcli ein pbx/root/cimv2:ORX_LANEndpoint\nexit 7\n")
    assert done.returncode == 7
    assert [f'Name="eth{number}"' in done.stdout for number in (0, 1, 2)] == [True, True, True]


def test_a_shell_has_lanctl_with_its_completion_at_hand(home):
    commands = ("lanctl set --yes eth2 mtu=1400\n"
                "COMP_LINE='lanctl set eth1 gate' COMP_POINT=20; _lanctl lanctl; echo \"completed ${COMPREPLY[0]}\"\n"
                "complete -p lanctl; lanctl history; ip link show dev eth2; exit 7\n")
    done = run("shell", input=commands, env=unsuitable(home))
    assert done.returncode == 7
    for shown in ("Done.\n", "completed gateway=\n", "-F _lanctl lanctl\n", "eth2 mtu: 1500 -> 1400\n", " mtu 1400 "):
        assert shown in done.stdout
    assert [path.name for path in home.rglob("*")] == [".config", "lanctl.yaml"]


def test_an_interrupt_in_the_shell_ends_the_command_only():
    terminal, other_end = os.openpty()
    shell = subprocess.Popen([RUN, "shell"], stdin=other_end, stdout=other_end, stderr=other_end,
                             start_new_session=True, preexec_fn=lambda: fcntl.ioctl(other_end, termios.TIOCSCTTY))
    os.close(other_end)
    try:
        read_until(terminal, b"]# ")
        os.write(terminal, b"echo sleeping; sleep 600\n")
        read_until(terminal, b"sleeping\r\n")
        time.sleep(0.5)
        os.write(terminal, b"\x03")
        read_until(terminal, b"]# ")
        os.write(terminal, b"wbemcli ein pbx/root/cimv2:ORX_LANEndpoint; exit 7\n")
        read_until(terminal, b'Name="eth2"')
        assert shell.wait(timeout=30) == 7
    finally:
        shell.terminate()
        shell.wait(timeout=30)
        os.close(terminal)


def read_until(terminal, text, seconds=60.0):
    shown = b""
    deadline = time.monotonic() + seconds
    while text not in shown:
        ready, _, _ = select.select([terminal], [], [], deadline - time.monotonic())
        assert ready, f"{text!r} not in {shown!r}"
        shown += os.read(terminal, 4096)


@contextlib.contextmanager
def serving(port, page_port):
    process = subprocess.Popen([RUN, "serve", "--port", str(port), "--page-port", str(page_port)], stdout=subprocess.PIPE, text=True,
                               stdin=subprocess.DEVNULL, start_new_session=True)
    try:
        yield process
    finally:
        process.send_signal(signal.SIGINT)
        process.stdout.close()
        process.wait(timeout=60)


def ask(port):
    """What a client on this machine is told."""
    return subprocess.run(["wbemcli", "ein", f"http://127.0.0.1:{port}/root/cimv2:ORX_LANEndpoint"],
                          env=dict(os.environ, no_proxy="127.0.0.1"), capture_output=True, text=True, check=False).stdout


@pytest.mark.parametrize("number, status", [(signal.SIGINT, 130), (signal.SIGHUP, 129)])
def test_serving_answers_clients_of_this_machine_until_the_terminal_ends_it(number, status):
    port, page_port = free_port(), free_port()
    with serving(port, page_port) as process:
        line = f"Serving http://127.0.0.1:{port}/root/cimv2 until you press Ctrl-C.\n"
        assert process.stdout.readline().startswith("Building ")
        assert process.stdout.readline() == line
        told = process.stdout.readline().removeprefix("In another terminal: ")
        assert "OAM LAN" in subprocess.run(["sh", "-c", told], capture_output=True, text=True, check=False).stdout
        page = f"http://127.0.0.1:{page_port}/"
        assert process.stdout.readline() == f"Showing 127.0.0.1:{port} at {page} until you press Ctrl-C.\n"
        with urllib.request.urlopen(page + "api/state", timeout=30) as answer:
            assert json.load(answer)["reached"]
        assert 'Name="eth2"' in ask(port)
        os.killpg(process.pid, number)
        assert process.wait(timeout=30) == status
    with pytest.raises(ConnectionRefusedError):
        socket.create_connection(("127.0.0.1", port), timeout=5)


@pytest.mark.parametrize("option, other", [("--port", "--page-port"), ("--page-port", "--port")])
def test_a_port_that_is_taken_is_told_before_anything_is_built(option, other):
    with socket.socket() as taken:
        taken.bind(("127.0.0.1", 0))
        taken.listen()
        port = taken.getsockname()[1]
        done = run("serve", option, str(port), other, str(free_port()))
    assert (done.returncode, done.stdout) == (1, "")
    assert done.stderr == f"run: port {port} is taken on this machine; name another one with {option}\n"


def test_a_state_directory_is_named_from_where_the_caller_is(tmp_path):
    (tmp_path / "state").mkdir()
    environment = dict(os.environ, KV_STATE_DIR="state")
    done = run("shell", input="echo $KV_STATE_DIR\n", cwd=tmp_path, env=environment)
    assert f"{tmp_path}/state\n" in done.stdout
    assert "kv-cimom: listening" in (tmp_path / "state/object-manager.log").read_text()


def test_help_names_every_form():
    done = run("--help")
    assert done.returncode == 0
    assert done.stdout.startswith("usage: ./run | ./run tour | ./run shell | ./run serve [--port N] [--page-port N] | ./run bench | ./run --help\n")


@pytest.mark.parametrize("arguments", [
    ["unknown"], [""], ["look"], ["--openwbem"], ["shell", "extra"], ["shell", "--port", "5988"], ["serve", "5988"], ["serve", "--port"],
    ["serve", "--port", "8080"], ["serve", "--page-port", "x"],
    ["serve", "--openwbem"], ["shell", "--openwbem", ""], ["bench", "--openwbem", "/usr"],
    *(["serve", "--port", *values] for values in (["x"], ["5x"], ["5988", "junk"], ["0"], ["65536"], ["-1"], ["5988 junk"])),
])
def test_a_wrong_command_line_shows_the_usage(arguments):
    done = run(*arguments)
    assert (done.returncode, done.stdout) == (2, "")
    assert done.stderr.startswith("usage: ./run ")


def test_missing_packages_stop_it_for_an_ordinary_user(tmp_path):
    (tmp_path / "id").write_text("#!/bin/bash\necho 1000\n")
    (tmp_path / "dpkg-query").write_text("#!/bin/bash\nexit 1\n")
    for name in ("id", "dpkg-query"):
        (tmp_path / name).chmod(0o755)
    done = run(env=dict(os.environ, PATH=f"{tmp_path}:{os.environ['PATH']}"))
    assert (done.returncode, done.stdout) == (1, "")
    assert "  sudo apt-get install --no-install-recommends g++ clang-14 " in done.stderr


@pytest.mark.parametrize("arguments", [[], ["--port"], ["--port", "5988"], ["--port", "x", "true"]])
def test_a_wrong_command_line_of_the_object_managers_companion_shows_its_usage(arguments):
    done = subprocess.run([WITH_OBJECT_MANAGER, *arguments], capture_output=True, text=True, check=False)
    assert (done.returncode, done.stdout) == (2, "")
    assert done.stderr == "usage: with-object-manager [--address ADDRESS] [--port PORT] [--unload-idle] COMMAND [ARGUMENT...]\n"


def test_the_object_manager_is_not_started_outside_of_the_server():
    done = subprocess.run([WITH_OBJECT_MANAGER, "true"], capture_output=True, text=True, check=False)
    assert (done.returncode, done.stdout) == (2, "")
    assert done.stderr.startswith("object-manager: this is not the disposable server; ")


def test_a_checkout_may_lie_in_a_path_with_a_blank(tmp_path):
    checkout = tmp_path / "a checkout"
    for part in ("standins/server", "mof"):
        shutil.copytree(CHECKOUT / part, checkout / part)
    for made in ("standins/server/libkv_netfilter.so", "standins/cimom/kv-cimom", "src/libLANProvider.so"):
        link = checkout / "build/dev" / made
        link.parent.mkdir(parents=True, exist_ok=True)
        link.symlink_to(CHECKOUT / "build/dev" / made)
    with Server(run=[checkout / "standins/server/run", checkout / "standins/server/with-object-manager"]) as server:
        server.sh("wbemcli mi 'pbx/root/cimv2:ORX_LANServiceSetting.InstanceID=\"\"' isBroadcastFilterEnabled=true")
        assert server.sh("cat $KV_NETFILTER_LOG") == "0x8004AB05 1\n"


def test_an_object_manager_that_ends_is_told_with_its_log():
    done = subprocess.run([SERVER, WITH_OBJECT_MANAGER, "--port", "65536", "true"], capture_output=True, text=True, check=False)
    assert (done.returncode, done.stdout) == (1, "")
    assert done.stderr.startswith("the object manager has ended:\n")
    assert "65536" in done.stderr
