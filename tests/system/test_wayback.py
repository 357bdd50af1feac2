"""The way back of a change, from a machine beyond the server's cables: whatever interrupts it, nobody is left cut off."""
import datetime
import json
import shlex

import pytest

from lanctl import BUILD, DONE, NO_ANSWER, NOT_AS_WANTED, TAKEN_BACK, USAGE, Terminal, lanctl
from operator_machine import OAM_URL, STATE_HOME, Operator
from scripted_server import ENDPOINT, ScriptedServer

ASKED = "Keep the change? [y/N]"
MTU, FORMER_MTU = 1400, 1500


@pytest.fixture
def operator():
    with Operator() as started:
        yield started


def is_taken_back(operator):
    operator.wait_for_result("taken-back")
    assert operator.mtu() == FORMER_MTU and operator.address() == "10.0.0.5/24"
    assert operator.waiting() is None
    return True


# Confirmed or not


def test_a_confirmed_change_stays(operator):
    operator.change("eth1", f"mtu={MTU}")
    open_change = operator.waiting()
    assert open_change["state"] == "waiting" and 0 < open_change["seconds"] <= 60
    assert open_change["plan"] == ["eth1 mtu: 1500 -> 1400"]
    done = operator.lanctl("confirm")
    assert (done.status, done.out) == (DONE, "The change is kept.\n")
    assert operator.waiting() is None and operator.results() == ["confirmed"] and operator.mtu() == MTU
    assert operator.lanctl("confirm").status == NOT_AS_WANTED


def test_an_unconfirmed_change_is_taken_back(operator):
    done = operator.lanctl("set", "eth1", f"mtu={MTU}", "--yes", "--confirm", 1)
    assert done.out.endswith("The change is taken back in 1 s unless `lanctl confirm` keeps it.\n") and done.status == DONE
    assert is_taken_back(operator)
    late = operator.lanctl("confirm")
    assert (late.status, late.err) == (TAKEN_BACK, "Change 1 of 10.0.0.5:5988 has been taken back.\n")


def test_the_question_on_a_terminal(operator):
    for typed, status, result, mtu in (("y\n", DONE, "confirmed", MTU), ("n\n", TAKEN_BACK, "taken-back", MTU)):
        wanted = MTU if result == "confirmed" else MTU + 1
        keyboard = operator.on_terminal("set", "eth1", f"mtu={wanted}", "--yes", "--confirm", 60)
        keyboard.wait_for(ASKED)
        assert operator.mtu() == wanted
        keyboard.type(typed)
        assert keyboard.status() == status
        assert operator.results()[-1] == result and operator.mtu() == mtu


def test_without_an_answer_on_the_terminal_it_is_taken_back(operator):
    keyboard = operator.on_terminal("set", "eth1", f"mtu={MTU}", "--yes", "--confirm", 2)
    keyboard.wait_for("It is taken back in 2 s.")
    keyboard.wait_for("It is taken back in 1 s.")
    assert keyboard.status() == TAKEN_BACK
    assert "The change is taken back." in keyboard.shown() and is_taken_back(operator)


def test_json_answers_at_once(operator):
    done = operator.lanctl("set", "eth1", f"mtu={MTU}", "--yes", "--json", "--confirm", 60)
    told = json.loads(done.out)
    assert (done.status, told["changed"], told["number"], told["confirm"]) == (DONE, True, 1, 60)
    assert operator.waiting()["state"] == "waiting"
    assert operator.lanctl("rollback").status == DONE
    assert is_taken_back(operator)


# What happens to the operator's session

ENDINGS = {
    "terminal lost": lambda keyboard: keyboard.kill("KILL", "terminal"),
    "SIGHUP": lambda keyboard: keyboard.kill("HUP"),
    "SIGINT, as Ctrl-C": lambda keyboard: keyboard.type(r"\003"),
    "SIGQUIT, as Ctrl-\\": lambda keyboard: keyboard.type(r"\034"),
    "SIGTSTP, as Ctrl-Z": lambda keyboard: keyboard.type(r"\032"),
    "SIGTERM": lambda keyboard: keyboard.kill("TERM"),
    "SIGKILL": lambda keyboard: keyboard.kill("KILL"),
}


