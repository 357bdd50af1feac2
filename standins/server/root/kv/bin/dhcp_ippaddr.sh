#!/bin/bash
# Brings one interface under DHCP: dhcp_ippaddr.sh INTERFACE
# Whoever switches an interface to DHCP stops voice messaging and starts this in the background; it ends the switch by starting
# voice messaging again, also when no DHCP server has answered and the interface keeps the address that it had.
set -euo pipefail

interface=${1:?usage: dhcp_ippaddr.sh INTERFACE}

# The caller reads its command's output to the end, and must not wait for the lease.
exec </dev/null >>/kv/log/dhcp_ippaddr.log 2>&1

stop-dhcp-client "$interface"
if ! busybox udhcpc -i "$interface" -n -t 5 -T 1 -p "/run/udhcpc.$interface.pid" -s /kv/libexec/dhcp-lease; then
    echo "$interface: no lease, address kept"
fi
/kv/bin/processcontrol start voicemail
