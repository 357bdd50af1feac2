"""Thread test, run on the disposable server with a build for ThreadSanitizer: clients read and change in parallel.

usage: threads.py SECONDS

For that long each: the plain library when one request runs at a time, the serialising one when reads run side by side. Status 1
when ThreadSanitizer reports anything, a request fails or the object manager does not end well.
"""
import pathlib
import random
import sys
import threading
import time

from object_manager import Client, Manager
from traffic import run

CLIENTS = 8
SLOW_CHANGE_EVERY = 60

# On the server, which takes it along. One file a process: commands that are run have their own.
REPORTS = pathlib.Path("/run/reports")


class ClientThread(threading.Thread):
    """One client that opens its connection anew every other second."""

    def __init__(self, port, seed, end):
        super().__init__()
        self.port, self.random, self.end = port, random.Random(seed), end
        self.reads = self.changes = 0
        self.failure = None

    def run(self):
        try:
            while time.monotonic() < self.end:
                client = Client(self.port)
                turn_ends = min(self.end, time.monotonic() + 2)
                reads, changes = run(client, self.random, lambda ends=turn_ends: time.monotonic() < ends, SLOW_CHANGE_EVERY)
                client.close()
                self.reads, self.changes = self.reads + reads, self.changes + changes
        except Exception as failure:  # handed to the main thread, which fails the run  # pylint: disable=broad-except
            self.failure = failure


def drive(manager, seconds):
    end = time.monotonic() + seconds
    threads = [ClientThread(manager.port, seed, end) for seed in range(CLIENTS)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    return threads


def has_passed(seconds, variant, *options):
    reports = REPORTS / variant
    reports.mkdir(parents=True)
    manager = Manager("--unload-after", "1", *options, variant=variant,
                      environment={"TSAN_OPTIONS": f"log_path={reports}/report halt_on_error=0"})
    # Half of the time, then a pause in which the main thread unloads the library, then the other half.
    threads = drive(manager, seconds / 2)
    time.sleep(3.5)
    unloaded = not manager.has_library()
    threads += drive(manager, seconds / 2)
    status = manager.stop()
    texts = [report.read_text() for report in reports.iterdir()]
    failures = [thread.failure for thread in threads if thread.failure]
    for text in [*texts, *map(str, failures)]:
        print(text)
    print(f"threads: {variant} library, {CLIENTS} clients, {sum(t.reads for t in threads)} reads, "
          f"{sum(t.changes for t in threads)} changes, library {'unloaded' if unloaded else 'NOT unloaded'} in between; "
          f"{len(texts)} processes with reports, {len(failures)} failed clients, "
          f"kv-cimom {' '.join(options)} ended with status {status}")
    return unloaded and not texts and not failures and status == 0


def main(seconds):
    passed = [has_passed(seconds, "plain"), has_passed(seconds, "serialising", "--parallel")]
    return 0 if all(passed) else 1


if __name__ == "__main__":
    sys.exit(main(float(sys.argv[1])))
