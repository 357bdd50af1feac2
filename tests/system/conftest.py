import os
import subprocess

import pytest

from cim import DEFAULT_VARIANT, LIBRARY_DIRS, OPENWBEM, ManagedServer
from server import RUN, Server

MISSING_PERMISSION = 77

# The tests' servers keep their state to themselves, whatever the environment of the tests says.
os.environ.pop("KV_STATE_DIR", None)


def pytest_collection_modifyitems(config, items):
    """An installed OpenWBEM concerns the tests of what it serves. All others are about this project's own programs: kv-cimom,
    the server, ./run and ./test, the packages."""
    if not OPENWBEM:
        return
    others = [item for item in items if not {"managed", "unloading"} & set(item.fixturenames)]
    config.hook.pytest_deselected(items=others)
    items[:] = [item for item in items if item not in others]


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


def pytest_configure(config):
    config.addinivalue_line("markers", "both_variants: runs with the plain library and with the serialising one")


def pytest_generate_tests(metafunc):
    """The fixtures that start an object manager take the variant of the library."""
    for fixture in {"managed", "unloading"} & set(metafunc.fixturenames):
        both = metafunc.definition.get_closest_marker("both_variants")
        metafunc.parametrize(fixture, list(LIBRARY_DIRS) if both else [DEFAULT_VARIANT], indirect=True)


@pytest.fixture
def managed(request):
    """A server with the object manager on it, the provider initialised, the events of all this passed over."""
    with ManagedServer(variant=request.param) as started:
        started.names("ORX_LANEndpoint")
        started.events()
        yield started


@pytest.fixture
def unloading(request):
    """The same, with an object manager that unloads idle libraries."""
    with ManagedServer("--unload-idle", variant=request.param) as started:
        yield started
