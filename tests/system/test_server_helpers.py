"""Each helper command of the disposable server does on kernel and files what its name promises."""


def ifcfg(server, interface):
    return server.read(f"/etc/sysconfig/network-scripts/ifcfg-{interface}")


def address(server, interface):
    return server.sh(f"ip -4 -o address show dev {interface}").split("inet ")[1].split()[0]


def default_routes(server):
    return server.sh("ip route show default").splitlines()


def voicemail_pid(server):
    return server.read("/run/voicemail.pid").strip()


def test_the_server_comes_up_with_its_three_networks_connected(server):
    assert address(server, "eth0") == "192.168.10.1/24"
    assert address(server, "eth1") == "10.0.0.5/24"
    assert address(server, "eth2") == "172.16.2.1/24"
    assert default_routes(server) == ["default via 10.0.0.1 dev eth1 "]
    for interface in ("eth0", "eth1", "eth2"):
        assert "LOWER_UP" in server.sh(f"ip -o link show dev {interface}")
        assert "state UP" in server.sh(f"ip -o link show dev {interface}")


def test_the_configuration_files_hold_one_pair_a_line(server):
    assert ifcfg(server, "eth1") == ("DEVICE=eth1\nBOOTPROTO=static\nIPADDR=10.0.0.5\n"
                                     "NETMASK=255.255.255.0\nONBOOT=yes\n")
    assert server.read("/kv/etc/kv_netfilter.cfg") == ("kv_netfilter_arp   0\nkv_netfilter_broadcast   0\n"
                                                       "kv_netfilter_icmp   0\nkv_netfilter_ipconflict   0\n")
    assert server.read("/etc/resolv.conf") == "search\tsite.example\nnameserver 10.0.0.2\nnameserver 10.0.0.3\n"


def test_the_official_host_name_carries_the_domain(server):
    lookup = "import socket; print(socket.gethostname(), socket.gethostbyname_ex(socket.gethostname())[0])"
    assert server.sh(f"/usr/bin/python3 -c '{lookup}'") == "pbx pbx.site.example\n"


def test_update_file_replaces_one_value_where_it_stands(server):
    assert server.sh("/kv/bin/updateFile ifcfg eth2 IPADDR 172.16.2.9") == ""
    assert ifcfg(server, "eth2") == ("DEVICE=eth2\nBOOTPROTO=static\nIPADDR=172.16.2.9\n"
                                     "NETMASK=255.255.255.0\nONBOOT=yes\n")
    assert ifcfg(server, "eth1").splitlines()[2] == "IPADDR=10.0.0.5"


def test_update_file_appends_a_key_that_the_file_lacks(server):
    server.sh("/kv/bin/updateFile ifcfg eth2 MTU 1400")
    assert ifcfg(server, "eth2").endswith("ONBOOT=yes\nMTU=1400\n")


def test_update_file_removes_a_key_whose_value_is_left_out(server):
    server.sh("/kv/bin/updateFile ifcfg eth2 IPADDR ")
    assert ifcfg(server, "eth2") == "DEVICE=eth2\nBOOTPROTO=static\nNETMASK=255.255.255.0\nONBOOT=yes\n"


def test_update_file_changes_the_gateway(server):
    server.sh("/kv/bin/updateFile gateway 10.0.0.254")
    assert server.read("/etc/sysconfig/network") == ("NETWORKING=yes\nHOSTNAME=pbx.site.example\n"
                                                     "GATEWAY=10.0.0.254\n")


def test_update_file_keeps_the_gateway_when_none_is_given(server):
    before = server.read("/etc/sysconfig/network")
    for command in ("/kv/bin/updateFile gateway ", "/kv/bin/updateFile gateway ''"):
        assert server.run(command) == (0, "", "")
        assert server.read("/etc/sysconfig/network") == before


def test_update_file_refuses_an_interface_without_file(server):
    result = server.run("/kv/bin/updateFile ifcfg eth7 IPADDR 10.0.0.9")
    assert result == (1, "", "updateFile: no such file: /etc/sysconfig/network-scripts/ifcfg-eth7\n")


def test_update_hosts_moves_the_server_only(server):
    server.sh("/kv/bin/updatehosts ipaddress 10.0.0.6")
    assert server.read("/etc/hosts") == ("127.0.0.1 localhost\n10.0.0.6 pbx.site.example pbx\n"
                                         "10.0.0.1 router.site.example router\n")


def test_update_hosts_moves_the_router_only(server):
    server.sh("/kv/bin/updatehosts routeraddress 10.0.0.254")
    assert server.read("/etc/hosts") == ("127.0.0.1 localhost\n10.0.0.5 pbx.site.example pbx\n"
                                         "10.0.0.254 router.site.example router\n")


def test_update_hosts_renames_the_domain(server):
    server.sh("/kv/bin/updatehosts domainname other.example")
    assert server.read("/etc/hosts") == ("127.0.0.1 localhost\n10.0.0.5 pbx.other.example pbx\n"
                                         "10.0.0.1 router.other.example router\n")
    assert server.sh("getent hosts pbx").split() == ["10.0.0.5", "pbx.other.example", "pbx"]


