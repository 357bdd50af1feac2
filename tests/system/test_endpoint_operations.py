"""ORX_LANEndpoint through the object manager: answers, kernel, files and what the platform was told."""
import re

import pytest

from cim import CIMError

CLASS = "ORX_LANEndpoint"
ETH1_KEYS = {"SystemCreationClassName": "ORX_LANEndpoint", "SystemName": "ORX_K30v",
             "CreationClassName": "ORX_LANEndpoint", "Name": "eth1"}
PROPERTIES = {"SystemCreationClassName": "string", "SystemName": "string", "CreationClassName": "string",
              "Name": "string", "MACAddress": "string", "MaxDataSize": "sint32", "IPAddress": "string",
              "SubnetMask": "string", "DefaultGateway": "string", "isDhcpEnabled": "boolean", "Description": "string",
              "OperationalStatus": "uint16", "EnabledState": "uint16", "TimeOfLastStateChange": "datetime",
              "ProtocolIFType": "uint16", "Speed": "uint64"}


def keys_of(name):
    return {**ETH1_KEYS, "Name": name}


def address_of(managed, interface):
    shown = managed.sh(f"ip -4 -o address show dev {interface}")
    return re.search(r"inet (\S+)", shown).group(1)


def refusal(managed, values, name="eth1"):
    with pytest.raises(CIMError) as caught:
        managed.modify(CLASS, keys_of(name), values)
    return caught.value.code, caught.value.description


def test_names_the_three_interfaces_in_order(managed):
    assert managed.names(CLASS) == [(CLASS, keys_of(f"eth{number}")) for number in range(3)]


@pytest.mark.both_variants
def test_enumerates_the_interfaces_under_their_names(managed):
    found = managed.instances(CLASS)
    assert [name for name, _ in found] == [managed.enumerated_name(CLASS, keys_of(f"eth{number}")) for number in range(3)]
    assert [instance.values["Description"] for _, instance in found] == ["Internal LAN", "Customer LAN", "OAM LAN"]
    assert [instance.values["IPAddress"] for _, instance in found] == ["192.168.10.1", "10.0.0.5", "172.16.2.1"]
    assert [instance.values["DefaultGateway"] for _, instance in found] == ["", "10.0.0.1", ""]


@pytest.mark.both_variants
def test_reads_an_interface_with_every_property_in_its_type(managed):
    instance = managed.get(CLASS, ETH1_KEYS)
    assert instance.types == PROPERTIES
    assert list(instance.types) == list(PROPERTIES)
    assert instance.values == {
        **ETH1_KEYS, "MACAddress": managed.read("/sys/class/net/eth1/address").strip(), "MaxDataSize": "1500",
        "IPAddress": "10.0.0.5", "SubnetMask": "255.255.255.0", "DefaultGateway": "10.0.0.1",
        "isDhcpEnabled": "false", "Description": "Customer LAN", "OperationalStatus": "1", "EnabledState": "1",
        "TimeOfLastStateChange": "00000000000000.000000+000", "ProtocolIFType": "6", "Speed": "10000000"}
    warned = {name: qualifiers for name, qualifiers in instance.qualifiers.items() if qualifiers}
    assert warned == {"IPAddress": [("ImpactWarning", "Changing IP address will restart Voice Messaging.")],
                      "SubnetMask": [("ImpactWarning", "Changing subnet mask will restart Voice Messaging.")],
                      "isDhcpEnabled": [("ImpactWarning", "Changing DHCP will restart Voice Messaging.")]}


def test_finds_an_interface_by_its_description(managed):
    assert managed.get(CLASS, keys_of("OAM LAN")).values["Name"] == "eth2"


def test_a_read_changes_nothing(managed):
    managed.instances(CLASS)
    managed.get(CLASS, ETH1_KEYS)
    managed.names(CLASS)
    assert managed.events() == []


@pytest.mark.both_variants
def test_refuses_a_name_that_no_interface_has(managed):
    for name in ("eth3", "customer lan", ""):
        with pytest.raises(CIMError) as caught:
            managed.get(CLASS, keys_of(name))
        assert (caught.value.code, caught.value.description) == (
            1, "general error (Cannot find the corresponding if interface#LAN_ERROR_noIFNameMapping#)")


def test_reads_of_other_names_that_the_kernel_knows_store_nothing(managed):
    """To the kernel eth1:x is eth1, so that its data can be read before its name is refused."""
    for number in range(3):
        with pytest.raises(CIMError, match="Cannot find the corresponding if interface"):
            managed.get(CLASS, keys_of(f"eth1:{number}"))
    assert managed.events() == []


