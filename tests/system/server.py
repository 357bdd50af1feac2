"""The disposable server as a test sees it: started once, asked by shell commands, gone at the end."""
import json
import pathlib
import socket
import subprocess
import time
from typing import NamedTuple

CHECKOUT = pathlib.Path(__file__).resolve().parents[2]
RUN = CHECKOUT / "standins/server/run"
SERVER_END = pathlib.Path(__file__).with_name("server_end.py")


def free_port():
    """A TCP port of this machine that nobody has at the moment."""
    with socket.create_server(("127.0.0.1", 0)) as probe:
        return probe.getsockname()[1]


class Result(NamedTuple):
    status: int
    out: str
    err: str


class Server:
    """One disposable server, started by the command `run`; `environment` is the runner's."""

    def __init__(self, run=(RUN,), environment=None, options=()):
        # The other end travels as text: who starts the server may not be allowed to read the checkout.
        command = [*run, *options, "/usr/bin/python3", "-u", "-c", SERVER_END.read_text()]
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                        env=environment, cwd=CHECKOUT)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        """Ends the server and returns the runner's exit status."""
        self.process.stdin.close()
        self.process.stdout.close()
        return self.process.wait(timeout=30)

    def run(self, command):
        """What the shell command does on the server, whatever its status."""
        self.process.stdin.write(json.dumps(command) + "\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline()
        if not answer:
            raise RuntimeError(f"the server has ended with status {self.process.wait(timeout=30)}")
        return Result(*json.loads(answer))

    def sh(self, command):
        """Standard output of a shell command that has to succeed."""
        result = self.run(command)
        assert result.status == 0, f"{command}: status {result.status}: {result.err}"
        return result.out

    def read(self, path):
        return self.sh(f"cat {path}")

    def wait_for(self, command, seconds=10.0):
        """Waits until the shell command succeeds and returns its standard output."""
        deadline = time.monotonic() + seconds
        while True:
            result = self.run(command)
            if result.status == 0:
                return result.out
            assert time.monotonic() < deadline, f"{command}: not within {seconds} s: {result.err or result.out}"
            time.sleep(0.05)
