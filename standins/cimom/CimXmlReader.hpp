#pragma once

#include "XmlElement.hpp"

#include "OW_CIMInstance.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMParamValue.hpp"
#include "OW_CIMValue.hpp"

#include <initializer_list>
#include <optional>
#include <utility>
#include <vector>

namespace cimom
{

// What the elements of a call mean. Every function throws CIMException INVALID_PARAMETER for XML that is not
// as DSP0201 demands. The text is OpenWBEM's where it has one.

// The namespace of <LOCALNAMESPACEPATH> in the parent, its parts joined by slashes.
OpenWBEM::String readNameSpace(const XmlElement& parent);

// <INSTANCENAME>: keys as they come, to be cast to the types of the class. Throws CIMException FAILED for a
// numeric key that is no number.
OpenWBEM::CIMObjectPath readInstanceName(const XmlElement& instanceName);

// <INSTANCE>: the properties in the client's order, with values of the types that the client names. Of
// qualifiers only the names are read: their values are the class's.
OpenWBEM::CIMInstance readInstance(const XmlElement& instance);

// The <VALUE> or <VALUE.ARRAY> in the parent, of the named type; null when there is none or no such type.
OpenWBEM::CIMValue readValue(const XmlElement& parent, const OpenWBEM::String& type);

// <PARAMVALUE>s of a method call. Without PARAMTYPE a value is a string.
OpenWBEM::CIMParamValueArray readMethodParameters(const XmlElement& call);

// The <IPARAMVALUE>s of an intrinsic call, by name in any letter case. When a name comes twice, the last one
// counts. The call must outlive this object.
class IntrinsicParameters
{
  public:
    // Refuses parameters that are not among the names.
    IntrinsicParameters(const XmlElement& call, std::initializer_list<const char*> names);

    // "" when the parameter is there without a class name; absent when it is not there.
    OpenWBEM::String className(const char* name) const;
    OpenWBEM::String optionalClassName(const char* name) const;
    OpenWBEM::CIMObjectPath instanceName(const char* name) const;
    OpenWBEM::CIMInstance instance(const char* name) const;
    OpenWBEM::CIMInstance namedInstance(const char* name) const;
    OpenWBEM::String text(const char* name) const;
    // Null when the parameter is absent or has no value.
    OpenWBEM::CIMValue optionalValue(const char* name) const;
    bool flag(const char* name, bool whenAbsent) const;
    std::optional<OpenWBEM::StringArray> nameList(const char* name) const;

  private:
    const XmlElement& find(const char* name) const; // empty when absent
    const XmlElement& require(const char* name) const;
    const XmlElement& requireElement(const char* name, const char* element) const;

    std::vector<std::pair<const char*, const XmlElement*>> m_parameters;
};

} // namespace cimom
