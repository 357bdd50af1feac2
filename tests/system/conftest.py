import os
import subprocess

import pytest

from server import RUN, Server

MISSING_PERMISSION = 77


@pytest.fixture(scope="session", autouse=True)
def permission():
    """A machine that refuses the server fails every test, unless it is said that they may be skipped there."""
    done = subprocess.run([RUN, "true"], stderr=subprocess.PIPE, text=True, check=False)
    if done.returncode == MISSING_PERMISSION and os.environ.get("ALLOW_SKIPS") == "1":
        pytest.skip(done.stderr)
    assert done.returncode == 0, done.stderr


@pytest.fixture
def server():
    with Server() as started:
        yield started
