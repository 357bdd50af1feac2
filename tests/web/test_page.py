"""Reading and changing in the browser."""
import threading
import time

import pytest
from selenium.webdriver.common.keys import Keys

from browser import Page, chromium
from scripted_server import ENDPOINT, SETTING, ScriptedServer
from web import Web


def mtu_of(scripted):
    return scripted.state[ENDPOINT][1]["MaxDataSize"][1]


def test_the_picture_and_the_values_tell_the_servers_state(page, web):
    shown = page.picture()
    assert shown == [
        web.state()["server"],
        "Server", "Router card none", "Domain site.example",
        "Packet filter", "ICMP filter off", "ARP filter off", "Broadcast filter off", "Conflict watch off",
        "Voice marking", "Signalling 0xA0 CS5", "Voice 0xB8 EF", "Video 0x88 AF41", "Fax 0xB8 EF",
        "eth0  Internal LAN", "link, 100 Mbit/s", "192.168.10.1/24", "fixed address", "MTU 1500 bytes", "02:00:00:00:00:00",
        "eth1  Customer LAN", "link, 100 Mbit/s", "10.0.0.5/24", "fixed address", "MTU 1500 bytes", "02:00:00:00:00:01",
        "default gateway", "10.0.0.1", "DNS servers", "10.0.0.2", "10.0.0.3",
        "eth2  OAM LAN", "link, 100 Mbit/s", "172.16.2.1/24", "fixed address", "MTU 1500 bytes", "02:00:00:00:00:02",
    ]
    assert [page.value("eth1", key) for key in ("address", "mask", "gateway", "mtu", "dhcp")] == \
        ["10.0.0.5", "255.255.255.0", "10.0.0.1", "1500", "off"]
    assert [page.value("marking", key) for key in ("signalling", "voice", "video", "fax")] == ["CS5", "EF", "AF41", "EF"]
    assert page.text("#reach-text") == "Reached"


def test_a_change_of_the_server_appears_and_flashes_once(page, scripted):
    page.js("window.flashes = 0; addEventListener('animationstart', () => window.flashes++)")
    page.type("eth2", "mtu", "1300")  # what is being typed stays
    scripted.state[ENDPOINT][1]["MaxDataSize"] = ("sint32", "1400")
    page.wait(lambda: page.value("eth1", "mtu") == "1400")
    assert "MTU 1400 bytes" in page.picture()
    assert page.value("eth2", "mtu") == "1300"
    page.wait(lambda: page.js("return window.flashes") == 2)  # in the picture and at the value
    time.sleep(4.5)
    assert page.js("return window.flashes") == 2


def test_one_refresh_is_one_request(page):
    page.js("performance.clearResourceTimings()")
    time.sleep(6.5)
    asked = page.js("return performance.getEntriesByType('resource').map((entry) => new URL(entry.name).pathname)")
    assert set(asked) == {"/api/state"}
    assert 2 <= len(asked) <= 4


def test_a_refused_value_is_told_at_its_field(page, scripted):
    page.type("lan", "domain", "x_y")
    page.wait(lambda: page.message("lan", "domain"))
    assert page.field("lan", "domain").get_attribute("aria-invalid") == "true"
    assert page.text("#bar-text") == "1 value edited"
    page.click("#review")
    page.wait(lambda: page.shows("#plan"))
    assert "Refused" in page.text("#plan-body")
    assert not page.one("#plan-apply").is_enabled()
    page.click("#plan-cancel")
    page.type("lan", "domain", "other.example")
    page.wait(lambda: not page.message("lan", "domain"))
    assert page.field("lan", "domain").get_attribute("aria-invalid") is None
    page.click("#discard")
    assert page.value("lan", "domain") == "site.example"
    assert not page.shows("#bar")
    assert scripted.modifications() == []


def test_a_value_that_is_none_is_told_at_its_field(page):
    page.type("eth1", "mtu", "many")
    page.wait(lambda: page.message("eth1", "mtu"))


