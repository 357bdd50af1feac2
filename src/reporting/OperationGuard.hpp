#ifndef KV_REPORTING_OPERATIONGUARD_HPP
#define KV_REPORTING_OPERATIONGUARD_HPP

#include "reporting/Failure.hpp"

#include <OW_ProviderEnvironmentIFC.hpp>

#include <exception>

namespace reporting
{

/// A provider operation as the failure texts name it. A failure carries a line number that tells whether a
/// std::exception or anything else was caught. Each operation has two lines of its own: callers give __LINE__
/// and __LINE__ + 1.
struct GuardedOperation {
    const char* unit;
    const char* name; ///< "enumInstanceNames", "getInstance", ...
    int standardExceptionLine;
    int otherExceptionLine;
};

/// "Unknown Error:  while performing <operation> operation on <target>\n". Tools match this text with
/// the two blanks after its colon.
OpenWBEM::String unknownErrorText(const GuardedOperation& operation, const OpenWBEM::String& target);

/// Logs `message` at error level through the logger of the request's environment and throws it as
/// CIM_ERR_FAILED.
[[noreturn]] void failUnexpectedly(const OpenWBEM::ProviderEnvironmentIFCRef& env, SourcePlace where,
                                   const OpenWBEM::String& message);

/// Runs `body` and returns its result. A CIMException passes unchanged and unlogged. A std::exception becomes
/// CIM_ERR_FAILED with unknownErrorText, its what() and a line break. Anything else becomes CIM_ERR_FAILED
/// with unknownErrorText alone. Only these two call `target`: it returns, as a String, what the operation was
/// asked to work on.
template <typename Target, typename Body>
auto guarded(const OpenWBEM::ProviderEnvironmentIFCRef& env, const GuardedOperation& operation,
             const Target& target, const Body& body) -> decltype(body())
{
    try {
        return body();
    } catch (const OpenWBEM::CIMException&) {
        throw;
    } catch (const std::exception& e) {
        failUnexpectedly(env, {operation.unit, operation.standardExceptionLine},
                         unknownErrorText(operation, target()) + e.what() + "\n");
    } catch (...) {
        failUnexpectedly(env, {operation.unit, operation.otherExceptionLine},
                         unknownErrorText(operation, target()));
    }
}

} // namespace reporting

#endif
