"""The JSON interface of `lanctl web`: every call, and how it bears a crowd."""
import concurrent.futures
import contextlib
import json
import os
import pathlib
import re
import shlex
import signal
import subprocess
import threading
import time

import pytest

from cim import OBJECT_MANAGER
from lanctl import DONE, LANCTL, environment, lanctl
from scripted_server import ENDPOINT, ScriptedServer
from server import free_port
from web import Web

MTU = ("eth1", "mtu", "1400")


@pytest.fixture
def scripted():
    with ScriptedServer() as started:
        yield started


@pytest.fixture
def web(scripted, tmp_path):
    with Web(scripted.url, tmp_path) as started:
        yield started


def mtu_of(scripted):
    return scripted.state[ENDPOINT][1]["MaxDataSize"][1]


# --- reading

def test_the_state_is_the_one_that_show_tells(scripted, web):
    state = web.state()
    shown = json.loads(lanctl("--server", scripted.url, "show", "--json").stdout)
    assert state["state"] == shown
    assert (state["server"], state["reached"], state["read-only"], state["confirm"]) == \
        (f"127.0.0.1:{scripted.port}", True, False, 60)
    assert (state["open"], state["last"], state["trouble"]) == (None, None, "")


def test_the_page_and_its_parts_come_from_here_alone(web):
    page = web.get("/")
    assert (page.status, page.headers["Content-Type"]) == (200, "text/html; charset=utf-8")
    parts = ["page.css", "main.js", "api.js", "element.js", "fields.js", "form.js", "picture.js", "review.js", "words.js",
             "icon.svg"]
    answers = [web.get("/" + part) for part in parts]
    assert [answer.status for answer in answers] == [200] * len(parts)
    everything = [page, *answers]
    assert sum(len(answer.text.encode()) for answer in everything) < 60_000
    addresses = {address for answer in everything for address in re.findall(r"https?://[^\"']*|[\"']//[^\"']*", answer.text)}
    assert addresses == {"http://www.w3.org/2000/svg"}  # a name, not a place


@pytest.mark.parametrize("path", ["/", "/api/state", "/nothing"])
def test_every_answer_forbids_what_the_page_does_not_need(web, path):
    headers = web.get(path).headers
    assert headers["Content-Security-Policy"].startswith("default-src 'none'; script-src 'self';")
    assert "unsafe" not in headers["Content-Security-Policy"]
    assert "frame-ancestors 'none'" in headers["Content-Security-Policy"]
    assert (headers["X-Content-Type-Options"], headers["Referrer-Policy"], headers["Cache-Control"]) == \
        ("nosniff", "no-referrer", "no-store")
    assert not any(name.lower().startswith("access-control-") for name in headers)


def test_the_password_never_reaches_the_browser(scripted, tmp_path):
    password = tmp_path / "password"
    password.write_text("s3cret-of-the-pbx\n")
    with Web(scripted.url, tmp_path, "--user", "admin", "--password-file", str(password)) as web:
        answers = [web.get(path).text for path in ("/", "/api/state", "/api/history")]
        answers.append(web.apply(MTU).text)
        assert mtu_of(scripted) == "1400"
        assert not any("s3cret" in answer for answer in answers)


# --- planning

def test_a_plan_tells_what_lanctl_would(scripted, web):
    told = web.post("/api/plan", {"changes": [{"object": "eth1", "key": "mtu", "value": "1400"}]}).json
    dry = json.loads(lanctl("--server", scripted.url, "set", "eth1", "mtu=1400", "--dry-run", "--json").stdout)
    assert told["invalid"] == []
    assert {name: value for name, value in told.items() if name != "invalid"} == dry["plan"]
    assert scripted.modifications() == []


def test_a_plan_marks_each_value_that_is_none_and_each_that_the_server_refuses(web):
    told = web.post("/api/plan", {"changes": [
        {"object": "eth1", "key": "dhcp", "value": "maybe"}, {"object": "eth1", "key": "colour", "value": "red"},
        {"object": "lan", "key": "domain", "value": "x_y"}, {"object": "eth2", "key": "mtu", "value": "1400"}]}).json
    assert [(one["object"], one["key"]) for one in told["invalid"]] == [("eth1", "dhcp"), ("eth1", "colour")]
    assert all(one["text"] for one in told["invalid"])
    assert [(one["object"], one["key"]) for one in told["refusals"]] == [("lan", "domain")]


