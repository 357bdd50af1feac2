"""Property test of the way back, run on the disposable server: a rollback restores every value that a client can write.

usage: rollback.py SEQUENCES     (ROLLBACK_SEED chooses other ones)

Each sequence makes one to ten changes with lanctl and rolls back to the state before the first of them. The server's properties
before and after are compared as the server tells them, one by one. What docs/lanctl.md lists as lost is counted, anything else
ends the test with status 1.
"""
import collections
import ipaddress
import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time
import xml.etree.ElementTree as ElementTree

from object_manager import CHECKOUT, Client, Manager
from product_requests import ENDPOINT, MARKING, SETTING, all_instances

sys.path.append(str(CHECKOUT / "tests/plan"))
import changes  # noqa: E402

BUILD = pathlib.Path(os.environ["KV_BUILD_DIR"])
NO_WAITING = BUILD / "tests/plan/libno_waiting.so"
ROUTER_CARD = pathlib.Path(os.environ["KV_STATE_DIR"], "router-card")
VOICE_MESSAGING_LOG = pathlib.Path("/kv/log/processcontrol.log")

MOST_CHANGES = 10
MOST_ROLLBACKS = 3
FLOWS = ["QoSMarkVOIPSignaling", "TOSByteSignaling", "QoSMarkVoiceMedia", "TOSByteMedia", "QoSMarkVideoMedia", "TOSByteVideoMedia",
         "QoSFaxMedia", "TOSByteFax"]
WRITABLE = {
    ENDPOINT: ["MaxDataSize", "IPAddress", "SubnetMask", "DefaultGateway", "isDhcpEnabled"],
    SETTING: ["DomainName", "PrimaryDNS", "SecondaryDNS", "isIcmpFilterEnabled", "isArpFilterEnabled", "isBroadcastFilterEnabled",
              "isIPAddressConflictEnabled"],
    MARKING: ["KLonKLEnabled", *FLOWS],
}


class Server:
    """The server as a client sees it."""

    def __init__(self, port):
        self.port = port

    def properties(self):
        """All values that a client can write: (object, property) -> text."""
        found = {}
        client = Client(self.port)  # a connection that is idle for long is closed
        for class_name, names in WRITABLE.items():
            answer = ElementTree.fromstring(client.send(all_instances(class_name)))
            for instance in answer.iter("INSTANCE"):
                values = {one.get("NAME"): one.findtext("VALUE") for one in instance.iter("PROPERTY")}
                name = values["Name"] if class_name == ENDPOINT else class_name
                found |= {(name, key): values.get(key) for key in names}
        client.close()
        return found


class Lanctl:
    def __init__(self, port, home):
        self.environment = {**os.environ, "LANCTL_SERVER": f"http://127.0.0.1:{port}", "XDG_STATE_HOME": home,
                            "XDG_CONFIG_HOME": "/nonexistent"}

    def run(self, *arguments, text=""):
        """What it told as JSON; None when it refused the change before it was sent."""
        done = subprocess.run([BUILD / "client/lanctl", *arguments, "--yes", "--json"], input=text, env=self.environment, text=True,
                              capture_output=True, check=False)
        if not done.stdout:
            return None
        told = json.loads(done.stdout)
        told["complaints"] = done.stderr
        wait_for_lease(told)
        return told


def wait_for_lease(told):
    """A switch to DHCP goes on in the server's background; it ends with the start of voice messaging."""
    if not told["changed"] or not told["plan"]["costs"]["voice-messaging-stops"]:
        return
    deadline = time.monotonic() + 30
    while VOICE_MESSAGING_LOG.read_text(encoding="utf-8").splitlines()[-1:] != ["voicemail started"]:
        if time.monotonic() > deadline:
            raise SystemExit("rollback: voice messaging has not come back within 30 s")
        time.sleep(0.02)


