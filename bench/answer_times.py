"""How fast the object manager answers, and what it costs to keep it running."""
import multiprocessing
import os
import pathlib
import statistics
import time

from object_manager import Client, Manager
from product_requests import ENDPOINT, MARKING, MARKING_KEYS, SETTING, SETTING_KEYS, all_instances, endpoint_keys, get, mtu_change

WARM_UP = 50

# Each operation is a list of requests that are sent by turns. Nothing here runs a command or waits for a service.
OPERATIONS = {
    "GetInstance ORX_LANEndpoint eth1": [get(ENDPOINT, endpoint_keys("eth1"))],
    "GetInstance ORX_LANServiceSetting": [get(SETTING, SETTING_KEYS)],
    "GetInstance ORX_ALGService": [get(MARKING, MARKING_KEYS)],
    "EnumerateInstances ORX_LANEndpoint": [all_instances(ENDPOINT)],
    "ModifyInstance ORX_LANEndpoint, MaxDataSize": [mtu_change("eth2", 1400), mtu_change("eth2", 1500)],
}


def one_client(port, requests, count, start):
    """The seconds that each of `count` requests took, one after the other on one connection."""
    client = Client(port)
    for number in range(WARM_UP):
        client.send(requests[number % len(requests)])
    start.wait()
    begun = time.perf_counter()
    taken = []
    for number in range(count):
        before = time.perf_counter()
        client.send(requests[number % len(requests)])
        taken.append(time.perf_counter() - before)
    client.close()
    return taken, begun, time.perf_counter()


def processor_seconds(pid):
    """What the process has used so far, in its own code and in the kernel."""
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def served(manager, requests, clients, count):
    """Median and 99th percentile in milliseconds, milliseconds of the object manager's processor time per request, and
    requests per second, of so many clients at the same time."""
    used = processor_seconds(manager.process.pid)
    with multiprocessing.Manager() as shared, multiprocessing.Pool(clients) as pool:
        start = shared.Barrier(clients)
        done = pool.starmap(one_client, [(manager.port, requests, count, start)] * clients, chunksize=1)
    taken = sorted(seconds for each, _, _ in done for seconds in each)
    duration = max(end for _, _, end in done) - min(begun for _, begun, _ in done)
    used = (processor_seconds(manager.process.pid) - used) / (clients * (count + WARM_UP))
    return 1000 * statistics.median(taken), 1000 * taken[len(taken) * 99 // 100], 1000 * used, len(taken) / duration


def first_and_second(port):
    """Milliseconds of the first request, which loads the library, and of the same one again."""
    client, taken = Client(port), []
    for _ in range(2):
        before = time.perf_counter()
        client.send(get(MARKING, MARKING_KEYS))
        taken.append(1000 * (time.perf_counter() - before))
    client.close()
    return taken


def measure(count=2000):
    """A list of (what, clients, median, 99th percentile, processor time, requests per second), and a list of (what, text)."""
    with Manager() as manager:
        facts = [("object manager ready after", f"{1000 * manager.seconds_to_start:.0f} ms"),
                 ("resident memory then", f"{manager.resident_kib()} KiB")]
        first, second = first_and_second(manager.port)
        facts += [("first request, which loads and initialises the library", f"{first:.1f} ms; the next one {second:.1f} ms"),
                  ("resident memory then", f"{manager.resident_kib()} KiB")]
        rows = [(name, clients, *served(manager, requests, clients, count // clients))
                for name, requests in OPERATIONS.items() for clients in (1, 8)]
        total = len(OPERATIONS) * 2 * count
        facts.append((f"resident memory after some {total} requests", f"{manager.resident_kib()} KiB"))
    return rows, facts
