"""Property test of the plan, run on the disposable server: what a plan says of a change is what the server then does.

usage: property.py CHANGES     (PLAN_SEED chooses other changes)

For each generated change the plan is made, then its requests are sent, also those of a refused change. The verdict (taken,
refused, with which text) is compared with the server's answer, the counted impact with the platform's events, and after
a change that was taken another plan shows what is left of it. Status 1 when anything differs.
"""
import collections
import json
import os
import pathlib
import random
import re
import subprocess
import sys
import time

import changes
from object_manager import Manager

BUILD = pathlib.Path(os.environ["KV_BUILD_DIR"])
STATE = pathlib.Path(os.environ["KV_STATE_DIR"])
NO_WAITING = BUILD / "tests/plan/libno_waiting.so"
ROUTER_CARD = STATE / "router-card"
VOICE_MESSAGING_LOG = pathlib.Path("/kv/log/processcontrol.log")

# So many changes meet every refusal, or the generator has lost some.
CHANGES_THAT_MEET_ALL = 500
REFUSALS = {
    "Invalid IP address format", "Invalid subnet format", "The IP/mask pair overlaps with another interface",
    "MTU size entered is out of the range: (68-1500)", "Invalid domain name#LAN_ERROR_domainNameBadFormat#",
    "Invalid IP address format#LAN_ERROR_invalidIP#",
}


class Difference(Exception):
    """The server did something else than the plan said."""


class Events:
    """The platform's event log, as counts of what a plan says."""

    PATTERNS = {
        "interface-restarts": r'runcommand\("ifdown (\S+);ifup \1"\)',
        "stops": r'runcommand\("/kv/bin/processcontrol stop voicemail"\)',
        "starts": r'runcommand\("/kv/bin/processcontrol start voicemail"\)',
        "dhcp-service-notices": r"dhcpIpInfoInformDHCPProviderOfIPConfigChange\(\)",
        "element-management-notices": r"EmsIpAddressChange\(",
        "hosts-table-rewrites": r'runcommand\("/kv/bin/updatehosts ',
        "resolver-file-rewrites": r'KvuSetRegEntryUint16Ex\(5, "DNS", "',
        "default-route-moves": r'runcommand\("route add default gw ',
    }

    def __init__(self):
        self.log = (STATE / "events.log").open(encoding="utf-8")
        self.lines = []
        self.log.read()
        self.totals = collections.Counter()

    def count(self):
        """What has happened since the last call."""
        self.lines = self.log.read().splitlines()
        counts = {name: sum(re.match(pattern, line) is not None for line in self.lines) for name, pattern in self.PATTERNS.items()}
        stops, starts = counts.pop("stops"), counts.pop("starts")
        counts |= {"voice-messaging-restarts": starts, "voice-messaging-stops": stops - starts}
        self.totals.update(counts)
        return counts


