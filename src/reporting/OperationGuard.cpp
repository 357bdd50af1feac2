#include "reporting/OperationGuard.hpp"

#include <OW_Logger.hpp>

namespace reporting
{

using OpenWBEM::CIMException;
using OpenWBEM::String;

String unknownErrorText(const GuardedOperation& operation, const String& target)
{
    return String("Unknown Error: ") + " while performing " + operation.name + " operation on " + target +
           "\n";
}

void failUnexpectedly(const OpenWBEM::ProviderEnvironmentIFCRef& env, SourcePlace where,
                      const String& message)
{
    env->getLogger()->logError(message);
    fail(where, CIMException::FAILED, message);
}

} // namespace reporting
