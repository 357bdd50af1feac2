"""Looks at source files with clang-tidy. A file that was found clean is looked at again only when something has changed that
clang-tidy sees: its text and that of its headers with all comments and macros, the way it is compiled, clang-tidy's
configuration or clang-tidy itself.

usage: tidy.py BUILD FILE...   (BUILD is the build tree whose compile_commands.json says how the files are compiled)
"""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

TIDY = "clang-tidy-14"


def compile_commands(build):
    entries = json.loads((build / "compile_commands.json").read_text())
    return {pathlib.Path(entry["directory"], entry["file"]).resolve(): entry for entry in entries}


def preprocessing(command):
    """The compile command as one that prints what clang-tidy sees."""
    words = shlex.split(command)
    if pathlib.Path(words[0]).name == "ccache":
        del words[0]
    output = words.index("-o")
    del words[output:output + 2]
    return [*words, "-E", "-CC", "-dD"]


def configuration(file):
    """The configuration files that apply to the file, from its folder up to the project's."""
    found = (folder / ".clang-tidy" for folder in file.parents if folder.is_relative_to(pathlib.Path.cwd()))
    return b"".join(path.read_bytes() for path in found if path.exists())


class Tidy:
    def __init__(self, build):
        self.build = build
        self.commands = compile_commands(build)
        self.version = subprocess.run([TIDY, "--version"], check=True, stdout=subprocess.PIPE).stdout

    def key(self, file):
        """What the verdict depends on, or nothing for a file that the build does not compile or that cannot be preprocessed."""
        entry = self.commands.get(file.resolve())
        if entry is None:
            return None
        done = subprocess.run(preprocessing(entry["command"]), cwd=entry["directory"], stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, check=False)
        parts = (self.version, configuration(file.resolve()), entry["command"].encode(), done.stdout)
        return hashlib.sha256(b"\0".join(parts)).hexdigest() if done.returncode == 0 else None

    def is_clean(self, file):
        """Prints what clang-tidy says when it says anything."""
        kept = self.build / "tidy" / (str(file).replace("/", "+") + ".clean")
        key = self.key(file)
        if key and kept.exists() and kept.read_text() == key:
            return True
        done = subprocess.run([TIDY, "-p", self.build, "--quiet", file], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              text=True, check=False)
        if done.returncode != 0:
            print(done.stdout, end="", flush=True)
        elif key:
            kept.parent.mkdir(exist_ok=True)
            kept.write_text(key)
        return done.returncode == 0


def main(build, *files):
    tidy = Tidy(pathlib.Path(build))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        try:
            clean = list(pool.map(tidy.is_clean, map(pathlib.Path, files)))
        except KeyboardInterrupt:
            pool.shutdown(cancel_futures=True)
            raise
    return 0 if all(clean) else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
