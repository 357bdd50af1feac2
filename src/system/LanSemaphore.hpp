#ifndef KV_SYSTEM_LANSEMAPHORE_HPP
#define KV_SYSTEM_LANSEMAPHORE_HPP

#include <OW_config.h>

#include <OW_String.hpp>

/// Runs a command that rewrites LAN configuration, with runCommand, while the server's DHCP LAN semaphore
/// keeps the DHCP service from reading it. Neither the semaphore's result nor the command's is looked at:
/// request, run, release.
void runUnderLanSemaphore(const OpenWBEM::String& command);

#endif
