#include "lanendpoint/ChangeCommands.hpp"

#include "netutil/ServerInterfaces.hpp"
#include "system/CommandExecution.hpp"
#include "system/LanSemaphore.hpp"
#include "system/VoiceMessaging.hpp"

using OpenWBEM::String;

void storeInterfaceValue(const String& ifName, const char* key, const String& value)
{
    runUnderLanSemaphore("/kv/bin/updateFile ifcfg " + ifName + " " + key + " " + value);
}

void storeGateway(const String& gateway)
{
    runUnderLanSemaphore("/kv/bin/updateFile gateway " + gateway);
}

void storeHost(const char* entry, const String& address)
{
    runUnderLanSemaphore(String("/kv/bin/updatehosts ") + entry + " " + address);
}

void restartInterface(const String& ifName)
{
    stopVoiceMail();
    String ignored;
    runCommand("ifdown " + ifName + ";ifup " + ifName, ignored);
    startVoiceMail();
}

void startDhcp(const String& ifName)
{
    stopVoiceMail();
    invokeCommand("/kv/bin/dhcp_ippaddr.sh " + ifName + " &");
}

void replaceDefaultRoute(const String& oldGateway, const String& newGateway)
{
    String ignored;
    runCommand("route delete default gw " + oldGateway + " " + customerLanName, ignored);
    runCommand("route add default gw " + newGateway + " " + customerLanName, ignored);
}
