"""The exchanges of tests/data/cim-xml, byte for byte. Their README describes the form of the files."""
import pathlib
import re
from dataclasses import dataclass

DATA = pathlib.Path(__file__).resolve().parents[2] / "data/cim-xml"


@dataclass
class Exchange:
    """What a client sent, OpenWBEM answered and the provider printed meanwhile; empty when there was nothing."""
    name: str
    request: bytes = b""
    response: bytes = b""
    provider: bytes = b""


def unescaped(text):
    def byte(match):
        kind = match.group(1)
        return {b"r": b"\r", b"\\": b"\\"}.get(kind) or bytes.fromhex(kind[1:].decode())
    return re.sub(rb"\\(r|\\|x[0-9A-F]{2})", byte, text)


def exchanges_in(text):
    """Those of one file."""
    beginning, *parts = re.split(rb"^=== (.+)\n", text, flags=re.MULTILINE)
    assert beginning == b"", "a file of exchanges begins with the first of them"
    for name, sections in zip(parts[::2], parts[1::2]):
        beginning, *contents = re.split(rb"^--- (request|response|provider)\n", sections, flags=re.MULTILINE)
        assert beginning == b"", f"{name}: a line in no section"
        yield Exchange(name.decode(), **{kind.decode(): unescaped(content[:-1])
                                         for kind, content in zip(contents[::2], contents[1::2])})


def all_exchanges():
    """All of them, in the order in which they were made."""
    found = [exchange for path in DATA.glob("*.txt") for exchange in exchanges_in(path.read_bytes())]
    return sorted(found, key=lambda exchange: (int(exchange.name[:3]), exchange.name))