@pytest.mark.parametrize("ending", ENDINGS)
def test_the_countdown_outlives_the_session(operator, ending):
    keyboard = operator.on_terminal("set", "eth1", f"mtu={MTU}", "--yes", "--confirm", 2)
    keyboard.wait_for(ASKED)
    ENDINGS[ending](keyboard)
    assert is_taken_back(operator)


def test_the_countdown_outlives_a_killed_shell(operator):
    keyboard = operator.on_terminal("set", "eth1", f"mtu={MTU}", "--yes", "--confirm", 2, shell=True)
    keyboard.wait_for(ASKED)
    keyboard.kill("KILL", "shell")
    assert is_taken_back(operator)


def test_ctrl_c_leaves_the_countdown_to_be_confirmed(operator):
    keyboard = operator.on_terminal("set", "eth1", f"mtu={MTU}", "--yes", "--confirm", 60)
    keyboard.wait_for(ASKED)
    keyboard.type(r"\003")
    keyboard.wait_for("The countdown goes on.")
    assert keyboard.status() == NOT_AS_WANTED
    assert operator.lanctl("confirm").status == DONE and operator.mtu() == MTU


def test_lanctl_killed_while_the_server_makes_the_change(operator):
    # The server gives its neighbours a second with each new address, and answers after it.
    keyboard = operator.on_terminal("set", "eth1", "address=10.0.0.77", "--yes", "--confirm", 1)
    keyboard.wait_for("Changing eth1")
    keyboard.kill("KILL")
    assert is_taken_back(operator)


# Everything at the operator's end has gone, as by a reboot


def test_a_change_that_was_cut_off_is_found_and_ended(operator):
    operator.change("eth1", f"mtu={MTU}")
    operator.server.sh(f"kill -9 {operator.guard()}")
    assert operator.waiting()["state"] == "cut-off" and operator.mtu() == MTU
    told = operator.lanctl("status").out
    assert "cut off; `lanctl rollback` takes it back, `lanctl confirm` keeps it" in told
    second = operator.lanctl("set", "eth2", "mtu=1300", "--yes")
    assert second.status == NOT_AS_WANTED and "change 1 of this server was cut off; `lanctl rollback`" in second.err, second
    done = operator.lanctl("rollback", "--yes")
    assert done.status == DONE, done
    assert operator.results() == ["taken-back", "done"] and operator.mtu() == FORMER_MTU and operator.waiting() is None


def test_everything_killed_while_the_server_makes_the_change(operator):
    keyboard = operator.on_terminal("set", "eth1", "address=10.0.0.77", "--yes", "--confirm", 60)
    keyboard.wait_for("Changing eth1")
    operator.server.sh(shlex.join(["kill", "-9", *map(str, operator.processes())]))
    operator.server.wait_for("ip address show eth1 | grep -q 10.0.0.77")
    assert operator.waiting()["state"] == "cut-off"
    # The server is elsewhere now, and whoever rolls back says where.
    assert operator.lanctl("rollback", "--yes", server="http://10.0.0.77:5988").status == DONE
    assert operator.address() == "10.0.0.5/24"


@pytest.mark.parametrize("command, told, result", [("confirm", "Kept.\n", "confirmed"), ("rollback --yes", "Done.\n", "taken-back")])
def test_a_guard_that_is_killed_keeps_no_command_waiting(operator, command, told, result):
    """The guard is stopped first, so that the command finds it there and waits for it."""
    operator.change("eth1", f"mtu={MTU}")
    guard = operator.guard()
    operator.server.sh(f"kill -STOP {guard}; {operator.command(*command.split())} >/run/told 2>&1 & echo $! >/run/waiting.pid")
    operator.server.wait_for(f"ls {STATE_HOME}/lanctl/*/{'confirm' if command == 'confirm' else 'take-back'}")
    operator.server.sh(f"kill -9 {guard}")
    operator.server.wait_for(f"grep -qF {told.strip()!r} /run/told")
    assert operator.results()[0] == result and operator.mtu() == (MTU if command == "confirm" else FORMER_MTU)


