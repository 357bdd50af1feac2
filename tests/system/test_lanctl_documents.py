"""docs/lanctl.md, the man page and the completion know every command, option and key of the program, and no others."""
import json
import re
import subprocess

import pytest

from lanctl import CHECKOUT, LANCTL, lanctl
from scripted_server import ScriptedServer

DOCUMENT = (CHECKOUT / "docs/lanctl.md").read_text()
MAN_PAGE = (CHECKOUT / "client/lanctl.1").read_text().replace("\\-", "-")


def help_of(*command):
    return lanctl(*command, "--help").stdout


def commands():
    return re.findall(r"^  ([a-z-]+) +", help_of().partition("Subcommands:")[2], re.MULTILINE)


def options():
    return {option for command in [(), *((one,) for one in commands())]
            for option in re.findall(r"(?<![\w-])--[a-z][a-z-]*", "\n".join(re.findall(r"^  (-\S+)", help_of(*command), re.MULTILINE)))}


def keys():
    """Of the three kinds of objects, as the program lists them."""
    return {name for kind in ("eth0", "lan", "marking")
            for name in re.search(r"it has (.*)", lanctl("set", kind, "x=y").stderr)[1].split(", ")}


def test_the_search_finds_what_there_is():
    assert {"show", "apply", "reset-router"} <= set(commands())
    assert {"--server", "--json", "--yes", "--dry-run"} <= options()
    assert {"address", "icmp-filter", "fax"} <= keys()


@pytest.mark.parametrize("document", [DOCUMENT, MAN_PAGE], ids=["lanctl.md", "lanctl.1"])
def test_every_command_and_key_is_described(document):
    missing = [name for name in [*commands(), *keys()] if not re.search(rf"(?<![\w-]){name}(?![\w-])", document)]
    assert missing == []


def test_every_option_is_in_the_man_page_and_no_other():
    assert set(re.findall(r"(?<![\w-])--[a-z][a-z-]*", MAN_PAGE)) == options()
    assert set(re.findall(r"(?<![\w-])--[a-z][a-z-]*", DOCUMENT)) <= options()


def test_the_man_page_is_well_formed():
    done = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", CHECKOUT / "client/lanctl.1"],
                          capture_output=True, text=True, check=False)
    assert (done.returncode, done.stderr) == (0, "")


def examples():
    """The indented blocks of the document."""
    return ["\n".join(line[4:] for line in block.splitlines()) for block in re.findall(r"(?:^    .*\n)+", DOCUMENT, re.MULTILINE)]


def names_in(value):
    if isinstance(value, list):
        return names_in(value[0])
    return {name: names_in(inner) for name, inner in value.items()} if isinstance(value, dict) else None


def test_the_documented_json_has_the_names_of_the_program():
    [documented] = [json.loads(example) for example in examples() if example.startswith("{")]
    with ScriptedServer() as server:
        shown = json.loads(lanctl("--server", server.url, "show", "--json").stdout)
    assert names_in(documented) == names_in(shown)


def completed(line):
    """What bash would offer behind that line."""
    script = (f"source {CHECKOUT}/client/completion/lanctl; compopt() {{ :; }}; COMP_LINE=$1; COMP_POINT=${{#1}}; "
              '_lanctl "$2"; printf "%s\\n" "${COMPREPLY[@]}"')
    done = subprocess.run(["bash", "-c", script, "bash", line, LANCTL], capture_output=True, text=True, check=True)
    return done.stdout.split()


def test_completion_in_bash():
    assert set(commands()) <= set(completed("lanctl "))
    assert completed("lanctl show e") == ["eth0", "eth1", "eth2"]
    assert completed("lanctl set eth1 dhcp=o") == ["off", "on"]
    assert completed("lanctl set marking voice=E") == ["EF"]
    assert completed("lanctl set marking voice=custom:A")[0] == "AF11"
    assert completed("lanctl apply /e") == []


def test_completion_offers_the_servers_of_the_configuration(tmp_path, monkeypatch):
    (tmp_path / "lanctl.yaml").write_text("servers: {pbx1: {url: x}, pbx2: {url: y}, other: {url: z}}")
    monkeypatch.setenv("LANCTL_CONFIG", str(tmp_path / "lanctl.yaml"))
    assert completed("lanctl -s p") == ["pbx1", "pbx2"]
    monkeypatch.setenv("LANCTL_CONFIG", str(tmp_path / "missing.yaml"))
    assert completed("lanctl -s p") == []
