import pytest

from browser import Page, chromium
from scripted_server import ScriptedServer
from web import Web


@pytest.fixture(scope="session")
def driver():
    with chromium() as started:
        yield started


@pytest.fixture
def scripted():
    with ScriptedServer() as started:
        yield started


@pytest.fixture
def web(scripted, tmp_path):
    with Web(scripted.url, tmp_path) as started:
        yield started


@pytest.fixture
def page(driver, web):
    opened = Page(driver, web.url)
    yield opened
    assert opened.js("return window.errors") == []
    driver.get("about:blank")  # asks nobody any more
