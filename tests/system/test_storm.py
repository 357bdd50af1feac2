"""Eight clients at once: what the object manager lets through side by side, and which variant of the library bears it."""
import os
import subprocess

import pytest

from server import CHECKOUT, RUN

STORM = CHECKOUT / "tests/soak/storm.py"
REQUESTS = "2000"


def storm(*arguments):
    environment = {**os.environ, "PYTHONPATH": str(CHECKOUT / "tests/support/python")}
    return subprocess.run([RUN, "/usr/bin/python3", STORM, REQUESTS, *arguments], stdout=subprocess.PIPE, text=True, timeout=300,
                          env=environment, check=False)


@pytest.mark.parametrize("arguments", [("plain",), ("serialising", "--parallel")], ids=" ".join)
def test_every_answer_is_the_one_of_a_lone_client(arguments):
    done = storm(*arguments)
    assert ", 0 wrong answers, " in done.stdout
    assert done.returncode == 0


def test_the_plain_library_does_not_bear_reads_side_by_side():
    done = storm("plain", "--parallel")
    assert done.returncode != 0
    assert ", 0 wrong answers, " not in done.stdout
