"""The development object manager as a process of its own, with the sample classes and provider of tests/data/cim-xml."""
import os
import pathlib
import re
import signal
import socket
import subprocess
import time
import xml.etree.ElementTree as ElementTree

from cim_xml import get_instance, http_post, intrinsic_call, message

CHECKOUT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ.get("CIMOM_BUILD_DIR", CHECKOUT / "build/dev"))
PROGRAM = BUILD / "standins/cimom/kv-cimom"
DATA = CHECKOUT / "tests/data/cim-xml"
CLASSES = ["--mof", DATA / "sample.mof", "--provider-dir", BUILD / "tests/unit/cimom/sample"]


class ObjectManager:
    """Runs from construction to `end`, on a free port unless one is given."""

    def __init__(self, *options, port=0):
        command = [PROGRAM, *CLASSES, "--port", str(port), *options]
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        ready = re.fullmatch(r"kv-cimom: listening on (\S+) port (\d+)\n", self.process.stdout.readline())
        assert ready, "no readiness line"
        self.address, self.port = ready.group(1), int(ready.group(2))

    def end(self, with_signal=signal.SIGTERM):
        """The exit status after the signal."""
        if self.process.poll() is None:
            self.process.send_signal(with_signal)
        self.process.stdout.close()
        return self.process.wait(timeout=30)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end()

    def connect(self, timeout=10.0):
        connection = socket.create_connection((self.address, self.port), timeout)
        connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        return connection

    def descriptors(self):
        return len(os.listdir(f"/proc/{self.process.pid}/fd"))

    def resident_kilobytes(self):
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return int(re.search(r"VmRSS:\s*(\d+) kB", status).group(1))

    def wait_for_descriptors(self, count, seconds=10.0):
        """The number of open descriptors once it has come down to `count`, or after that time."""
        deadline = time.monotonic() + seconds
        while self.descriptors() > count and time.monotonic() < deadline:
            time.sleep(0.05)
        return self.descriptors()


def post(body):
    return http_post(body, {"Content-Type": 'application/xml; charset="utf-8"', "CIMOperation": "MethodCall"})


def intrinsic(operation, message_id="1"):
    return message(intrinsic_call(*operation), message_id).encode()


def get_port(name, message_id="1"):
    """GetInstance of a port of the sample provider."""
    return intrinsic(get_instance("SAMPLE_Port", {"Name": name}), message_id)


def receive(connection):
    """Status and body of the next answer; None when the connection ends without one."""
    data = b""
    while b"\r\n\r\n" not in data:
        more = connection.recv(65536)
        if not more:
            return None
        data += more
    head, _, body = data.partition(b"\r\n\r\n")
    length = re.search(rb"\r\nContent-Length: *(\d+)", head, re.IGNORECASE)
    while length and len(body) < int(length.group(1)):
        more = connection.recv(65536)
        if not more:
            return None
        body += more
    return int(head.split()[1]), body


def ask(connection, body):
    connection.sendall(post(body))
    return receive(connection)


def message_in(body):
    return ElementTree.fromstring(body).find("MESSAGE")
