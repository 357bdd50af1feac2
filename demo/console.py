"""What a walk through the server prints, and what it checks on the way."""
import os
import pathlib
import shlex
import subprocess
import textwrap
import time

WIDTH = 100
STATE = pathlib.Path(os.environ["KV_STATE_DIR"])


def fold(line, indent):
    """Breaks a long line behind a comma or a blank, so that it stays readable on a terminal of WIDTH columns."""
    pieces = []
    room = WIDTH - len(indent) - 2
    while len(line) > room:
        cut = max(line.rfind(",", 0, room), line.rfind(" ", 0, room)) + 1
        cut = cut if cut > room // 2 else room
        pieces.append(line[:cut])
        line = line[cut:]
    return [(indent + piece).rstrip() for piece in [*pieces, line]]


def print_output(text, indent="    "):
    for line in text.splitlines():
        print("\n".join(fold(line, indent)), flush=True)


class Console:
    def __init__(self):
        self.events_shown = 0
        self.status = 0  # of the last command
        self.passed = 0
        self.failed = []

    def chapter(self, title):
        print(f"\n\n{title}\n{'=' * len(title)}", flush=True)

    def say(self, text):
        print("\n" + textwrap.fill(" ".join(text.split()), WIDTH), flush=True)

    def client(self, *arguments, only=None):
        """Runs wbemcli and shows command and answer, or only the answer's lines with these words, and returns them."""
        command = " ".join(["wbemcli", *(shlex.quote(argument) for argument in arguments)])
        if only:
            command += f" | grep -E {shlex.quote('|'.join(only))}"
        return self.run("$", command)

    def shell(self, command):
        """Runs a command on the server and shows it with its output."""
        return self.run("#", command)

    def run(self, prompt, command):
        first, *rest = fold(f"{prompt} {command}", "  ")
        print("\n" + "\n".join([first, *("  " + line for line in rest)]), flush=True)
        done = subprocess.run(["/bin/bash", "-c", command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              text=True, check=False)
        print_output(done.stdout.strip("\n") or "(no output)")
        self.status = done.returncode
        return done.stdout

    def new_events(self):
        """What the provider has told the rest of the server since the last call, as lines."""
        log = STATE / "events.log"
        lines = log.read_text().splitlines() if log.exists() else []
        new, self.events_shown = lines[self.events_shown:], len(lines)
        return new

    def skip_events(self):
        """Leaves out of the next showing what happened before."""
        self.new_events()

    def events(self):
        """Shows what is new, and returns it."""
        new = self.new_events()
        print("\n  On the server:" if new else "\n  On the server: nothing happened", flush=True)
        print_output("\n".join(new))
        return new

    def expect(self, what, found, wanted):
        if found == wanted:
            self.passed += 1
            print(f"  [ok]     {what}", flush=True)
            return
        self.failed.append(what)
        print(f"  [WRONG]  {what}", flush=True)
        print_output(f"expected {wanted!r}\nfound    {found!r}", "           ")

    def summary(self):
        self.chapter("Summary")
        for what in self.failed:
            print(f"  [WRONG]  {what}")
        print()
        return self.verdict()

    def verdict(self):
        """The closing line, and the exit status."""
        print(f"{self.passed} expectations came true, {len(self.failed)} did not.", flush=True)
        return 1 if self.failed else 0


def read(path):
    return pathlib.Path(path).read_text()


def wait_until(condition, seconds=10.0):
    """Whether the condition comes true in time."""
    deadline = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > deadline:
            return False
        time.sleep(0.05)
    return True