def make_changes(chooser, lanctl, number):
    """That many changes which the server saw; returns what lanctl told of them."""
    made = []
    while len(made) < number:
        wanted = changes.wanted(chooser)
        told = lanctl.run("apply", "-", text=json.dumps(wanted))
        if told and told["changed"]:
            made.append(told)
    return made


def network(state, name):
    return ipaddress.ip_interface(f'{state[name, "IPAddress"]}/{state[name, "SubnetMask"]}').network


def has_lost_its_network(name, before, after):
    """Whether another interface is in its former network by now."""
    return any(network(before, name).overlaps(network(after, other)) for other in ("eth0", "eth1", "eth2") if other != name)


def reason(key, before, after):
    """Why that value is lost, or None: the rows of the table in docs/lanctl.md."""
    name, what = key
    if name.startswith("eth") and ROUTER_CARD.exists() and not before[name, "DefaultGateway"]:
        return "of an interface without a gateway while a router card is fitted"
    if what == "isDhcpEnabled" and before[key] == "true" and not after[name, "DefaultGateway"]:
        return "DHCP of an interface that has no gateway by now"
    if name.startswith("eth") and what not in ("isDhcpEnabled", "MaxDataSize") and before[name, "isDhcpEnabled"] == "true":
        return "of an interface that has DHCP"
    if what in ("IPAddress", "SubnetMask") and has_lost_its_network(name, before, after):
        return "of interfaces that have taken each other's networks"
    return None


def roll_back(lanctl, number):
    """As an operator does: again when lanctl says that something is left. Returns what it told last."""
    for _ in range(MOST_ROLLBACKS):
        told = lanctl.run("rollback", str(number))
        if not told["changed"] or told["outcome"]["done"]:
            break
    return told


def one_sequence(chooser, server, lanctl, lost):
    if chooser.random() < 0.3:
        make_changes(chooser, lanctl, 1)  # another state to come back to
    before = server.properties()
    made = make_changes(chooser, lanctl, chooser.randint(1, MOST_CHANGES))
    told = roll_back(lanctl, made[0]["number"])
    after = server.properties()
    unexplained = {}
    for key, value in before.items():
        if value == after[key]:
            continue
        why = reason(key, before, after)
        if why:
            lost[why] += 1
        else:
            unexplained["/".join(key)] = (value, after[key])
    if unexplained:
        return {"before": {"/".join(k): v for k, v in before.items()}, "unexplained": unexplained,
                "changes": [[f'{c["object"]} {c["key"]}: {c["from"]} -> {c["to"]}' for c in one["plan"]["changes"]] for one in made],
                "card": ROUTER_CARD.exists(), "left": told["plan"]["changes"], "outcome": told.get("outcome"), "complaints": told["complaints"]}
    return None


def main():
    number = int(sys.argv[1])
    seed = int(os.environ.get("ROLLBACK_SEED", "1"))
    chooser = random.Random(seed)
    lost = collections.Counter()
    failed = 0
    preload = f"{os.environ['KV_OBJECT_MANAGER_PRELOAD']}:{NO_WAITING}"
    begun = time.monotonic()
    with Manager(environment={"LD_PRELOAD": preload}) as manager, tempfile.TemporaryDirectory() as home:
        server, lanctl = Server(manager.port), Lanctl(manager.port, home)
        for n in range(1, number + 1):
            if chooser.random() < 0.1:
                ROUTER_CARD.unlink() if ROUTER_CARD.exists() else ROUTER_CARD.touch()
            trouble = one_sequence(chooser, server, lanctl, lost)
            if trouble:
                failed += 1
                print(f"rollback: sequence {n} of seed {seed}: {json.dumps(trouble)}", flush=True)
    print(f"rollback: {number} sequences of seed {seed} in {time.monotonic() - begun:.0f} s, {failed} with unexplained differences")
    for why, count in sorted(lost.items()):
        print(f"rollback: {count:5} values lost: {why}")
    raise SystemExit(1 if failed else 0)


if __name__ == "__main__":
    main()
