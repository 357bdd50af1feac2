#include "system/LanSemaphore.hpp"

#include "system/CommandExecution.hpp"

#include <dhcp_ip_info.h>

void runUnderLanSemaphore(const OpenWBEM::String& command)
{
    OpenWBEM::String ignored;
    dhcpIpInfoRequestDHCPLANSemaphore();
    runCommand(command, ignored);
    dhcpIpInfoReleaseDHCPLANSemaphore();
}
