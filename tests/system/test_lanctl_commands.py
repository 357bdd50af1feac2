"""Each command of lanctl against the provider on the disposable server, and what the server then did."""
import json
import shlex

import pytest

from lanctl import DIFFERENCES, DONE, LANCTL, NOT_AS_WANTED, USAGE, lanctl
from scripted_server import ScriptedServer


@pytest.fixture
def run(managed):
    """lanctl on the server."""
    def run_there(*arguments):
        return managed.run(shlex.join([str(LANCTL), *arguments]))
    return run_there


def succeeded(result):
    assert (result.status, result.err) == (DONE, ""), result
    return result.out


SHOWN = """\
         eth0               eth1               eth2
name     Internal LAN       Customer LAN       OAM LAN
state    up                 up                 up
link     100 Mbit/s         100 Mbit/s         100 Mbit/s
address  192.168.10.1/24    10.0.0.5/24        172.16.2.1/24
gateway  -                  10.0.0.1           -
dhcp     off                off                off
mtu      1500               1500               1500
mac      02:00:00:00:00:00  02:00:00:00:00:01  02:00:00:00:00:02

lan
domain            site.example
dns1              10.0.0.2
dns2              10.0.0.3
icmp-filter       off
arp-filter        off
broadcast-filter  off
conflict-watch    off
router card       none

marking
enabled     off
signalling  0xA0  CS5
voice       0xB8  EF
video       0x88  AF41
fax         0xB8  EF
"""


def test_show():
    with ScriptedServer() as server:
        assert lanctl("--server", server.url, "show").stdout == SHOWN
        assert lanctl("--server", server.url, "show", "marking", "eth2").stdout.splitlines()[0].split() == ["eth2"]


def test_show_states_that_are_not_usual():
    with ScriptedServer() as server:
        eth0, eth1, eth2 = server.state["ORX_LANEndpoint"]
        eth0["OperationalStatus"] = ("uint16", "2")
        eth0["Speed"] = ("uint64", "0")
        eth1["EnabledState"] = ("string", "")
        del eth1["OperationalStatus"]
        eth1["IPAddress"] = ("string", "")
        eth2["EnabledState"] = ("uint16", "2")
        eth2["SubnetMask"] = ("string", "255.0.255.0")
        server.state["ORX_ALGService"][0].update(QoSFaxMedia=("uint16", "258"), TOSByteFax=("uint16", "104"),
                                                 QoSMarkVoiceMedia=("uint16", "188"))
        out = lanctl("--server", server.url, "show").stdout
    assert "state    up                 unknown            down\n" in out
    assert "link     no link            unknown            100 Mbit/s\n" in out
    assert "address  192.168.10.1/24    -                  172.16.2.1/255.0.255.0\n" in out
    assert "voice       0xBC  -\n" in out
    assert "fax         0x68  custom (AF31)\n" in out


def test_show_as_json():
    with ScriptedServer() as server:
        shown = json.loads(lanctl("--server", server.url, "show", "--json").stdout)
        assert list(json.loads(lanctl("--server", server.url, "show", "lan", "--json").stdout)) == ["lan"]
    assert shown["endpoints"][1] == {
        "name": "eth1", "description": "Customer LAN", "up": True, "link": True, "speed": 100000000, "address": "10.0.0.5",
        "mask": "255.255.255.0", "gateway": "10.0.0.1", "dhcp": False, "mtu": 1500, "mac": "02:00:00:00:00:01"}
    assert shown["lan"] == {
        "domain": "site.example", "dns1": "10.0.0.2", "dns2": "10.0.0.3", "icmp-filter": False, "arp-filter": False,
        "broadcast-filter": False, "conflict-watch": False, "router-card": False}
    assert shown["marking"]["voice"] == {"tos": 184, "dscp": "EF", "custom": False}
    assert list(shown["marking"]) == ["enabled", "signalling", "voice", "video", "fax"]


def test_set_an_address(managed, run):
    done = run("set", "eth1", "address=10.0.0.6/24", "mtu=1400", "--yes")
    out = succeeded(done)
    assert "eth1  address  10.0.0.5  ->  10.0.0.6\n" in out
    assert "Costs: 1 interface restart, 1 voice messaging restart, " in out
    assert "The server warns: Changing IP address will restart Voice Messaging.\n" in out
    assert out.endswith("Done.\n")
    assert "10.0.0.6/24" in managed.sh("ip -4 address show eth1")
    assert "mtu 1400" in managed.sh("ip link show eth1")


