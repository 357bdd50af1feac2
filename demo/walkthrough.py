"""Walks through what a management client can do with the provider, on the disposable server.

Every command is the client's own (wbemcli); what the server then looks like comes from the kernel (ip), its files
and the platform's event log, and is compared with what ought to have happened.
"""
import os
import sys

import lan_endpoint
import lan_setting
import marking
from console import Console

KV_CIMOM = """
    On the server it is loaded by the OpenWBEM object manager; here the project's own object manager (kv-cimom), a
    stand-in, loads it.
"""
OPENWBEM = """
    The OpenWBEM object manager loads it, as on the server.
"""
INTRODUCTION = f"""
    The provider libLANProvider.so is the product. {OPENWBEM if "KV_OPENWBEM_ROOT" in os.environ else KV_CIMOM} Kernel,
    network interfaces, files, DHCP client and server and the client wbemcli are real. Stand-ins are: the platform's
    libraries (registry, diagnostics, notices to other components: lines of events.log), the helper scripts under
    /kv/bin, voice messaging (a process that sleeps), the router card (a file) and the packet filter's driver (its ioctls
    are recorded, no packet is filtered).
"""


def main():
    console = Console()
    console.chapter("LAN management provider on a disposable server")
    console.say(INTRODUCTION)
    console.skip_events()
    for part in (lan_endpoint, lan_setting, marking):
        part.show(console)
    return console.summary()


if __name__ == "__main__":
    sys.exit(main())
