"""The three LAN interfaces: listing, reading, changing, refusing, cable, DHCP."""
import pathlib
import re
import subprocess

from answers import key_values, properties
from console import read, wait_until

CLASS = "pbx/root/cimv2:ORX_LANEndpoint"
ETH1 = f'{CLASS}.Name="eth1"'
IFCFG = "/etc/sysconfig/network-scripts/ifcfg-eth1"
VOICEMAIL = "/run/voicemail.pid"


def address():
    shown = subprocess.run(["ip", "-4", "-o", "address", "show", "dev", "eth1"], capture_output=True, text=True,
                           check=True).stdout
    return re.search(r"inet (\S+)", shown).group(1)


def commands(events):
    """The command lines among the events, in order."""
    return [match.group(1) for match in (re.fullmatch(r'runcommand\("(.*)"\) = 0', line) for line in events) if match]


def voicemail_runs():
    pid = pathlib.Path(VOICEMAIL)
    return pid.exists() and pathlib.Path(f"/proc/{pid.read_text().strip()}").exists()


def show(console):
    listing(console)
    reading(console)
    changing_the_address(console)
    changing_the_mtu(console)
    refusing(console)
    pulling_the_cable(console)
    switching_dhcp_on(console)
    switching_dhcp_off(console)
    changing_the_gateway(console)


def listing(console):
    console.chapter("The interfaces")
    names = console.client("ein", CLASS)
    console.expect("three interfaces, in order", key_values(names, "Name"), ["eth0", "eth1", "eth2"])


def reading(console):
    console.chapter("Reading the customer LAN")
    console.say("""An interface can also be asked for by its description. The speed is the fallback for an interface
                without MII registers.""")
    answer = properties(console.client("-nl", "gi", f'{CLASS}.Name="Customer LAN"'))
    console.expect("name", answer.get("Name"), "eth1")
    console.expect("address as in the kernel", f"{answer.get('IPAddress')}/24", address())
    console.expect("hardware address as in the kernel", answer.get("MACAddress"),
                   read("/sys/class/net/eth1/address").strip())
    console.expect("default gateway", answer.get("DefaultGateway"), "10.0.0.1")
    console.expect("MTU", answer.get("MaxDataSize"), "1500")
    console.expect("speed in bit/s", answer.get("Speed"), "10000000")
    console.skip_events()


def changing_the_address(console):
    console.chapter("Changing its address")
    console.say("""Voice messaging is stopped around the restart of the interface, and the DHCP service and the element
                management are told. The client sends the whole instance back, so that the MTU is set once more.""")
    console.shell("ip -brief -4 address show dev eth1")
    voicemail = read(VOICEMAIL)
    console.client("mi", ETH1, 'IPAddress="10.0.0.6"')
    events = console.events()
    console.shell("ip -brief -4 address show dev eth1")
    console.shell(f"grep IPADDR {IFCFG}; grep pbx /etc/hosts")
    console.expect("address in the kernel", address(), "10.0.0.6/24")
    console.expect("commands, in order", commands(events), [
        "/kv/bin/updateFile ifcfg eth1 IPADDR 10.0.0.6",
        "/kv/bin/updatehosts ipaddress 10.0.0.6",
        "/kv/bin/processcontrol stop voicemail",
        "ifdown eth1;ifup eth1",
        "/kv/bin/processcontrol start voicemail"])
    console.expect("host table", "10.0.0.6 pbx.site.example pbx\n" in read("/etc/hosts"), True)
    console.expect("voice messaging runs again, as a new process", (voicemail_runs(), read(VOICEMAIL) != voicemail),
                   (True, True))
    console.expect("notice to the element management", "EmsIpAddressChange(1, 1, 0x2) = 0" in events, True)


def changing_the_mtu(console):
    console.chapter("Changing its MTU")
    console.client("mi", ETH1, "MaxDataSize=1400")
    events = console.events()
    console.shell("ip link show dev eth1")
    console.expect("MTU in the kernel", read("/sys/class/net/eth1/mtu"), "1400\n")
    console.expect("MTU in the registry, no command run", events,
                   [r'KvuSetRegEntryUint16Ex(5, "providers\ORX_LANProvider\eth1", "MTUSize", 1400) = 0'])


