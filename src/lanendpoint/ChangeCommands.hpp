#ifndef KV_LANENDPOINT_CHANGECOMMANDS_HPP
#define KV_LANENDPOINT_CHANGECOMMANDS_HPP

#include <OW_config.h>

#include <OW_String.hpp>

/// The commands by which a change of an interface reaches the server. Values are put into the command lines
/// as they are. Commands that go through invokeCommand throw when they fail. What the others answer is not
/// looked at.

/// Rewrites one key of the interface's configuration file, under the LAN semaphore.
void storeInterfaceValue(const OpenWBEM::String& ifName, const char* key, const OpenWBEM::String& value);

/// Rewrites the default gateway's file, under the LAN semaphore.
void storeGateway(const OpenWBEM::String& gateway);

/// Rewrites one entry, "ipaddress" or "routeraddress", of the hosts table, under the LAN semaphore.
void storeHost(const char* entry, const OpenWBEM::String& address);

/// Takes the interface down and up again, with voice messaging stopped meanwhile. Throws when voice messaging
/// cannot be stopped or started.
void restartInterface(const OpenWBEM::String& ifName);

/// Stops voice messaging and starts the server's switch to DHCP in the background. The script owns the rest
/// of the switch, voice messaging included. Throws when either cannot be started.
void startDhcp(const OpenWBEM::String& ifName);

/// Replaces the default route, which always leaves through the customer LAN.
void replaceDefaultRoute(const OpenWBEM::String& oldGateway, const OpenWBEM::String& newGateway);

#endif