# --- changing

def test_a_change_is_made_and_kept(scripted, web):
    answer = web.apply(MTU)
    assert (answer.status, answer.json["changed"], answer.json["outcome"]["done"], answer.json["confirm"]) == (200, True, True, 60)
    assert mtu_of(scripted) == "1400"
    waiting = web.state()["open"]
    assert (waiting["number"], waiting["state"], waiting["plan"]) == (answer.json["number"], "waiting", ["eth1 mtu: 1500 -> 1400"])
    assert 0 < waiting["seconds"] <= 60

    assert web.post("/api/confirm", {"number": answer.json["number"]}).status == 200
    after = web.wait_for(lambda state: state["open"] is None)
    assert (after["last"]["number"], after["last"]["result"]) == (answer.json["number"], "confirmed")
    assert mtu_of(scripted) == "1400"


def test_a_change_is_taken_back_when_asked(scripted, web):
    number = web.apply(MTU).json["number"]
    assert web.post("/api/revert", {"number": number}).status == 200
    assert web.wait_for(lambda state: state["open"] is None)["last"]["result"] == "taken-back"
    assert mtu_of(scripted) == "1500"


def test_a_change_that_nobody_confirms_goes_back_even_without_the_page(scripted, tmp_path):
    with Web(scripted.url, tmp_path, "--confirm", "2") as web:
        assert web.state()["confirm"] == 2
        assert web.apply(MTU).json["confirm"] == 2
    assert mtu_of(scripted) == "1400"  # the page has ended
    deadline = time.monotonic() + 15
    while mtu_of(scripted) != "1500":
        assert time.monotonic() < deadline
        time.sleep(0.1)
    with Web(scripted.url, tmp_path) as web:
        assert web.wait_for(lambda state: state["open"] is None)["last"]["result"] == "taken-back"


def test_a_change_whose_plan_was_overtaken_is_reviewed_again(scripted, web):
    asked = web.reviewed(MTU)
    scripted.state[ENDPOINT][1]["MaxDataSize"] = ("sint32", "1300")
    answer = web.post("/api/apply", asked)
    assert (answer.status, answer.error) == (409, "The server has changed meanwhile.")
    assert answer.json["plan"]["changes"][0]["from"] == "1300"
    assert scripted.modifications() == []
    assert web.post("/api/apply", {**asked, "reviewed": answer.json["plan"]["changes"]}).json["changed"]


def test_what_the_plan_refuses_is_not_sent(scripted, web):
    answer = web.apply(("lan", "domain", "x_y"))
    assert (answer.status, answer.json["changed"]) == (200, False)
    assert answer.json["plan"]["refusals"]
    assert scripted.modifications() == []


def test_a_second_change_waits_for_the_first_ones_end(scripted, web):
    first = web.apply(MTU).json
    assert first["changed"]
    answer = web.apply(("eth2", "mtu", "1400"))
    assert (answer.status, answer.error) == (409, f"Change {first['number']} waits for its confirmation.")
    assert answer.json["error"]["advice"] == "Keep it or take it back first."
    reviewed = web.post("/api/plan", {"rollback": first["number"]}).json["changes"]
    assert web.post("/api/rollback", {"number": first["number"], "reviewed": reviewed}).status == 409
    assert len(scripted.modifications()) == 1
    web.post("/api/confirm", {"number": first["number"]})
    web.wait_for(lambda state: state["open"] is None)
    assert web.apply(("eth2", "mtu", "1400")).json["changed"]


def guard_below(folder):
    """The process that holds the lock of the one history there."""
    for descriptor in pathlib.Path("/proc").glob("[0-9]*/fd/[0-9]*"):
        with contextlib.suppress(OSError):  # somebody else's, or just closed
            if re.fullmatch(rf"{folder}/.*/lock", os.readlink(descriptor)):
                return int(descriptor.parts[2])
    raise AssertionError("nobody guards the change")