def test_a_guard_that_is_killed_ends_the_question(operator):
    keyboard = operator.on_terminal("set", "eth1", f"mtu={MTU}", "--yes", "--confirm", 60)
    keyboard.wait_for(ASKED)
    operator.server.sh("kill -9 $(pgrep -x lanctl | grep -vx $(cat /run/lanctl.pid))")
    keyboard.wait_for("The change was cut off")
    assert keyboard.status() == NOT_AS_WANTED and operator.waiting()["state"] == "cut-off"


def test_a_cut_off_change_can_be_kept(operator):
    operator.change("eth1", f"mtu={MTU}")
    operator.server.sh(f"kill -9 {operator.guard()}")
    assert operator.lanctl("confirm").out == "Kept.\n"
    assert operator.results() == ["confirmed"] and operator.mtu() == MTU


# The way to the server


def test_the_guard_follows_the_address_that_moves(operator):
    operator.change("eth1", "address=10.0.0.77", confirm=1)
    assert is_taken_back(operator)


def test_it_tries_until_a_way_opens(operator):
    done = operator.lanctl("set", "eth1", "address=10.9.9.9", "--yes", "--confirm", 1, "--timeout", 2)
    assert done.status == NO_ANSWER
    operator.wait_until_tried()
    assert operator.address() == "10.9.9.9/24"
    # From now on the operator's machine reaches the new address.
    operator.server.sh("kv-peer run ip address add 10.9.9.1/24 dev eth1")
    operator.lanctl("rollback")
    assert is_taken_back(operator)


def test_a_route_that_is_pulled_away_and_given_back(operator):
    operator.change("eth1", f"mtu={MTU}", confirm=1)
    operator.server.sh("kv-peer run ip route delete 10.0.0.0/24")
    assert "10.0.0.5:5988 is not reached" in operator.wait_until_tried()
    operator.server.sh("kv-peer run ip route add 10.0.0.0/24 dev eth1 src 10.0.0.1")
    assert is_taken_back(operator)


def test_a_cable_that_is_pulled_and_plugged_in(operator):
    operator.change("eth1", f"mtu={MTU}", "--timeout", 1, confirm=1)
    operator.server.sh("kv-peer carrier eth1 down")
    operator.wait_until("taking-back")
    operator.server.sh("kv-peer carrier eth1 up")
    assert is_taken_back(operator)


def test_the_further_way(operator):
    done = operator.lanctl("set", "eth1", "address=10.9.9.9", "--yes", "--confirm", 1, "--timeout", 2, "--revert-via", OAM_URL)
    assert done.status == NO_ANSWER
    assert is_taken_back(operator)


def test_giving_up(operator):
    operator.change("eth1", f"mtu={MTU}", "--timeout", 1)
    assert operator.lanctl("confirm", "--abandon").status == USAGE  # nothing is on its way back yet
    operator.object_manager("stop")
    keyboard = operator.on_terminal("rollback")
    keyboard.wait_for("Taking the change back: 1 tries")
    done = operator.lanctl("confirm", "--abandon")
    assert done.status == DONE and "the state before it is in" in done.out, done
    assert operator.results() == ["abandoned"] and operator.mtu() == MTU