def test_refuses_a_path_without_a_name(managed):
    keys = dict(ETH1_KEYS)
    del keys["Name"]
    with pytest.raises(CIMError) as caught:
        managed.get(CLASS, keys)
    assert (caught.value.code, caught.value.description) == (6, "requested object could not be found")


@pytest.mark.both_variants
def test_a_new_address_reaches_kernel_files_and_services(managed):
    managed.get(CLASS, ETH1_KEYS)
    managed.events()
    managed.modify(CLASS, ETH1_KEYS, {"IPAddress": ("string", "10.0.0.6")})
    assert address_of(managed, "eth1") == "10.0.0.6/24"
    assert "IPADDR=10.0.0.6\n" in managed.read("/etc/sysconfig/network-scripts/ifcfg-eth1")
    assert managed.events() == [
        "dhcpIpInfoRequestDHCPLANSemaphore() = 0",
        'runcommand("/kv/bin/updateFile ifcfg eth1 IPADDR 10.0.0.6") = 0',
        "dhcpIpInfoReleaseDHCPLANSemaphore() = 0",
        "dhcpIpInfoRequestDHCPLANSemaphore() = 0",
        'runcommand("/kv/bin/updatehosts ipaddress 10.0.0.6") = 0',
        "dhcpIpInfoReleaseDHCPLANSemaphore() = 0",
        'runcommand("/kv/bin/processcontrol stop voicemail") = 0',
        'runcommand("ifdown eth1;ifup eth1") = 0',
        'runcommand("/kv/bin/processcontrol start voicemail") = 0',
        "dhcpIpInfoInformDHCPProviderOfIPConfigChange() = 0",
        "EmsConnectionOpen(0) = 0",
        "EmsIpAddressChange(1, 1, 0x2) = 0",
        "EmsConnectionClose() = 0"]
    assert managed.sh("pgrep -c -f '^voicemail'").strip() == "1"


def test_a_new_mask_of_the_internal_lan_restarts_it_quietly(managed):
    managed.modify(CLASS, keys_of("eth0"), {"SubnetMask": ("string", "255.255.255.128")})
    assert address_of(managed, "eth0") == "192.168.10.1/25"
    assert managed.commands() == ["/kv/bin/updateFile ifcfg eth0 NETMASK 255.255.255.128",
                                  "/kv/bin/processcontrol stop voicemail", "ifdown eth0;ifup eth0",
                                  "/kv/bin/processcontrol start voicemail"]


def test_a_new_gateway_moves_the_default_route(managed):
    managed.modify(CLASS, ETH1_KEYS, {"DefaultGateway": ("string", "10.0.0.254")})
    assert managed.sh("ip route show default").split()[:5] == ["default", "via", "10.0.0.254", "dev", "eth1"]
    assert managed.commands() == ["/kv/bin/updatehosts routeraddress 10.0.0.254", "/kv/bin/updateFile gateway 10.0.0.254",
                                  "route delete default gw 10.0.0.1 eth1", "route add default gw 10.0.0.254 eth1"]


def test_a_new_mtu_is_in_force_at_once_and_remembered(managed):
    managed.modify(CLASS, ETH1_KEYS, {"MaxDataSize": ("sint32", "1400")})
    assert managed.read("/sys/class/net/eth1/mtu") == "1400\n"
    assert managed.get(CLASS, ETH1_KEYS).values["MaxDataSize"] == "1400"
    assert r'KvuSetRegEntryUint16Ex(5, "providers\ORX_LANProvider\eth1", "MTUSize", 1400) = 0' in managed.events()


def test_dhcp_is_switched_on_and_off(managed):
    managed.modify(CLASS, keys_of("eth2"), {"isDhcpEnabled": ("boolean", "true")})
    managed.wait_for("ip -4 -o address show dev eth2 | grep -q 172.16.2.1[01]")
    assert managed.get(CLASS, keys_of("eth2")).values["isDhcpEnabled"] == "true"
    leased = address_of(managed, "eth2").split("/")[0]
    managed.wait_for("pgrep -f '^voicemail'")
    managed.modify(CLASS, keys_of("eth2"), {"isDhcpEnabled": ("boolean", "false")})
    file = managed.read("/etc/sysconfig/network-scripts/ifcfg-eth2")
    assert "BOOTPROTO=static\n" in file and f"IPADDR={leased}\n" in file


