"""What all Python tests share."""
import os
import pathlib
import signal

import pytest


def state_home_of(process):
    """Where the process keeps its state, or "" when nobody may know or it has ended."""
    try:
        variables = (process / "environ").read_bytes().split(b"\0")
    except OSError:
        return ""
    return next((value[len(b"XDG_STATE_HOME="):].decode() for value in variables if value.startswith(b"XDG_STATE_HOME=")), "")


@pytest.fixture(scope="session", autouse=True)
def no_guard_outlives_the_tests(tmp_path_factory):
    """The guard of a lanctl change tries to take it back for ever when its server is gone, as the server of a test is."""
    yield
    ours = str(tmp_path_factory.getbasetemp()) + os.sep
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        if int(process.name) != os.getpid() and state_home_of(process).startswith(ours):
            os.kill(int(process.name), signal.SIGKILL)
