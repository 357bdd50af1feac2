"""A tour of at most a hundred lines: an operator looks, changes, is refused and takes back, with lanctl.

What the server then looks like comes from the kernel (ip) and from the platform's event log, and is compared with what lanctl
had announced.
"""
import re
import sys

from console import Console, read
from lan_endpoint import address

INTRODUCTION = """
    This is a server made of namespaces, with its own kernel interfaces and files. An object manager serves it with the
    provider libLANProvider.so. lanctl is the operator's client; it speaks CIM-XML to the object manager.
"""
MORE = """
  ./run tour        all that a management client can do, step by step, with wbemcli
  ./run shell       a shell on such a server: lanctl, wbemcli, ip
  ./run serve       such a server behind http://127.0.0.1:5988, for clients of this machine
  docs/lanctl.md    the client's commands
"""

RESTART = "ifdown eth1;ifup eth1"
# What the plan calls it, and the line of the event log that it comes out as.
COSTS = (("interface restart", RESTART), ("voice messaging restart", "processcontrol start voicemail"),
         ("notice to the DHCP service", "dhcpIpInfoInformDHCPProvider"),
         ("notice to the element management", "EmsIpAddressChange"), ("rewrite of the hosts table", "updatehosts"))


def chapter(title):
    print(f"\n== {title}", flush=True)


def mtu():
    return read("/sys/class/net/eth1/mtu").strip()


def announced(plan, what):
    """How many of these the plan's costs name."""
    costs = re.search(r"^Costs: (.*)$", plan, re.MULTILINE)
    count = re.search(rf"(\d+) {what}", costs.group(1)) if costs else None
    return int(count.group(1)) if count else 0


def count(events, part):
    return sum(part in line for line in events)


def looking(console):
    chapter("Looking")
    shown = console.shell("lanctl show eth1")
    console.expect("address and MTU that the kernel has",
                   (address() in shown.split(), mtu() in shown.split()), (True, True))
    console.skip_events()


def changing(console):
    chapter("A change: what it does and what it costs is said first")
    plan = console.shell("lanctl set --yes eth1 address=10.0.0.6/24 mtu=1400")
    console.expect("done, as read back from the server", (console.status, plan.endswith("\nDone.\n")), (0, True))
    events = console.events()
    console.shell("ip -4 address show dev eth1")
    console.expect("address and MTU in the kernel", (address(), mtu()), ("10.0.0.6/24", "1400"))
    console.expect("restarts and notices as announced: one of each",
                   ([announced(plan, cost) for cost, _ in COSTS], [count(events, part) for _, part in COSTS]),
                   ([1] * len(COSTS), [1] * len(COSTS)))


def refusing(console):
    chapter("A change that cannot be: it is refused before anything is sent")
    console.shell("lanctl set --yes eth1 address=172.16.2.9")
    events = console.events()
    console.expect("refused, and nothing happened", (console.status, events), (2, []))


def taking_back(console):
    chapter("The way back")
    console.shell("lanctl rollback --yes")
    console.expect("done, with one more restart", (console.status, count(console.new_events(), RESTART)), (0, 1))
    console.expect("address and MTU in the kernel as before", (address(), mtu()), ("10.0.0.5/24", "1500"))


def main():
    console = Console()
    console.say(INTRODUCTION)
    for part in (looking, changing, refusing, taking_back):
        part(console)
    chapter("More")
    print(MORE)
    return console.verdict()


if __name__ == "__main__":
    sys.exit(main())
