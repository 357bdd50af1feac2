"""docs/messages.md explains every text of the product. A new text without an explanation fails here."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]

# Texts that nobody is shown: command lines, names of the interfaces, an assertion of the compiler.
SILENT = (
    "/kv/bin/",
    "ifdown ",
    "route ",
    "Internal LAN",
    "Customer LAN",
    "OAM LAN",
    "an MII request fits into the union",
)


def literals(source):
    """The string literals of C++ text, adjacent ones joined, comments and includes left out."""
    source = re.sub(r"//[^\n]*|#include[^\n]*", "", source)
    source = re.sub(r'"\s*\n\s*"', "", source)
    return re.findall(r'"((?:[^"\\]|\\.)*)"', source)


def shown(text):
    if text.startswith(SILENT):
        return False
    return " " in text.strip() or text.startswith(("LAN_ERROR_", "CFG_000_"))


def texts():
    return {
        (path.name, text)
        for path in sorted((ROOT / "src").rglob("*.cpp"))
        for text in literals(path.read_text())
        if shown(text)
    }


def test_the_search_finds_texts():
    assert len(texts()) > 50
    assert ("ORX_LANSetting.cpp", "Invalid domain name") in texts()


def test_every_text_is_explained():
    document = (ROOT / "docs/messages.md").read_text()
    missing = [f"{name}: {text!r}" for name, text in sorted(texts()) if text not in document]
    assert not missing, "\n".join(missing)
