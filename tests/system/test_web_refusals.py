"""The JSON interface of `lanctl web`: whom it turns away, and what it takes for no request."""
import socket

import pytest

from scripted_server import SETTING, ScriptedServer
from web import Web

MTU = ("eth1", "mtu", "1400")
CHANGING_CALLS = ("apply", "confirm", "revert", "rollback")


@pytest.fixture
def scripted():
    with ScriptedServer() as started:
        yield started


@pytest.fixture
def web(scripted, tmp_path):
    with Web(scripted.url, tmp_path) as started:
        yield started


# --- who may ask

@pytest.mark.parametrize("headers,status", [
    ({"Host": "pbx.example"}, 421), ({"Host": "127.0.0.1:1"}, 421), ({"Host": ""}, 421), ({"Host": None}, 421),
    ({"Origin": "http://pbx.example"}, 403), ({"Origin": "null"}, 403), ({"Origin": "https://127.0.0.1"}, 403),
    ({"Sec-Fetch-Site": "cross-site"}, 403),
])
@pytest.mark.parametrize("call", ["state", "plan"])
def test_other_sites_are_turned_away(scripted, web, headers, status, call):
    method, body = ("GET", None) if call == "state" else ("POST", '{"changes": []}')
    ours = {} if body is None else {"X-Lanctl": "1", "Content-Type": "application/json"}
    assert web.request(method, f"/api/{call}", body, {**ours, **headers}).status == status
    assert scripted.requests == []


def test_the_page_itself_and_every_name_of_this_machine_are_let_in(web):
    for host in (f"127.0.0.1:{web.port}", f"localhost:{web.port}", f"[::1]:{web.port}"):
        assert web.get("/api/state", Host=host, Origin=f"http://{host}").status == 200
    assert web.request("GET", "/api/state", headers={"Sec-Fetch-Site": "same-origin"}).status == 200


@pytest.mark.parametrize("call", ["plan", *CHANGING_CALLS])
def test_a_changing_request_needs_the_header_and_json(scripted, web, call):
    body = {"changes": [], "reviewed": [], "number": 1}
    missing = web.post(f"/api/{call}", body, **{"X-Lanctl": None})
    assert (missing.status, missing.error) == (403, "The header X-Lanctl is missing.")
    assert web.post(f"/api/{call}", body, **{"X-Lanctl": "2"}).status == 403
    assert web.post(f"/api/{call}", body, **{"Content-Type": "text/plain"}).status == 415
    assert web.post(f"/api/{call}", body, **{"Content-Type": None}).status == 415
    assert scripted.modifications() == []


@pytest.mark.parametrize("call", CHANGING_CALLS)
def test_a_page_that_is_read_only_changes_nothing(scripted, tmp_path, call):
    with Web(scripted.url, tmp_path, "--read-only") as web:
        assert web.state()["read-only"] is True
        asked = {**web.reviewed(MTU), "number": 1}
        answer = web.post(f"/api/{call}", asked)
        assert (answer.status, answer.error) == (403, "This page is read-only.")
    assert scripted.modifications() == []


def test_another_address_than_the_loopback_asks_for_the_token(scripted, tmp_path):
    with Web(scripted.url, tmp_path, host="0.0.0.0") as web:
        address, _, token = web.url.partition("#token=")
        assert address.endswith(f":{web.port}/") and "0.0.0.0" not in address
        assert len(token) == 64
        other = "0" if token[-1] != "0" else "1"
        for wrong in (None, "", token, "Bearer ", f"Bearer {token[:-1]}{other}", f"Bearer {token}0"):
            answer = web.get("/api/state", Authorization=wrong)
            assert (answer.status, answer.error) == (401, "The token is missing or wrong.")
            assert web.post("/api/plan", {"changes": []}, Authorization=wrong).status == 401
        assert scripted.requests == []
        right = f"Bearer {token}"
        assert web.get("/api/state", Authorization=right, Host="pbx.example:80").json["reached"] is True
        assert web.get("/api/state", Authorization=right, Origin="http://elsewhere.example").status == 403
        assert web.get("/").status == 200  # holds nothing of the server
        assert token not in web.get("/").text
    with Web(scripted.url, tmp_path, host="0.0.0.0") as again:
        assert again.url.partition("#token=")[2] != token


def test_the_loopback_asks_for_no_token(web):
    assert web.url == f"http://127.0.0.1:{web.port}/"


# --- what is no request

