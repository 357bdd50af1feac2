#include "reporting/Failure.hpp"

namespace reporting
{

using OpenWBEM::CIMException;
using OpenWBEM::String;

String withIdentifier(const String& text, const char* identifier)
{
    return text + "#" + identifier + "#";
}

void fail(SourcePlace where, CIMException::ErrNoType code)
{
    throw CIMException(where.unit, where.line, code);
}

void fail(SourcePlace where, CIMException::ErrNoType code, const String& message)
{
    throw CIMException(where.unit, where.line, code, message.c_str());
}

} // namespace reporting
