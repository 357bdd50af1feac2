"""The disposable server touches nothing outside and leaves nothing behind, whoever starts it and however it ends."""
import os
import pathlib
import shutil
import signal
import socket
import subprocess
import tempfile
import time

import pytest

from server import RUN, Server

STARTERS = ["this user", "an ordinary user"] if os.geteuid() == 0 else ["this user"]
# A name that only processes of these tests carry in their environment.
MARK = f"KV_SERVER_TEST={os.getpid()}"


@pytest.fixture(params=STARTERS)
def run(request):
    """The command that starts a server, as root's tests do it and as somebody without any permission does."""
    if request.param == "this user":
        yield [str(RUN)]
        return
    # An ordinary user may not be let into the directory of the checkout.
    with tempfile.TemporaryDirectory() as place:
        os.chmod(place, 0o755)
        shutil.copytree(RUN.parent, f"{place}/standins/server")
        yield ["setpriv", "--reuid", "nobody", "--regid", "nogroup", "--clear-groups", f"{place}/standins/server/run"]


def marked_processes():
    found = []
    for environ in pathlib.Path("/proc").glob("[0-9]*/environ"):
        try:
            variables = environ.read_bytes().split(b"\0")
        except OSError:
            continue
        if MARK.encode() in variables:
            found.append(environ.parent.name)
    return found


def machine_state():
    """Everything that a server could leave behind on the machine."""
    return {
        "mounts": pathlib.Path("/proc/mounts").read_text(),
        "interfaces": sorted(os.listdir("/sys/class/net")),
        "files": {place: sorted(os.listdir(place)) for place in ("/", "/run", "/etc", RUN.parent)},
        "host name": socket.gethostname(),
        "resolver": pathlib.Path("/etc/resolv.conf").read_bytes(),
    }


def start(run, command, temporary):
    name, value = MARK.split("=")
    environment = dict(os.environ, TMPDIR=str(temporary), **{name: value})
    return subprocess.Popen([*run, "/bin/bash", "-c", command], stdout=subprocess.PIPE, text=True, env=environment)


def wait_until_gone(seconds=5.0):
    deadline = time.monotonic() + seconds
    while marked_processes() and time.monotonic() < deadline:
        time.sleep(0.02)
    assert marked_processes() == []


def test_everybody_gets_a_whole_server(run):
    with Server(run) as server:
        assert server.sh("id -u") == "0\n"
        assert "10.0.0.5/24" in server.sh("ip -4 address show dev eth1")
        server.sh("/kv/bin/updateFile ifcfg eth1 IPADDR 10.0.0.6; ifdown eth1; ifup eth1")
        assert "10.0.0.6/24" in server.sh("ip -4 address show dev eth1")
        server.sh("/kv/bin/dhcp_ippaddr.sh eth2")
        assert "172.16.2.1/24" not in server.sh("ip -4 address show dev eth2")


def test_the_exit_status_is_the_commands():
    assert subprocess.run([RUN, "/bin/bash", "-c", "exit 9"], check=False).returncode == 9


def test_a_command_that_does_not_exist_is_told():
    done = subprocess.run([RUN, "no-such-command"], stderr=subprocess.PIPE, text=True, check=False)
    assert done.returncode == 127
    assert "no-such-command: command not found" in done.stderr


def test_the_command_has_its_own_streams_and_directory(tmp_path):
    done = subprocess.run([RUN, "/bin/bash", "-c", "cat; pwd; echo problem >&2"], input="text\n", cwd=tmp_path,
                          capture_output=True, text=True, check=False)
    assert (done.stdout, done.stderr) == (f"text\n{tmp_path}\n", "problem\n")


def test_the_checkout_is_where_it_is_on_the_machine():
    done = subprocess.run([RUN, "test", "-x", RUN], check=False)
    assert done.returncode == 0


def test_nothing_is_left_after_the_command_has_ended(run, tmp_path):
    before = machine_state()
    left_running = "sleep 600 & setsid sleep 600 & /kv/bin/dhcp_ippaddr.sh eth1; touch /etc/new /run/new /kv/new"
    server = start(run, left_running, tmp_path)
    assert server.wait(timeout=30) == 0
    assert marked_processes() == []
    assert machine_state() == before
    assert os.listdir(tmp_path) == []