def test_a_change_that_was_cut_off_is_rolled_back_before_another_one(scripted, web, tmp_path):
    number = web.apply(MTU).json["number"]
    os.kill(guard_below(tmp_path), signal.SIGKILL)
    web.wait_for(lambda state: state["open"]["state"] == "cut-off")
    answer = web.apply(("eth2", "mtu", "1400"))
    assert (answer.status, answer.error) == (409, f"Change {number} was cut off.")
    reviewed = web.post("/api/plan", {"rollback": number}).json["changes"]
    assert web.post("/api/rollback", {"number": number, "reviewed": reviewed}).json["outcome"]["done"]
    assert mtu_of(scripted) == "1500"
    assert [entry["result"] for entry in web.get("/api/history").json] == ["taken-back", "open"]


def test_another_lanctl_that_was_faster_is_said(tmp_path):
    """It begins its change when the page's lanctl has read the server already."""
    begun = threading.Event()

    def script(server, _request, _connection):
        if server.connections == 2 and not begun.is_set():
            begun.set()
            assert lanctl("--server", server.url, "set", "eth2", "mtu=1300", "--yes", "--confirm", "60",
                          XDG_STATE_HOME=str(tmp_path)).returncode == DONE

    with ScriptedServer() as scripted, Web(scripted.url, tmp_path) as web:
        asked = web.reviewed(MTU)
        scripted.script = script
        answer = web.post("/api/apply", asked)
        assert (answer.status, answer.error) == (409, "Change 1 waits for its confirmation.")
        assert mtu_of(scripted) == "1500"


def test_only_one_change_is_made_at_a_time(tmp_path):
    sent = threading.Event()

    def slow(_server, request, _connection):
        if request.method == "ModifyInstance":
            sent.set()
            time.sleep(1.5)

    with ScriptedServer(slow) as scripted, Web(scripted.url, tmp_path) as web:
        asked, other = web.reviewed(MTU), web.reviewed(("eth2", "mtu", "1400"))
        with concurrent.futures.ThreadPoolExecutor() as pool:
            first = pool.submit(web.post, "/api/apply", asked)
            assert sent.wait(10)
            second = web.post("/api/apply", other)
            assert (second.status, second.error) == (409, "Another change is being made.")
            assert first.result().json["changed"]
        assert len(scripted.modifications()) == 1


# --- the history

def test_the_history_can_be_gone_back_to_after_a_look_at_the_plan(scripted, web):
    first = web.apply(MTU).json["number"]
    web.post("/api/confirm", {"number": first})
    web.wait_for(lambda state: state["open"] is None)
    assert [(entry["number"], entry["result"], entry["plan"]) for entry in web.get("/api/history").json] == \
        [(first, "confirmed", ["eth1 mtu: 1500 -> 1400"])]

    plan = web.post("/api/plan", {"rollback": first}).json
    assert [(one["object"], one["key"], one["from"], one["to"]) for one in plan["changes"]] == [("eth1", "mtu", "1400", "1500")]
    assert mtu_of(scripted) == "1400"
    mac = scripted.state[ENDPOINT][1]["MACAddress"]
    scripted.state[ENDPOINT][1]["MACAddress"] = ("string", "06:00:00:00:00:01")
    other = web.post("/api/rollback", {"number": first, "reviewed": plan["changes"]})
    assert (other.status, other.error) == (409, f"Change {first} was made on another server.")
    scripted.state[ENDPOINT][1]["MACAddress"] = mac
    stale = [{**plan["changes"][0], "from": "1200"}]
    assert web.post("/api/rollback", {"number": first, "reviewed": stale}).status == 409
    answer = web.post("/api/rollback", {"number": first, "reviewed": plan["changes"], "confirm": 30}).json
    assert (answer["changed"], answer["confirm"], mtu_of(scripted)) == (True, 30, "1500")
    web.post("/api/confirm", {"number": answer["number"]})
    assert web.wait_for(lambda state: state["open"] is None)["last"]["result"] == "confirmed"


