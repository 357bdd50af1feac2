"""tools/check_rooms.py: a project's includes against its table of rooms."""
import subprocess

import pytest

from server import CHECKOUT

TABLE = """
| folder | what lives there | may include |
|---|---|---|
| `src/roof` | the roof | everything in `src` |
| `src/hall` | a room | `ground`, `garden/Gate.hpp` (the gate) |
| `src/garden` | another | `ground` |
| `src/ground` | the ground | nothing of the project |

| folder | what lives there | may include |
|---|---|---|
| `client/shop` | its roof | everything in `client` |
| `client/store` | its ground | nothing of the project |
"""

FILES = {
    "roof/Roof.hpp": '#include "hall/Hall.hpp"\n',
    "roof/Roof.cpp": '#include "roof/Roof.hpp"\n',
    "hall/Hall.hpp": '#include "garden/Gate.hpp"\n#include "ground/Ground.hpp"\n#include <vector>\n',
    "garden/Gate.hpp": '#include "ground/Ground.hpp"\n',
    "garden/Pond.hpp": "",
    "ground/Ground.hpp": "#include <net/if.h>\n",
}


@pytest.fixture
def project(tmp_path):
    for name, content in FILES.items():
        write(tmp_path, name, content)
    write(tmp_path, "shop/Shop.cpp", '#include "store/Store.hpp"\n', tree="client")  # without a header of its name
    write(tmp_path, "store/Store.hpp", "", tree="client")
    (tmp_path / "client/completion").mkdir()  # no source, no room
    (tmp_path / "docs").mkdir()
    (tmp_path / "docs/architecture.md").write_text(TABLE)
    return tmp_path


def write(project, name, content, tree="src"):
    path = project / tree / name
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(content)


def breaches(project):
    """What the checker prints; its status says the same."""
    run = subprocess.run(["/usr/bin/python3", CHECKOUT / "tools/check_rooms.py", project], stdout=subprocess.PIPE,
                         stderr=subprocess.STDOUT, text=True, check=False)
    assert run.returncode == (1 if run.stdout else 0)
    return run.stdout


def test_this_project_keeps_to_its_table():
    assert breaches(CHECKOUT) == ""


def test_what_the_table_allows_passes(project):
    assert breaches(project) == ""


@pytest.mark.parametrize("name, include, said", [
    ("ground/Ground.hpp", '"hall/Hall.hpp"', "docs/architecture.md does not allow ground to include hall/Hall.hpp"),
    ("hall/More.hpp", '"garden/Pond.hpp"', "docs/architecture.md does not allow hall to include garden/Pond.hpp"),
    ("hall/More.hpp", '"Hall.hpp"', '"Hall.hpp" names no header by its room'),
    ("hall/More.hpp", '"hall/Missing.hpp"', '"hall/Missing.hpp" names no header by its room'),
    ("hall/More.hpp", '"../roof/Roof.hpp"', '"../roof/Roof.hpp" names no header by its room'),
    ("hall/More.hpp", "<garden/Pond.hpp>", '<garden/Pond.hpp> is a header of the project: "room/Header.hpp"'),
    ("hall/More.hpp", "<Hall.hpp>", '<Hall.hpp> is a header of the project: "room/Header.hpp"'),
])
def test_a_wrong_include_is_reported_with_its_place(project, name, include, said):
    write(project, name, f"#pragma once\n#include {include}\n")
    assert breaches(project) == f"src/{name}:2: {said}\n"


def test_what_is_allowed_and_not_used_is_reported(project):
    write(project, "hall/Hall.hpp", '#include "ground/Ground.hpp"\n')
    assert breaches(project) == "docs/architecture.md: hall does not include garden/Gate.hpp\n"


def test_a_folder_without_a_row_and_a_row_without_a_folder_are_reported(project):
    write(project, "cellar/Cellar.hpp", "")
    (project / "docs/architecture.md").write_text(TABLE + "| `src/attic` | an attic | nothing of the project |\n")
    assert breaches(project) == ("src/attic: no folder, but a row in docs/architecture.md\n"
                                 "src/cellar: no row in docs/architecture.md\n")


@pytest.mark.parametrize("include, said", [
    ('"shop/Shop.hpp"', "docs/architecture.md does not allow store to include shop/Shop.hpp"),
    ('"ground/Ground.hpp"', '"ground/Ground.hpp" names no header by its room'),
    ("<store/Store.hpp>", '<store/Store.hpp> is a header of the project: "room/Header.hpp"'),
])
def test_the_client_is_held_to_a_table_of_its_own(project, include, said):
    write(project, "shop/Shop.hpp", "", tree="client")
    write(project, "store/Shelf.cpp", f"#include {include}\n", tree="client")
    assert breaches(project) == f"client/store/Shelf.cpp:1: {said}\n"


def test_a_room_of_the_client_without_a_row_is_reported(project):
    write(project, "yard/Yard.hpp", "", tree="client")
    assert breaches(project) == "client/yard: no row in docs/architecture.md\n"


def test_entry_points_need_no_header(project):
    write(project, "roof/Factory.cpp", '#include "roof/Roof.hpp"\nOW_PROVIDERFACTORY(Roof, Roof)\n')
    assert breaches(project) == ""


def test_a_source_without_a_header_of_its_name_is_reported(project):
    write(project, "hall/Stairs.cpp", '#include "hall/Hall.hpp"\n')
    assert breaches(project) == "src/hall/Stairs.cpp: has no header of its name\n"


@pytest.mark.parametrize("document", ["# Architecture\n", TABLE.replace("nothing of the project", "little")])
def test_a_table_that_cannot_be_read_is_a_failure(project, document):
    (project / "docs/architecture.md").write_text(document)
    assert breaches(project).startswith("docs/architecture.md: ")