@pytest.mark.parametrize("number, status", [(signal.SIGINT, 130), (signal.SIGTERM, 143), (signal.SIGHUP, 129)])
def test_a_signal_to_the_runner_ends_everything_before_it_returns(run, tmp_path, number, status):
    before = machine_state()
    server = start(run, "setsid sleep 600 & echo ready; sleep 600", tmp_path)
    assert server.stdout.readline() == "ready\n"
    server.send_signal(number)
    assert server.wait(timeout=30) == status
    assert marked_processes() == []
    assert machine_state() == before
    assert os.listdir(tmp_path) == []


@pytest.mark.parametrize("number, status", [(signal.SIGINT, 130), (signal.SIGTERM, 143), (signal.SIGHUP, 129)])
def test_a_signal_that_reaches_the_server_as_well_has_the_same_status(tmp_path, number, status):
    """As from a terminal, where the server's processes are in the runner's group."""
    server = subprocess.Popen([RUN, "/bin/bash", "-c", "echo ready; exec sleep 600"], stdout=subprocess.PIPE, text=True,
                              start_new_session=True)
    assert server.stdout.readline() == "ready\n"
    os.killpg(server.pid, number)
    assert server.wait(timeout=30) == status


def test_killing_the_runner_outright_ends_everything(run, tmp_path):
    before = machine_state()
    server = start(run, "setsid sleep 600 & echo ready; sleep 600", tmp_path)
    assert server.stdout.readline() == "ready\n"
    assert len(marked_processes()) > 5
    server.kill()
    server.wait(timeout=30)
    wait_until_gone()
    assert machine_state() == before
    assert os.listdir(tmp_path) == []


def test_a_server_cannot_change_the_machines_system():
    with Server() as server:
        for place in ("/usr", "/var", "/opt"):
            assert "Read-only file system" in server.run(f"touch {place}/new").err
        server.sh("hostname changed; echo changed >/etc/passwd; rm /etc/resolv.conf")
        assert socket.gethostname() != "changed"
        assert pathlib.Path("/etc/passwd").read_text() != "changed\n"
        assert pathlib.Path("/etc/resolv.conf").exists()


def test_what_is_mounted_in_the_system_is_read_only_too():
    mounts = ("mount -t tmpfs -o nosuid kv-outer /var/tmp; mkdir '/var/tmp/a blank'; "
              "mount -t tmpfs -o nodev kv-inner '/var/tmp/a blank'; touch '/var/tmp/a blank/before'")
    command = "touch /var/tmp/new '/var/tmp/a blank/new' '/var/tmp/a blank/before'; grep kv- /proc/self/mounts"
    done = subprocess.run(["unshare", "--user", "--map-root-user", "--mount", "/bin/bash", "-c",
                           f'{mounts}; "$0" /bin/bash -c "{command}"; exec touch /var/tmp/after', RUN],
                          capture_output=True, text=True, check=False)
    assert done.returncode == 0
    assert done.stderr.count("Read-only file system") == 3
    assert "kv-outer /var/tmp tmpfs ro,nosuid," in done.stdout
    assert "kv-inner /var/tmp/a\\040blank tmpfs ro,nodev," in done.stdout


def test_two_servers_do_not_see_each_other():
    with Server() as first, Server() as second:
        first.sh("/kv/bin/updatehosts ipaddress 10.0.0.77; ip link set eth1 mtu 1300; echo trace >$KV_STATE_DIR/trace")
        assert "10.0.0.5 pbx.site.example pbx" in second.read("/etc/hosts").splitlines()
        assert "mtu 1500" in second.sh("ip link show dev eth1")
        assert second.run("test -e $KV_STATE_DIR/trace").status == 1


def test_a_server_runs_on_a_server():
    done = subprocess.run([RUN, RUN, "hostname"], stdout=subprocess.PIPE, text=True, check=False)
    assert (done.returncode, done.stdout) == (0, "pbx\n")


