"""The operator's machine: it stands at the other end of the disposable server's cables, and runs lanctl there."""
import json
import shlex

from cim import OBJECT_MANAGER, ManagedServer
from lanctl import LANCTL

STATE_HOME = "/run/operator"
URL = "http://10.0.0.5:5988"
OAM_URL = "http://172.16.2.1:5988"
EVERYWHERE = "--address 0.0.0.0"


class Keyboard:
    """lanctl on a terminal of the operator's machine. `shell` has a shell lead the terminal's session."""

    def __init__(self, operator, *arguments, shell=False):
        self.server = operator.server
        lanctl = operator.command(*arguments)
        run = f"sh -c {shlex.quote(f'echo $$ >/run/lanctl.pid; exec {lanctl}')}; true" if shell else \
            f"echo $$ >/run/lanctl.pid; exec {lanctl}"
        # `script` gives the terminal; what it reads from the pipe is typed.
        self.server.sh("rm -f /run/typed /run/shown; mkfifo /run/typed; : >/run/shown; "
                       "sleep 1000 >/run/typed 2>/dev/null & echo $! >/run/typing.pid; "
                       f"setsid script --quiet --flush --command {shlex.quote(f'echo $$ >/run/shell.pid; {run}')} /run/shown "
                       "</run/typed >/dev/null 2>&1 & echo $! >/run/terminal.pid")

    def wait_for(self, text):
        self.server.wait_for(f"grep -qF {shlex.quote(text)} /run/shown", 20)

    def type(self, text):
        self.server.sh(f"printf {shlex.quote(text)} >/run/typed")

    def kill(self, signal, what="lanctl"):
        """what: "lanctl", the "shell" that leads the session, or the "terminal" itself."""
        self.server.sh(f"kill -{signal} $(cat /run/{what}.pid)")

    def shown(self):
        return self.server.sh("cat /run/shown")

    def status(self):
        """lanctl's exit status, which `script` notes at the end of what was shown."""
        self.server.wait_for("grep -q COMMAND_EXIT_CODE /run/shown", 20)
        return int(self.shown().rpartition('COMMAND_EXIT_CODE="')[2].partition('"')[0])


class Operator:
    """A server with an object manager that listens on every address, and lanctl beyond its cables."""

    def __init__(self):
        self.server = ManagedServer(*EVERYWHERE.split())

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.server.close()

    def command(self, *arguments, server=URL, **more):
        environment = {"XDG_STATE_HOME": STATE_HOME, "XDG_CONFIG_HOME": "/nonexistent", "LANCTL_SERVER": server, **more}
        settings = [f"{name}={value}" for name, value in environment.items()]
        return shlex.join(["nsenter", "--net=/run/netns/outside", "env", *settings, str(LANCTL), *map(str, arguments)])

    def lanctl(self, *arguments, **more):
        return self.server.run(self.command(*arguments, **more))

    def on_terminal(self, *arguments, shell=False):
        return Keyboard(self, *arguments, shell=shell)

    def change(self, *assignments, confirm=60, **more):
        """A change that waits for its confirmation, made without a terminal."""
        done = self.lanctl("set", *assignments, "--yes", "--confirm", confirm, **more)
        assert done.status == 0, done

    def waiting(self):
        """What `lanctl status` tells of the open change, or None."""
        done = self.lanctl("status", "--json")
        assert done.status == 0, done
        found = json.loads(done.out)
        assert len(found) <= 1
        return found[0] if found else None

    def history(self, what):
        """That member of all entries, the oldest first."""
        return [entry[what] for entry in json.loads(self.lanctl("history", "--json").out)]

    def results(self):
        return self.history("result")

    def wait_for_result(self, result, seconds=20):
        self.server.wait_for(f"ls {STATE_HOME}/lanctl/*/*.{result}.json", seconds)

    def wait_until(self, state, seconds=20):
        """Waits until the open change is so far: "waiting", "taking-back", "cut-off"."""
        self.server.wait_for(f"{self.command('status', '--json')} | grep -q '\"state\": \"{state}\"'", seconds)

    def processes(self):
        """The processes of lanctl on the server, which has process numbers of its own."""
        found = self.server.sh(f"find /proc -maxdepth 2 -name exe -lname {shlex.quote(str(LANCTL))} 2>/dev/null || true").split()
        return [int(path.split("/")[2]) for path in found]

    def guard(self):
        """The process that looks after the change: once the command has returned, it alone is left of lanctl."""
        guard, = self.processes()
        return guard

    def wait_until_tried(self):
        """Waits until a try to take the change back has failed; returns what the trouble was."""
        self.server.wait_for(f"{self.command('status', '--json')} | grep -q '\"attempts\": [1-9]'", 20)
        return self.waiting()["trouble"]

    # The truth on the server.

    def mtu(self):
        return int(self.server.sh("cat /sys/class/net/eth1/mtu"))

    def address(self, interface="eth1"):
        return self.server.sh(f"ip -4 -o address show {interface} | awk '{{print $4}}'").strip()

    def object_manager(self, command):
        self.server.sh(f"{OBJECT_MANAGER} {command} {EVERYWHERE if command == 'start' else ''}")