def test_dhcp_on_the_oam_lan_keeps_the_default_gateway_for_the_next_change(managed):
    managed.modify(CLASS, keys_of("eth2"), {"isDhcpEnabled": ("boolean", "true")})
    managed.wait_for("pgrep -f '^voicemail'")
    managed.modify(CLASS, ETH1_KEYS, {"IPAddress": ("string", "10.0.0.6")})
    assert managed.sh("ip route show default").split()[:5] == ["default", "via", "10.0.0.1", "dev", "eth1"]


def test_an_echo_of_all_properties_changes_nothing(managed):
    before = managed.get(CLASS, ETH1_KEYS)
    managed.events()
    managed.modify(CLASS, ETH1_KEYS, before.as_sent())
    assert managed.commands() == []
    assert managed.get(CLASS, ETH1_KEYS).values == before.values


def test_a_partial_modification_changes_only_what_was_sent(managed):
    before = managed.get(CLASS, ETH1_KEYS).values
    managed.modify(CLASS, ETH1_KEYS, {"IPAddress": ("string", "10.0.0.7"), "MaxDataSize": ("sint32", None)})
    assert managed.get(CLASS, ETH1_KEYS).values == {**before, "IPAddress": "10.0.0.7"}


def test_a_property_list_restricts_a_modification(managed):
    before = managed.get(CLASS, ETH1_KEYS).values
    managed.modify(CLASS, ETH1_KEYS, {"MaxDataSize": ("sint32", "1300"), "IPAddress": ("string", "10.0.0.7")},
                   property_list=["Name", "MaxDataSize"])
    assert managed.get(CLASS, ETH1_KEYS).values == {**before, "MaxDataSize": "1300"}


def test_properties_that_cannot_be_changed_are_passed_over(managed):
    before = managed.get(CLASS, ETH1_KEYS).values
    managed.modify(CLASS, ETH1_KEYS, {"Description": ("string", "x"), "Speed": ("uint64", "1")})
    assert managed.get(CLASS, ETH1_KEYS).values == before
    assert managed.commands() == []


@pytest.mark.parametrize("values, text", [
    ({"IPAddress": ("string", "10.0.0.300")}, "Invalid IP address format"),
    ({"IPAddress": ("string", "10.0.0.0")}, "Invalid IP address format"),
    ({"DefaultGateway": ("string", "nonsense")}, "Invalid IP address format"),
    ({"SubnetMask": ("string", "255.0.255.0")}, "Invalid subnet format"),
    ({"IPAddress": ("string", "172.16.2.9")}, "The IP/mask pair overlaps with another interface"),
    ({"MaxDataSize": ("sint32", "67")}, "MTU size entered is out of the range: (68-1500)"),
    ({"MaxDataSize": ("sint32", "1501")}, "MTU size entered is out of the range: (68-1500)"),
])
def test_a_refused_value_changes_nothing_and_is_logged(managed, values, text):
    before = managed.get(CLASS, ETH1_KEYS).values
    managed.events()
    assert refusal(managed, values) == (1, f"general error ({text})")
    assert managed.commands() == []
    assert managed.get(CLASS, ETH1_KEYS).values == before
    assert text in managed.manager_log()


@pytest.mark.both_variants
def test_an_mtu_that_the_kernel_refuses_is_said_to_be_so(managed):
    managed.sh("ip link delete eth2")
    with pytest.raises(CIMError) as caught:
        managed.modify(CLASS, keys_of("eth2"), {"MaxDataSize": ("sint32", "1400")})
    assert caught.value.description == "general error (MTU size not set. Error reported in kernel)"


def test_a_missing_interface_is_listed_with_empty_data(managed):
    managed.sh("ip link delete eth2")
    values = managed.instances(CLASS)[2][1].values
    assert (values["Name"], values["MACAddress"], values["MaxDataSize"], values["IPAddress"]) == ("eth2", "", "0", "")
    assert (values["EnabledState"], values["OperationalStatus"]) == ("2", "2")


def test_an_mtu_survives_a_refused_address_of_the_same_request(managed):
    assert refusal(managed, {"MaxDataSize": ("sint32", "1400"), "IPAddress": ("string", "172.16.2.9")}) == (
        1, "general error (The IP/mask pair overlaps with another interface)")
    assert managed.read("/sys/class/net/eth1/mtu") == "1400\n"


