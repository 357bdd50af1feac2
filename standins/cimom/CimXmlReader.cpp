#include "CimXmlReader.hpp"

#include "OW_CIMException.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
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

CIMValue arrayValue(const XmlElement& array, const String& type)
{
    CIMDataType arrayType = CIMDataType::getDataType(type);
    if (!arrayType.setToArrayType(-1)) {
        return CIMValue(CIMNULL);
    }
    StringArray texts;
    for (const XmlElement& element : array.childrenNamed("VALUE")) {
        const String text(element.text.c_str());
        simpleValue(type, text); // refuses what does not fit
        texts.push_back(text);
    }
    return CIMValueCast::castValueToDataType(CIMValue(texts), arrayType);
}

// A key of type sint64, or real64 when it is no integer.
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

CIMValue keyValue(const XmlElement& binding)
{
    const XmlElement& value = binding.child("KEYVALUE");
    if (!value) {
        refuse("A KEYBINDING needs a KEYVALUE");
    }
    const String text(value.text.c_str());
    const char* type = value.attribute("VALUETYPE");
    if (strcasecmp(type, "numeric") == 0) {
        return numericKey(text);
    }
    return strcasecmp(type, "boolean") == 0 ? simpleValue("boolean", text) : CIMValue(text);
}

bool isProperty(const XmlElement& element)
{
    return element.name == "PROPERTY" || element.name == "PROPERTY.ARRAY";
}

CIMProperty readProperty(const XmlElement& element)
{
    const String type = element.attribute("TYPE");
    if (type.empty()) {
        refuse("property has null data type");
    }
    CIMProperty property(CIMName(element.attribute("NAME")), CIMDataType::getDataType(type));
    const CIMValue value = readValue(element, type);
    if (value) {
        property.setDataType(value.getCIMDataType()).setValue(value);
    }
    return property;
}

} // namespace

String readNameSpace(const XmlElement& parent)
{
    String nameSpace("");
    for (const XmlElement& part : parent.child("LOCALNAMESPACEPATH").childrenNamed("NAMESPACE")) {
        nameSpace += nameSpace.empty() ? "" : "/";
        nameSpace += part.attribute("NAME");
    }
    if (nameSpace.empty()) {
        refuse("A LOCALNAMESPACEPATH with a NAMESPACE is needed");
    }
    return nameSpace;
}

CIMObjectPath readInstanceName(const XmlElement& instanceName)
{
    CIMPropertyArray keys;
    for (const XmlElement& binding : instanceName.childrenNamed("KEYBINDING")) {
        CIMProperty key(CIMName(binding.attribute("NAME")), CIMDataType(CIMDataType::STRING));
        const CIMValue value = keyValue(binding);
        if (value) {
            key.setDataType(value.getCIMDataType()).setValue(value);
        }
        keys.push_back(key);
    }
    if (const XmlElement& nameless = instanceName.child("KEYVALUE")) {
        keys.push_back(
            CIMProperty(CIMName(""), CIMValue(nameless.text.c_str()))); // no class has a key without a name
    }
    return CIMObjectPath(CIMName(instanceName.attribute("CLASSNAME")), keys);
}

CIMInstance readInstance(const XmlElement& instance)
{
    CIMPropertyArray properties;
    for (const XmlElement& element : instance.children) {
        if (isProperty(element)) {
            properties.push_back(readProperty(element));
        }
    }
    CIMInstance result(instance.attribute("CLASSNAME"));
    for (const XmlElement& element : instance.childrenNamed("QUALIFIER")) {
        result.setQualifier(CIMQualifier(element.attribute("NAME")));
    }
    return result.setProperties(properties);
}

CIMValue readValue(const XmlElement& parent, const String& type)
{
    if (const XmlElement& value = parent.child("VALUE")) {
        return simpleValue(type, value.text.c_str());
    }
    const XmlElement& array = parent.child("VALUE.ARRAY");
    return array ? arrayValue(array, type) : CIMValue(CIMNULL);
}

CIMParamValueArray readMethodParameters(const XmlElement& call)
{
    CIMParamValueArray parameters;
    for (const XmlElement& element : call.childrenNamed("PARAMVALUE")) {
        const char* type = element.hasAttribute("PARAMTYPE") ? element.attribute("PARAMTYPE") : "string";
        const CIMValue value = readValue(element, type);
        parameters.push_back(CIMParamValue(CIMName(element.attribute("NAME")), value));
    }
    return parameters;
}

IntrinsicParameters::IntrinsicParameters(const XmlElement& call, std::initializer_list<const char*> names)
{
    for (const XmlElement& element : call.childrenNamed("IPARAMVALUE")) {
        const char* given = element.attribute("NAME");
        const auto known = std::find_if(names.begin(), names.end(),
                                        [given](const char* name) { return strcasecmp(name, given) == 0; });
        if (known == names.end()) {
            refuse(String("Parameter ") + given + " is not a valid parameter");
        }
        m_parameters.emplace_back(*known, &element);
    }
}

const XmlElement& IntrinsicParameters::find(const char* name) const
{
    const auto found =
        std::find_if(m_parameters.rbegin(), m_parameters.rend(),
                     [name](const auto& parameter) { return std::strcmp(parameter.first, name) == 0; });
    return found != m_parameters.rend() ? *found->second : XmlElement::none;
}

const XmlElement& IntrinsicParameters::require(const char* name) const
{
    const XmlElement& parameter = find(name);
    if (!parameter) {
        refuse(String("Non-optional parameter ") + name + " was not given");
    }
    return parameter;
}

const XmlElement& IntrinsicParameters::requireElement(const char* name, const char* element) const
{
    const XmlElement& found = require(name).child(element);
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
    return String(find(name).child("CLASSNAME").attribute("NAME"));
}

CIMObjectPath IntrinsicParameters::instanceName(const char* name) const
{
    return readInstanceName(requireElement(name, "INSTANCENAME"));
}

CIMInstance IntrinsicParameters::instance(const char* name) const
{
    return readInstance(requireElement(name, "INSTANCE"));
}

// The instance's name is not looked at: class and keys are those of the instance itself.
CIMInstance IntrinsicParameters::namedInstance(const char* name) const
{
    const XmlElement& named = requireElement(name, "VALUE.NAMEDINSTANCE");
    if (!named.child("INSTANCENAME") || !named.child("INSTANCE")) {
        refuse("A VALUE.NAMEDINSTANCE needs an INSTANCENAME and an INSTANCE");
    }
    return readInstance(named.child("INSTANCE"));
}

String IntrinsicParameters::text(const char* name) const
{
    return String(requireElement(name, "VALUE").text.c_str());
}

CIMValue IntrinsicParameters::optionalValue(const char* name) const
{
    return readValue(find(name), "string");
}

bool IntrinsicParameters::flag(const char* name, bool whenAbsent) const
{
    const XmlElement& value = find(name).child("VALUE");
    if (!value) {
        return whenAbsent;
    }
    try {
        return String(value.text.c_str()).toBool();
    } catch (const StringConversionException& e) {
        refuse(e.getMessage());
    }
}

std::optional<StringArray> IntrinsicParameters::nameList(const char* name) const
{
    const XmlElement& array = find(name).child("VALUE.ARRAY");
    if (!array) {
        return std::nullopt;
    }
    StringArray names;
    for (const XmlElement& element : array.childrenNamed("VALUE")) {
        names.push_back(element.text.c_str());
    }
    return names;
}

} // namespace cimom
