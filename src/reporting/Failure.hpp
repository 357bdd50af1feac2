#ifndef KV_REPORTING_FAILURE_HPP
#define KV_REPORTING_FAILURE_HPP

#include <OW_config.h>

#include <OW_CIMException.hpp>
#include <OW_String.hpp>

/// The form that every failure of this library takes on its way to a management client: an
/// OpenWBEM::CIMException with the source unit, the line, a CIM status code (DMTF DSP0200, 5.3.1.2) and
/// usually a text. OpenWBEM puts a description of the code around the text when it hands the text on.
namespace reporting
{

/// Where a failure is raised. The unit is a fixed name such as "LANProvider.cpp", never __FILE__, which is
/// whatever path the compiler was given.
struct SourcePlace {
    const char* unit;
    int line;
};

/// `text`, '#', `identifier`, '#' run together: the message by which operators' tools recognise a failure.
OpenWBEM::String withIdentifier(const OpenWBEM::String& text, const char* identifier);

/// Throws a CIMException without a text.
[[noreturn]] void fail(SourcePlace where, OpenWBEM::CIMException::ErrNoType code);

/// Throws a CIMException with `message` as it stands. Nothing is logged.
[[noreturn]] void fail(SourcePlace where, OpenWBEM::CIMException::ErrNoType code,
                       const OpenWBEM::String& message);

} // namespace reporting

#endif
