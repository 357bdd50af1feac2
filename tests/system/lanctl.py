"""lanctl as a user runs it: from a script, or on a terminal."""
import os
import pathlib
import pty
import re
import select
import subprocess
import tempfile
import time

CHECKOUT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ.get("KV_BUILD_DIR", CHECKOUT / "build/dev"))
# A build for an installed OpenWBEM has no client; the one of another build tree serves.
CLIENT = pathlib.Path(os.environ.get("KV_CLIENT_DIR", BUILD / "client"))
LANCTL = pathlib.Path(os.environ.get("LANCTL", CLIENT / "lanctl"))

STATE = tempfile.TemporaryDirectory(prefix="lanctl-tests-")  # the states before changes

DONE, NOT_AS_WANTED, USAGE, NO_ANSWER, TAKEN_BACK, DIFFERENCES = 0, 1, 2, 3, 4, 10


def environment(**more):
    """Without what the tester's own environment says about servers, colours and proxies."""
    ours = {name: value for name, value in os.environ.items()
            if not name.startswith("LANCTL_") and not name.lower().endswith("_proxy") and name != "NO_COLOR"}
    return {**ours, "XDG_CONFIG_HOME": "/nonexistent", "XDG_STATE_HOME": STATE.name, **more}


def lanctl(*arguments, text=None, seconds=30, **more):
    """Runs it without a terminal. `text` is standard input."""
    return subprocess.run([LANCTL, *arguments], capture_output=True, text=True, input=text if text is not None else "",
                          timeout=seconds, check=False, env=environment(**more))


class Terminal:
    """lanctl on a terminal of its own."""

    def __init__(self, *arguments, **more):
        self.shown = ""
        pid, self.terminal = pty.fork()
        if pid == 0:
            os.execve(LANCTL, [str(LANCTL), *map(str, arguments)], environment(TERM="xterm", **more))
        self.pid = pid

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self.terminal)

    def read(self, seconds):
        """What appears within that time, or None when lanctl has ended."""
        if not select.select([self.terminal], [], [], seconds)[0]:
            return ""
        try:
            return os.read(self.terminal, 65536).decode() or None
        except OSError:  # so Linux reports that the other side is closed
            return None

    def wait_for(self, expected, seconds=10):
        """Waits until the text, a regular expression, has appeared; what was shown until then is gone afterwards."""
        deadline = time.monotonic() + seconds
        while not (found := re.search(expected, self.shown)):
            more = self.read(max(0, deadline - time.monotonic()))
            assert more, f"{expected!r} did not appear: {self.shown!r}"
            self.shown += more
        before, self.shown = self.shown[:found.end()], self.shown[found.end():]
        return before

    def type(self, text):
        os.write(self.terminal, text.encode())

    def end(self, seconds=10):
        """What else is shown, and the exit status."""
        deadline = time.monotonic() + seconds
        while (more := self.read(max(0, deadline - time.monotonic()))) is not None:
            assert time.monotonic() < deadline, f"lanctl does not end: {self.shown!r}"
            self.shown += more
        _, status = os.waitpid(self.pid, 0)
        return self.shown, os.waitstatus_to_exitcode(status)