def refusing(console):
    console.chapter("Changes that are refused")
    console.say("An address in the OAM LAN, and an MTU that Ethernet does not carry.")
    answer = console.client("mi", ETH1, 'IPAddress="172.16.2.9"')
    console.expect("the client is told why", "The IP/mask pair overlaps with another interface" in answer, True)
    answer = console.client("mi", ETH1, "MaxDataSize=1501")
    console.expect("the client is told why", "MTU size entered is out of the range: (68-1500)" in answer, True)
    console.say("The object manager's log has the bare texts, and the traces that operators know:")
    console.shell("cat $KV_STATE_DIR/object-manager.log")
    console.expect("no command run", commands(console.events()), [])
    console.expect("address kept", address(), "10.0.0.6/24")
    console.expect("MTU kept", read("/sys/class/net/eth1/mtu"), "1400\n")


def pulling_the_cable(console):
    console.chapter("Pulling the cable")
    console.shell("kv-peer carrier eth1 down")
    wait_until(lambda: read("/sys/class/net/eth1/operstate") == "down\n")
    answer = properties(console.client("-nl", "gi", ETH1, only=("EnabledState", "OperationalStatus")))
    console.expect("enabled (1), but without link (2)",
                   (answer.get("EnabledState"), answer.get("OperationalStatus")), ("1", "2"))
    console.shell("kv-peer carrier eth1 up")
    wait_until(lambda: read("/sys/class/net/eth1/operstate") == "up\n")
    answer = properties(console.client("-nl", "gi", ETH1, only=("EnabledState", "OperationalStatus")))
    console.expect("enabled (1), with link (1)",
                   (answer.get("EnabledState"), answer.get("OperationalStatus")), ("1", "1"))


def switching_dhcp_on(console):
    console.chapter("Switching DHCP on")
    console.say("The change answers at once; lease and voice messaging follow in the background.")
    console.skip_events()
    console.client("mi", ETH1, "isDhcpEnabled=true")
    events = console.events()
    console.expect("commands, in order", commands(events), [
        "/kv/bin/updateFile ifcfg eth1 BOOTPROTO dhcp",
        "/kv/bin/updateFile ifcfg eth1 IPADDR 10.0.0.6",
        "/kv/bin/updateFile ifcfg eth1 NETMASK 255.255.255.0",
        "/kv/bin/updateFile gateway 10.0.0.1",
        "/kv/bin/processcontrol stop voicemail",
        "/kv/bin/dhcp_ippaddr.sh eth1 &"])
    console.expect("voice messaging comes back", wait_until(voicemail_runs), True)
    console.shell("cat /kv/log/dhcp_ippaddr.log; ip -brief -4 address show dev eth1")
    answer = properties(console.client("-nl", "gi", ETH1, only=("IPAddress", "isDhcpEnabled")))
    console.expect("DHCP is on", answer.get("isDhcpEnabled", "").lower(), "true")
    console.expect("address is the leased one", f"{answer.get('IPAddress')}/24", address())
    console.expect("leased from the customer LAN's range", address().startswith("10.0.0.1"), True)


def switching_dhcp_off(console):
    console.chapter("Switching DHCP off")
    console.say("The address that DHCP gave last stays as the fixed one.")
    leased = address()
    console.skip_events()
    console.client("mi", ETH1, "isDhcpEnabled=false")
    console.events()
    console.shell(f"cat {IFCFG}")
    console.expect("fixed address on file",
                   (f"IPADDR={leased[:-3]}\n" in read(IFCFG), "BOOTPROTO=static\n" in read(IFCFG)), (True, True))
    console.expect("address kept", address(), leased)


def changing_the_gateway(console):
    console.chapter("Changing the default gateway")
    console.skip_events()
    console.client("mi", ETH1, 'DefaultGateway="10.0.0.254"')
    events = console.events()
    routes = console.shell("ip route show default")
    console.expect("commands, in order", commands(events), [
        "/kv/bin/updatehosts routeraddress 10.0.0.254",
        "/kv/bin/updateFile gateway 10.0.0.254",
        "route delete default gw 10.0.0.1 eth1",
        "route add default gw 10.0.0.254 eth1"])
    console.expect("gateway on file", ("GATEWAY=10.0.0.254\n" in read("/etc/sysconfig/network"),
                                       "10.0.0.254 router.site.example router\n" in read("/etc/hosts")), (True, True))
    console.expect("default route in the kernel", routes.split(), "default via 10.0.0.254 dev eth1".split())