def test_a_change_is_reviewed_applied_and_kept(page, scripted):
    page.type("eth1", "address", "10.0.0.6")
    page.choose("lan", "icmp-filter", "on")
    page.click("#review")
    page.wait(lambda: page.shows("#plan"))
    plan = page.text("#plan-body")
    for part in ("eth1 address", "10.0.0.5", "10.0.0.6", "lan icmp-filter", "1 interface restart",
                 "Changing IP address will restart Voice Messaging."):
        assert part in plan
    assert page.text("#plan-apply") == "Apply and confirm within 60 s"
    assert scripted.modifications() == []
    page.screenshot("review")
    page.click("#plan-apply")
    page.wait(lambda: page.shows("#waiting"))
    page.wait(lambda: page.text("#waiting-clock").endswith(" s"))
    page.js("scrollTo(0, 1e6)")
    assert page.js("return document.getElementById('keep').getBoundingClientRect().top") >= 0  # stays in sight
    page.js("scrollTo(0, 0)")
    page.screenshot("countdown")
    page.click("#keep")
    page.wait(lambda: "The change is kept." in page.text("#told"))
    assert not page.shows("#waiting")
    assert page.value("eth1", "address") == "10.0.0.6"
    assert scripted.state[ENDPOINT][1]["IPAddress"][1] == "10.0.0.6"
    assert scripted.state[SETTING][0]["isIcmpFilterEnabled"][1].lower() == "true"


def test_a_change_is_taken_back_at_once_when_asked(page, scripted):
    page.apply("eth1", "mtu", "1400")
    assert mtu_of(scripted) == "1400"
    page.click("#take-back")
    page.wait(lambda: "taken back" in page.text("#told"))
    assert mtu_of(scripted) == "1500"


def test_a_change_that_nobody_confirms_is_taken_back(driver, scripted, tmp_path):
    with Web(scripted.url, tmp_path, "--confirm", "4") as web:
        page = Page(driver, web.url)
        page.apply("eth1", "mtu", "1400")
        seen = {page.wait(lambda: page.text("#waiting-clock")) for _ in range(3) if not time.sleep(0.7)}
        assert len(seen) > 1  # it counts
        page.wait(lambda: page.text("#told") == "The change has been taken back.")
        assert mtu_of(scripted) == "1500"
        page.wait(lambda: page.value("eth1", "mtu") == "1500")
        driver.get("about:blank")


def test_the_countdown_goes_on_when_the_browser_is_closed(scripted, tmp_path):
    with Web(scripted.url, tmp_path, "--confirm", "4") as web:
        with chromium() as other:
            page = Page(other, web.url)
            page.apply("eth1", "mtu", "1400")
            assert page.text("#waiting-title") == "Change 1: eth1 mtu: 1500 -> 1400"
        assert web.wait_for(lambda state: state["open"] is None)["last"]["result"] == "taken-back"
    assert mtu_of(scripted) == "1500"


def test_a_page_that_comes_later_shows_the_countdown_too(page, web, scripted):
    page.apply("eth1", "mtu", "1400")
    page.driver.refresh()
    page.wait(lambda: page.shows("#waiting"))
    page.click("#keep")
    page.wait(lambda: not page.shows("#waiting"))
    assert web.state()["last"]["result"] == "confirmed"
    assert mtu_of(scripted) == "1400"


def test_the_history_is_gone_back_to_after_a_look_at_the_plan(page, scripted):
    page.apply("eth1", "mtu", "1400")
    page.click("#keep")
    page.wait(lambda: not page.shows("#waiting"))
    page.click("#open-history")
    page.wait(lambda: page.shows("#history"))
    assert "eth1 mtu: 1500 -> 1400" in page.text("#history-body")
    page.screenshot("history")
    page.click("#history-body button")
    page.wait(lambda: page.shows("#plan"))
    assert "eth1 mtu" in page.text("#plan-body")
    assert mtu_of(scripted) == "1400"
    page.click("#plan-apply")
    page.wait(lambda: page.shows("#waiting"))
    assert mtu_of(scripted) == "1500"
    page.click("#keep")
    page.wait(lambda: not page.shows("#waiting"))


def test_a_server_that_changed_meanwhile_is_reviewed_again(page, scripted):
    page.type("eth1", "mtu", "1400")
    page.click("#review")
    page.wait(lambda: page.shows("#plan"))
    scripted.state[ENDPOINT][1]["MaxDataSize"] = ("sint32", "1300")
    page.click("#plan-apply")
    page.wait(lambda: "changed meanwhile" in page.text("#plan-told"))
    assert "1300" in page.text("#plan-body")
    assert scripted.modifications() == []
    page.click("#plan-apply")
    page.wait(lambda: page.shows("#waiting"))
    assert mtu_of(scripted) == "1400"