def test_what_a_program_keeps_for_its_user_goes_with_the_server():
    with Server() as server:
        place = server.sh("touch $XDG_STATE_HOME/kept; echo $XDG_STATE_HOME").strip()
        assert not pathlib.Path(place, "kept").exists()
    with Server() as server:
        assert server.run("test -e $XDG_STATE_HOME/kept").status == 1


def test_language_and_proxies_of_the_caller_do_not_reach_the_server():
    proxies = ("http_proxy", "HTTP_PROXY", "https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY")
    environment = {**os.environ, "LC_ALL": "tlh_KX", "LANG": "tlh_KX", **dict.fromkeys(proxies, "http://127.0.0.1:9")}
    with Server(environment=environment) as server:
        assert "proxy" not in server.sh("env").lower()
        assert server.run("bash -c 'ls /nowhere'").err == "ls: cannot access '/nowhere': No such file or directory\n"


def test_a_state_directory_of_the_caller_stays(tmp_path):
    environment = dict(os.environ, KV_STATE_DIR=str(tmp_path))
    with Server(environment=environment) as server:
        server.sh("echo kept >$KV_STATE_DIR/events.log")
    assert (tmp_path / "events.log").read_text() == "kept\n"


def test_a_state_directory_may_be_named_from_where_the_caller_is(tmp_path):
    (tmp_path / "state").mkdir()
    done = subprocess.run([RUN, "/bin/bash", "-c", "cd /; echo kept >$KV_STATE_DIR/events.log"], cwd=tmp_path,
                          env=dict(os.environ, KV_STATE_DIR="state"), check=False)
    assert done.returncode == 0
    assert (tmp_path / "state/events.log").read_text() == "kept\n"


@pytest.mark.parametrize("directory, why", [
    ("/nowhere", "is no directory"),
    (str(RUN), "is no directory"),
    *((place, "lies where the server has a directory of its own") for place in ("/", "/run", "/etc", "/dev/shm", "/proc")),
    *((place, "cannot be written from the server") for place in ("/var/tmp", "/usr/lib", "/opt", "/srv")),
])
def test_a_state_directory_that_would_not_keep_anything_is_refused(directory, why):
    done = subprocess.run([RUN, "true"], env=dict(os.environ, KV_STATE_DIR=directory), stderr=subprocess.PIPE,
                          text=True, check=False)
    assert (done.returncode, done.stderr) == (2, f"server: KV_STATE_DIR {why}: {directory}\n")


def test_a_state_directory_that_the_starter_may_not_write_is_refused(run):
    # The ordinary user has to get there, which tmp_path does not allow.
    with tempfile.TemporaryDirectory() as place:
        os.chmod(place, 0o555)
        if os.geteuid() == 0:
            os.chown(place, 1, 1)  # on the server root may do nothing to files of a user that is unknown there
        done = subprocess.run([*run, "true"], env=dict(os.environ, KV_STATE_DIR=place), stderr=subprocess.PIPE, text=True,
                              check=False)
    assert (done.returncode, done.stderr) == (2, f"server: KV_STATE_DIR cannot be written from the server: {place}\n")


def test_a_published_port_reaches_the_server_from_this_machine():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        port = probe.getsockname()[1]
    with Server(options=("--publish", str(port))) as server:
        server.sh(f"busybox httpd -p 127.0.0.1:{port} -h /kv/etc")
        with socket.create_connection(("127.0.0.1", port), timeout=5) as connection:
            connection.sendall(b"GET /kv_netfilter.cfg HTTP/1.0\r\n\r\n")
            assert b"kv_netfilter_icmp   0\n" in connection.makefile("rb").read()
    with pytest.raises(ConnectionRefusedError):
        socket.create_connection(("127.0.0.1", port), timeout=5)


