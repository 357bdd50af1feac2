"""Five disposable servers, and a copy of examples/ansible whose inventory says where they are."""
import os
import pathlib
import re
import shutil
import socket
import subprocess
import time
from typing import NamedTuple

from cim import WITH_OBJECT_MANAGER
from lanctl import LANCTL, environment
from server import CHECKOUT, RUN, Server

NAMES = ["pbx1", "pbx2", "pbx3", "pbx4", "pbx5"]
INVENTORY = "inventory.yml"


class Run(NamedTuple):
    """What a run of the playbook told. A server that it did not come to is in neither list."""
    status: int
    shown: str
    changed: list
    failed: list
    untouched: list


def free_ports(count):
    probes = [socket.create_server(("127.0.0.1", 0)) for _ in range(count)]
    ports = [probe.getsockname()[1] for probe in probes]
    for probe in probes:
        probe.close()
    return ports


class Fleet:
    """All that is kept lies in `directory`: the copy, what lanctl keeps of changes, the home directory of ansible."""

    def __init__(self, directory):
        self.directory = directory
        self.example = directory / "example"
        shutil.copytree(CHECKOUT / "examples/ansible", self.example)
        self.urls = {name: f"http://127.0.0.1:{port}" for name, port in zip(NAMES, free_ports(len(NAMES)))}
        self.servers = {name: self._start(url.rpartition(":")[2]) for name, url in self.urls.items()}
        self.edit(INVENTORY, *((f"{name}:", f"{name}: {{lanctl_server: {url}}}") for name, url in self.urls.items()))

    def __enter__(self):
        for server in self.servers.values():
            server.sh("true")  # now it is there
        return self

    def __exit__(self, *_):
        for name in self.waiting():
            self._abandon(name)
        for server in self.servers.values():
            server.close()

    @staticmethod
    def _start(port):
        own_state = {name: value for name, value in os.environ.items() if name != "KV_STATE_DIR"}
        return Server((RUN, "--publish", port, WITH_OBJECT_MANAGER, "--port", port), environment=own_state)

    def environment(self):
        """Of a user who has lanctl installed and no settings of his own."""
        ours = environment(HOME=str(self.directory), XDG_STATE_HOME=str(self.directory), LC_ALL="C.UTF-8",
                           PATH=f"{LANCTL.parent}:{os.environ['PATH']}")
        return {name: value for name, value in ours.items() if not name.startswith("ANSIBLE_")}

    def edit(self, file, *replacements):
        """Replaces texts of the copied example, each of which is there once."""
        path = self.example / file
        text = path.read_text()
        for old, new in replacements:
            assert text.count(old) == 1, f"{file}: {old!r}"
            text = text.replace(old, new)
        path.write_text(text)

    def play(self, *options):
        """The command of the example's README."""
        done = subprocess.run(["ansible-playbook", "site.yml", *options], cwd=self.example, env=self.environment(),
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              timeout=300, check=False)
        recap = {name: {key: int(count) for key, count in re.findall(r"(\w+)=(\d+)", counts)}
                 for name, counts in re.findall(r"^(pbx\d) +: (.*)$", done.stdout.partition("PLAY RECAP")[2], re.MULTILINE)}
        return Run(done.returncode, done.stdout, [name for name in recap if recap[name]["changed"]],
                   [name for name in recap if recap[name]["failed"]], [name for name in NAMES if name not in recap])

    def lanctl(self, name, *arguments):
        return subprocess.run([LANCTL, "--server", self.urls[name], *arguments], env=self.environment(), text=True,
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=120, check=False)

    def waiting(self):
        """The servers with a change that is neither kept nor taken back."""
        shown = self.lanctl(NAMES[0], "status").stdout
        return [name for name, url in self.urls.items() if url.partition("//")[2] in shown]

    def _abandon(self, name):
        """Ends the change of a server that is gone: its way back begins now and is given up."""
        way_back = subprocess.Popen([LANCTL, "--server", self.urls[name], "rollback"], env=self.environment(),
                                    stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        deadline = time.monotonic() + 60
        while self.lanctl(name, "confirm", "--abandon").returncode != 0 and self.waiting():
            assert time.monotonic() < deadline, f"the way back of {name} does not end"
            time.sleep(0.1)
        way_back.wait(timeout=60)

    def network(self, name):
        """What the example wants, as the server's kernel has it: the MTU of eth1 and the address of eth0."""
        server = self.servers[name]
        return int(server.read("/sys/class/net/eth1/mtu")), server.sh("ip -o -4 address show eth0").split()[3]

    def networks(self, names=None):
        return [self.network(name) for name in names or NAMES]

    def processes(self):
        """Those that run with the directory as their home: ansible, lanctl and its guards."""
        mark = f"XDG_STATE_HOME={self.directory}".encode()
        found = []
        for environ in pathlib.Path("/proc").glob("[0-9]*/environ"):
            try:
                if mark in environ.read_bytes().split(b"\0"):
                    found.append(environ.parent.joinpath("cmdline").read_text())
            except OSError:
                pass  # it has ended meanwhile, or is somebody else's
        return found