def test_a_silent_element_management_fails_the_request_after_the_change(managed):
    managed.get(CLASS, ETH1_KEYS)
    managed.sh("rm -f $KV_STATE_DIR/events.log; mkdir $KV_STATE_DIR/events.log")
    with pytest.raises(CIMError) as caught:
        managed.modify(CLASS, ETH1_KEYS, {"IPAddress": ("string", "10.0.0.6")})
    assert caught.value.description == "general error (Failed to notify related components on the address change)"
    assert address_of(managed, "eth1") == "10.0.0.6/24"


def test_a_failing_helper_ends_the_change(managed):
    managed.sh("printf '#!/bin/sh\\nexit 3\\n' >/kv/bin/processcontrol")
    assert refusal(managed, {"IPAddress": ("string", "10.0.0.6")}) == (
        16, "extrinsic method could not be executed "
            "(Failed to execute the command: /kv/bin/processcontrol stop voicemail)")
    assert address_of(managed, "eth1") == "10.0.0.5/24"


@pytest.mark.parametrize("name", ["eth1;touch /run/kv-hostile", "eth1$(touch /run/kv-hostile)", "eth1 | touch /run/kv-hostile",
                                  "eth1\ntouch /run/kv-hostile", "eth9"])
def test_a_hostile_name_never_reaches_a_command(managed, name):
    for values in ({"IPAddress": ("string", "10.0.0.6")}, {"isDhcpEnabled": ("boolean", "true")}):
        code, description = refusal(managed, values, name)
        assert code == 1 and "LAN_ERROR_noIFNameMapping" in description
    assert managed.commands() == []
    assert managed.run("test -e /run/kv-hostile").status != 0


@pytest.mark.parametrize("value", ["10.0.0.6;reboot", "$(reboot)", "10.0.0.6\n", "10.0.0.6 ", "\u00e91", "1" * 65536])
def test_a_hostile_value_is_refused_and_never_reaches_a_command(managed, value):
    for name, text in (("IPAddress", "Invalid IP address format"), ("SubnetMask", "Invalid"),
                       ("DefaultGateway", "Invalid IP address format")):
        code, description = refusal(managed, {name: ("string", value)})
        assert code == 1 and description.startswith(f"general error ({text}")
    assert managed.commands() == []


def test_interfaces_are_neither_created_nor_deleted(managed):
    for operation in (lambda: managed.create(CLASS, {"Name": ("string", "eth7")}), lambda: managed.delete(CLASS, ETH1_KEYS)):
        with pytest.raises(CIMError) as caught:
            operation()
        assert (caught.value.code, caught.value.description) == (7, "requested operation is not supported")


def test_a_class_in_other_letter_case_is_refused_by_the_provider(managed):
    with pytest.raises(CIMError) as caught:
        managed.get("orx_lanendpoint", ETH1_KEYS)
    assert (caught.value.code, caught.value.description) == (5, "class does not exist")


def test_the_distributions_client_reads_and_changes(managed):
    assert managed.wbemcli("ein", "pbx/root/cimv2:ORX_LANEndpoint").count("SystemName=\"ORX_K30v\"") == 3
    managed.wbemcli("mi", 'pbx/root/cimv2:ORX_LANEndpoint.Name="eth1"', 'IPAddress="10.0.0.8"')
    assert address_of(managed, "eth1") == "10.0.0.8/24"
    answer = managed.wbemcli("mi", 'pbx/root/cimv2:ORX_LANEndpoint.Name="eth1"', 'IPAddress="10.0.0.300"')
    assert "general error (Invalid IP address format)" in answer


def test_a_change_waits_while_another_process_holds_the_semaphore(managed):
    managed.sh("flock $KV_STATE_DIR/lan.lock sh -c 'touch /run/held; while test -e /run/held; do sleep 0.05; done' >/dev/null 2>&1 &")
    managed.wait_for("test -e /run/held")
    managed.sh("{ wbemcli mi 'pbx/root/cimv2:ORX_LANEndpoint.Name=\"eth1\"' 'IPAddress=\"10.0.0.6\"'; touch /run/answered; } >/dev/null 2>&1 &")
    managed.wait_for("grep -q -- \"-> FLOCK.*:$(stat -c %i $KV_STATE_DIR/lan.lock) \" /proc/locks")
    assert managed.run("test -e /run/answered").status == 1
    assert address_of(managed, "eth1") == "10.0.0.5/24"
    managed.sh("rm /run/held")
    managed.wait_for("test -e /run/answered")
    assert address_of(managed, "eth1") == "10.0.0.6/24"
