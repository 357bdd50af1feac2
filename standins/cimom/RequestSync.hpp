#pragma once

#include "OW_CIMClass.hpp"
#include "OW_CIMInstance.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMParamValue.hpp"

namespace cimom
{

// How OpenWBEM makes what a client sends fit the class before a provider sees it.

// The keys in the class's spelling and types; unknown ones gone, missing ones appended as null. The class
// name stays as the client spelled it.
OpenWBEM::CIMObjectPath syncedPath(const OpenWBEM::CIMObjectPath& path, const OpenWBEM::CIMClass& cimClass);

// The properties in the client's order, in the class's spelling, types and qualifiers; unknown ones gone,
// missing and null ones with the class's defaults. Throws CIMException FAILED for a value that cannot be
// cast.
OpenWBEM::CIMInstance syncedInstance(const OpenWBEM::CIMInstance& instance,
                                     const OpenWBEM::CIMClass& cimClass);

// Exactly the listed properties, in the order of the list. Keys that are not listed stay keys, but are no
// properties any more. Throws NoSuchPropertyException.
OpenWBEM::CIMInstance restrictedTo(const OpenWBEM::StringArray& names, const OpenWBEM::CIMInstance& instance);

// The arguments for a method: the IN parameters in the order of the class. One that the client gave keeps the
// client's spelling; one that it left out is null. Throws CIMException INVALID_PARAMETER for an argument that
// is no IN parameter or does not fit.
OpenWBEM::CIMParamValueArray syncedArguments(const OpenWBEM::CIMParamValueArray& arguments,
                                             const OpenWBEM::CIMMethod& method);

// The name of an instance with no other keys than those that it marks.
OpenWBEM::CIMObjectPath bareName(const OpenWBEM::CIMInstance& instance);

// The name of an instance: its own keys, or, when its provider gave it none, those of its properties that the
// class has as keys.
OpenWBEM::CIMObjectPath instanceName(const OpenWBEM::CIMInstance& instance,
                                     const OpenWBEM::CIMClass& cimClass);

} // namespace cimom