def test_losing_the_server(driver, tmp_path):
    gone = threading.Event()

    def script(_server, _request, _connection):
        if gone.is_set():
            raise ConnectionError

    with ScriptedServer(script) as scripted, Web(scripted.url, tmp_path) as web:
        page = Page(driver, web.url)
        page.wait(lambda: page.text("#reach-text") == "Reached")
        gone.set()
        page.wait(lambda: page.all("body.lost"))
        assert page.text("#reach-text").startswith("Not reached since ")
        assert "10.0.0.5/24" in page.picture()  # the last that is known
        page.screenshot("lost")
        assert page.violations() == []
        gone.clear()
        page.wait(lambda: not page.all("body.lost"))
        web.stop()
        page.wait(lambda: "lanctl web does not answer." in page.text("#reach-text"))
        driver.get("about:blank")


def test_a_page_that_is_read_only(driver, scripted, tmp_path):
    with Web(scripted.url, tmp_path) as web:
        number = web.apply(("eth1", "mtu", "1400")).json["number"]
        web.post("/api/confirm", {"number": number})
        web.wait_for(lambda state: state["open"] is None)
    with Web(scripted.url, tmp_path, "--read-only") as web:
        page = Page(driver, web.url)
        assert page.all("#values input, #values select")
        assert not any(field.is_enabled() for field in page.all("#values input, #values select"))
        page.click("#open-history")
        page.wait(lambda: page.shows("#history"))
        assert "1500 -> 1400" in page.text("#history-body")
        assert not page.all("#history-body button")
        page.screenshot("read-only")
        assert page.violations() == []
        driver.get("about:blank")


HOSTILE = "<script>window.harmed=1</script><img src=x onerror=window.harmed=1>"


@pytest.mark.parametrize("width", [360, 1400])
def test_hostile_values_are_text(page, web, scripted, width):
    page.look(width)
    scripted.state[SETTING][0]["DomainName"] = ("string", HOSTILE)
    scripted.state[ENDPOINT][1]["Description"] = ("string", HOSTILE)
    scripted.state[ENDPOINT][2]["DefaultGateway"] = ("string", "javascript:window.harmed=1" + "9" * 200)
    page.wait(lambda: page.value("lan", "domain") == HOSTILE)
    assert f"Domain {HOSTILE}" in page.picture()
    assert f"eth1 {HOSTILE}" in page.text("#values")
    page.type("lan", "domain", "other.example")
    page.click("#review")
    page.wait(lambda: page.shows("#plan"))
    assert HOSTILE in page.text("#plan-body")
    page.screenshot(f"hostile-{width}")
    assert page.js("return window.harmed") is None
    assert len(page.all("script")) == 1
    assert page.all("img") == []
    assert page.js("return document.documentElement.scrollWidth <= innerWidth")
    assert page.violations() == []


def test_the_keyboard_alone_suffices(page, scripted):
    page.press(Keys.TAB)
    assert page.js("return document.activeElement.textContent") == "Skip to the values"
    page.press(Keys.ENTER)
    page.tab_to("[id='field-eth1-mtu']")
    page.driver.switch_to.active_element.send_keys(Keys.CONTROL, "a")
    page.press("1400")
    page.tab_to("#review")
    page.press(Keys.ENTER)
    page.wait(lambda: page.shows("#plan"))
    page.press(Keys.ESCAPE)
    page.wait(lambda: not page.shows("#plan"))
    assert page.js("return document.activeElement.id") == "review"  # where one was
    page.press(Keys.ENTER)
    page.wait(lambda: page.shows("#plan"))
    page.tab_to("#plan-apply")
    page.press(Keys.ENTER)
    page.wait(lambda: page.shows("#keep"))
    page.wait(lambda: page.js("return document.activeElement.id") == "waiting")
    page.press(Keys.TAB)
    assert page.js("return document.activeElement.id") == "keep"
    page.press(Keys.ENTER)
    page.wait(lambda: "The change is kept." in page.text("#told"))
    assert mtu_of(scripted) == "1400"
