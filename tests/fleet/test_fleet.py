"""examples/ansible with Debian's ansible-core: five servers in rolling batches, and what stops them."""
import time

import pytest

from fleet import INVENTORY, NAMES, Fleet

FRESH = (1500, "192.168.10.1/24")


def wanted(names):
    """What host_vars say of these servers."""
    return [(1400, f"192.168.1{name[-1]}.1/24") for name in names]


@pytest.fixture
def fleet(tmp_path):
    with Fleet(tmp_path) as five:
        yield five
    assert five.processes() == []


def test_the_first_run_changes_all_and_the_second_none(fleet):
    checked = fleet.play("--check")
    assert (checked.status, checked.changed, checked.failed) == (0, NAMES, []), checked.shown
    assert checked.shown.count("eth1 mtu: 1500 -> 1400") == 5
    assert fleet.networks() == [FRESH] * 5

    first = fleet.play()
    assert (first.status, first.changed, first.failed) == (0, NAMES, []), first.shown
    assert fleet.networks() == wanted(NAMES)
    assert fleet.waiting() == []

    for again in (fleet.play(), fleet.play("--check")):
        assert (again.status, again.changed, again.failed, again.untouched) == (0, [], [], []), again.shown
    assert fleet.networks() == wanted(NAMES)


def test_a_value_that_is_refused_on_the_third_stops_the_rest(fleet):
    fleet.edit("host_vars/pbx3.yml", ("mtu: 1400", "mtu: 14000"))
    done = fleet.play("-e", "batch=1")
    assert (done.status, done.changed, done.failed) == (2, ["pbx1", "pbx2"], ["pbx3"]), done.shown
    assert done.untouched == ["pbx4", "pbx5"]
    assert "MTU size entered is out of the range: (68-1500)" in done.shown
    assert fleet.networks() == wanted(["pbx1", "pbx2"]) + [FRESH] * 3
    assert fleet.waiting() == []


def test_a_server_that_dies_in_the_middle_is_reported_and_the_others_are_unharmed(fleet):
    # The command on the server ends, and the server with it, as soon as the first of its values has been changed.
    fleet.servers["pbx3"].sh("(until grep -q 1400 /sys/class/net/eth1/mtu; do sleep 0.01; done; kill $PPID) >/dev/null 2>&1 &")
    done = fleet.play("-e", "batch=2")
    assert (done.status, done.failed, done.untouched) == (2, ["pbx3"], ["pbx5"]), done.shown
    assert done.changed == ["pbx1", "pbx2", "pbx3", "pbx4"]
    assert fleet.networks(["pbx1", "pbx2", "pbx4", "pbx5"]) == wanted(["pbx1", "pbx2", "pbx4"]) + [FRESH]
    assert fleet.waiting() == ["pbx3"]


def test_a_change_behind_which_the_server_is_not_reached_is_taken_back(fleet):
    fleet.edit(INVENTORY, (fleet.urls["pbx2"], f"{fleet.urls['pbx2']}, lanctl_check_server: 'http://127.0.0.1:1'"))
    done = fleet.play("--limit", "pbx2", "-e", "lanctl_confirm_seconds=15")
    assert (done.status, done.failed) == (2, ["pbx2"]), done.shown
    assert "127.0.0.1:1 is not reached" in done.shown
    deadline = time.monotonic() + 60
    while fleet.waiting():
        assert time.monotonic() < deadline
        time.sleep(0.2)
    assert fleet.network("pbx2") == FRESH
    assert fleet.lanctl("pbx2", "confirm").returncode == 4


def test_a_change_that_another_one_waits_before_is_refused_with_the_way_out(fleet):
    fleet.lanctl("pbx1", "set", "eth2", "mtu=1300", "--yes", "--json", "--confirm", "600")
    done = fleet.play()
    assert (done.status, done.changed, done.failed, done.untouched) == (2, [], ["pbx1"], NAMES[1:]), done.shown
    assert "another change of this server is under way" in " ".join(done.shown.split())
    assert fleet.lanctl("pbx1", "confirm").returncode == 0
