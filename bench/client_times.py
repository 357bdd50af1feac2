"""How long `lanctl show` takes, against a bare client that only sends the same requests and reads the answers."""
import os
import pathlib
import resource
import statistics
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/system"))

from cim_xml import cim_headers, http_post  # noqa: E402
from object_manager import Client, Manager  # noqa: E402
from scripted_server import ScriptedServer, http  # noqa: E402

LANCTL = pathlib.Path(os.environ["KV_BUILD_DIR"], "client/lanctl")
RUNS = 51
PIECE = 200  # bytes


def in_pieces(server, request, connection):
    """As OpenWBEM sends an answer: in small pieces, each of which the kernel holds back until the one before is acknowledged."""
    answer = http(server.honest_answer(request))
    for start in range(0, len(answer), PIECE):
        connection.sendall(answer[start:start + PIECE])
    return b""


def show(url):
    subprocess.run([LANCTL, "--server", url, "show"], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, check=True)


def replay(port, requests, acknowledge_at_once=True):
    client = Client(port, acknowledge_at_once)
    for request in requests:
        client.send(http_post(request.body.encode(), cim_headers(request.method)))
    client.close()


def curl(url, requests, folder):
    """The same as a program of its own: the plain one that is made of the same HTTP library."""
    command = ["curl", "--silent", "--fail"]
    for number, request in enumerate(requests):
        body = folder / str(number)
        body.write_text(request.body)
        command += [*(["--next", "--silent", "--fail"] if number else []), "--data-binary", f"@{body}", "--output", "/dev/null"]
        for name, value in cim_headers(request.method).items():
            command += ["--header", f"{name}: {value}"]
        command.append(url)
    return lambda: subprocess.run(command, stdin=subprocess.DEVNULL, check=True)


def times(*ways):
    """The medians of milliseconds that each way takes, and of processor time that the program it runs has used. The ways take
    turns, so that a busy moment of the machine hits no one alone."""
    taken = [[] for _ in ways]
    for _ in range(RUNS):
        for way, each in zip(ways, taken):
            used, before = programs_seconds(), time.perf_counter()
            way()
            each.append((1000 * (time.perf_counter() - before), 1000 * (programs_seconds() - used)))
    return [tuple(map(statistics.median, zip(*each))) for each in taken]


def programs_seconds():
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def measure():
    """The number of requests of one run; then, for each server, (milliseconds, milliseconds of processor time) of each client."""
    folder = pathlib.Path("/run/bench-requests")
    folder.mkdir(exist_ok=True)
    with ScriptedServer() as server:
        show(server.url)
        requests = server.requests[:]
    with Manager() as manager:
        url = f"http://127.0.0.1:{manager.port}/root/cimv2"
        whole = times(lambda: show(url), curl(url, requests, folder), lambda: replay(manager.port, requests))
    with ScriptedServer(in_pieces) as server:
        pieces = times(lambda: show(server.url), curl(server.url, requests, folder),
                       lambda: replay(server.port, requests), lambda: replay(server.port, requests, acknowledge_at_once=False))
    return len(requests), whole, pieces
