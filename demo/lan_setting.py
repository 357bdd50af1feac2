"""The server-wide LAN settings: domain, name servers, packet filter, router card."""
from answers import properties
from console import STATE, read

CLASS = "pbx/root/cimv2:ORX_LANServiceSetting"
# The class has one instance, which answers to every key.
SETTING = f'{CLASS}.InstanceID=""'


def show(console):
    reading(console)
    renaming_the_domain(console)
    changing_a_name_server(console)
    switching_a_filter(console)
    resetting_the_router(console)


def reading(console):
    console.chapter("The LAN settings")
    console.skip_events()
    answer = properties(console.client("-nl", "ei", CLASS))
    console.expect("domain of the official host name", answer.get("DomainName"), "site.example")
    console.expect("name servers of /etc/resolv.conf", (answer.get("PrimaryDNS"), answer.get("SecondaryDNS")),
                   ("10.0.0.2", "10.0.0.3"))
    console.expect("no router card", answer.get("isRouterPresent", "").lower(), "false")


def renaming_the_domain(console):
    console.chapter("Changing the DNS domain")
    console.client("mi", SETTING, 'DomainName="office.example"')
    events = console.events()
    console.shell("cat /etc/resolv.conf /etc/hosts; getent hosts pbx")
    console.expect("host table changed under the semaphore", events[:3], [
        "dhcpIpInfoRequestDHCPLANSemaphore() = 0",
        'runcommand("/kv/bin/updatehosts domainname office.example") = 0',
        "dhcpIpInfoReleaseDHCPLANSemaphore() = 0"])
    console.expect("search line", "search office.example\n" in read("/etc/resolv.conf"), True)
    answer = properties(console.client("-nl", "gi", SETTING, only=("DomainName",)))
    console.expect("read back from the host table", answer.get("DomainName"), "office.example")
    answer = console.client("mi", SETTING, 'DomainName="-office"')
    console.expect("a bad name is refused", "Invalid domain name#LAN_ERROR_domainNameBadFormat#" in answer, True)


def changing_a_name_server(console):
    console.chapter("Changing a name server")
    console.skip_events()
    console.client("mi", SETTING, 'SecondaryDNS="10.0.0.53"')
    events = console.events()
    console.shell("cat /etc/resolv.conf")
    console.expect("resolver file", "nameserver 10.0.0.2\nnameserver 10.0.0.53\n" in read("/etc/resolv.conf"), True)
    console.expect("flag in the registry", events, ['KvuSetRegEntryUint16Ex(5, "DNS", "secondaryDNS_Flag", 1) = 0'])
    answer = console.client("mi", SETTING, 'PrimaryDNS="10.0.0.300"')
    console.expect("a bad address is refused", "Invalid IP address format#LAN_ERROR_invalidIP#" in answer, True)


def switching_a_filter(console):
    console.chapter("Switching the packet filter")
    console.say("""The switch is kept in a file and told to the driver. The recorder that plays the driver shows the
                request and value that arrived.""")
    console.client("mi", SETTING, "isBroadcastFilterEnabled=true")
    console.shell("cat /kv/etc/kv_netfilter.cfg; cat $KV_NETFILTER_LOG")
    console.expect("switch on file", "kv_netfilter_broadcast   1\n" in read("/kv/etc/kv_netfilter.cfg"), True)
    console.expect("ioctl that reached the driver", read(STATE / "kv_netfilter.log"), "0x8004AB05 1\n")


def resetting_the_router(console):
    console.chapter("Resetting the router")
    console.skip_events()
    answer = console.client("cm", SETTING, "ResetRouter")
    console.expect("without a card", "No router attached#LAN_ERROR_noRouterAttached#" in answer, True)
    console.shell("touch $KV_STATE_DIR/router-card")
    answer = console.client("cm", SETTING, "ResetRouter")
    console.expect("with a card", "Router reset initiated" in answer, True)
    console.expect("the button, pressed twice", console.events(), ["osResetRouter() = 103", "osResetRouter() = 0"])
