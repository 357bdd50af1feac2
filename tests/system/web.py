"""`lanctl web` as a test starts it, and the page's JSON interface as a program of its own speaks to it."""
import contextlib
import http.client
import json
import subprocess
import time
from typing import NamedTuple

from lanctl import LANCTL, environment
from server import free_port


class Answer(NamedTuple):
    status: int
    headers: dict
    text: str

    @property
    def json(self):
        return json.loads(self.text)

    @property
    def error(self):
        return self.json["error"]["text"]


class Web:
    """A running `lanctl web` for the server of that URL, or for the one that its environment names. Its history lies in the folder `state_home`."""

    def __init__(self, server_url, state_home, *options, host="127.0.0.1", **more):
        self.port = free_port()
        self.host = f"127.0.0.1:{self.port}"
        self.environment = environment(XDG_STATE_HOME=str(state_home), **more)
        self.server_url = server_url
        server = ["--server", server_url] if server_url else []
        self.process = subprocess.Popen([LANCTL, "web", *server, "--listen", f"{host}:{self.port}", *options],
                                        stdout=subprocess.PIPE, text=True, env=self.environment)
        self.said = self.process.stdout.readline()
        self.url = next((word for word in self.said.split() if word.startswith("http://")), "")

    def __enter__(self):
        assert self.url, f"lanctl web did not start: status {self.process.wait(timeout=10)}"
        return self

    def __exit__(self, *_):
        self.stop()

    def stop(self):
        """Ends it and returns its exit status."""
        self.process.terminate()
        status = self.process.wait(timeout=20)
        self.process.stdout.close()
        return status

    def request(self, method, path, body=None, headers=None, seconds=30):
        """Exactly that request; headers that are None are left out."""
        connection = http.client.HTTPConnection("127.0.0.1", self.port, timeout=seconds)
        with contextlib.closing(connection):
            connection.putrequest(method, path, skip_host=True, skip_accept_encoding=True)
            data = body.encode() if isinstance(body, str) else body
            everything = {"Host": self.host, **({"Content-Length": str(len(data))} if data is not None else {}), **(headers or {})}
            for name, value in everything.items():
                if value is not None:
                    connection.putheader(name, value)
            connection.endheaders(data)
            answer = connection.getresponse()
            return Answer(answer.status, dict(answer.getheaders()), answer.read().decode())

    def get(self, path, **headers):
        return self.request("GET", path, headers=headers)

    def post(self, path, body, seconds=30, **headers):
        text = body if isinstance(body, (str, bytes)) else json.dumps(body)
        return self.request("POST", path, text, {"X-Lanctl": "1", "Content-Type": "application/json", **headers}, seconds)

    def state(self):
        return self.get("/api/state").json

    def reviewed(self, *changes):
        """What /api/apply takes for changes of the form (object, key, value), reviewed just now."""
        asked = [{"object": name, "key": key, "value": value} for name, key, value in changes]
        return {"changes": asked, "reviewed": self.post("/api/plan", {"changes": asked}).json["changes"]}

    def apply(self, *changes, **more):
        return self.post("/api/apply", {**self.reviewed(*changes), **more})

    def wait_for(self, condition, seconds=15):
        """The first state for which the condition holds."""
        deadline = time.monotonic() + seconds
        while not condition(state := self.state()):
            assert time.monotonic() < deadline, f"not within {seconds} s: {state}"
            time.sleep(0.1)
        return state
