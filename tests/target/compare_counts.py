"""Says how many unit tests ran on the emulated processor, beside the native number, and which are left out and why.

usage: compare_counts.py RESULTS   (the folder with unit/*.xml and target/*.xml; without a native run the first is absent)

A test that ran natively, did not run on the target and has no reason here is an error.
"""

import pathlib
import sys
import xml.etree.ElementTree as ElementTree

# Programs that are not built for the target.
LEFT_OUT = {
    "unit_platform": "tests the platform's stand-in, which the server's own libraries replace there",
    "unit_cimom": "tests the development object manager, which runs on development machines only",
    "unit_fuzz": "replays seeds into the MOF and CIM-XML parsers too, which run on development machines only",
    "unit_openwbem_recorded": "compares with answers that were recorded on a 64-bit host",
    "unit_openwbem_headers": "compares what compiles with the headers, which a development machine does as well",
    **{f"unit_client_{room}": "tests a room of lanctl, which is not built for the server's processor"
       for room in ("wire", "model", "plan", "apply", "wayback", "json", "web", "shell")},
}


def tests_in(folder):
    """The names of the tests that ran, by program."""
    ran = {}
    for path in sorted(folder.glob("*.xml")):
        cases = ElementTree.parse(path).getroot().iter("testcase")
        ran[path.stem] = {f"{case.get('classname')}.{case.get('name')}" for case in cases}
    return ran


def main():
    results = pathlib.Path(sys.argv[1])
    target, native = tests_in(results / "target"), tests_in(results / "unit")
    total = sum(map(len, target.values()))
    if not native:
        print(f"{total} tests on the emulated processor (the native number comes from lane unit)")
        return 0
    only_there = target.keys() - native.keys()
    print(f"{total} tests on the emulated processor, {sum(map(len, native.values()))} natively; only there:",
          ", ".join(f"{program} ({len(target[program])})" for program in sorted(only_there)) or "none")  # fmt: skip
    unexplained = []
    for program, tests in native.items():
        if program in target:
            unexplained += [f"{program}: {test}" for test in sorted(tests - target[program])]
        elif program in LEFT_OUT:
            print(f"left out: {program} ({len(tests)}), which {LEFT_OUT[program]}")
        else:
            unexplained.append(program)
    for name in unexplained:
        print(f"left out without a reason: {name}", file=sys.stderr)
    return 1 if unexplained else 0


if __name__ == "__main__":
    sys.exit(main())
