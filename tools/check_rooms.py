"""Holds the includes of src/ and client/ to the tables of rooms in docs/architecture.md, so that neither changes without the
other.

usage: check_rooms.py [ROOT]   (the root of the project; prints one line for each breach and exits with 1 if there is one)

A room is a folder of one of these two trees, which know nothing of each other. Its row of the table says in backquotes which
rooms, or which single headers, of its tree it may include:

    | `src/lansetting` | ... | `config`, `lanendpoint/ORX_LANEndpointAPI.hpp` |

"everything in `src`" allows all, "nothing of the project" none. What a row allows must be used, too. A header of the project is
named by its room, in quotation marks; angle brackets are for the headers of others. In src/ each source has a header of its name,
except for the entry points, which only the object manager calls.
"""
import pathlib
import re
import sys

DOCUMENT = "docs/architecture.md"
TREES = ("src", "client")
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
ENTRY_POINTS = "OW_PROVIDERFACTORY("
NOTHING = "nothing of the project"


def allowed_includes(document, tree):
    """What each room of the tree may include: a set of rooms and headers, or None for everything."""
    rooms = {}
    for line in document.splitlines():
        if row := re.match(rf"^\| `{tree}/(\w+)` \|[^|]*\|([^|]*)\|$", line):
            room, cell = row[1], row[2].strip()
            if cell == f"everything in `{tree}`":
                rooms[room] = None
            else:
                rooms[room] = set(re.findall(r"`([^`]+)`", cell))
                if not rooms[room] and cell != NOTHING:
                    raise SystemExit(f"{DOCUMENT}: the row of {room} says nothing that can be checked: {cell}")
    if not rooms:
        raise SystemExit(f"{DOCUMENT}: there is no table of the rooms of {tree}")
    return rooms


def includes(source):
    """Line number, quoted header and bracketed header of each include; one of the two is None."""
    for number, line in enumerate(source.read_text().splitlines(), 1):
        if found := INCLUDE.match(line):
            yield number, found[1], found[2]


def check_includes(tree, source, allowed, used):
    """The breaches of one file; what it uses of its room's row is added to `used`."""
    own = source.parent.name
    for number, quoted, bracketed in includes(source):
        place = f"{source.relative_to(tree.parent)}:{number}"
        if bracketed:
            if (tree / bracketed).exists() or (source.parent / bracketed).exists():
                yield f'{place}: <{bracketed}> is a header of the project: "room/Header.hpp"'
            continue
        room, _, header = quoted.partition("/")
        if "/" in header or not (tree / room / header).is_file() or not header:
            yield f'{place}: "{quoted}" names no header by its room'
        elif room != own and allowed is not None:
            used |= {room, quoted} & allowed
            if not {room, quoted} & allowed:
                yield f"{place}: {DOCUMENT} does not allow {own} to include {quoted}"


def lacks_header(source):
    return (source.suffix == ".cpp" and not source.with_suffix(".hpp").exists()
            and ENTRY_POINTS not in source.read_text())


def check_tree(root, name):
    tree = root / name
    rooms = allowed_includes((root / DOCUMENT).read_text(), name)
    folders = {folder.name for folder in tree.iterdir() if any(map(is_source, folder.rglob("*")))}
    for room in sorted(folders ^ set(rooms)):
        yield f"{name}/{room}: {'no row' if room in folders else 'no folder, but a row'} in {DOCUMENT}"
    for room in sorted(folders & set(rooms)):
        used = set()
        for source in sorted(filter(is_source, (tree / room).rglob("*"))):
            yield from check_includes(tree, source, rooms[room], used)
            if name == "src" and lacks_header(source):
                yield f"{source.relative_to(root)}: has no header of its name"
        for unused in sorted((rooms[room] or set()) - used):
            yield f"{DOCUMENT}: {room} does not include {unused}"


def is_source(path):
    return path.suffix in (".cpp", ".hpp")


def check(root):
    for name in TREES:
        if any(map(is_source, (root / name).rglob("*"))):
            yield from check_tree(root, name)


def main(arguments):
    breaches = list(check(pathlib.Path(arguments[0] if arguments else ".")))
    print(*breaches, sep="\n", end="\n" if breaches else "")
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
