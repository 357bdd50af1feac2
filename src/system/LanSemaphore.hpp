#ifndef KV_SYSTEM_LANSEMAPHORE_HPP
#define KV_SYSTEM_LANSEMAPHORE_HPP

#include <OW_config.h>

#include <OW_String.hpp>

/// Requests the server's DHCP LAN semaphore, runs `command` with runCommand, and releases the semaphore. The
/// semaphore keeps the DHCP service from reading the LAN configuration while the command rewrites it. No
/// result is looked at.
void runUnderLanSemaphore(const OpenWBEM::String& command);

#endif
