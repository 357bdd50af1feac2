#ifndef KV_SYSTEM_COMMANDEXECUTION_HPP
#define KV_SYSTEM_COMMANDEXECUTION_HPP

#include <OW_config.h>

#include <OW_String.hpp>

/// How every command of this library reaches the server's shell. A command runs in the calling thread,
/// without input and without a time limit. The functions keep no state.

/// Runs `command` unfiltered. `output` is replaced: on success by the lines of standard error followed by
/// those of standard output, as they were printed; on failure by nothing. Returns the status of the server's
/// command runner, 0 for success. Never throws a CIMException.
int runCommand(const OpenWBEM::String& command, OpenWBEM::String& output);

/// Whether invokeCommand may run `command`: not when it contains ";", "(" or ")". Nothing else is refused:
/// the server's commands may use pipes, redirections and "&".
bool checkInjection(const OpenWBEM::String& command);

/// Runs `command` if checkInjection accepts it. Returns the lines of standard error as they were printed,
/// followed by those of standard output without the final line break. Throws CIM_ERR_METHOD_NOT_AVAILABLE
/// with the text "Failed to execute the command: " and the command line when it is refused or fails. Nothing
/// is logged.
OpenWBEM::String invokeCommand(const OpenWBEM::String& command);

#endif
