"""The figures of docs/benchmarks.md as tables; ./run bench runs it on the disposable server.

Status 1 when an operation makes other system calls than it should. Times are judged by their readers: machines differ.
"""
import json
import os
import pathlib
import platform
import statistics
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/support/python"))

import answer_times  # noqa: E402
import client_times  # noqa: E402
from kernel_calls import EXPECTED, KV_BENCH, calls, instructions, output_of  # noqa: E402

PROCESSES = 5
REPETITIONS = 5
READS = "/(kv_|ORX_)"
RATIO_GOAL = 1.15
SETTING_RATIO_GOAL = 1.5  # its switches are read by a configuration store each, which is kept simple
MILLISECOND_GOALS = {"GetInstance ORX_LANEndpoint eth1": 1.0, "GetInstance ORX_LANServiceSetting": 1.0,
                     "GetInstance ORX_ALGService": 1.0, "EnumerateInstances ORX_LANEndpoint": 1.5}
SHOW_RATIO_GOAL, SHOW_REQUESTS_GOAL, SHOW_IN_PIECES_GOAL = 2, 5, 100  # the last in milliseconds


def table(title, head, rows):
    print(f"\n{title}\n")
    rows = [[str(cell) for cell in row] for row in (head, *rows)]
    widths = [max(len(row[column]) for row in rows) for column in range(len(head))]
    rows.insert(1, ["-" * width for width in widths])
    for row in rows:
        print("| " + " | ".join(cell.ljust(width) for cell, width in zip(row, widths)) + " |")
    sys.stdout.flush()


def ratio_goal(name):
    return SETTING_RATIO_GOAL if name.startswith(("ORX_LANSetting", "ORX_LANServiceSetting")) else RATIO_GOAL


def goal(met):
    return "met" if met else "MISSED"


def duration(value):
    if value < 100:
        return f"{value:.1f} ns"
    return f"{value / 1000:.2f} µs" if value < 1e6 else f"{value / 1e6:.2f} ms"


def machine():
    cpu = [line.split(":")[1].strip() for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines() if "model name" in line]
    load = os.getloadavg()
    print(f"{len(cpu)} x {cpu[0]}, Linux {platform.release()}, load average {load[0]:.1f} with {os.cpu_count()} processors")


def processor_times():
    """Median processor time of each benchmark in nanoseconds, by name. The repetitions of many are mixed, so that a busy
    moment of the machine hits no one operation alone, and come from several processes, because the addresses that a process
    gets shift its times by some percent. Reads are timed apart: a store of 4096 entries leaves a heap behind that no read on
    the server meets."""
    out = pathlib.Path("/run/bench.json")
    taken = {name: [] for name in output_of(KV_BENCH, "--benchmark_list_tests").splitlines()}
    for which in (READS, "-" + READS) * PROCESSES:
        output_of(KV_BENCH, f"--benchmark_out={out}", "--benchmark_out_format=json", "--benchmark_min_time=0.05",
                  f"--benchmark_repetitions={REPETITIONS}", "--benchmark_enable_random_interleaving=true",
                  f"--benchmark_filter={which}")
        for each in json.loads(out.read_text())["benchmarks"]:
            if each["run_type"] == "iteration":
                taken[each["run_name"]].append(each["cpu_time"])
    return {name: statistics.median(times) for name, times in taken.items()}


def report_reads(times):
    """Time and system calls of each read operation against its replay; whether the system calls are the same."""
    rows, all_same = [], True
    for name in (each.removeprefix("library/") for each in times if each.startswith("library/")):
        if not name.startswith(("kv_", "ORX_")):
            continue
        made, library = calls(name), times["library/" + name]
        replay = times.get("replay/" + name)
        expected = calls(name, "replay") if replay else []
        all_same &= made == expected
        ratio, wanted = library / replay if replay else None, ratio_goal(name)
        rows.append([name, duration(library), duration(replay) if replay else "-", f"{ratio:.2f}" if ratio else "-",
                     f"{wanted} {goal(ratio <= wanted)}" if ratio else "-", len(made),
                     "same" if made == expected else "OTHER CALLS"])
    table("Read operations against a replay of their system calls in C (processor time)",
          ["operation", "library", "replay", "ratio", "goal", "system calls", "as in the replay"], rows)
    return all_same


