"""The order of the models' members, as the library's debug information has them."""

import re
import subprocess

import pytest

from cim import LIBRARY_DIRS

# Classes with their data members, bases and static members apart.
MEMBERS = {
    "ORX_LANEndpointAPI": ["m_name", "m_configuration", "m_changeInProgress"],
    "InterfaceConfiguration": ["ipAddress", "subnetMask", "gateway", "isDhcpEnabled"],
    "ORX_LANEndpoint": ["m_macAddress", "m_maxDataSize", "m_timeOfLastStateChange"],
    "ORX_LANEndpointInstanceManager": ["m_count", "m_current"],
    "ORX_LANSetting": ["customerLan", "instanceID", "domainName", "primaryDNS", "secondaryDNS", "isIcmpFilterEnabled",
                       "isArpFilterEnabled", "isBroadcastFilterEnabled", "isIPAddressConflictEnabled", "isRouterPresent",
                       "resolvContents"],
    "ORX_ALGService": ["theSystemCreationClassName", "theSystemName", "theCreationClassName", "theName"],
    "ORX_ALGServiceImpl": ["elementName", "enabled", "markings", "videoMediaVisible"],
    "CCOrxConfig": ["m_path", "m_stream", "m_list", "m_style"],
}  # fmt: skip


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


@pytest.fixture(scope="module")
def members():
    """The data members of every class that the library defines, in the order of their offsets."""
    found = {}
    dump = output_of("readelf", "--debug-dump=info", LIBRARY_DIRS["plain"] / "libLANProvider.so")
    classes = {}  # level -> class that is open there
    for entry in re.split(r"\n(?= <)", dump):
        head = re.match(r" <(\d+)><\w+>: Abbrev Number: \d+ \((\w+)\)", entry)
        if not head:
            continue
        level, tag = int(head.group(1)), head.group(2)
        name = re.search(r"DW_AT_name\s*: (?:\(.*?\): )?(\S+)", entry)
        classes = {depth: open_class for depth, open_class in classes.items() if depth < level}
        if tag in ("DW_TAG_class_type", "DW_TAG_structure_type"):
            classes[level] = name and name.group(1)
        offset = re.search(r"DW_AT_data_member_location: (\d+)", entry)
        if tag == "DW_TAG_member" and offset and level - 1 in classes:
            found.setdefault(classes[level - 1], {})[int(offset.group(1))] = name and name.group(1)
    return {class_name: [fields[offset] for offset in sorted(fields) if not str(fields[offset]).startswith("_vptr")]
            for class_name, fields in found.items()}  # fmt: skip


@pytest.mark.parametrize("class_name", MEMBERS)
def test_the_members_stand_in_their_order(members, class_name):
    assert members[class_name] == MEMBERS[class_name]