@pytest.mark.parametrize("body", [
    "", "{", "[]", "null", "7", '"text"', "{}", '{"changes": 7}', '{"changes": [7]}', '{"changes": [{}]}',
    '{"changes": [{"object": "eth1", "key": "mtu", "value": 1400}]}', '{"changes": [{"object": ["eth1"], "key": "mtu", "value": ""}]}',
    '{"rollback": "1"}', '{"rollback": 1.5}', '{"rollback": 0}', '{"rollback": -1}', '{"rollback": 99999999999999999999}',
    b'{"changes": [{"object": "lan", "key": "domain", "value": "\xff\xfe"}]}', "[" * 30000,
])
def test_a_body_that_is_no_plan_is_answered_with_400(web, body):
    answer = web.post("/api/plan", body)
    assert answer.status == 400
    assert answer.error
    assert web.state()["reached"]


@pytest.mark.parametrize("confirm", [0, -1, 86401, 1.5, "60", None, 1e300, 2**32 + 60, 2**64])
def test_a_countdown_out_of_bounds_changes_nothing(scripted, web, confirm):
    answer = web.apply(MTU, confirm=confirm)
    assert (answer.status, answer.error) == (400, "confirm is a number from 1 to 86400")
    assert scripted.modifications() == []


@pytest.mark.parametrize("number", [None, "1", 1.5, 0, -1, 2**32 + 1, 1e300, [1]])
@pytest.mark.parametrize("call", ["confirm", "revert", "rollback"])
def test_a_number_that_is_none_is_answered_with_400(web, call, number):
    assert web.post(f"/api/{call}", {"number": number, "reviewed": []}).status == 400


def test_a_change_without_a_review_is_refused(scripted, web):
    assert web.post("/api/apply", {"changes": [{"object": "eth1", "key": "mtu", "value": "1400"}]}).status == 400
    assert web.post("/api/apply", {"changes": [{"object": "eth1", "key": "mtu", "value": "x"}], "reviewed": []}).status == 400
    assert scripted.modifications() == []


def test_a_body_above_the_limit_is_answered_with_413(web):
    most = 65536
    assert web.post("/api/plan", '{"changes": []}'.ljust(most)).status == 200
    assert web.post("/api/plan", '{"changes": []}'.ljust(most + 1)).status == 413
    assert web.post("/api/plan", " " * 5_000_000).status == 413
    assert web.state()["reached"]


def test_a_header_above_the_limit_is_refused(web):
    assert 400 <= web.get("/api/state", Filler="x" * 100_000).status < 500
    assert web.state()["reached"]


@pytest.mark.parametrize("method,path,status", [
    ("GET", "/api/plan", 404), ("GET", "/api/nothing", 404), ("GET", "/nothing", 404), ("GET", "/../etc/passwd", 404),
    ("GET", "//", 404), ("GET", "/api/", 404), ("POST", "/api/nothing", 404), ("POST", "/", 404), ("POST", "/api/state", 405),
    ("POST", "/api/history", 405), ("PUT", "/api/state", 405), ("DELETE", "/api/history", 405), ("OPTIONS", "/api/apply", 405),
])
def test_what_is_not_here_is_said(web, method, path, status):
    headers = {"X-Lanctl": "1", "Content-Type": "application/json"} if method == "POST" else {}
    answer = web.request(method, path, "{}" if method == "POST" else None, headers)
    assert answer.status == status
    assert answer.error


def test_what_is_no_http_harms_nobody(web):
    for rubbish in (b"\0" * 5000, b"GET\r\n\r\n", b"POST /api/plan HTTP/1.1\r\nContent-Length: -5\r\n\r\n",
                    b"POST /api/plan HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n"):
        with socket.create_connection(("127.0.0.1", web.port), timeout=10) as connection:
            connection.sendall(rubbish)
            connection.shutdown(socket.SHUT_WR)
            connection.recv(10)
    assert web.state()["reached"]


def test_values_of_the_server_travel_as_ascii_text(tmp_path):
    hostile = "<script>alert('ü\u2028')</script>"
    with ScriptedServer() as scripted, Web(scripted.url, tmp_path) as web:
        scripted.state[SETTING][0]["DomainName"] = ("string", hostile)
        answer = web.get("/api/state")
        assert answer.headers["Content-Type"] == "application/json"
        assert answer.text.isascii()
        assert answer.json["state"]["lan"]["domain"] == hostile
