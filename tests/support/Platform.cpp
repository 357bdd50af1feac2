// The platform's libraries, as recording fakes.

#include "World.hpp"

#include "dhcp_ip_info.h"
#include "kv_runcommand.h"
#include "kvu_diag.h"
#include "kvu_registry.h"
#include "os_layer.h"

#include <arpa/inet.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

using fakes::World;

namespace
{

constexpr unsigned int kRegistryValueAbsent = 0x20000D;
constexpr std::size_t kAddressBuffer = 32;

World& world()
{
    if (!World::current())
        throw std::logic_error("a platform function was called outside of a test's world");
    return *World::current();
}

/// Records the call and gives the status with which it is programmed to fail, or 0.
int statusOf(fakes::Kind kind, const std::string& function, const std::string& arguments = "")
{
    const std::string line = arguments.empty() ? function : function + " " + arguments;
    world().record(kind, line);
    return world().failureOf(function, line).value_or(0);
}

void fill(char* buffer, const std::string& text)
{
    std::memset(buffer, '\xEE', kAddressBuffer); // nothing beyond the text may be relied on
    std::snprintf(buffer, kAddressBuffer, "%s", text.c_str());
}

bool isHelperCommand(const std::string& command)
{
    for (const char* prefix : {"/kv/bin/updateFile ", "/kv/bin/updatehosts ", "/kv/bin/dhcp_ippaddr.sh ",
                               "/kv/bin/processcontrol ", "ifdown ", "route "}) {
        if (command.compare(0, std::strlen(prefix), prefix) == 0)
            return true;
    }
    return false;
}

char** lineArray(const std::optional<std::vector<std::string>>& lines)
{
    if (!lines)
        return nullptr;
    char** array = static_cast<char**>(std::calloc(lines->size() + 1, sizeof(char*)));
    for (std::size_t i = 0; i < lines->size(); ++i)
        array[i] = strdup((*lines)[i].c_str());
    world().lineArrays.insert(array);
    return array;
}

} // namespace

unsigned int KvuGetRegEntryUint16Ex(int area, const char* keyPath, const char* valueName, uint16_t* out)
{
    const int status = statusOf(fakes::Registry, "KvuGetRegEntryUint16Ex",
                                std::to_string(area) + " " + keyPath + " " + valueName);
    if (status != 0) {
        if (world().failedReadLeaves)
            *out = *world().failedReadLeaves;
        return static_cast<unsigned int>(status);
    }
    const auto found = world().registry.find({keyPath, valueName});
    if (found == world().registry.end())
        return kRegistryValueAbsent;
    *out = found->second;
    return 0;
}

unsigned int KvuSetRegEntryUint16Ex(int area, const char* keyPath, const char* valueName, uint16_t value)
{
    const int status =
        statusOf(fakes::Registry, "KvuSetRegEntryUint16Ex",
                 std::to_string(area) + " " + keyPath + " " + valueName + " " + std::to_string(value));
    if (status == 0)
        world().registry[{keyPath, valueName}] = value;
    return static_cast<unsigned int>(status);
}

unsigned int KvuDiagRegisterModule(const char* moduleName, const char* shortName, int flags,
                                   const char* logFileName, KvuDiagHandle* handleOut)
{
    const int status =
        statusOf(fakes::Diag, "KvuDiagRegisterModule",
                 std::string(moduleName) + " " + shortName + " " + std::to_string(flags) + " " + logFileName);
    if (status == 0)
        *handleOut = world().diagHandle;
    return static_cast<unsigned int>(status);
}

unsigned int KvuDiagDeregisterModule(KvuDiagHandle handle)
{
    if (handle != world().diagHandle)
        world().problem("KvuDiagDeregisterModule with a foreign handle");
    return static_cast<unsigned int>(statusOf(fakes::Diag, "KvuDiagDeregisterModule"));
}

unsigned int KvuDiagAddLogEntry(KvuDiagHandle handle, int destination, uint16_t level, int detail,
                                const char* text)
{
    if (handle != world().diagHandle)
        world().problem("KvuDiagAddLogEntry with a foreign handle");
    return static_cast<unsigned int>(statusOf(fakes::Diag, "KvuDiagAddLogEntry",
                                              std::to_string(destination) + " " + std::to_string(level) +
                                                  " " + std::to_string(detail) + " " + text));
}

