// The platform's functions for a program that loads the library on the target and must not reach any of them
// but those that it defines itself: called, each ends the program with its name.

#include "dhcp_ip_info.h"
#include "ems_client.h"
#include "kv_runcommand.h"
#include "kvu_diag.h"
#include "kvu_registry.h"
#include "os_layer.h"

#include <cstdio>
#include <cstdlib>

namespace
{

[[noreturn]] void absent(const char* function)
{
    std::fprintf(stderr, "called, though nothing provides it here: %s\n", function);
    std::abort();
}

} // namespace

unsigned int KvuGetRegEntryUint16Ex(int, const char*, const char*, uint16_t*)
{
    absent(__func__);
}

unsigned int KvuSetRegEntryUint16Ex(int, const char*, const char*, uint16_t)
{
    absent(__func__);
}

unsigned int KvuDiagRegisterModule(const char*, const char*, int, const char*, KvuDiagHandle*)
{
    absent(__func__);
}

unsigned int KvuDiagDeregisterModule(KvuDiagHandle)
{
    absent(__func__);
}

unsigned int KvuDiagAddLogEntry(KvuDiagHandle, int, uint16_t, int, const char*)
{
    absent(__func__);
}

int osGetProcessId(int*)
{
    absent(__func__);
}

int osIsZODAOnePresent(bool*)
{
    absent(__func__);
}

int osResetRouter(void)
{
    absent(__func__);
}

int dhcpIpInfoGetIPInfo(const char*, char*, char*, char*)
{
    absent(__func__);
}

int dhcpIpInfoGetDefaultGateway(char*)
{
    absent(__func__);
}

int dhcpIpInfoIsIPAddrValid(const char*)
{
    absent(__func__);
}

int dhcpIpInfoRequestDHCPLANSemaphore(void)
{
    absent(__func__);
}

int dhcpIpInfoReleaseDHCPLANSemaphore(void)
{
    absent(__func__);
}

int dhcpIpInfoInformDHCPProviderOfIPConfigChange(void)
{
    absent(__func__);
}

int EmsConnectionOpen(int, EmsPacketHandler)
{
    absent(__func__);
}

int EmsIpAddressChange(int, int, unsigned int)
{
    absent(__func__);
}

int EmsConnectionClose(void)
{
    absent(__func__);
}

int runcommand(const char*, const char*, char***, char***)
{
    absent(__func__);
}

void freeresultbuf(char**)
{
    absent(__func__);
}
