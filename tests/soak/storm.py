"""Storm, run on the disposable server: eight clients read and change at once.

usage: storm.py REQUESTS plain|serialising [OPTION...] | storm.py REQUESTS at PORT

The variant is the library's, the options are those of a kv-cimom that is started; or the object manager that listens at the port
is asked. Every answer must be what a client that is alone gets, but for
the values that the changes set. Status 1 when one is not, 2 when a request fails.
"""
import concurrent.futures
import random
import re
import sys

from object_manager import Client, Manager
from traffic import QUICK_CHANGES, READS

CLIENTS = 8
CHANGE_EVERY = 10  # requests, on average

CHANGED = re.compile(rb'(NAME="(?:MaxDataSize|DomainName|PrimaryDNS|isIcmpFilterEnabled|KLonKLEnabled|QoS\w+|TOSByte\w+)"[^>]*>)'
                     rb"(?:<VALUE>[^<]*</VALUE>)?")


def lasting(answer):
    return CHANGED.sub(rb"\1", answer)


def wrong_answers(port, requests, expected, seed):
    """Those of one client."""
    client, chooser = Client(port), random.Random(seed)
    wrong = []
    for _ in range(requests):
        if chooser.randrange(CHANGE_EVERY) == 0:
            client.send(chooser.choice(QUICK_CHANGES))
            continue
        number = chooser.randrange(len(READS))
        answer = client.send(READS[number])
        if lasting(answer) != expected[number]:
            wrong.append(answer)
    client.close()
    return wrong


def drive(port, requests):
    alone = Client(port)
    expected = [lasting(alone.send(read)) for read in READS]
    alone.close()
    with concurrent.futures.ProcessPoolExecutor(CLIENTS) as pool:
        turns = [pool.submit(wrong_answers, port, requests // CLIENTS, expected, seed) for seed in range(CLIENTS)]
        return [answer for turn in turns for answer in turn.result()]


def drive_own(requests, variant, *options):
    """The wrong answers, the status of the kv-cimom that gave them, and what is to be said of it."""
    manager = Manager(*options, variant=variant)
    wrong = drive(manager.port, requests)
    status = manager.stop()
    return wrong, status, f"{variant} library, kv-cimom {' '.join(options)} ended with status {status}"


def main(requests, subject, *arguments):
    try:
        if subject == "at":
            wrong, status, told = drive(int(arguments[0]), requests), 0, f"the object manager at port {arguments[0]}"
        else:
            wrong, status, told = drive_own(requests, subject, *arguments)
    except (RuntimeError, OSError) as failure:
        print(f"storm: a request failed: {failure}")
        return 2
    for answer in wrong[:1]:
        print(answer.decode())
    print(f"storm: {CLIENTS} clients, {requests} requests, {len(wrong)} wrong answers, {told}")
    return 0 if status == 0 and not wrong else 1


if __name__ == "__main__":
    sys.exit(main(int(sys.argv[1]), *sys.argv[2:]))
