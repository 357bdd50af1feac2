"""The product compiles against early and late headers of OpenWBEM 3.0.3, which name the same version."""

import pathlib
import re

CHECKOUT = pathlib.Path(__file__).resolve().parents[2]
IN_BOTH = {line for line in (CHECKOUT / "tests/data/openwbem-headers.txt").read_text().splitlines() if line.startswith("OW_")}

# What only late headers have, or number otherwise: the type of names, the logger's other members, its macros and levels.
LATE = r"\bCIMName\b|\bOW_LOG_\w+|\blogMessage\b|\bgetLogger\([^)]|\bE_(?:ALL|NONE|ERROR|INFO|DEBUG|FATAL_ERROR)_LEVEL\b"


def found_in_sources(expression):
    """(source, what was found), comments apart."""
    sources = [path for path in (CHECKOUT / "src").rglob("*") if path.suffix in (".cpp", ".hpp")]
    code = {path.name: re.sub(r"//.*", "", path.read_text()) for path in sources}
    return {(name, match) for name, text in code.items() for match in re.findall(expression, text)}


def test_every_included_header_is_in_both():
    included = found_in_sources(r'#include\s*[<"](OW_[^>"]+)')
    assert ("LANProvider.hpp", "OW_config.h") in included
    assert {(source, header) for source, header in included if header not in IN_BOTH} == set()


def test_no_name_is_used_that_early_headers_lack_or_mean_otherwise():
    assert found_in_sources(LATE) == set()