class Probe:
    """The plan code of lanctl as a process that is asked line by line."""

    def __init__(self, port):
        self.process = subprocess.Popen([BUILD / "tests/plan/plan_probe", f"http://127.0.0.1:{port}/root/cimv2"],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.last_plan = None

    def ask(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline()
        if not answer:
            raise SystemExit(f"property: plan_probe ended with status {self.process.wait()} at: {line}")
        return json.loads(answer)

    def plan(self, wanted):
        self.last_plan = self.ask("plan " + json.dumps(wanted))
        return self.last_plan

    def send(self):
        return self.ask("send")


def text_of(answer):
    identifier = answer["identifier"]
    return answer["text"] + (f"#{identifier}#" if identifier else "")


def wait_for_lease():
    """A switch to DHCP goes on in the background; it ends with the start of voice messaging."""
    deadline = time.monotonic() + 30
    while VOICE_MESSAGING_LOG.read_text(encoding="utf-8").splitlines()[-1:] != ["voicemail started"]:
        if time.monotonic() > deadline:
            raise Difference("voice messaging has not come back within 30 s")
        time.sleep(0.02)


def compare(name, foretold, seen):
    if foretold != seen:
        raise Difference(f"{name}: the plan says {foretold}, the server does {seen}")


def first_refusals(plan):
    """What the server refuses first of each object."""
    first = {}
    for refusal in plan["refusals"]:
        if refusal["by-server"]:
            first.setdefault(refusal["object"], text_of(refusal))
    return first


def send_all(probe, events, plan):
    """Sends the requests up to the one that is to be refused; returns what the server says then."""
    refused = first_refusals(plan)
    for request in plan["requests"]:
        answer = probe.send()
        counts = events.count()
        foretold = refused.get(request["object"])
        compare(f"verdict on {request['object']}", foretold, answer and text_of(answer))
        if answer:
            compare("restarts of a refused request", 0, counts["interface-restarts"])
            return foretold
        compare(f"impact on {request['object']}", request["costs"], counts)
        if counts["voice-messaging-stops"]:
            wait_for_lease()
    return None


def is_excused(plan, change):
    """Whether what is left of a change was foretold, or is nothing that the plan can know."""
    if not change["sent"] or change["key"] == "gateway":  # the kernel has the last word on a route
        return True
    return change["key"] in ("dns1", "dns2") and any("counts as dns1" in note["text"] for note in plan["notes"])


def look_back(probe, plan, wanted):
    """What a second plan still wants to change after the first one was taken."""
    # An address that was asked for beside DHCP is another matter after the lease.
    if any(request["costs"]["voice-messaging-stops"] for request in plan["requests"]):
        return
    left = [change for change in probe.plan(wanted)["changes"] if not is_excused(plan, change)]
    compare("left of the change", [], left)


def one_change(probe, events, wanted):
    """The kind of outcome, for the statistics."""
    plan = probe.plan(wanted)
    events.count()
    own = {refusal["key"] for refusal in plan["refusals"] if not refusal["by-server"]}
    if "domain" in own:  # would end the object manager
        return "not sent: a domain too long"
    refusal = send_all(probe, events, plan)
    if refusal:
        return f"refused: {refusal}"
    look_back(probe, plan, wanted)
    if "dhcp" in own:
        return "taken, but refused by lanctl: DHCP without a gateway"
    return "taken" if plan["requests"] else "nothing to send"


def set_router_card(chooser):
    """Fitted for a fifth of the time, for some changes on end."""
    if chooser.random() < (0.2 if ROUTER_CARD.exists() else 0.05):
        if ROUTER_CARD.exists():
            ROUTER_CARD.unlink()
        else:
            ROUTER_CARD.touch()


def run(number, seed, probe, events):
    chooser = random.Random(seed)
    outcomes = collections.Counter()
    for n in range(1, number + 1):
        set_router_card(chooser)
        wanted = changes.wanted(chooser)
        try:
            outcomes[one_change(probe, events, wanted)] += 1
        except Difference as difference:
            print(f"property: change {n} of seed {seed}: {json.dumps(wanted, ensure_ascii=False)}")
            print(f"property: {difference}")
            print(f"property: {json.dumps(probe.last_plan)}")
            print("\n".join(events.lines))
            raise SystemExit(1) from difference
    return outcomes


def report(number, seed, outcomes, totals, seconds):
    print(f"property: {number} changes of seed {seed} in {seconds:.0f} s, each as foretold")
    for outcome, count in sorted(outcomes.items()):
        print(f"property: {count:5} {outcome}")
    print("property: on the server " + ", ".join(f"{count} {what.replace('-', ' ')}" for what, count in sorted(totals.items())))
    met = {outcome.removeprefix("refused: ") for outcome in outcomes}
    if number >= CHANGES_THAT_MEET_ALL and not REFUSALS <= met:
        raise SystemExit(f"property: not met: {sorted(REFUSALS - met)}")


def main():
    number = int(sys.argv[1])
    seed = int(os.environ.get("PLAN_SEED", "1"))
    begun = time.monotonic()
    preload = f"{os.environ['KV_OBJECT_MANAGER_PRELOAD']}:{NO_WAITING}"
    with Manager(environment={"LD_PRELOAD": preload}) as manager:
        probe = Probe(manager.port)
        probe.plan({})  # loads the library, which opens the event log
        events = Events()
        outcomes = run(number, seed, probe, events)
    report(number, seed, outcomes, events.totals, time.monotonic() - begun)


if __name__ == "__main__":
    main()
