"""Changes that an operator might want: most of them reasonable, some refused by one rule of the server or another."""

NETWORKS = ["10.0.0", "10.0.7", "10.1.2", "172.16.2", "172.16.3", "192.168.10", "192.168.11", "203.0.113"]
HOSTS = [0, 1, 2, 5, 6, 9, 77, 128, 129, 254, 255]
USELESS_ADDRESSES = ["", "10.0.0", "10.0.0.256", "010.0.0.6", "10.0.0.6 ", "0.1.2.3", "127.0.0.1", "224.0.0.9", "255.255.255.255",
                     "nowhere", "10.0.0.6.7", "::1", "0x0a.0.0.6", "1", "<b>10.0.0.6"]
MASKS = ["255.255.255.0", "255.255.0.0", "255.255.255.128", "255.255.255.240", "255.254.0.0", "255.255.255.252", "255.255.255.254"]
USELESS_MASKS = ["", "255.0.255.0", "255.255.255.00", "255.255.255.255", "0.0.0.0", "255.255.255", "24", "mask", "0xff.255.255.0",
                 "255.255.253.0", "255..255.0", "255.255.255.256"]
MTUS = [68, 576, 1280, 1400, 1492, 1499, 1500]
USELESS_MTUS = [-1, 0, 67, 1501, 9000, 65536, 2147483647]
DOMAINS = ["site.example", "other.example", "a", "a-b.c-", "X9.example", "branch.office.example"]
USELESS_DOMAINS = ["", "9site", "-site.example", ".example", "under_score", "two words", "a;b", "a'b", "süd.example", "a/b"]
LONG_DOMAIN = "a" * 254
DSCP_NAMES = ["EF", "CS5", "AF41", "AF31", "CS0"]
FLOWS = ["signalling", "voice", "video", "fax"]
FILTERS = ["icmp-filter", "arp-filter", "broadcast-filter", "conflict-watch"]


def mostly(random, good, useless, share=0.2):
    return random.choice(useless if random.random() < share else good)


def address(random):
    return mostly(random, [f"{random.choice(NETWORKS)}.{random.choice(HOSTS)}"], USELESS_ADDRESSES, 0.1)


def gateway(random):
    return mostly(random, [f"{random.choice(NETWORKS)}.{random.choice([1, 254])}"], USELESS_ADDRESSES, 0.15)


def some(random, makers, share):
    """At least one of the keys, each with that probability."""
    chosen = [key for key in makers if random.random() < share] or [random.choice(sorted(makers))]
    return {key: makers[key](random) for key in chosen}


ENDPOINT = {
    "address": address,
    "mask": lambda random: mostly(random, MASKS, USELESS_MASKS),
    "gateway": gateway,
    "mtu": lambda random: mostly(random, MTUS, USELESS_MTUS),
    "dhcp": lambda random: random.random() < 0.2,
}
SETTING = {
    "domain": lambda random: mostly(random, DOMAINS, USELESS_DOMAINS + [LONG_DOMAIN], 0.35),
    "dns1": lambda random: mostly(random, ["", "10.0.0.2", "10.0.0.3", "10.0.0.53"], USELESS_ADDRESSES[1:]),
    "dns2": lambda random: mostly(random, ["", "10.0.0.2", "10.0.0.3", "10.0.0.53"], USELESS_ADDRESSES[1:]),
    **{key: lambda random: random.random() < 0.5 for key in FILTERS},
}


def mark(random):
    value = random.choice([*DSCP_NAMES, str(random.randrange(256)), hex(random.randrange(256))])
    return random.choice(["", "custom:"]) + value


MARKING = {"enabled": lambda random: random.random() < 0.5, **{flow: mark for flow in FLOWS}}


def endpoint_change(random):
    return {random.choice(["eth0", "eth1", "eth1", "eth2"]): some(random, ENDPOINT, 0.35)}


def dhcp_change(random):
    """DHCP switched, alone or beside other values."""
    name = random.choice(["eth0", "eth1", "eth1", "eth2"])
    beside = some(random, ENDPOINT, 0.2) if random.random() < 0.4 else {}
    return {name: {**beside, "dhcp": random.random() < 0.5}}


def repair(_random):
    """The customer LAN as it was delivered, with a gateway that it reaches: others leave it without one before long."""
    return {"eth1": {"dhcp": False, "address": "10.0.0.5", "mask": "255.255.255.0", "gateway": "10.0.0.1"}}


def several_endpoints(random):
    return {name: some(random, ENDPOINT, 0.25) for name in random.sample(["eth0", "eth1", "eth2"], random.choice([2, 3]))}


ENDPOINT_CHANGES = {endpoint_change: 45, several_endpoints: 13, dhcp_change: 14, repair: 6}


def wanted(random):
    """A wanted state as lanctl reads it from a file."""
    kind = random.choices(["endpoints", "setting", "marking", "all"], [70, 14, 9, 7])[0]
    state = {}
    if kind in ("endpoints", "all"):
        state["endpoints"] = random.choices([*ENDPOINT_CHANGES], [*ENDPOINT_CHANGES.values()])[0](random)
    if kind in ("setting", "all"):
        state["lan"] = some(random, SETTING, 0.3)
    if kind in ("marking", "all"):
        state["marking"] = some(random, MARKING, 0.35)
    return state
