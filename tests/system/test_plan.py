"""What lanctl's plan says of a change is what the server then does; many more changes by ./test --plan."""
import os
import subprocess

from server import CHECKOUT, RUN

CHANGES = 100


def test_the_server_does_what_the_plan_says():
    environment = {**os.environ, "PYTHONPATH": str(CHECKOUT / "tests/support/python")}
    command = [RUN, "/usr/bin/python3", "-u", CHECKOUT / "tests/plan/property.py", str(CHANGES)]
    done = subprocess.run(command, env=environment, capture_output=True, text=True, timeout=300, check=False)
    assert done.returncode == 0, done.stdout + done.stderr
    assert f"property: {CHANGES} changes of seed " in done.stdout