def report_queries():
    rows, all_same = [], True
    for name, expectations in EXPECTED.items():
        for expected, answering in zip(expectations, (False, True)):
            made = calls(name, every_ioctl_succeeds=answering)
            all_same &= made == expected
            rows.append([name, "answers all" if answering else "no MII", len(expected), len(made),
                         "same" if made == expected else "OTHER CALLS: " + " ".join(made)])
    table("System calls of the interface queries", ["query", "driver", "expected", "made", "sequence"], rows)
    return all_same


def report_parts(times):
    parts = [name for name in times if not name.removeprefix("library/").startswith(("kv_", "ORX_", "replay/"))]
    pure = [name.removeprefix("library/") for name in parts if "store" not in name]
    table("Work in memory", ["part", "processor time", "instructions"],
          [[name, duration(times["library/" + name]), f"{instructions(name):.0f}"] for name in pure])
    rows, before = [], None
    for name in (each.removeprefix("library/") for each in parts if "store" in each):
        entries, time = int(name.split()[2]), times["library/" + name]
        grown = f"entries x {entries / before[0]:.0f}, time x {time / before[1]:.1f}" if before else "-"
        count = 20 if entries < 1000 else 1
        rows.append([entries, duration(time), f"{instructions(name, count):.0f}", grown])
        before = entries, time
    table("Configuration store: read, one change, commit", ["entries", "processor time", "instructions", "growth"], rows)


def report_answers():
    rows, facts = answer_times.measure()
    table("The object manager over kept-alive connections, clients on the same machine",
          ["operation", "clients", "median", "99 %", "its processor time", "requests/s", "goal"],
          [[name, clients, f"{median:.2f} ms", f"{high:.2f} ms", f"{used:.2f} ms", f"{rate:.0f}",
            f"{MILLISECOND_GOALS[name]} ms {goal(median <= MILLISECOND_GOALS[name])}"
            if clients == 1 and name in MILLISECOND_GOALS else "-"] for name, clients, median, high, used, rate in rows])
    table("Start and memory of the object manager with the library", ["what", "value"], facts)


def report_show():
    count, whole, pieces = client_times.measure()
    ratio, shown = whole[0][0] / whole[1][0], pieces[0][0]
    goals = {("kv-cimom", 0): f"{SHOW_RATIO_GOAL} x curl: {ratio:.2f}, {goal(ratio < SHOW_RATIO_GOAL)}",
             ("in pieces", 0): f"{SHOW_IN_PIECES_GOAL} ms {goal(shown < SHOW_IN_PIECES_GOAL)}"}
    clients = ("lanctl show", "curl", "a running process", "the same, slow to acknowledge")
    table(f"lanctl show: {count} requests (goal {SHOW_REQUESTS_GOAL} {goal(count <= SHOW_REQUESTS_GOAL)}), and the same from bare clients",
          ["answers", "client", "median", "its processor time", "goal"],
          [[server, client, f"{taken:.1f} ms", f"{used:.1f} ms" if used else "-", goals.get((server, number), "-")]
           for server, times in (("kv-cimom", whole), ("in pieces", pieces))
           for number, (client, (taken, used)) in enumerate(zip(clients, times))])


def main():
    machine()
    same = report_queries()
    times = processor_times()
    same &= report_reads(times)
    report_parts(times)
    report_answers()
    report_show()
    machine()
    if not same:
        print("\nSome operation makes other system calls than it should.")
    return 0 if same else 1


if __name__ == "__main__":
    sys.exit(main())
