"""An emulated machine with network cards: Debian's kernel, its drivers, and phy_guest as the only process."""

import json
import os
import pathlib
import shutil
import socket
import subprocess
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
GUEST = ROOT / "build/dev/tests/phy/phy_guest"
CONSOLE_LOG = ROOT / "build/logs/phy-console.log"
BOOT_SECONDS = 120
ANSWER_SECONDS = 20


def newest_kernel():
    """The kernel image and its modules' directory: the highest version that has both."""

    def by_numbers(path):
        return [int(part) if part.isdigit() else 0 for part in path.name.replace(".", "-").split("-")]

    for image in sorted(pathlib.Path("/boot").glob("vmlinuz-*"), key=by_numbers, reverse=True):
        modules = pathlib.Path("/lib/modules") / image.name.removeprefix("vmlinuz-")
        if (modules / "modules.dep").exists():
            return image, modules
    raise FileNotFoundError("no kernel with modules in /boot and /lib/modules: see packages-phy.txt")


def modules_in_order(directory, drivers):
    """The files of the drivers with all that they need, a module behind its needs."""
    needs = {}
    for line in (directory / "modules.dep").read_text().splitlines():
        module, _, others = line.partition(":")
        needs[pathlib.PurePath(module).stem] = [*reversed(others.split()), module]
    ordered = []
    for driver in drivers:
        ordered += [file for file in needs[driver] if file not in ordered]
    return [directory / file for file in ordered]


def make_initial_file_system(directory, modules):
    """A cpio archive with phy_guest as /init and the modules, and nothing else."""
    tree = directory / "root"
    (tree / "modules").mkdir(parents=True)
    shutil.copy(GUEST, tree / "init")
    for module in modules:
        shutil.copy(module, tree / "modules")
    (tree / "modules/order").write_text("".join(module.name + "\n" for module in modules))
    names = "\n".join(str(path.relative_to(tree)) for path in sorted(tree.rglob("*")))
    archive = directory / "initial.cpio"
    with archive.open("wb") as output:
        subprocess.run(["cpio", "--quiet", "-o", "-H", "newc"], cwd=tree, input=names.encode(), stdout=output, check=True)
    return archive


class Line:
    """One line of text each way over a Unix socket that the emulator listens at."""

    def __init__(self, path, seconds):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.settimeout(seconds)
        self.socket.connect(str(path))
        self.stream = self.socket.makefile("rw", newline="\n")

    def send(self, text):
        self.stream.write(text + "\n")
        self.stream.flush()

    def receive(self):
        text = self.stream.readline()
        if not text:
            raise EOFError("the emulated machine has gone")
        return text.rstrip("\r\n")

    def close(self):
        self.stream.close()
        self.socket.close()


class Machine:
    """cards: pairs of the emulator's card model and the driver that the kernel has for it. A card is known by its model."""

    def __init__(self, cards):
        self.addresses = {model: f"52:54:00:00:00:{number:02x}" for number, (model, _) in enumerate(cards, 1)}
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="kv-phy-"))
        self.emulator = self.questions = self.monitor = None
        try:
            self._start([driver for _, driver in cards])
        except BaseException:
            self.stop()
            raise

    def _start(self, drivers):
        kernel, directory = newest_kernel()
        drivers = drivers + (["virtio_pci"] if "virtio_net" in drivers else [])
        archive = make_initial_file_system(self.directory, modules_in_order(directory, drivers))
        CONSOLE_LOG.parent.mkdir(parents=True, exist_ok=True)
        # The emulator ends with this process, however that ends.
        command = [
            "setpriv", "--pdeathsig", "KILL",
            "qemu-system-x86_64", "-machine", "pc,accel=tcg", "-cpu", "max", "-m", "256", "-display", "none", "-no-reboot",
            "-nodefaults", "-kernel", str(kernel), "-initrd", str(archive), "-append", "console=ttyS0 panic=-1",
            "-serial", f"file:{CONSOLE_LOG}",
            "-serial", f"unix:{self.directory}/questions,server=on,wait=off",
            "-qmp", f"unix:{self.directory}/monitor,server=on,wait=off",
        ]  # fmt: skip
        for number, (model, address) in enumerate(self.addresses.items()):
            command += ["-netdev", f"hubport,hubid={number},id=net{number}"]
            command += ["-device", f"{model},id={model},mac={address},netdev=net{number},romfile="]
        self.emulator = subprocess.Popen(command, stdin=subprocess.DEVNULL)
        self._await_socket("monitor")
        self.monitor = Line(self.directory / "monitor", ANSWER_SECONDS)
        self.monitor.receive()
        self._order("qmp_capabilities")
        self.questions = Line(self.directory / "questions", BOOT_SECONDS)
        assert self.questions.receive() == "ready"
        self.questions.socket.settimeout(ANSWER_SECONDS)

    def _await_socket(self, name):
        deadline = time.monotonic() + ANSWER_SECONDS
        while not (self.directory / name).exists():
            if self.emulator.poll() is not None or time.monotonic() > deadline:
                raise RuntimeError("the emulator did not start")
            time.sleep(0.05)

    def _order(self, command, **arguments):
        self.monitor.send(json.dumps({"execute": command, "arguments": arguments}))
        while True:
            answer = json.loads(self.monitor.receive())
            if "event" not in answer:
                break
        if "error" in answer:
            raise RuntimeError(f"{command}: {answer['error']['desc']}")

    def ask(self, question):
        """One question to phy_guest (see guest.cpp) and its answer."""
        self.questions.send(question)
        answer = self.questions.receive()
        if answer.startswith("problem: "):
            raise RuntimeError(f"{question}: {answer}")
        return answer

    def interface_and_driver(self, model):
        return self.ask(f"find {self.addresses[model]}").split()

    def plug(self, model, connected):
        """Plugs the cable of a card in or out."""
        self._order("set_link", name=model, up=connected)

    def stop(self):
        for line in (self.questions, self.monitor):
            if line:
                line.close()
        if self.emulator:
            self.emulator.kill()
            self.emulator.wait()
        shutil.rmtree(self.directory)
