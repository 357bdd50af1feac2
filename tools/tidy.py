"""Looks at source files with clang-tidy. A file that was found clean is looked at again only when something has changed that
clang-tidy sees: its text and that of its headers with all comments and macros, the way it is compiled, clang-tidy's
configuration or clang-tidy itself.

Most of the time goes into the headers of the C++ library. So files of one folder are looked at together, included by
one file, as far as they can be compiled so.

usage: tidy.py [--deep] BUILD FILE...
  --deep   let the static analyzer take all the steps it wants, which takes several times as long
  BUILD    the build tree whose compile_commands.json says how the files are compiled
"""
import argparse
import collections
import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

TIDY = "clang-tidy-14"
# Otherwise the static analyzer looks at the functions of the one file alone that includes the others.
INCLUDED_TOO = ["-Xclang", "-analyzer-opt-analyze-headers"]
# A twentieth of the steps that the static analyzer takes in a function unless told otherwise.
FEW_STEPS = ["-Xclang", "-analyzer-config", "-Xclang", "max-nodes=10000"]
TOGETHER = 12
ROOT = pathlib.Path(__file__).resolve().parent.parent
CONFIGURATION = ROOT / ".clang-tidy"


class Source:
    """A file with what it takes to compile it."""

    def __init__(self, path, entry):
        self.path = path
        self.folder = entry["directory"]
        words = shlex.split(entry["command"])
        if pathlib.Path(words[0]).name == "ccache":
            del words[0]
        output = words.index("-o")
        del words[output:output + 2]
        words.remove("-c")
        words.remove(entry["file"])
        self.compiler, *self.options = words

    def compile(self, *arguments):
        return subprocess.run([self.compiler, *self.options, *arguments], cwd=self.folder, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, check=False)

    def kind(self):
        """Equal for files that may be looked at together."""
        return (self.path.parent, self.folder, self.compiler, *self.options)


class Tidy:
    def __init__(self, build, deep):
        self.build = build.resolve()
        self.extra = [*INCLUDED_TOO, *([] if deep else FEW_STEPS)]
        self.verdicts = self.build / ("tidy-deep" if deep else "tidy")
        self.verdicts.mkdir(exist_ok=True)
        entries = json.loads((build / "compile_commands.json").read_text())
        self.entries = {pathlib.Path(entry["directory"], entry["file"]).resolve(): entry for entry in entries}
        self.version = subprocess.run([TIDY, "--version"], check=True, stdout=subprocess.PIPE).stdout

    def source(self, path):
        """A file that only other builds compile is taken to be compiled as its neighbours are."""
        path = path.resolve()
        neighbours = (entry for file, entry in self.entries.items() if file.parent == path.parent)
        entry = self.entries.get(path) or next(neighbours, None)
        if entry is None:
            raise SystemExit(f"tidy.py: the build compiles nothing in the folder of {path}")
        return Source(path, entry)

    def verdict(self, source):
        """The file that holds what the source looked like when it was found clean."""
        return self.verdicts / (str(source.path.relative_to(ROOT)).replace("/", "+") + ".clean")

    def key(self, source):
        """What the verdict depends on; nothing for a file that cannot be preprocessed."""
        done = source.compile("-E", "-CC", "-dD", str(source.path))
        parts = (self.version, repr(self.extra).encode(), CONFIGURATION.read_bytes(), repr(source.kind()).encode(), done.stdout)
        return hashlib.sha256(b"\0".join(parts)).hexdigest() if done.returncode == 0 else None

    def is_known_clean(self, source, key):
        verdict = self.verdict(source)
        return key is not None and verdict.exists() and verdict.read_text() == key

    def joint(self, sources):
        """One file for all of them."""
        if len(sources) == 1:
            return sources[0].path
        file = self.verdict(sources[0]).with_suffix(".cpp")
        file.write_text("".join(f'#include "{source.path}"\n' for source in sources))
        return file

    def compiling_groups(self, sources):
        """Halves the group until each part can be compiled as one file; names of two files may clash."""
        if len(sources) == 1 or sources[0].compile("-w", "-fsyntax-only", str(self.joint(sources))).returncode == 0:
            return [sources]
        half = len(sources) // 2
        return self.compiling_groups(sources[:half]) + self.compiling_groups(sources[half:])

    def complaints(self, sources):
        """What clang-tidy says of the group, and whether it says nothing."""
        first = sources[0]
        command = [TIDY, "--quiet", f"--config-file={CONFIGURATION}", "--checks=-bugprone-suspicious-include",
                   self.joint(sources), "--", *first.options, *self.extra]
        done = subprocess.run(command, cwd=first.folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              check=False)
        return done.stdout, done.returncode == 0


def groups_of(sources):
    kinds = collections.defaultdict(list)
    for source in sources:
        kinds[source.kind()].append(source)
    return [same[i:i + TOGETHER] for same in kinds.values() for i in range(0, len(same), TOGETHER)]


def look(tidy, paths, pool):
    """Whether all files are clean; prints what is wrong with those that are not."""
    sources = [tidy.source(path) for path in paths]
    keys = dict(zip(sources, pool.map(tidy.key, sources)))
    unknown = [source for source in sources if not tidy.is_known_clean(source, keys[source])]
    groups = [group for found in pool.map(tidy.compiling_groups, groups_of(unknown)) for group in found]
    all_clean = True
    for group, (said, clean) in zip(groups, pool.map(tidy.complaints, groups)):
        if not clean:
            print(said, end="", flush=True)
            all_clean = False
            continue
        for source in group:
            if keys[source]:
                tidy.verdict(source).write_text(keys[source])
    return all_clean


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--deep", action="store_true")
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("files", nargs="+", type=pathlib.Path)
    arguments = parser.parse_args()
    tidy = Tidy(arguments.build, arguments.deep)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        try:
            return 0 if look(tidy, arguments.files, pool) else 1
        except KeyboardInterrupt:
            pool.shutdown(cancel_futures=True)
            raise


if __name__ == "__main__":
    sys.exit(main())
