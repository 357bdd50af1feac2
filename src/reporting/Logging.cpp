#include "reporting/Logging.hpp"

namespace reporting
{

using OpenWBEM::CIMException;
using OpenWBEM::String;

void logError(const String& message)
{
    if (gLogger)
        gLogger->logError(message);
}

void logAndFail(SourcePlace where, const String& text)
{
    logError(text);
    fail(where, CIMException::FAILED, text);
}

void logAndFail(SourcePlace where, const String& text, const char* identifier, const String& logDetail)
{
    logError(text + logDetail);
    fail(where, CIMException::FAILED, withIdentifier(text, identifier));
}

} // namespace reporting