int osGetProcessId(int* pidOut)
{
    const int status = statusOf(fakes::Os, "osGetProcessId");
    if (status == 0)
        *pidOut = world().processId;
    return status;
}

int osIsZODAOnePresent(bool* presentOut)
{
    if (*presentOut)
        world().problem("osIsZODAOnePresent: the flag was not cleared beforehand");
    const int status = statusOf(fakes::Os, "osIsZODAOnePresent");
    if (status == 0)
        *presentOut = world().routerPresent;
    return status;
}

int osResetRouter(void)
{
    const int status = statusOf(fakes::Os, "osResetRouter");
    return status != 0 ? status : world().routerResetStatus;
}

int dhcpIpInfoGetIPInfo(const char* ifName, char* ip, char* mask, char* gateway)
{
    const int status = statusOf(fakes::Dhcp, "dhcpIpInfoGetIPInfo", ifName);
    const fakes::IPInfo info = status == 0 ? world().addresses[ifName] : fakes::IPInfo();
    fill(ip, info.address);
    fill(mask, info.mask);
    fill(gateway, info.gateway);
    return status;
}

int dhcpIpInfoGetDefaultGateway(char* gateway)
{
    const int status = statusOf(fakes::Dhcp, "dhcpIpInfoGetDefaultGateway");
    fill(gateway, status == 0 ? world().defaultGateway : "");
    return status;
}

int dhcpIpInfoIsIPAddrValid(const char* text)
{
    if (statusOf(fakes::Dhcp, "dhcpIpInfoIsIPAddrValid", text) != 0)
        return 0;
    const auto verdict = world().addressVerdicts.find(text);
    if (verdict != world().addressVerdicts.end())
        return verdict->second;
    in_addr parsed{};
    return inet_pton(AF_INET, text, &parsed) == 1 && world().unusableAddresses.count(text) == 0 ? 1 : 0;
}

int dhcpIpInfoRequestDHCPLANSemaphore(void)
{
    if (world().semaphoreHeld)
        world().problem("the DHCP LAN semaphore was requested while held");
    world().semaphoreHeld = true;
    return statusOf(fakes::Lock, "dhcpIpInfoRequestDHCPLANSemaphore");
}

int dhcpIpInfoReleaseDHCPLANSemaphore(void)
{
    if (!world().semaphoreHeld)
        world().problem("the DHCP LAN semaphore was released without being held");
    world().semaphoreHeld = false;
    return statusOf(fakes::Lock, "dhcpIpInfoReleaseDHCPLANSemaphore");
}

int dhcpIpInfoInformDHCPProviderOfIPConfigChange(void)
{
    return statusOf(fakes::Notice, "dhcpIpInfoInformDHCPProviderOfIPConfigChange");
}

int EmsConnectionOpen(int flags, EmsPacketHandler handler)
{
    const int status = statusOf(fakes::Notice, "EmsConnectionOpen", std::to_string(flags));
    if (status == 0)
        world().emsHandler = handler;
    return status;
}

int EmsIpAddressChange(int area, int reason, unsigned int interfaceMask)
{
    return statusOf(fakes::Notice, "EmsIpAddressChange",
                    std::to_string(area) + " " + std::to_string(reason) + " " +
                        std::to_string(interfaceMask));
}

int EmsConnectionClose(void)
{
    return statusOf(fakes::Notice, "EmsConnectionClose");
}

int runcommand(const char* command, const char* input, char*** outLines, char*** errLines)
{
    if (input)
        world().problem("runcommand with an input");
    *outLines = nullptr;
    *errLines = nullptr;
    const int status = statusOf(fakes::Command, "runcommand", command);
    if (world().onCommand)
        world().onCommand(command);
    const auto found = world().commands.find(command);
    if (found == world().commands.end()) {
        if (!isHelperCommand(command))
            world().problem(std::string("unforeseen command: ") + command);
        return status;
    }
    *outLines = lineArray(found->second.out);
    *errLines = lineArray(found->second.err);
    return status != 0 ? status : found->second.status;
}

void freeresultbuf(char** lines)
{
    if (world().lineArrays.erase(lines) == 0)
        world().problem("freeresultbuf of an array that runcommand did not hand out");
    for (char** line = lines; *line; ++line)
        std::free(*line);
    std::free(lines);
}
