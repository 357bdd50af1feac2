"""Soak test, run on the disposable server: rounds of traffic and idle pauses in which the object manager unloads the library.

usage: soak.py SECONDS

Prints what was seen after each round. Status 1 when memory, descriptors or threads of the object manager grow.
"""
import random
import sys
import time

from object_manager import Client, Manager
from product_requests import MARKING, MARKING_KEYS, get
from traffic import run

IDLE_SECONDS = 1  # of the object manager, before it unloads the library
ROUND_SECONDS = 6
WARM_UP_ROUNDS = 2
CLIENTS = 4
LOOKS = 5
SLOW_CHANGE_EVERY = 40

# What the allocator and the stacks of ended threads may keep from one round to the next: a leak of 64 bytes a request exceeds it
# within a round.
TOLERATED_KIB = 192


def traffic_round(port, seed, seconds):
    """Clients come and go within a round, so that connections are also opened and closed."""
    reads = changes = 0
    end = time.monotonic() + seconds
    chooser = random.Random(seed)
    while time.monotonic() < end:
        clients = [Client(port) for _ in range(CLIENTS)]
        for client in clients:
            turn_ends = min(end, time.monotonic() + 0.5)
            done = run(client, chooser, lambda ends=turn_ends: time.monotonic() < ends, SLOW_CHANGE_EVERY)
            reads, changes = reads + done[0], changes + done[1]
        for client in clients:
            client.close()
    return reads, changes


def has_library_in_use(manager):
    """Whether the library is loaded right after a request. A machine that pauses between request and look for as long as
    IDLE_SECONDS shows it unloaded, hence several looks, each at once after a request of its own."""
    client = Client(manager.port)
    try:
        for _ in range(LOOKS):
            client.send(get(MARKING, MARKING_KEYS))
            if manager.has_library():
                return True
    finally:
        client.close()
    return False


def wait_for_unloading(manager):
    deadline = time.monotonic() + 30
    while manager.has_library():
        if time.monotonic() > deadline:
            raise SystemExit("soak: the idle library is not unloaded")
        time.sleep(0.1)


def measure(manager):
    # A connection that was closed here may still be open there for a moment.
    time.sleep(0.2)
    return manager.resident_kib(), manager.descriptors(), manager.threads()


def growth(measured):
    """What is wrong with the measurements of the rounds; nothing when all is well."""
    kept, later = measured[WARM_UP_ROUNDS - 1], measured[WARM_UP_ROUNDS:]
    wrong = []
    if later[-1][0] > kept[0] + TOLERATED_KIB:
        wrong.append(f"resident memory grew from {kept[0]} to {later[-1][0]} KiB; {TOLERATED_KIB} KiB are tolerated")
    for index, what in ((1, "descriptors"), (2, "threads")):
        most = max(each[index] for each in later)
        if most > kept[index]:
            wrong.append(f"{what} grew from {kept[index]} to {most}")
    return wrong


def main(seconds):
    measured, begun = [], time.monotonic()
    requests = [0, 0]
    with Manager("--unload-after", str(IDLE_SECONDS)) as manager:
        while time.monotonic() - begun < seconds or len(measured) <= WARM_UP_ROUNDS:
            done = traffic_round(manager.port, len(measured), ROUND_SECONDS)
            if not has_library_in_use(manager):
                raise SystemExit("soak: the library is not loaded while it is used")
            wait_for_unloading(manager)
            requests = [sum(pair) for pair in zip(requests, done)]
            measured.append(measure(manager))
            print("round %d: %d reads, %d changes; unloaded; %d KiB resident, %d descriptors, %d threads"
                  % (len(measured), *done, *measured[-1]), flush=True)
    warm, last = measured[WARM_UP_ROUNDS - 1], measured[-1]
    print(f"soak: {requests[0]} reads, {requests[1]} changes, the library loaded and unloaded {len(measured)} times")
    print(f"soak: after warm-up and at the end: {warm[0]} and {last[0]} KiB resident (tolerance {TOLERATED_KIB} KiB), "
          f"{warm[1]} and {last[1]} descriptors, {warm[2]} and {last[2]} threads")
    wrong = growth(measured)
    for line in wrong:
        print(f"soak: {line}")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(float(sys.argv[1])))
