"""For use on the disposable server: the object manager as a process that is watched, clients on connections that stay open."""
import os
import pathlib
import re
import socket
import subprocess
import time

CHECKOUT = pathlib.Path(__file__).resolve().parents[3]

LIBRARY = "libLANProvider.so"
LISTENING = "kv-cimom: listening"


class Manager:
    """kv-cimom of the build tree KV_BUILD_DIR on a free port, with one variant of the library; its log is a file in KV_STATE_DIR."""

    def __init__(self, *options, variant="plain", environment=None):
        build = pathlib.Path(os.environ["KV_BUILD_DIR"])
        self.log_path = pathlib.Path(os.environ["KV_STATE_DIR"], "object-manager.log")
        preload = {"LD_PRELOAD": os.environ["KV_OBJECT_MANAGER_PRELOAD"]}
        library = build / {"plain": "src", "serialising": "src/serialising"}[variant]
        command = [build / "standins/cimom/kv-cimom", "--port", "0", "--mof", CHECKOUT / "mof", "--provider-dir", library]
        begun = time.monotonic()
        with self.log_path.open("wb") as log:
            self.process = subprocess.Popen([*command, *options], stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                                            env={**os.environ, **preload, **(environment or {})})
        self.port = self._wait_for_port()
        self.seconds_to_start = time.monotonic() - begun

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()

    def _wait_for_port(self):
        while LISTENING not in self.log():
            if self.process.poll() is not None:
                raise RuntimeError(f"kv-cimom ended with status {self.process.returncode}: {self.log()}")
            time.sleep(0.002)
        return int(re.search(LISTENING + r".* port (\d+)", self.log()).group(1))

    def stop(self):
        """Ends the process as an operator does; returns its status."""
        self.process.terminate()
        return self.process.wait(timeout=60)

    def log(self):
        return self.log_path.read_text(errors="replace")

    def _proc(self, name):
        return pathlib.Path("/proc", str(self.process.pid), name)

    def status_number(self, field):
        return int(re.search(rf"^{field}:\s+(\d+)", self._proc("status").read_text(), re.MULTILINE).group(1))

    def resident_kib(self):
        return self.status_number("VmRSS")

    def threads(self):
        return self.status_number("Threads")

    def descriptors(self):
        return len(os.listdir(self._proc("fd")))

    def has_library(self):
        return LIBRARY in self._proc("maps").read_text()


class Client:
    """One connection that is kept alive. Requests can be made beforehand and sent often."""

    def __init__(self, port, acknowledge_at_once=True):
        self.acknowledge_at_once = acknowledge_at_once
        self.socket = socket.create_connection(("127.0.0.1", port), timeout=120)
        self.socket.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)

    def close(self):
        self.socket.close()

    def send(self, request):
        """The answer's body. An HTTP status other than 200 or a CIM error is a RuntimeError."""
        self.socket.sendall(request)
        answer = self._more()
        while b"\r\n\r\n" not in answer:
            answer += self._more()
        head, _, body = answer.partition(b"\r\n\r\n")
        length = int(re.search(rb"(?i)content-length: (\d+)", head).group(1))
        while len(body) < length:
            body += self._more()
        if not head.startswith(b"HTTP/1.1 200") or b"<ERROR " in body:
            raise RuntimeError((head + b"\n" + body).decode())
        return body

    def _more(self):
        # OpenWBEM sends an answer in small pieces and waits for the acknowledgement of one before the next.
        if self.acknowledge_at_once:
            self.socket.setsockopt(socket.IPPROTO_TCP, socket.TCP_QUICKACK, 1)
        part = self.socket.recv(65536)
        if not part:
            raise RuntimeError("the object manager has closed the connection")
        return part
