"""The object manager unloads the library when nobody has asked for long, and loads it again for the next request."""
import time

import pytest

from cim import OPENWBEM

pytestmark = pytest.mark.both_variants

# OpenWBEM looks once a minute; kv-cimom every second.
LONGEST_WAIT = 150 if OPENWBEM else 15

MARKING_CLASS = "ORX_ALGService"
MARKING_KEYS = {"SystemCreationClassName": "SCCN", "SystemName": "SN", "CreationClassName": "CCN", "Name": "Name"}
ETH1 = {"SystemCreationClassName": "ORX_LANEndpoint", "SystemName": "ORX_K30v", "CreationClassName": "ORX_LANEndpoint",
        "Name": "eth1"}


def wait_until_unloaded(server):
    deadline = time.monotonic() + LONGEST_WAIT
    while server.has_library():
        assert time.monotonic() < deadline, f"the idle library is still loaded after {LONGEST_WAIT} s"
        time.sleep(0.2)


def test_the_next_request_finds_all_that_is_stored_and_applies_it_again(unloading):
    unloading.modify(MARKING_CLASS, MARKING_KEYS, {"QoSMarkVoiceMedia": ("uint16", "184")})
    unloading.modify("ORX_LANEndpoint", ETH1, {"MaxDataSize": ("sint32", "1400")})
    wait_until_unloaded(unloading)
    unloading.sh("ip link set eth1 mtu 1300")
    assert unloading.get(MARKING_CLASS, MARKING_KEYS).values["QoSMarkVoiceMedia"] == "184"
    assert unloading.read("/sys/class/net/eth1/mtu") == "1400\n"
    assert unloading.sh("cat $KV_STATE_DIR/ORX_DSCP.log").count("Create ORX_ALGService") > 1


def test_a_deleted_marking_object_is_back(unloading):
    unloading.delete(MARKING_CLASS, MARKING_KEYS)
    wait_until_unloaded(unloading)
    assert unloading.names(MARKING_CLASS) == [(MARKING_CLASS, MARKING_KEYS)]
