"""What management clients do all day: mostly reading, now and then changing something."""
from product_requests import (ENDPOINT, MARKING, MARKING_KEYS, SETTING, SETTING_KEYS, all_instances, all_names, change,
                              endpoint_keys, get, mtu_change)

READS = [build(name) for build in (all_instances, all_names) for name in (ENDPOINT, SETTING, MARKING)] + [
    *(get(ENDPOINT, endpoint_keys(name)) for name in ("eth0", "eth1", "eth2")),
    get(SETTING, SETTING_KEYS), get(MARKING, MARKING_KEYS)]

# Each comes with its way back, so that every second one is a change.
QUICK_CHANGES = [
    *(mtu_change(interface, mtu) for interface in ("eth0", "eth1", "eth2") for mtu in (1400, 1500)),
    *(change(SETTING, SETTING_KEYS, {"DomainName": ("string", name)}) for name in ("lab.example", "site.example")),
    *(change(SETTING, SETTING_KEYS, {"PrimaryDNS": ("string", address)}) for address in ("10.0.0.7", "10.0.0.2")),
    *(change(SETTING, SETTING_KEYS, {"isIcmpFilterEnabled": ("boolean", on)}) for on in ("true", "false")),
    *(change(MARKING, MARKING_KEYS, {"QoSMarkVoiceMedia": ("uint16", value)}) for value in ("184", "188")),
    *(change(MARKING, MARKING_KEYS, {"KLonKLEnabled": ("boolean", on)}) for on in ("true", "false")),
]

# These restart an interface; a new address also waits a second for the element management's answer.
SLOW_CHANGES = [change(ENDPOINT, endpoint_keys("eth2"), values) for values in (
    {"SubnetMask": ("string", "255.255.0.0")}, {"SubnetMask": ("string", "255.255.255.0")},
    {"IPAddress": ("string", "172.16.2.9")}, {"IPAddress": ("string", "172.16.2.1")})]


def run(client, random, goes_on, slow_every=0):
    """Sends requests while goes_on() says so; returns how many of each kind there were."""
    reads = changes = 0
    while goes_on():
        if random.random() < 0.85:
            client.send(random.choice(READS))
            reads += 1
            continue
        changes += 1
        slow = slow_every and changes % slow_every == 0
        client.send(random.choice(SLOW_CHANGES if slow else QUICK_CHANGES))
    return reads, changes