def test_the_history_of_a_server_that_was_moved_is_found_under_both_addresses(operator):
    moved = "http://10.0.0.77:5988"
    assert operator.lanctl("set", "eth1", "address=10.0.0.77", "--yes").status == DONE
    assert json.loads(operator.lanctl("history", "--json", server=moved).out) == json.loads(operator.lanctl("history", "--json").out)
    assert operator.lanctl("set", "eth1", f"mtu={MTU}", "--yes", server=moved).status == DONE
    assert operator.history("number") == [1, 2] and operator.history("server") == ["10.0.0.5:5988", "10.0.0.77:5988"]
    assert operator.lanctl("rollback", "1", "--yes", server=moved).status == DONE
    assert (operator.address(), operator.mtu()) == ("10.0.0.5/24", FORMER_MTU)
    assert operator.history("result") == ["done"] * 3


def test_a_second_change_is_refused_under_the_new_address_too(operator):
    operator.change("eth1", "address=10.0.0.77")
    second = operator.lanctl("set", "eth2", "mtu=1300", "--yes", server="http://10.0.0.77:5988")
    assert second.status == NOT_AS_WANTED and "another change of this server is under way" in second.err
    assert operator.lanctl("confirm", server="http://10.0.0.77:5988").status == DONE
    assert operator.results() == ["confirmed"] and operator.address() == "10.0.0.77/24"


# The server's end


def test_the_object_manager_stopped_and_started_during_the_countdown(operator):
    operator.change("eth1", f"mtu={MTU}", confirm=3)
    operator.object_manager("stop")
    operator.object_manager("start")
    assert is_taken_back(operator)


def test_the_object_manager_away_when_the_time_is_up(operator):
    operator.change("eth1", f"mtu={MTU}", confirm=1)
    operator.object_manager("stop")
    assert "10.0.0.5:5988 is not reached" in operator.wait_until_tried()
    assert operator.mtu() == MTU
    operator.object_manager("start")
    assert is_taken_back(operator)


def test_somebody_else_has_taken_the_value_back_meanwhile(operator):
    operator.change("eth1", f"mtu={MTU}", confirm=2)
    assert operator.lanctl("set", "eth1", f"mtu={FORMER_MTU}", "--yes", XDG_STATE_HOME="/run/elsewhere").status == DONE
    assert is_taken_back(operator)


# A second change


def test_a_second_change_is_refused_while_one_waits(operator):
    operator.change("eth1", f"mtu={MTU}")
    for arguments in (("set", "eth2", "mtu=1300", "--yes"), ("set", "eth2", "mtu=1300", "--yes", "--confirm", 60)):
        second = operator.lanctl(*arguments)
        assert second.status == NOT_AS_WANTED
        for end in ("`lanctl status` shows it", "`lanctl confirm` keeps it", "`lanctl rollback` takes it back"):
            assert end in second.err
    assert operator.server.sh("cat /sys/class/net/eth2/mtu") == "1500\n"
    assert operator.lanctl("rollback").status == DONE and is_taken_back(operator)
    assert operator.lanctl("set", "eth2", "mtu=1300", "--yes").status == DONE


# The clock


@pytest.fixture
def shift(operator):
    """Sets the clock of every lanctl to come, and of those that run."""
    operator.server.sh("echo 0 >/run/clock-shift")
    return lambda seconds: operator.server.sh(f"echo {seconds} >/run/shift.new; mv /run/shift.new /run/clock-shift")


CLOCK = {"LD_PRELOAD": str(BUILD / "tests/wayback/libshifted_clock.so"), "CLOCK_SHIFT": "/run/clock-shift"}


def seconds_left(operator):
    return json.loads(operator.lanctl("status", "--json", **CLOCK).out)[0]["seconds"]


def test_a_clock_set_forth_ends_no_countdown(operator, shift):
    operator.change("eth1", f"mtu={MTU}", **CLOCK)
    shift(3600)
    assert 0 < seconds_left(operator) <= 60
    assert operator.lanctl("confirm", **CLOCK).status == DONE and operator.mtu() == MTU
    assert operator.lanctl("set", "eth1", "mtu=1300", "--yes", **CLOCK).status == DONE
    first, second = (datetime.datetime.fromisoformat(time) for time in operator.history("time"))
    assert second - first >= datetime.timedelta(minutes=59)  # so the clock did move


