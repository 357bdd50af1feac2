"""Adds up the JUnit XML files below a folder and prints one line: N passed, N failed[, N skipped].

A file that breaks off counts as one failure and is named on standard error.
"""

import pathlib
import sys
import xml.etree.ElementTree as ElementTree


def main():
    passed = failed = skipped = 0
    for path in sorted(pathlib.Path(sys.argv[1]).rglob("*.xml")):
        try:
            cases = list(ElementTree.parse(path).getroot().iter("testcase"))
        except ElementTree.ParseError as error:
            print(f"{path}: no whole result: {error}", file=sys.stderr)
            failed += 1
            continue
        for case in cases:
            if case.find("failure") is not None or case.find("error") is not None:
                failed += 1
            elif case.find("skipped") is not None or case.get("result") in ("skipped", "suppressed"):
                skipped += 1
            else:
                passed += 1
    print(f"{passed} passed, {failed} failed" + (f", {skipped} skipped" if skipped else ""))


if __name__ == "__main__":
    main()
