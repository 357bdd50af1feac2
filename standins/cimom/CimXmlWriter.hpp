#pragma once

#include "OW_CIMClass.hpp"
#include "OW_CIMInstance.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMParamValue.hpp"
#include "OW_CIMValue.hpp"

#include <string>

namespace cimom
{

struct QualifierDeclaration;

// CIM-XML (DMTF DSP0201) as OpenWBEM 3.0.3 renders it, appended to a string. Empty elements have an end tag,
// except <CLASSNAME/>: the usual command line client does not read <PROPERTY/>.

// Which part of a class a client asked for.
struct ClassView {
    bool localOnly = true; // without what is inherited
    bool includeQualifiers = true;
    bool includeClassOrigin = false;
    const OpenWBEM::StringArray* propertyList = nullptr; // null: all
};

// <VALUE> or <VALUE.ARRAY>; nothing for a null value.
void appendValue(std::string& xml, const OpenWBEM::CIMValue& value);

// Throws CIMException FAILED for a key without a value.
void appendInstanceName(std::string& xml, const OpenWBEM::CIMObjectPath& name);

// Throws CIMException FAILED for a property without a type.
void appendInstance(std::string& xml, const OpenWBEM::CIMInstance& instance);
void appendNamedInstance(std::string& xml, const OpenWBEM::CIMObjectPath& name,
                         const OpenWBEM::CIMInstance& instance);

void appendClassName(std::string& xml, const OpenWBEM::String& name);
void appendClass(std::string& xml, const OpenWBEM::CIMClass& cimClass, const ClassView& view);
void appendQualifierDeclaration(std::string& xml, const QualifierDeclaration& declaration);

// <RETURNVALUE>; nothing for a null value.
void appendReturnValue(std::string& xml, const OpenWBEM::CIMValue& value);
void appendParamValue(std::string& xml, const OpenWBEM::CIMParamValue& parameter);

// What stands around a call's result, and the error that takes a result's place. The element is
// IMETHODRESPONSE or METHODRESPONSE.
void beginResponse(std::string& xml, const char* messageId, const char* element, const char* method);
void endResponse(std::string& xml, const char* element);
void appendError(std::string& xml, int code, const char* description);

} // namespace cimom
