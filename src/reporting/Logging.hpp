#ifndef KV_REPORTING_LOGGING_HPP
#define KV_REPORTING_LOGGING_HPP

#include "reporting/Failure.hpp"

#include <OW_config.h>

#include <OW_IntrusiveReference.hpp>
#include <OW_Logger.hpp>
#include <OW_String.hpp>

/// The object manager's logger for code that does not see a request's own environment, the models above all.
/// Empty until LANProvider::initialize takes it from the environment; defined in LANProvider.cpp, before the
/// other static objects there.
extern OpenWBEM::IntrusiveReference<OpenWBEM::Logger> gLogger;

namespace reporting
{

/// Writes `message` to gLogger at error level, the only level this library uses. Before initialize there is
/// no logger to write to, and the message is dropped.
void logError(const OpenWBEM::String& message);

/// A failure that a model found: logs `text` and throws it as CIM_ERR_FAILED.
[[noreturn]] void logAndFail(SourcePlace where, const OpenWBEM::String& text);

/// The same for a failure with an identifier: logs `text` followed by `logDetail`, throws `text` with
/// `identifier`.
[[noreturn]] void logAndFail(SourcePlace where, const OpenWBEM::String& text, const char* identifier,
                             const OpenWBEM::String& logDetail = OpenWBEM::String());

} // namespace reporting

#endif
