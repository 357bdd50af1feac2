"""Adds up the JUnit XML files below a folder and prints one line: N passed, N failed[, N skipped]."""

import pathlib
import sys
import xml.etree.ElementTree as ElementTree


def main():
    passed = failed = skipped = 0
    for path in pathlib.Path(sys.argv[1]).rglob("*.xml"):
        for case in ElementTree.parse(path).getroot().iter("testcase"):
            if case.find("failure") is not None or case.find("error") is not None:
                failed += 1
            elif case.find("skipped") is not None or case.get("result") in ("skipped", "suppressed"):
                skipped += 1
            else:
                passed += 1
    print(f"{passed} passed, {failed} failed" + (f", {skipped} skipped" if skipped else ""))


if __name__ == "__main__":
    main()
