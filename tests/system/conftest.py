import pytest

from server import Server


@pytest.fixture
def server():
    with Server() as started:
        yield started