def test_set_what_is_set_already(managed, run):
    assert succeeded(run("set", "eth1", "address=10.0.0.5/24", "dhcp=off", "--yes")) == "Nothing to do.\n"
    assert managed.commands() == []


def test_set_the_lan(managed, run):
    succeeded(run("set", "lan", "domain=other.example", "dns2=", "icmp-filter=on", "--yes"))
    assert managed.read("/etc/resolv.conf") == "search other.example\nnameserver 10.0.0.2\n"
    assert "domain            other.example" in succeeded(run("show", "lan"))


def test_set_markings(run):
    succeeded(run("set", "marking", "voice=cs5", "signalling=custom:0x68", "--yes"))
    out = succeeded(run("show", "marking"))
    assert "voice       0xA0  CS5\n" in out
    assert "signalling  0x68  custom (AF31)\n" in out


def test_a_refused_value_is_not_sent(managed, run):
    done = run("set", "eth1", "address=192.168.10.77", "--yes")
    assert done.status == USAGE
    assert "Refused: eth1 address: The IP/mask pair overlaps with another interface." in done.out
    assert done.out.endswith("Nothing was changed.\n")
    assert managed.commands() == []


def test_a_dry_run_changes_nothing(managed, run):
    done = run("set", "eth1", "mtu=1400", "--dry-run")
    assert (done.status, done.out) == (DIFFERENCES, "eth1  mtu  1500  ->  1400\nCosts: no interruption\n")
    assert "mtu 1500" in managed.sh("ip link show eth1")
    assert run("set", "eth1", "mtu=1500", "--dry-run").status == DONE
    assert run("set", "eth1", "mtu=1", "--dry-run").status == USAGE


def test_nothing_is_changed_without_terminal_and_yes(managed, run):
    done = run("set", "eth1", "mtu=1400")
    assert (done.status, done.err) == (
        USAGE, "lanctl: no terminal to ask on, so nothing was changed; --yes agrees beforehand\n")
    assert run("reset-router").status == USAGE
    assert "mtu 1500" in managed.sh("ip link show eth1")


def test_export_diff_and_apply(managed, run):
    exported = succeeded(run("export"))
    managed.sh(f"printf %s {shlex.quote(exported)} >/run/wanted.yaml")
    assert succeeded(run("diff", "/run/wanted.yaml")) == ""
    assert succeeded(run("apply", "/run/wanted.yaml", "--yes")) == "Nothing to do.\n"
    succeeded(run("set", "marking", "enabled=on", "--yes"))
    succeeded(run("set", "eth2", "mtu=900", "--yes"))
    different = run("diff", "/run/wanted.yaml")
    assert different.status == DIFFERENCES
    assert "eth2     mtu         900   ->  1500\n" in different.out
    succeeded(run("apply", "/run/wanted.yaml", "--yes"))
    assert succeeded(run("diff", "/run/wanted.yaml")) == ""
    assert succeeded(run("export", "/run/again.yaml")) == ""
    assert managed.read("/run/again.yaml") == exported


def test_an_export_as_json_is_a_wanted_state_too(managed, run):
    exported = json.loads(succeeded(run("export", "--json")))
    assert exported["endpoints"]["eth1"] == {"dhcp": False, "address": "10.0.0.5", "mask": "255.255.255.0", "gateway": "10.0.0.1",
                                             "mtu": 1500}
    assert succeeded(run("export", "/run/wanted.json")) == ""
    assert json.loads(managed.read("/run/wanted.json")) == exported
    assert succeeded(run("diff", "/run/wanted.json")) == ""
    succeeded(run("set", "eth2", "mtu=900", "--yes"))
    succeeded(run("set", "marking", "fax=custom:0x69", "--yes"))
    succeeded(run("apply", "/run/wanted.json", "--yes"))
    assert json.loads(succeeded(run("export", "--json"))) == exported


def test_an_export_that_cannot_be_written():
    with ScriptedServer() as server:
        done = lanctl("--server", server.url, "export", "/nonexistent/pbx.yaml")
        assert (done.returncode, done.stderr) == (USAGE, "lanctl: cannot write /nonexistent/pbx.yaml\n")


def test_a_server_without_a_gateway_is_brought_back_to_none(managed, run):
    succeeded(run("set", "eth1", "gateway=", "--yes"))
    exported = succeeded(run("export"))
    assert 'gateway: ""' in exported
    managed.sh(f"printf %s {shlex.quote(exported)} >/run/wanted.yaml")
    succeeded(run("set", "eth1", "gateway=10.0.0.1", "--yes"))
    assert "default via 10.0.0.1" in managed.sh("ip route")
    succeeded(run("apply", "/run/wanted.yaml", "--yes"))
    assert "default" not in managed.sh("ip route")


