"""Which system calls an operation of kv_bench makes, and how many instructions it takes."""
import os
import pathlib
import re
import shlex
import subprocess

KV_BENCH = pathlib.Path(os.environ["KV_BUILD_DIR"], "bench/kv_bench")
WORK = pathlib.Path("/run")

# The memory of the process grows when it likes to, with and without the library.
MEMORY = {"brk", "mmap", "munmap", "mremap", "madvise"}

WITHOUT_MII = ["socket", "SIOCGMIIPHY", "SIOCDEVPRIVATE", "close"]
WITH_MII = ["socket", "SIOCGMIIPHY", *["SIOCGMIIREG"] * 8, "close"]


def state(speed):
    return ["socket", "SIOCGIFFLAGS", *speed, "close"]


# What the interface queries are to do: on the server's virtual interfaces, and with drivers that answer every request.
EXPECTED = {
    "kv_get_IfType": ([], []),
    "kv_get_mtu": (["socket", "SIOCGIFMTU", "close"],) * 2,
    "kv_get_EthernetIfSpeed": (WITHOUT_MII, WITH_MII),
    "kv_get_enabledState": (state(WITHOUT_MII), state(WITH_MII)),
    "kv_get_operationalStatus": (state(WITHOUT_MII), state(WITH_MII)),
}


def output_of(*command):
    """What the program prints. One that fails ends everything, with what it said."""
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        said = (done.stderr or done.stdout).strip() or "(no output)"
        raise SystemExit(f"status {done.returncode} of {shlex.join(map(str, command))}:\n{said}")
    return done.stdout


def calls(operation, kind="library", every_ioctl_succeeds=False):
    """The system calls of one run, in order; an ioctl by its request, a file by its path."""
    trace = WORK / "bench.strace"
    inject = ["-e", "inject=ioctl:retval=0"] if every_ioctl_succeeds else []
    output_of("strace", *inject, "-o", trace, KV_BENCH, "once", operation, kind)
    _, between, _ = re.split(r"^getppid\(\).*$", trace.read_text(), flags=re.MULTILINE)
    found = [call_of(line) for line in between.strip().splitlines()]
    return [call for call in found if call not in MEMORY]


def call_of(line):
    name, arguments = re.match(r"(\w+)\((.*)", line).groups()
    if name == "ioctl":
        return re.match(r"\d+, (\w+)", arguments).group(1)
    path = re.match(r'AT_FDCWD, ("[^"]*")', arguments)
    return f"{name} {path.group(1)}" if path else name


def instructions(operation, count=200):
    """Of one run on average, those of the C library included."""
    counts = WORK / "bench.callgrind"
    output_of("valgrind", "--quiet", "--tool=callgrind", f"--callgrind-out-file={counts}", "--collect-atstart=no",
              "--toggle-collect=measured", KV_BENCH, "repeat", operation, str(count))
    return int(re.search(r"^(?:summary|totals): (\d+)", counts.read_text(), re.MULTILINE).group(1)) / count
