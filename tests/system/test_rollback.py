"""A rollback restores what a client can write; many more sequences of changes by ./test --rollback."""
import os
import subprocess

from server import CHECKOUT, RUN

SEQUENCES = 3


def test_a_rollback_restores_every_value():
    environment = {**os.environ, "PYTHONPATH": str(CHECKOUT / "tests/support/python")}
    command = [RUN, "/usr/bin/python3", "-u", CHECKOUT / "tests/wayback/rollback.py", str(SEQUENCES)]
    done = subprocess.run(command, env=environment, capture_output=True, text=True, timeout=300, check=False)
    assert done.returncode == 0, done.stdout + done.stderr
    assert f"rollback: {SEQUENCES} sequences of seed " in done.stdout