def test_a_number_that_does_not_wait_is_refused(web):
    for call in ("confirm", "revert"):
        answer = web.post(f"/api/{call}", {"number": 7})
        assert (answer.status, answer.error) == (409, "Change 7 does not wait any more.")
    assert web.post("/api/plan", {"rollback": 7}).status == 404
    assert web.post("/api/rollback", {"number": 7, "reviewed": []}).status == 404


# --- many readers, and a server that is away

def test_the_server_is_looked_at_once_however_many_look_on(scripted, web):
    """Three classes are read at a look, and a look is due every two seconds."""
    began = time.monotonic()
    with concurrent.futures.ThreadPoolExecutor(50) as pool:
        answers = list(pool.map(lambda _: web.get("/api/state").status, range(400)))
    seconds = time.monotonic() - began
    assert answers == [200] * 400
    looks = scripted.methods().count("EnumerateInstances") / 3
    assert 1 <= looks <= seconds / 1.9 + 1
    assert set(scripted.methods()) == {"EnumerateInstances"}
    assert scripted.connections == 1


def test_a_look_is_at_most_five_requests(scripted, web):
    web.state()
    assert len(scripted.requests) <= 5


def test_nobody_looking_leaves_the_server_alone(scripted, web):
    web.state()
    time.sleep(0.5)
    before = len(scripted.requests)
    time.sleep(4.5)
    assert len(scripted.requests) == before


def test_fifty_readers_are_answered_while_a_change_runs(tmp_path):
    changing, end = threading.Event(), threading.Event()

    def slow(_server, request, _connection):
        if request.method == "ModifyInstance":
            changing.set()
            end.wait(20)

    with ScriptedServer(slow) as scripted, Web(scripted.url, tmp_path) as web:
        asked = web.reviewed(MTU)
        with concurrent.futures.ThreadPoolExecutor(51) as pool:
            change = pool.submit(web.post, "/api/apply", asked)
            assert changing.wait(10)
            states = list(pool.map(lambda _: web.state(), range(150)))
            assert not change.done()
            end.set()
            assert change.result().json["changed"]
        assert all(state["reached"] and state["open"]["state"] == "changing" for state in states)
        assert mtu_of(scripted) == "1400"


def test_a_server_that_went_away_is_said_and_comes_back_by_itself(tmp_path):
    gone = threading.Event()

    def script(_server, _request, _connection):
        if gone.is_set():
            raise ConnectionError

    with ScriptedServer(script) as scripted, Web(scripted.url, tmp_path) as web:
        before = web.wait_for(lambda state: state["reached"])
        asked = web.reviewed(MTU)
        gone.set()
        away = web.wait_for(lambda state: not state["reached"])
        assert away["trouble"]
        assert away["state"] == before["state"]  # the last that is known
        assert away["since"] >= before["since"]
        assert web.post("/api/apply", asked).status == 502
        gone.clear()
        assert web.wait_for(lambda state: state["reached"])["trouble"] == ""
        assert mtu_of(scripted) == "1500"


def test_a_server_that_never_answered_has_no_state(tmp_path):
    with Web(f"http://127.0.0.1:{free_port()}", tmp_path) as web:
        state = web.wait_for(lambda state: state["advice"])
        assert (state["reached"], state["state"]) == (False, None)
        assert web.post("/api/plan", {"changes": []}).status == 503
        assert web.post("/api/apply", {"changes": [], "reviewed": []}).status == 503


# --- the command

@pytest.mark.parametrize("options", [
    ["--listen", "127.0.0.1"], ["--listen", "127.0.0.1:0"], ["--listen", "127.0.0.1:65536"], ["--listen", "pbx:80"],
    ["--listen", ":80"], ["--listen", ""], ["--confirm", "0"], ["--confirm", "86401"], ["more"],
])
def test_wrong_usage(options):
    result = lanctl("web", *options)
    assert (result.returncode, result.stdout) == (2, "")
    assert result.stderr


def test_a_port_that_is_taken_is_said(web):
    result = lanctl("web", "--listen", web.host)
    assert result.returncode == 1
    assert f"cannot listen on {web.host}" in result.stderr


