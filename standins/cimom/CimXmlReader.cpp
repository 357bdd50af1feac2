#include "CimXmlReader.hpp"

#include "OW_CIMException.hpp"
#include "OW_CIMValueCast.hpp"

#include <algorithm>
#include <cstring>
#include <strings.h>

namespace cimom
{

using namespace OpenWBEM;

namespace
{

[[noreturn]] void refuse(const String& message)
{
    throw CIMException("CimXmlReader.cpp", __LINE__, CIMException::INVALID_PARAMETER, message.c_str());
}

// All text and CDATA directly in an element.
String textOf(const pugi::xml_node& element)
{
    const pugi::xml_node first = element.first_child();
    if (!first.next_sibling()) {
        return String(first.value());
    }
    String text("");
    for (const pugi::xml_node& child : element.children()) {
        text += child.value(); // an element has none
    }
    return text;
}

// An empty boolean is null; the other types have a meaning for the empty text.
CIMValue simpleValue(const String& type, const String& text)
{
    if (text.empty() && type.equalsIgnoreCase("boolean")) {
        return CIMValue(CIMNULL);
    }
    try {
        return CIMValue::createSimpleValue(type, text);
    } catch (const StringConversionException& e) {
        refuse(e.getMessage());
    }
}

CIMValue arrayValue(const pugi::xml_node& array, const String& type)
{
    CIMDataType arrayType = CIMDataType::getDataType(type);
    if (!arrayType.setToArrayType(-1)) {
        return CIMValue(CIMNULL);
    }
    StringArray texts;
    for (const pugi::xml_node& element : array.children("VALUE")) {
        const String text = textOf(element);
        simpleValue(type, text); // refuses what does not fit
        texts.push_back(text);
    }
    return CIMValueCast::castValueToDataType(CIMValue(texts), arrayType);
}

// Of sint64, or of real64 when it is no integer.
CIMValue numericKey(const String& text)
{
    try {
        return CIMValue(text.toInt64());
    } catch (const StringConversionException&) {
    }
    try {
        return CIMValue(text.toReal64());
    } catch (const StringConversionException& e) {
        throw CIMException("CimXmlReader.cpp", __LINE__, CIMException::FAILED, e.getMessage());
    }
}

CIMValue keyValue(const pugi::xml_node& binding)
{
    const pugi::xml_node value = binding.child("KEYVALUE");
    if (!value) {
        refuse("A KEYBINDING needs a KEYVALUE");
    }
    const String text = textOf(value);
    const char* type = value.attribute("VALUETYPE").value();
    if (strcasecmp(type, "numeric") == 0) {
        return numericKey(text);
    }
    return strcasecmp(type, "boolean") == 0 ? simpleValue("boolean", text) : CIMValue(text);
}

bool isProperty(const pugi::xml_node& element)
{
    return std::strcmp(element.name(), "PROPERTY") == 0 || std::strcmp(element.name(), "PROPERTY.ARRAY") == 0;
}

CIMProperty readProperty(const pugi::xml_node& element)
{
    const String type = element.attribute("TYPE").value();
    if (type.empty()) {
        refuse("property has null data type");
    }
    CIMProperty property(CIMName(element.attribute("NAME").value()), CIMDataType::getDataType(type));
    const CIMValue value = readValue(element, type);
    if (value) {
        property.setDataType(value.getCIMDataType()).setValue(value);
    }
    return property;
}

} // namespace

String readNameSpace(const pugi::xml_node& parent)
{
    String nameSpace("");
    for (const pugi::xml_node& part : parent.child("LOCALNAMESPACEPATH").children("NAMESPACE")) {
        nameSpace += nameSpace.empty() ? "" : "/";
        nameSpace += part.attribute("NAME").value();
    }
    if (nameSpace.empty()) {
        refuse("A LOCALNAMESPACEPATH with a NAMESPACE is needed");
    }
    return nameSpace;
}

CIMObjectPath readInstanceName(const pugi::xml_node& instanceName)
{
    CIMPropertyArray keys;
    for (const pugi::xml_node& binding : instanceName.children("KEYBINDING")) {
        CIMProperty key(CIMName(binding.attribute("NAME").value()), CIMDataType(CIMDataType::STRING));
        const CIMValue value = keyValue(binding);
        if (value) {
            key.setDataType(value.getCIMDataType()).setValue(value);
        }
        keys.push_back(key);
    }
    if (const pugi::xml_node nameless = instanceName.child("KEYVALUE")) {
        keys.push_back(
            CIMProperty(CIMName(""), CIMValue(textOf(nameless)))); // no class has a key of this name
    }
    return CIMObjectPath(CIMName(instanceName.attribute("CLASSNAME").value()), keys);
}

CIMInstance readInstance(const pugi::xml_node& instance)
{
    CIMPropertyArray properties;
    for (const pugi::xml_node& element : instance.children()) {
        if (isProperty(element)) {
            properties.push_back(readProperty(element));
        }
    }
    CIMInstance result(instance.attribute("CLASSNAME").value());
    for (const pugi::xml_node& element : instance.children("QUALIFIER")) {
        result.setQualifier(CIMQualifier(element.attribute("NAME").value()));
    }
    return result.setProperties(properties);
}

CIMValue readValue(const pugi::xml_node& parent, const String& type)
{
    if (const pugi::xml_node value = parent.child("VALUE")) {
        return simpleValue(type, textOf(value));
    }
    const pugi::xml_node array = parent.child("VALUE.ARRAY");
    return array ? arrayValue(array, type) : CIMValue(CIMNULL);
}

CIMParamValueArray readMethodParameters(const pugi::xml_node& call)
{
    CIMParamValueArray parameters;
    for (const pugi::xml_node& element : call.children("PARAMVALUE")) {
        const pugi::xml_attribute type = element.attribute("PARAMTYPE");
        const CIMValue value = readValue(element, type ? type.value() : "string");
        parameters.push_back(CIMParamValue(CIMName(element.attribute("NAME").value()), value));
    }
    return parameters;
}

IntrinsicParameters::IntrinsicParameters(const pugi::xml_node& call, std::initializer_list<const char*> names)
{
    for (const pugi::xml_node& element : call.children("IPARAMVALUE")) {
        const char* given = element.attribute("NAME").value();
        const auto known = std::find_if(names.begin(), names.end(),
                                        [given](const char* name) { return strcasecmp(name, given) == 0; });
        if (known == names.end()) {
            refuse(String("Parameter ") + given + " is not a valid parameter");
        }
        m_parameters.emplace_back(*known, element);
    }
}

pugi::xml_node IntrinsicParameters::find(const char* name) const
{
    const auto found =
        std::find_if(m_parameters.rbegin(), m_parameters.rend(),
                     [name](const auto& parameter) { return std::strcmp(parameter.first, name) == 0; });
    return found != m_parameters.rend() ? found->second : pugi::xml_node();
}

pugi::xml_node IntrinsicParameters::require(const char* name) const
{
    const pugi::xml_node parameter = find(name);
    if (!parameter) {
        refuse(String("Non-optional parameter ") + name + " was not given");
    }
    return parameter;
}

pugi::xml_node IntrinsicParameters::requireElement(const char* name, const char* element) const
{
    const pugi::xml_node found = require(name).child(element);
    if (!found) {
        refuse(String("Parameter ") + name + " is the wrong type.  Expected <" + element + "> tag.");
    }
    return found;
}

String IntrinsicParameters::className(const char* name) const
{
    require(name);
    return optionalClassName(name);
}

String IntrinsicParameters::optionalClassName(const char* name) const
{
    return String(find(name).child("CLASSNAME").attribute("NAME").value());
}

CIMObjectPath IntrinsicParameters::instanceName(const char* name) const
{
    return readInstanceName(requireElement(name, "INSTANCENAME"));
}

CIMInstance IntrinsicParameters::instance(const char* name) const
{
    return readInstance(requireElement(name, "INSTANCE"));
}

// Its name is not looked at: class and keys are those of the instance.
CIMInstance IntrinsicParameters::namedInstance(const char* name) const
{
    const pugi::xml_node named = requireElement(name, "VALUE.NAMEDINSTANCE");
    if (!named.child("INSTANCENAME") || !named.child("INSTANCE")) {
        refuse("A VALUE.NAMEDINSTANCE needs an INSTANCENAME and an INSTANCE");
    }
    return readInstance(named.child("INSTANCE"));
}

String IntrinsicParameters::text(const char* name) const
{
    return textOf(requireElement(name, "VALUE"));
}

CIMValue IntrinsicParameters::optionalValue(const char* name) const
{
    return readValue(find(name), "string");
}

bool IntrinsicParameters::flag(const char* name, bool whenAbsent) const
{
    const pugi::xml_node value = find(name).child("VALUE");
    if (!value) {
        return whenAbsent;
    }
    try {
        return textOf(value).toBool();
    } catch (const StringConversionException& e) {
        refuse(e.getMessage());
    }
}

std::optional<StringArray> IntrinsicParameters::nameList(const char* name) const
{
    const pugi::xml_node array = find(name).child("VALUE.ARRAY");
    if (!array) {
        return std::nullopt;
    }
    StringArray names;
    for (const pugi::xml_node& element : array.children("VALUE")) {
        names.push_back(textOf(element));
    }
    return names;
}

} // namespace cimom