def test_several_ports_are_published_side_by_side():
    with socket.create_server(("127.0.0.1", 0)) as one, socket.create_server(("127.0.0.1", 0)) as other:
        ports = [probe.getsockname()[1] for probe in (one, other)]
    with Server(options=[option for port in ports for option in ("--publish", str(port))]) as server:
        for port in ports:
            server.sh(f"mkdir /run/{port} && echo this is {port} >/run/{port}/which && busybox httpd -p 127.0.0.1:{port} -h /run/{port}")
        for port in ports:
            with socket.create_connection(("127.0.0.1", port), timeout=5) as connection:
                connection.sendall(b"GET /which HTTP/1.0\r\n\r\n")
                assert f"this is {port}\n".encode() in connection.makefile("rb").read()


def test_a_port_that_is_taken_cannot_be_published():
    with socket.socket() as taken:
        taken.bind(("127.0.0.1", 0))
        taken.listen()
        port = taken.getsockname()[1]
        done = subprocess.run([RUN, "--publish", str(port), "true"], stderr=subprocess.PIPE, text=True, check=False)
    assert done.returncode == 1
    assert done.stderr.endswith(f"server: port {port} cannot be published\n")


def test_a_refused_namespace_is_named_and_has_its_own_exit_status():
    refuse = "echo 0 >/proc/sys/user/max_net_namespaces; exec \"$0\" true"
    done = subprocess.run(["unshare", "--user", "--map-root-user", "/bin/bash", "-c", refuse, RUN],
                          stderr=subprocess.PIPE, text=True, check=False)
    assert done.returncode == 77
    assert done.stderr.startswith("server: missing permission: this machine does not let root create a net namespace\n")


def test_a_missing_tool_is_named(tmp_path):
    for tool in ("bash", "env", "dirname", "readlink", "setpriv", "unshare", "nsenter"):
        (tmp_path / tool).symlink_to(shutil.which(tool))
    done = subprocess.run([RUN, "true"], stderr=subprocess.PIPE, text=True, check=False,
                          env={"PATH": str(tmp_path)})
    assert done.returncode == 1
    assert done.stderr.endswith(" is not installed (see packages.txt)\n")


def test_a_program_that_fails_before_the_server_begins_is_told(tmp_path):
    setpriv = tmp_path / "setpriv"
    setpriv.write_text("#!/bin/bash\necho 'setpriv: no such option' >&2\nexit 1\n")
    setpriv.chmod(0o755)
    done = subprocess.run([RUN, "true"], env=dict(os.environ, PATH=f"{tmp_path}:{os.environ['PATH']}"),
                          stderr=subprocess.PIPE, text=True, check=False)
    assert (done.returncode, done.stderr) == (1, "server: cannot be started: setpriv: no such option\n")


def test_a_first_process_that_is_killed_was_started_all_the_same():
    server = subprocess.Popen([RUN, "/bin/bash", "-c", "echo ready; sleep 600"], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True)
    assert server.stdout.readline() == "ready\n"
    first = server.pid
    for _ in ("unshare", "init"):
        first = int(subprocess.check_output(["pgrep", "--parent", str(first)]))
    os.kill(first, signal.SIGKILL)
    _, told = server.communicate(timeout=30)
    assert (server.returncode, told) == (1, "")


def test_a_system_log_that_does_not_start_is_told(tmp_path):
    shutil.copytree(RUN.parent, tmp_path / "standins/server")
    busybox = tmp_path / "standins/server/root/kv/sbin/busybox"
    busybox.write_text("#!/bin/bash\nexit 1\n")
    busybox.chmod(0o755)
    done = subprocess.run([tmp_path / "standins/server/run", "true"], stderr=subprocess.PIPE, text=True, check=False)
    assert (done.returncode, done.stderr) == (1, "server: the system log did not start\n")


@pytest.mark.parametrize("arguments", [[], ["--publish"], ["--publish", "http", "true"], ["--publish", "0", "true"],
                                       ["--publish", "65536", "true"], ["--unknown", "true"]])
def test_a_wrong_command_line_shows_the_usage(arguments):
    done = subprocess.run([RUN, *arguments], stderr=subprocess.PIPE, text=True, check=False)
    assert done.returncode == 2
    assert done.stderr.startswith("usage: run [--publish PORT]... COMMAND [ARGUMENT...]\n")