def test_dhcp_is_brought_back_once_there_is_a_gateway_again(managed, run):
    succeeded(run("set", "eth1", "dhcp=on", "--yes"))
    managed.wait_for("tail -n 1 /kv/log/processcontrol.log | grep -qx 'voicemail started'")  # the lease has come
    succeeded(run("set", "eth1", "dhcp=off", "--yes"))
    succeeded(run("set", "eth1", "gateway=", "--yes"))
    without = run("rollback", "2", "--yes")
    assert (without.status, without.out) == (DONE, "Nothing to do.\n")
    assert without.err == "Not to be taken back: eth1 dhcp: DHCP needs an interface with a gateway\n"
    succeeded(run("set", "eth1", "gateway=10.0.0.1", "--yes"))
    succeeded(run("rollback", "2", "--yes"))
    managed.wait_for("grep -q BOOTPROTO=dhcp /etc/sysconfig/network-scripts/ifcfg-eth1")


def test_apply_reads_json_and_leaves_out_what_is_left_out(managed, run):
    managed.sh("""printf '{\\n\\t"endpoints": {"eth2": {"mtu": 1400}},\\n\\t"lan": {"arp-filter": true}\\n}' >/run/wanted.json""")
    out = succeeded(run("apply", "/run/wanted.json", "--yes"))
    assert out.splitlines()[:2] == ["lan   arp-filter  off   ->  on", "eth2  mtu         1500  ->  1400"]


def test_reset_router_without_a_card(run):
    done = run("reset-router", "--yes")
    assert (done.status, done.err) == (
        NOT_AS_WANTED, "lanctl: No router attached (LAN_ERROR_noRouterAttached): no router card is fitted.\n")


def test_reset_router():
    with ScriptedServer() as server:
        done = lanctl("--server", server.url, "reset-router", "--yes")
        assert (done.returncode, done.stdout.splitlines()[-1]) == (DONE, "Router reset initiated")
        assert server.methods() == ["EnumerateInstances", "ResetRouter"]


def test_the_address_of_the_connection_is_changed_by_the_change(managed):
    """The client sits at the other end of the cable and talks to the very address that it changes."""
    managed.sh("(socat TCP-LISTEN:5999,fork,reuseaddr TCP:127.0.0.1:5988 >/dev/null 2>&1 &)")
    url = "http://10.0.0.5:5999/root/cimv2"
    managed.wait_for(f"kv-peer run {LANCTL} --server {url} show lan")
    done = managed.run(f"kv-peer run {LANCTL} --server {url} apply - --yes <<<"
                       "'{endpoints: {eth1: {address: 10.0.0.6}}, lan: {icmp-filter: on}}'")
    out = succeeded(done)
    assert "The server is now reached at 10.0.0.6.\n" in out
    assert out.endswith("Done.\n")
    assert "10.0.0.6/24" in managed.sh("ip -4 address show eth1")


def test_two_at_once(managed):
    both = " & ".join(f"{LANCTL} set {change} --yes >/run/{number} 2>&1; echo $? >>/run/{number}"
                      for number, change in enumerate(("eth0 mtu=1400", "eth2 mtu=1300")))
    managed.sh(f"({both}) ; wait")
    managed.wait_for("grep -qx 0 /run/0 && grep -qx 0 /run/1")
    assert "mtu 1400" in managed.sh("ip link show eth0")
    assert "mtu 1300" in managed.sh("ip link show eth2")


# The wanted state


def refused(text, *arguments):
    done = lanctl("--server", "http://127.0.0.1:9", *(arguments or ("apply", "-", "--yes")), text=text)
    assert (done.returncode, done.stdout) == (USAGE, ""), done
    return done.stderr.removeprefix("lanctl: ").removesuffix("\n")


