"""ORX_LANServiceSetting through the object manager: answers, files, the packet filter's driver and the router card."""
import pytest

from cim import CIMError

CLASS = "ORX_LANServiceSetting"
KEYS = {"InstanceID": "Kalvor:ORX_LANServiceSetting"}
VALUES = {"InstanceID": "Kalvor:ORX_LANServiceSetting", "DomainName": "site.example", "PrimaryDNS": "10.0.0.2",
          "SecondaryDNS": "10.0.0.3", "isIcmpFilterEnabled": "false", "isArpFilterEnabled": "false",
          "isBroadcastFilterEnabled": "false", "isIPAddressConflictEnabled": "false", "isRouterPresent": "false"}


def failure(operation, *arguments):
    with pytest.raises(CIMError) as caught:
        operation(*arguments)
    return caught.value.code, caught.value.description


def change(managed, name, text, cim_type="string"):
    managed.modify(CLASS, KEYS, {name: (cim_type, text)})


def driver_requests(managed):
    return managed.sh("cat $KV_NETFILTER_LOG 2>/dev/null || true").splitlines()


def test_names_the_one_instance_with_an_empty_identifier(managed):
    assert managed.names(CLASS) == [(CLASS, {"InstanceID": ""})]


@pytest.mark.both_variants
def test_enumerates_and_reads_the_one_instance(managed):
    [(name, enumerated)] = managed.instances(CLASS)
    assert name == managed.enumerated_name(CLASS, KEYS)
    assert enumerated.values == VALUES
    read = managed.get(CLASS, {"InstanceID": "any other"})
    assert list(read.values.items()) == list(VALUES.items())
    assert set(read.types.values()) == {"string", "boolean"}


@pytest.mark.both_variants
def test_a_new_domain_reaches_host_table_and_resolver_file(managed):
    managed.get(CLASS, KEYS)
    managed.events()
    change(managed, "DomainName", "office.example")
    assert "search office.example\n" in managed.read("/etc/resolv.conf")
    assert "pbx.office.example" in managed.read("/etc/hosts")
    assert managed.get(CLASS, KEYS).values == {**VALUES, "DomainName": "office.example"}
    assert managed.events() == ["dhcpIpInfoRequestDHCPLANSemaphore() = 0",
                                'runcommand("/kv/bin/updatehosts domainname office.example") = 0',
                                "dhcpIpInfoReleaseDHCPLANSemaphore() = 0",
                                'KvuSetRegEntryUint16Ex(5, "DNS", "domainName_Flag", 1) = 0']


def test_name_servers_are_replaced_and_removed(managed):
    change(managed, "PrimaryDNS", "10.0.0.52")
    change(managed, "SecondaryDNS", "")
    assert managed.get(CLASS, KEYS).values == {**VALUES, "PrimaryDNS": "10.0.0.52", "SecondaryDNS": ""}
    assert managed.read("/etc/resolv.conf").count("nameserver") == 1
    assert managed.events()[-2:] == ['KvuSetRegEntryUint16Ex(5, "DNS", "primaryDNS_Flag", 1) = 0',
                                     'KvuSetRegEntryUint16Ex(5, "DNS", "secondaryDNS_Flag", 1) = 0']


@pytest.mark.parametrize("name, key, request_code", [
    ("isIcmpFilterEnabled", "kv_netfilter_icmp", "0x8004AB02"),
    ("isArpFilterEnabled", "kv_netfilter_arp", "0x8004AB03"),
    ("isIPAddressConflictEnabled", "kv_netfilter_ipconflict", "0x8004AB04"),
    ("isBroadcastFilterEnabled", "kv_netfilter_broadcast", "0x8004AB05"),
])
def test_a_filter_switch_is_stored_and_reaches_the_driver(managed, name, key, request_code):
    change(managed, name, "true", "boolean")
    assert f"{key}   1\n" in managed.read("/kv/etc/kv_netfilter.cfg")
    assert managed.get(CLASS, KEYS).values[name] == "true"
    change(managed, name, "false", "boolean")
    assert f"{key}   0\n" in managed.read("/kv/etc/kv_netfilter.cfg")
    assert driver_requests(managed) == [f"{request_code} 1", f"{request_code} 0"]


