#pragma once

#include "OW_CIMInstance.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMParamValue.hpp"
#include "OW_CIMValue.hpp"

#include <initializer_list>
#include <optional>
#include <pugixml.hpp>
#include <utility>
#include <vector>

namespace cimom
{

// What the elements of a call mean. All of it throws CIMException INVALID_PARAMETER for what is not as
// DSP0201 has it, with OpenWBEM's words where it has any.

// The namespace of <LOCALNAMESPACEPATH> in the parent, its parts joined by slashes.
OpenWBEM::String readNameSpace(const pugi::xml_node& parent);

// <INSTANCENAME>: keys as they come, to be cast to the types of the class. CIMException FAILED for a numeric
// key that is no number.
OpenWBEM::CIMObjectPath readInstanceName(const pugi::xml_node& instanceName);

// <INSTANCE>: the properties in the client's order with values of the types that the client names. Of its
// qualifiers only the names: the values are the class's.
OpenWBEM::CIMInstance readInstance(const pugi::xml_node& instance);

// The <VALUE> or <VALUE.ARRAY> in the parent, of the named type; null when there is none or no such type.
OpenWBEM::CIMValue readValue(const pugi::xml_node& parent, const OpenWBEM::String& type);

// <PARAMVALUE>s of a method call. Without PARAMTYPE a value is a string.
OpenWBEM::CIMParamValueArray readMethodParameters(const pugi::xml_node& call);

// The <IPARAMVALUE>s of an intrinsic call, by name in any letter case; of one given twice the last counts.
class IntrinsicParameters
{
  public:
    // Refuses parameters that are not among the names.
    IntrinsicParameters(const pugi::xml_node& call, std::initializer_list<const char*> names);

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
    pugi::xml_node find(const char* name) const; // empty when absent
    pugi::xml_node require(const char* name) const;
    pugi::xml_node requireElement(const char* name, const char* element) const;

    std::vector<std::pair<const char*, pugi::xml_node>> m_parameters;
};

} // namespace cimom