def test_a_clock_set_back_prolongs_no_countdown(operator, shift):
    operator.change("eth1", f"mtu={MTU}", confirm=2, **CLOCK)
    shift(-3600)
    assert is_taken_back(operator)


# The disk


@pytest.fixture
def small_disk(operator):
    """The operator's history lies on a disk of its own; filling it leaves no room for a byte."""
    operator.server.sh(f"mkdir -p {STATE_HOME}; mount -t tmpfs -o size=64k small {STATE_HOME}")
    return lambda: operator.server.sh(f"cat /dev/zero >{STATE_HOME}/filler 2>/dev/null; echo x >>{STATE_HOME}/filler && exit 1; true")


def test_nothing_is_sent_where_the_former_state_cannot_be_kept(operator, small_disk):
    small_disk()
    for more in ((), ("--confirm", 60)):
        done = operator.lanctl("set", "eth1", f"mtu={MTU}", "--yes", *more)
        assert done.status == NOT_AS_WANTED and "No space left on device" in done.err, done
    assert operator.mtu() == FORMER_MTU
    operator.server.sh(f"rm {STATE_HOME}/filler")
    assert operator.lanctl("set", "eth1", f"mtu={MTU}", "--yes").status == DONE


def test_a_disk_that_is_full_afterwards_keeps_nobody_from_the_way_back(operator, small_disk):
    operator.change("eth1", f"mtu={MTU}", confirm=1)
    small_disk()
    assert is_taken_back(operator)


def test_a_change_can_be_confirmed_on_a_full_disk(operator, small_disk):
    operator.change("eth1", f"mtu={MTU}")
    small_disk()
    assert operator.lanctl("confirm").status == DONE
    assert operator.results() == ["confirmed"] and operator.mtu() == MTU


# Whom the way back believes


def test_a_rollback_leaves_another_server_at_the_address_alone(tmp_path):
    def here(*arguments):
        return lanctl("--server", server.url, *arguments, XDG_STATE_HOME=str(tmp_path))

    with ScriptedServer() as server:
        assert here("set", "eth1", "mtu=1400", "--yes").returncode == DONE
        server.state[ENDPOINT][1]["MACAddress"] = ("string", "06:00:00:00:00:01")
        done = here("rollback", "--yes")
        former = json.loads(here("history", "--json").stdout)[0]["former-state"]
        assert (done.returncode, done.stderr) == (USAGE, "lanctl: change 1 was made on another server, by its MAC addresses; "
                                                  f"`lanctl apply {former}` brings the state before it here\n")
        assert len(server.modifications()) == 1
        assert here("apply", former, "--yes").returncode == DONE
        assert server.state[ENDPOINT][1]["MaxDataSize"][1] == "1500"


def test_another_server_at_the_address_is_left_alone(tmp_path):
    def away(*_):
        raise ConnectionError

    def elsewhere(*arguments):
        return lanctl("--server", server.url, *arguments, XDG_STATE_HOME=str(tmp_path))

    with ScriptedServer() as server, ScriptedServer() as other:
        for endpoint in other.state[ENDPOINT]:
            endpoint["MACAddress"] = ("string", endpoint["MACAddress"][1].replace("02:", "06:", 1))
        assert elsewhere("set", "eth1", "mtu=1400", "--yes", "--confirm", "60", "--revert-via", other.url).returncode == DONE
        server.script = away
        with Terminal("--server", server.url, "rollback", XDG_STATE_HOME=str(tmp_path)) as terminal:
            terminal.wait_for("Taking the change back: 1 tries")
            assert f"another server answers at {other.url}" in json.loads(elsewhere("status", "--json").stdout)[0]["trouble"]
            server.script = None
            assert terminal.end()[1] == DONE
        assert server.state[ENDPOINT][1]["MaxDataSize"][1] == "1500" and other.modifications() == []
