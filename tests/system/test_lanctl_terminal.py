"""lanctl on a terminal, where people see it: questions, colours, progress, the live view."""
import os
import signal
import time

import pytest

from lanctl import DONE, NOT_AS_WANTED, Terminal
from scripted_server import ENDPOINT, SETTING, ScriptedServer


@pytest.fixture
def scripted():
    with ScriptedServer() as started:
        yield started


def on(server, *arguments, **more):
    return Terminal("--server", server.url, *arguments, **more)


def test_a_change_is_made_after_yes(scripted):
    with on(scripted, "set", "eth1", "mtu=1400") as terminal:
        plan = terminal.wait_for(r"Apply\? \[y/N\] ")
        assert "1500  ->  \x1b[33m1400\x1b[0m" in plan
        assert scripted.modifications() == []
        terminal.type("y\n")
        shown, status = terminal.end()
    assert (shown.splitlines()[-1], status) == ("Done.", DONE)
    assert scripted.state[ENDPOINT][1]["MaxDataSize"][1] == "1400"
    assert scripted.connections == 1


@pytest.mark.parametrize("answer", ["n\n", "\n", "\x04", "yeah\n"])
def test_nothing_is_changed_without_a_yes(scripted, answer):
    with on(scripted, "set", "eth1", "mtu=1400") as terminal:
        terminal.wait_for(r"Apply\?")
        terminal.type(answer)
        shown, status = terminal.end()
    assert (shown.splitlines()[-1], status) == ("Nothing was changed.", NOT_AS_WANTED)
    assert scripted.modifications() == []


def test_a_plan_that_was_overtaken_is_asked_about_again(scripted):
    with on(scripted, "set", "eth1", "mtu=1400") as terminal:
        terminal.wait_for(r"Apply\?")
        scripted.state[ENDPOINT][1]["MaxDataSize"] = ("sint32", "1300")
        terminal.type("y\n")
        assert "The server has changed meanwhile." in terminal.wait_for(r"Apply\?")
        assert scripted.modifications() == []
        terminal.type("y\n")
        assert terminal.end()[1] == DONE
    assert len(scripted.modifications()) == 1


def test_reset_router_asks(scripted):
    with on(scripted, "reset-router") as terminal:
        terminal.wait_for(r"Reset\? \[y/N\] ")
        terminal.type("n\n")
        assert terminal.end()[1] == NOT_AS_WANTED
    assert "ResetRouter" not in scripted.methods()
    with on(scripted, "reset-router") as terminal:
        terminal.wait_for(r"Reset\?")
        terminal.type("y\n")
        shown, status = terminal.end()
    assert (shown.splitlines()[-1], status) == ("Router reset initiated", DONE)


def test_no_colours_where_they_are_not_wanted(scripted):
    with on(scripted, "set", "eth1", "mtu=1400", "--dry-run", NO_COLOR="1") as terminal:
        assert "\x1b" not in terminal.end()[0]


def test_progress_while_a_change_runs():
    def script(_server, request, _connection):
        if request.method == "ModifyInstance":
            time.sleep(1.3)
    with ScriptedServer(script) as server, on(server, "set", "eth1", "mtu=1400", "--yes") as terminal:
        terminal.wait_for(r"\r\x1b\[KChanging eth1 \(no interruption\) \.\.\. 1 s")
        shown, status = terminal.end()
    assert shown.endswith("\r\x1b[KDone.\r\n") and status == DONE


def test_the_password_is_asked_for_and_not_shown():
    with ScriptedServer() as server, on(server, "--user", "admin\x1b", "show", "lan") as terminal:
        assert terminal.wait_for("Password of admin.* on 127.0.0.1: ") == "Password of admin\\x1b on 127.0.0.1: "
        terminal.type("secret\n")
        shown, status = terminal.end()
    assert "secret" not in shown and status == DONE


# The live view


def test_watch_highlights_what_has_changed(scripted):
    with on(scripted, "watch", "lan", "--interval", "0.1") as terminal:
        assert "\x1b[33m" not in terminal.wait_for("router card       none")
        scripted.state[SETTING][0]["DomainName"] = ("string", "other.example")
        terminal.wait_for("domain            \x1b\\[33mother.example\x1b\\[0m")
        terminal.wait_for("domain            other.example")  # and no longer
        os.kill(terminal.pid, signal.SIGINT)
        assert terminal.end()[1] == DONE


def test_watch_ends_at_once_while_it_waits_for_an_answer():
    def script(*_):
        time.sleep(20)
    with ScriptedServer(script) as server, on(server, "watch") as terminal:
        while not server.requests:
            terminal.read(0.05)
        terminal.type("\x03")
        begun = time.monotonic()
        assert terminal.end()[1] == DONE
        assert time.monotonic() - begun < 5


def test_watch_goes_on_when_the_server_is_away_for_a_while(scripted):
    def away(*_):
        raise ConnectionError
    with on(scripted, "watch", "lan", "--interval", "0.1") as terminal:
        terminal.wait_for("site.example")
        scripted.script = away
        terminal.wait_for("ended before the whole answer had come")
        scripted.script = None
        terminal.wait_for("site.example")
        terminal.type("\x03")
        assert terminal.end()[1] == DONE