@pytest.mark.parametrize("text, complaint", [
    ("endpoint: {}", 'line 1: "endpoint" is unknown; there are endpoints, lan and marking'),
    ("endpoints:\n  eth3: {mtu: 1400}", 'line 2: "eth3" is no interface; there are eth0, eth1 and eth2'),
    ("lan:\n  dns1: 10.0.0.1\n  dns3: 10.0.0.1", "line 3: lan has no \"dns3\"; it has domain, dns1, dns2, icmp-filter, arp-filter, "
     "broadcast-filter, conflict-watch"),
    ("lan: {dns2: }", 'line 1: lan dns2 is to be one value; "" stands for an empty one'),
    ("lan: {dns1: [10.0.0.1]}", "line 1: lan dns1 is to be one value"),
    ("lan: on", "line 1: lan is to be a list of names and values"),
    ("[lan]", "line 1: the wanted state is to be a list of names and values"),
    ("endpoints: {eth1: {mtu: many}}", 'line 1: eth1 mtu: "many" is no number'),
    ("endpoints: {eth1: {dhcp: 1}}", 'line 1: eth1 dhcp: "1" is neither on nor off'),
    ("endpoints: {eth1: {address: 10.0.0.6/33}}", 'line 1: eth1 address: "33" is no prefix length from 0 to 32'),
    ("endpoints: {eth1: {mtu: 1400, mtu: 1500}}", 'line 1: "mtu" is given twice'),
    ("lan: {}\nlan: {}", 'line 2: "lan" is given twice'),
    ("endpoints: {eth1: {address: 10.0.0.6/24, mask: 255.0.0.0}}", "line 1: eth1 mask: is given twice"),
    ("marking: {voice: XX}", 'line 1: marking voice: "XX" is no DSCP name (EF, CS5, AF41), no TOS byte (0xB8) and no custom:0x68'),
    ("a: [", "line 1: end of sequence flow not found"),
    ("lan: {}\n---\nmarking: {}", "line 2: a second document begins here"),
])
def test_a_wanted_state_that_is_none(text, complaint):
    assert refused(text) == f"standard input: {complaint}"


def test_a_wanted_state_of_ten_megabytes():
    assert refused("# " + "x" * (10 << 20)) == "/dev/stdin is larger than 1048576 bytes"


def test_a_wanted_state_that_is_nested_without_end():
    assert "standard input: " in refused("[" * 100000)
    assert "standard input: " in refused("{a: " * 100000)


def test_a_wanted_state_that_multiplies_itself():
    lines = ["a0: &a0 [x, x, x, x, x, x, x, x, x]"]
    lines += [f"a{i}: &a{i} [{', '.join([f'*a{i - 1}'] * 9)}]" for i in range(1, 20)]
    assert refused("\n".join(lines)) == 'standard input: line 1: "a0" is unknown; there are endpoints, lan and marking'


def test_a_file_that_is_not_there():
    assert refused("", "diff", "/nonexistent") == "cannot read /nonexistent: No such file or directory"
    assert refused("", "diff", "/") == "cannot read /"


def test_wrong_usage():
    for arguments in ([], ["shew"], ["show", "eth3"], ["set", "eth1"], ["set", "lan", "mtu=1"], ["set", "eth1", "mtu"], ["apply"],
                      ["--timeout", "0", "show"], ["--timeout", "nan", "show"], ["-s", "x", "--server", "y", "show"],
                      ["--server", "ftp://x", "show"], ["watch", "--interval", "0"]):
        done = lanctl(*arguments)
        assert (done.returncode, done.stdout) == (USAGE, ""), (arguments, done)
    assert lanctl("--help").returncode == DONE
    assert lanctl("--version").stdout == "1.0.0\n"


# The configuration file


def test_named_servers(tmp_path):
    file = tmp_path / "lanctl.yaml"
    with ScriptedServer() as server:
        file.write_text(f"default: pbx1\nservers:\n  pbx1: {{url: {server.url}, timeout: 5}}\n  pbx2: {{url: 'http://127.0.0.1:9'}}\n")
        for arguments, more in ((["--config", file, "-s", "pbx1"], {}), (["-s", "pbx1"], {"XDG_CONFIG_HOME": tmp_path}),
                                (["-s", "pbx1"], {"LANCTL_CONFIG": file}), ([], {"LANCTL_CONFIG": file}),
                                ([], {"LANCTL_SERVER": server.url})):
            assert lanctl(*arguments, "show", **{name: str(value) for name, value in more.items()}).returncode == DONE, arguments
        assert lanctl("--config", file, "-s", "pbx2", "show").returncode == 3
        unknown = lanctl("--config", file, "-s", "pbx3", "show")
        assert (unknown.returncode, unknown.stderr) == (USAGE, f'lanctl: no server "pbx3" in {file}\n')


@pytest.mark.parametrize("text", ["servers: [", "[]", "servers: {a: {urls: x}}", "servers: {a: {url: [x]}}", "servers: {a: x}"])
def test_a_configuration_that_is_none(text, tmp_path):
    (tmp_path / "lanctl.yaml").write_text(text)
    assert lanctl("--config", tmp_path / "lanctl.yaml", "-s", "a", "show").returncode == USAGE