def test_it_ends_when_asked(web):
    web.state()
    assert web.stop() == 0


def test_on_all_addresses_it_says_where_a_browser_reaches_it(managed):
    managed.sh("ip -6 address add fd00::5/64 dev eth1 nodad; kv-peer run ip -6 address add fd00::1/64 dev eth1 nodad")
    for everywhere, hosts, customer_lan in (("0.0.0.0", ["192.168.10.1", "10.0.0.5", "172.16.2.1"], "10.0.0.5"),
                                            ("[::]", ["[fd00::5]"], "[fd00::5]")):
        managed.sh(f"rm -f /run/web.log; XDG_STATE_HOME=/run {LANCTL} web --listen {everywhere}:8080 >/run/web.log 2>&1 & "
                   "echo $! >/run/web.pid")
        managed.wait_for("grep -q ^Showing /run/web.log")
        first, *more = managed.read("/run/web.log").splitlines()
        token = re.search("#token=[0-9a-f]{64}", first).group()
        assert first == f"Showing 127.0.0.1:5988 at http://{hosts[0]}:8080/{token} until you press Ctrl-C."
        assert more == [f"Also at http://{host}:8080/{token}" for host in hosts[1:]]
        assert managed.sh(f"kv-peer run curl -s -o /dev/null -w '%{{http_code}}' 'http://{customer_lan}:8080/'") == "200"
        managed.sh("kill $(cat /run/web.pid); while kill -0 $(cat /run/web.pid) 2>/dev/null; do sleep 0.05; done")


def test_without_another_address_it_says_the_loopback(tmp_path):
    alone = ["unshare", "--user", "--map-root-user", "--net", "sh", "-c", 'ip link set lo up; exec "$@"', "sh"]
    with subprocess.Popen([*alone, LANCTL, "web", "--listen", "0.0.0.0:8080"], stdout=subprocess.PIPE, text=True,
                          env=environment(XDG_STATE_HOME=str(tmp_path))) as process:
        assert process.stdout.readline().startswith("Showing 127.0.0.1:5988 at http://127.0.0.1:8080/#token=")
        process.terminate()


ON_THE_SERVER = """
import json, sys, urllib.request
path, *body = sys.argv[1:]
request = urllib.request.Request("http://127.0.0.1:8080/api/" + path, body[0].encode() if body else None,
                                 {"X-Lanctl": "1", "Content-Type": "application/json"})
sys.stdout.write(urllib.request.urlopen(request, timeout=30).read().decode())
"""


def test_beside_the_object_manager(managed):
    """All of it on the disposable server: a change that reaches the kernel, and the object manager stopped in between."""
    def call(path, body=None):
        more = "" if body is None else shlex.quote(json.dumps(body))
        return json.loads(managed.sh(f"python3 -c {shlex.quote(ON_THE_SERVER)} {path} {more}"))

    def wait_for(condition):
        deadline = time.monotonic() + 20
        while not condition(state := call("state")):
            assert time.monotonic() < deadline, state
            time.sleep(0.2)
        return state

    managed.sh(f"XDG_STATE_HOME=/run {LANCTL} web --listen 127.0.0.1:8080 >/run/web.log 2>&1 &")
    managed.wait_for("grep -q ^Showing /run/web.log")
    assert len(wait_for(lambda state: state["reached"])["state"]["endpoints"]) == 3

    asked = [{"object": "eth1", "key": "mtu", "value": "1400"}]
    reviewed = call("plan", {"changes": asked})["changes"]
    done = call("apply", {"changes": asked, "reviewed": reviewed})
    assert done["outcome"]["done"]
    assert managed.read("/sys/class/net/eth1/mtu") == "1400\n"
    call("confirm", {"number": done["number"]})
    wait_for(lambda state: state["open"] is None and state["state"]["endpoints"][1]["mtu"] == 1400)

    managed.sh(f"{OBJECT_MANAGER} stop")
    assert wait_for(lambda state: not state["reached"])["state"]["endpoints"][1]["mtu"] == 1400
    managed.sh(f"{OBJECT_MANAGER} start")
    assert wait_for(lambda state: state["reached"])["trouble"] == ""
