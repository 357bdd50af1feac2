"""Speed and state of interfaces as the product reads them, through the kernel's real drivers of emulated cards."""

import time

import pytest

from machine import Machine

# Card models of the emulator and their drivers. The PHY of the first three follows the cable; that of the next two always
# shows a link at 100 Mbit/s; the last two have none, and their drivers refuse the MII requests.
FOLLOWING = [("e1000", "e1000"), ("e1000e", "e1000e"), ("rtl8139", "8139cp")]
CONSTANT = [("i82557b", "e100"), ("tulip", "tulip")]
WITHOUT_PHY = [("pcnet", "pcnet32"), ("virtio-net-pci", "virtio_net")]
CARDS = FOLLOWING + CONSTANT + WITHOUT_PHY

# Enough for a negotiation and for a driver that looks at its cable every other second.
SETTLING_SECONDS = 8

RUNNING_100 = "speed 0 100000000, enabled 0 1, status 0 1, mtu 0 1500"
RUNNING_10 = "speed 0 10000000, enabled 0 1, status 0 1, mtu 0 1500"
NO_LINK = "speed 0 0, enabled 0 1, status 0 2, mtu 0 1500"
NO_LINK_UNKNOWN_SPEED = "speed 0 10000000, enabled 0 1, status 0 2, mtu 0 1500"


def models(cards):
    return pytest.mark.parametrize("model", [model for model, _ in cards])


@pytest.fixture(scope="module")
def machine():
    started = Machine(CARDS)
    yield started
    started.stop()


class Card:
    def __init__(self, machine, model):
        self.machine, self.model = machine, model
        self.name, self.driver = machine.interface_and_driver(model)

    def ask(self, verb, *words):
        return self.machine.ask(" ".join([verb, self.name, *words]))

    def plug(self, connected):
        self.machine.plug(self.model, connected)

    def settled_report(self, expected):
        """The report as soon as it is the expected one, the last one when it never gets there."""
        deadline = time.monotonic() + SETTLING_SECONDS
        while (report := self.ask("report")) != expected and time.monotonic() < deadline:
            time.sleep(0.1)
        return report


@pytest.fixture
def card(machine, model):
    """A card that is switched on and plugged in; afterwards it is so again."""
    card = Card(machine, model)
    card.ask("up")
    card.plug(True)
    yield card
    card.plug(True)
    card.ask("up")


@pytest.mark.parametrize("model, driver", CARDS)
def test_each_card_is_served_by_the_driver_under_test(machine, model, driver):
    assert Card(machine, model).driver == driver


@models(FOLLOWING + CONSTANT)
def test_a_phy_with_a_link_gives_the_best_speed_that_both_ends_have(card):
    assert card.settled_report(RUNNING_100) == RUNNING_100


@models(WITHOUT_PHY)
def test_a_driver_without_mii_gives_the_default_speed(card):
    assert card.settled_report(RUNNING_10) == RUNNING_10


@models(FOLLOWING)
def test_a_phy_without_a_link_gives_no_speed_and_is_not_operational(card):
    assert card.settled_report(RUNNING_100) == RUNNING_100
    card.plug(False)
    assert card.settled_report(NO_LINK) == NO_LINK


@models(WITHOUT_PHY)
def test_a_driver_without_mii_keeps_the_default_speed_and_the_kernel_tells_that_the_link_is_gone(card):
    assert card.settled_report(RUNNING_10) == RUNNING_10
    card.plug(False)
    assert card.settled_report(NO_LINK_UNKNOWN_SPEED) == NO_LINK_UNKNOWN_SPEED


@models(FOLLOWING)
def test_a_cable_that_is_plugged_in_again_brings_the_speed_back(card):
    card.plug(False)
    assert card.settled_report(NO_LINK) == NO_LINK
    card.plug(True)
    assert card.settled_report(RUNNING_100) == RUNNING_100


@models(CARDS)
def test_an_interface_that_is_switched_off_is_neither_enabled_nor_operational(card):
    card.ask("down")
    speed, enabled, status, mtu = card.ask("report").split(", ")
    assert (enabled, status, mtu) == ("enabled 0 2", "status 0 2", "mtu 0 1500")
    assert speed in ("speed 0 0", "speed 0 10000000", "speed 0 100000000"), "a PHY without power may tell anything"


@models(CARDS)
def test_an_mtu_within_the_drivers_range_is_taken(card):
    assert card.ask("mtu", "1400") == "0"
    assert card.ask("report").endswith(", mtu 0 1400")
    assert card.ask("mtu", "1500") == "0"


@models(CARDS)
def test_an_mtu_beyond_the_drivers_range_is_refused_and_the_old_one_stays(card):
    assert card.ask("mtu", "70000") == "-1"
    assert card.ask("report").endswith(", mtu 0 1500")


def test_an_interface_that_does_not_exist_has_the_default_speed_and_is_down(machine):
    assert machine.ask("report nosuch") == "speed 0 10000000, enabled 0 2, status 0 2, mtu -1 0"


def test_the_loopback_interface_has_no_mii(machine):
    machine.ask("up lo")
    assert machine.ask("report lo") == "speed 0 10000000, enabled 0 1, status 0 1, mtu 0 65536"