def test_an_interface_restart_takes_the_configured_address_and_keeps_the_mtu(server):
    server.sh("ip link set eth1 mtu 1400; /kv/bin/updateFile ifcfg eth1 IPADDR 10.0.0.6; ifdown eth1;ifup eth1")
    assert address(server, "eth1") == "10.0.0.6/24"
    assert "mtu 1400" in server.sh("ip link show dev eth1")
    assert default_routes(server) == ["default via 10.0.0.1 dev eth1 "]


def test_an_interface_taken_down_has_no_address(server):
    server.sh("ifdown eth2")
    assert server.sh("ip -4 -o address show dev eth2") == ""
    assert "state DOWN" in server.sh("ip -o link show dev eth2")


def test_the_default_route_is_replaced_by_route(server):
    server.sh("route delete default gw 10.0.0.1 eth1")
    assert default_routes(server) == []
    server.sh("route add default gw 10.0.0.254 eth1")
    assert default_routes(server) == ["default via 10.0.0.254 dev eth1 "]


def test_route_without_old_gateway_fails(server):
    assert server.run("route delete default gw  eth1").status == 2


def test_voice_messaging_is_a_process_that_stops_and_starts(server):
    first = voicemail_pid(server)
    assert server.sh(f"cat /proc/{first}/cmdline") == "voicemail\0infinity\0"
    server.sh("/kv/bin/processcontrol stop voicemail")
    assert server.run(f"test -e /proc/{first}").status == 1
    server.sh("/kv/bin/processcontrol start voicemail")
    second = voicemail_pid(server)
    assert second != first
    assert server.run(f"test -e /proc/{second}").status == 0
    assert server.read("/kv/log/processcontrol.log") == "voicemail started\nvoicemail stopped\nvoicemail started\n"


def test_starting_voice_messaging_twice_keeps_the_process(server):
    first = voicemail_pid(server)
    server.sh("/kv/bin/processcontrol start voicemail")
    assert voicemail_pid(server) == first


def test_process_control_knows_no_other_service(server):
    assert server.run("/kv/bin/processcontrol start httpd").status == 2


def test_dhcp_takes_the_lease_into_kernel_and_files_and_starts_voice_messaging(server):
    server.sh("/kv/bin/updateFile ifcfg eth1 BOOTPROTO dhcp; /kv/bin/processcontrol stop voicemail")
    server.sh("/kv/bin/dhcp_ippaddr.sh eth1 &")
    server.wait_for("kill -0 $(cat /run/voicemail.pid)")
    leased = address(server, "eth1")
    assert leased.startswith("10.0.0.1") and leased.endswith("/24") and leased != "10.0.0.1/24"
    assert f"IPADDR={leased[:-3]}" in ifcfg(server, "eth1").splitlines()
    assert f"{leased[:-3]} pbx.site.example pbx" in server.read("/etc/hosts").splitlines()
    assert default_routes(server) == ["default via 10.0.0.1 dev eth1 "]


def test_dhcp_on_the_oam_lan_leaves_the_default_route_alone(server):
    server.sh("/kv/bin/dhcp_ippaddr.sh eth2")
    assert address(server, "eth2").startswith("172.16.2.1")
    assert address(server, "eth2") != "172.16.2.1/24"
    assert default_routes(server) == ["default via 10.0.0.1 dev eth1 "]


def test_without_dhcp_server_the_address_stays_and_voice_messaging_starts(server):
    server.sh("kv-peer dhcp stop; /kv/bin/processcontrol stop voicemail")
    server.sh("/kv/bin/dhcp_ippaddr.sh eth1")
    assert address(server, "eth1") == "10.0.0.5/24"
    assert server.run("kill -0 $(cat /run/voicemail.pid)").status == 0
    assert server.read("/kv/log/dhcp_ippaddr.log").endswith("eth1: no lease, address kept\n")


def test_an_interface_taken_down_loses_its_dhcp_client(server):
    server.sh("/kv/bin/dhcp_ippaddr.sh eth2")
    client = server.read("/run/udhcpc.eth2.pid").strip()
    server.sh("ifdown eth2")
    server.wait_for(f"! test -e /proc/{client}")


def test_a_pulled_cable_shows_as_lost_carrier(server):
    server.sh("kv-peer carrier eth1 down")
    assert server.read("/sys/class/net/eth1/carrier") == "0\n"
    assert server.read("/sys/class/net/eth0/carrier") == "1\n"
    server.wait_for("ip -o link show dev eth1 | grep -q 'NO-CARRIER.*state DOWN'")
    server.sh("kv-peer carrier eth1 up")
    server.wait_for("ip -o link show dev eth1 | grep -q 'state UP'")


def test_system_log_lines_are_kept(server):
    server.sh("logger -p user.notice -t provider 'an address has changed'")
    server.wait_for("grep -q 'user.notice provider: an address has changed' /kv/log/messages")