def test_an_echo_of_all_properties_changes_nothing(managed):
    before = managed.get(CLASS, KEYS)
    files = managed.sh("cat /etc/resolv.conf /etc/hosts /kv/etc/kv_netfilter.cfg; ls -l --time-style=full-iso /etc/resolv.conf "
                       "/etc/hosts /kv/etc")
    managed.events()
    managed.modify(CLASS, KEYS, before.as_sent())
    assert managed.events() == [] and driver_requests(managed) == []
    assert managed.sh("cat /etc/resolv.conf /etc/hosts /kv/etc/kv_netfilter.cfg; ls -l --time-style=full-iso "
                      "/etc/resolv.conf /etc/hosts /kv/etc") == files


@pytest.mark.both_variants
def test_a_bad_domain_is_refused(managed):
    for name in ("", "1st.example", "-a", "under_score", "a;reboot", "a b", "a\nb", "\u00e9"):
        assert failure(change, managed, "DomainName", name) == (
            1, "general error (Invalid domain name#LAN_ERROR_domainNameBadFormat#)")
    assert managed.commands() == []


def test_a_bad_name_server_is_refused(managed):
    for name in ("PrimaryDNS", "SecondaryDNS"):
        assert failure(change, managed, name, "10.0.0.300") == (
            1, "general error (Invalid IP address format#LAN_ERROR_invalidIP#)")
    assert "10.0.0.300" not in managed.read("/etc/resolv.conf")


def test_properties_before_a_refused_one_stay_applied(managed):
    with pytest.raises(CIMError):
        managed.modify(CLASS, KEYS, {"DomainName": ("string", "office.example"), "PrimaryDNS": ("string", "x")})
    assert managed.get(CLASS, KEYS).values["DomainName"] == "office.example"


def test_a_host_that_cannot_be_looked_up_fails_the_read(managed):
    managed.sh("printf '127.0.0.1 localhost\\n' >/etc/hosts")
    code, description = failure(managed.get, CLASS, KEYS)
    assert (code, description) == (1, "general error (Error getting host info. #LAN_ERROR_cannotGetHostInfo#)")
    assert "Error getting host info. Error code is: " in managed.manager_log()


@pytest.mark.both_variants
def test_the_router_is_reset_where_there_is_one(managed):
    assert failure(managed.invoke, CLASS, KEYS, "ResetRouter") == (
        1, "general error (No router attached#LAN_ERROR_noRouterAttached#)")
    managed.sh("touch $KV_STATE_DIR/router-card")
    assert managed.get(CLASS, KEYS).values["isRouterPresent"] == "true"
    assert managed.invoke(CLASS, KEYS, "ResetRouter") == "Router reset initiated"
    managed.sh("echo 4 >$KV_STATE_DIR/router-button")
    assert failure(managed.invoke, CLASS, KEYS, "ResetRouter") == (
        1, "general error (Failed to press the router reset button#LAN_ERROR_routerResetFailed#)")
    managed.sh("echo 200 >$KV_STATE_DIR/router-button")
    assert failure(managed.invoke, CLASS, KEYS, "ResetRouter") == (
        1, "general error (Router reset failed#LAN_ERROR_routerResetFailed#)")
    assert "Router reset failed: -56" in managed.manager_log()


def test_the_method_is_known_in_its_own_spelling_only(managed):
    assert failure(managed.invoke, CLASS, KEYS, "resetrouter") == (17, "extrinsic method does not exist")


def test_the_setting_is_neither_created_nor_deleted(managed):
    assert failure(managed.create, CLASS, {"InstanceID": ("string", "x")}) == (7, "requested operation is not supported")
    assert failure(managed.delete, CLASS, KEYS) == (7, "requested operation is not supported")


def test_the_distributions_client_reads_changes_and_calls(managed):
    assert 'DomainName="site.example"' in managed.wbemcli("ei", f"pbx/root/cimv2:{CLASS}")
    managed.wbemcli("mi", f'pbx/root/cimv2:{CLASS}.InstanceID=""', 'PrimaryDNS="10.0.0.77"')
    assert "nameserver 10.0.0.77\n" in managed.read("/etc/resolv.conf")
    managed.sh("touch $KV_STATE_DIR/router-card")
    assert "Router reset initiated" in managed.wbemcli("cm", f'pbx/root/cimv2:{CLASS}.InstanceID=""', "ResetRouter")
