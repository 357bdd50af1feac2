#include "CimXmlWriter.hpp"

#include "ClassRepository.hpp"
#include "XmlText.hpp"

#include "OW_CIMException.hpp"
#include "OW_CIMFlavor.hpp"
#include "OW_CIMMethod.hpp"
#include "OW_CIMParameter.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
#include "OW_CIMValueCast.hpp"

#include <algorithm>

namespace cimom
{

using namespace OpenWBEM;

namespace
{

void appendAttribute(std::string& xml, const char* name, std::string_view value)
{
    xml.append(" ").append(name).append("=\"");
    appendEscaped(xml, value);
    xml.append("\"");
}

void appendAttribute(std::string& xml, const char* name, const String& value)
{
    appendAttribute(xml, name, std::string_view(value.c_str(), value.length()));
}

void appendAttribute(std::string& xml, const char* name, const char* value)
{
    appendAttribute(xml, name, std::string_view(value));
}

void appendText(std::string& xml, const String& text)
{
    appendEscaped(xml, std::string_view(text.c_str(), text.length()));
}

void appendScalar(std::string& xml, const String& text)
{
    xml.append("<VALUE>");
    appendText(xml, text);
    xml.append("</VALUE>");
}

void appendReference(std::string& xml, const CIMObjectPath& path)
{
    xml.append("<VALUE.REFERENCE>");
    appendInstanceName(xml, path);
    xml.append("</VALUE.REFERENCE>");
}

void appendQualifier(std::string& xml, const CIMQualifier& qualifier)
{
    xml.append("<QUALIFIER");
    appendAttribute(xml, "NAME", qualifier.getName());
    appendAttribute(xml, "TYPE", qualifier.getValue().getCIMDataType().toString());
    if (qualifier.getPropagated()) {
        appendAttribute(xml, "PROPAGATED", "true");
    }
    if (qualifier.hasFlavor(CIMFlavor(CIMFlavor::DISABLEOVERRIDE))) {
        appendAttribute(xml, "OVERRIDABLE", "false");
    }
    if (qualifier.hasFlavor(CIMFlavor(CIMFlavor::RESTRICTED))) {
        appendAttribute(xml, "TOSUBCLASS", "false");
    }
    if (qualifier.hasFlavor(CIMFlavor(CIMFlavor::TRANSLATE))) {
        appendAttribute(xml, "TRANSLATABLE", "true");
    }
    xml.append(" >");
    appendValue(xml, qualifier.getValue());
    xml.append("</QUALIFIER>");
}

void appendQualifiers(std::string& xml, const CIMQualifierArray& qualifiers)
{
    for (const CIMQualifier& qualifier : qualifiers) {
        appendQualifier(xml, qualifier);
    }
}

// CLASSORIGIN and PROPAGATED of a property or method, and the end of its start tag.
template <class Feature>
void endFeatureTag(std::string& xml, const Feature& feature, bool includeClassOrigin)
{
    if (includeClassOrigin && !feature.getOriginClass().empty()) {
        appendAttribute(xml, "CLASSORIGIN", feature.getOriginClass());
    }
    if (feature.getPropagated()) {
        appendAttribute(xml, "PROPAGATED", "true");
    }
    xml.append(" >");
}

const char* propertyElement(const CIMProperty& property, const CIMValue& value)
{
    if (property.getDataType().isReferenceType()) {
        return "PROPERTY.REFERENCE";
    }
    const bool isArray = value ? value.isArray() : property.getDataType().isArrayType();
    return isArray ? "PROPERTY.ARRAY" : "PROPERTY";
}

void appendProperty(std::string& xml, const CIMProperty& property, bool includeQualifiers,
                    bool includeClassOrigin)
{
    const CIMDataType type = property.getDataType();
    if (!type) {
        const String message = "Property " + property.getName() + " has no type defined";
        throw CIMException("CimXmlWriter.cpp", __LINE__, CIMException::FAILED, message.c_str());
    }
    const CIMValue value = property.getValue();
    const char* element = propertyElement(property, value);
    xml.append("<").append(element);
    appendAttribute(xml, "NAME", property.getName());
    if (type.isReferenceType()) {
        appendAttribute(xml, "REFERENCECLASS", type.getRefClassName());
    } else {
        appendAttribute(xml, "TYPE", type.toString());
    }
    endFeatureTag(xml, property, includeClassOrigin);
    if (includeQualifiers) {
        appendQualifiers(xml, property.getQualifiers());
    }
    appendValue(xml, value);
    xml.append("</").append(element).append(">");
}

void appendParameter(std::string& xml, const CIMParameter& parameter)
{
    const CIMDataType type = parameter.getType();
    std::string element = "PARAMETER";
    element += type.isReferenceType() ? (type.isArrayType() ? ".REFARRAY" : ".REFERENCE")
                                      : (type.isArrayType() ? ".ARRAY" : "");
    xml.append("<").append(element);
    if (type.isReferenceType()) {
        appendAttribute(xml, "REFERENCECLASS", type.getRefClassName());
    } else {
        appendAttribute(xml, "TYPE", type.toString());
        xml.append(" ");
    }
    appendAttribute(xml, "NAME", parameter.getName());
    xml.append(">");
    appendQualifiers(xml, parameter.getQualifiers());
    xml.append("</").append(element).append(">");
}

void appendMethod(std::string& xml, const CIMMethod& method, const ClassView& view)
{
    xml.append("<METHOD");
    appendAttribute(xml, "NAME", method.getName());
    appendAttribute(xml, "TYPE", method.getReturnType().toString());
    endFeatureTag(xml, method, view.includeClassOrigin);
    if (view.includeQualifiers) {
        appendQualifiers(xml, method.getQualifiers());
    }
    for (const CIMParameter& parameter : method.getParameters()) {
        appendParameter(xml, parameter); // its qualifiers stay, whatever the client asked for
    }
    xml.append("</METHOD>");
}

bool isListed(const StringArray* list, const String& name)
{
    return list == nullptr || std::any_of(list->begin(), list->end(), [&name](const String& listed) {
               return listed.equalsIgnoreCase(name);
           });
}

const char* keyValueType(const CIMValue& value)
{
    if (value.getType() == CIMDataType::BOOLEAN) {
        return "boolean";
    }
    return value.isNumericType() ? "numeric" : "string";
}

} // namespace

void appendValue(std::string& xml, const CIMValue& value)
{
    if (!value) {
        return;
    }
    if (!value.isArray()) {
        if (value.getType() == CIMDataType::REFERENCE) {
            appendReference(xml, value.toCIMObjectPath());
        } else {
            appendScalar(xml, value.toString());
        }
        return;
    }
    const CIMDataType texts(CIMDataType::STRING, -1);
    xml.append("<VALUE.ARRAY>");
    for (const String& text : CIMValueCast::castValueToDataType(value, texts).toStringArray()) {
        appendScalar(xml, text);
    }
    xml.append("</VALUE.ARRAY>");
}

void appendInstanceName(std::string& xml, const CIMObjectPath& name)
{
    xml.append("<INSTANCENAME");
    appendAttribute(xml, "CLASSNAME", name.getClassName());
    xml.append(">");
    for (const CIMProperty& key : name.getKeys()) {
        const CIMValue value = key.getValue();
        if (!value) {
            throw CIMException("CimXmlWriter.cpp", __LINE__, CIMException::FAILED, "No key value");
        }
        xml.append("<KEYBINDING");
        appendAttribute(xml, "NAME", key.getName());
        xml.append(">");
        if (value.getType() == CIMDataType::REFERENCE) {
            appendReference(xml, value.toCIMObjectPath());
        } else {
            xml.append("<KEYVALUE VALUETYPE=\"").append(keyValueType(value)).append("\">");
            appendText(xml, value.toString());
            xml.append("</KEYVALUE>");
        }
        xml.append("</KEYBINDING>");
    }
    xml.append("</INSTANCENAME>");
}

void appendInstance(std::string& xml, const CIMInstance& instance)
{
    xml.append("<INSTANCE");
    appendAttribute(xml, "CLASSNAME", instance.getClassName());
    xml.append(">");
    appendQualifiers(xml, instance.getQualifiers());
    for (const CIMProperty& property : instance.getProperties()) {
        appendProperty(xml, property, true, true);
    }
    xml.append("</INSTANCE>");
}

void appendNamedInstance(std::string& xml, const CIMObjectPath& name, const CIMInstance& instance)
{
    xml.append("<VALUE.NAMEDINSTANCE>");
    appendInstanceName(xml, name);
    appendInstance(xml, instance);
    xml.append("</VALUE.NAMEDINSTANCE>");
}

void appendClassName(std::string& xml, const String& name)
{
    xml.append("<CLASSNAME");
    appendAttribute(xml, "NAME", name);
    xml.append("/>");
}

void appendClass(std::string& xml, const CIMClass& cimClass, const ClassView& view)
{
    xml.append("<CLASS");
    appendAttribute(xml, "NAME", cimClass.getName());
    if (!cimClass.getSuperClass().empty()) {
        appendAttribute(xml, "SUPERCLASS", cimClass.getSuperClass());
    }
    xml.append(">");
    const auto isShown = [&view](const auto& element) {
        return !(view.localOnly && element.getPropagated());
    };
    for (const CIMQualifier& qualifier : cimClass.getQualifiers()) {
        if (view.includeQualifiers && isShown(qualifier)) {
            appendQualifier(xml, qualifier);
        }
    }
    for (const CIMProperty& property : cimClass.getAllProperties()) {
        if (isShown(property) && isListed(view.propertyList, property.getName())) {
            appendProperty(xml, property, view.includeQualifiers, view.includeClassOrigin);
        }
    }
    for (const CIMMethod& method : cimClass.getAllMethods()) {
        if (isShown(method)) {
            appendMethod(xml, method, view);
        }
    }
    xml.append("</CLASS>");
}

void appendQualifierDeclaration(std::string& xml, const QualifierDeclaration& declaration)
{
    const CIMQualifierType& type = declaration.type;
    xml.append("<QUALIFIER.DECLARATION");
    appendAttribute(xml, "NAME", type.getName());
    appendAttribute(xml, "TYPE", type.getDataType().toString());
    appendAttribute(xml, "ISARRAY", type.getDataType().isArrayType() ? "true" : "false");
    if (type.hasFlavor(CIMFlavor(CIMFlavor::DISABLEOVERRIDE))) {
        appendAttribute(xml, "OVERRIDABLE", "false");
    }
    if (type.hasFlavor(CIMFlavor(CIMFlavor::RESTRICTED))) {
        appendAttribute(xml, "TOSUBCLASS", "false");
    }
    if (type.hasFlavor(CIMFlavor(CIMFlavor::TRANSLATE))) {
        appendAttribute(xml, "TRANSLATABLE", "true");
    }
    xml.append(" ><SCOPE");
    const auto& scopes = declaration.scopes;
    for (const char* scope :
         {"CLASS", "ASSOCIATION", "REFERENCE", "PROPERTY", "METHOD", "PARAMETER", "INDICATION"}) {
        const auto names = [scope](const std::string& word) {
            return word == "any" || String(scope).equalsIgnoreCase(word.c_str());
        };
        if (std::any_of(scopes.begin(), scopes.end(), names)) {
            appendAttribute(xml, scope, "true");
        }
    }
    xml.append(" ></SCOPE>");
    appendValue(xml, type.getDefaultValue());
    xml.append("</QUALIFIER.DECLARATION>");
}

void appendReturnValue(std::string& xml, const CIMValue& value)
{
    if (!value) {
        return;
    }
    xml.append("<RETURNVALUE");
    appendAttribute(xml, "PARAMTYPE", value.getCIMDataType().toString());
    xml.append(">");
    appendValue(xml, value);
    xml.append("</RETURNVALUE>");
}

void appendParamValue(std::string& xml, const CIMParamValue& parameter)
{
    const CIMValue value = parameter.getValue();
    xml.append("<PARAMVALUE");
    appendAttribute(xml, "NAME", parameter.getName());
    if (value) {
        appendAttribute(xml, "PARAMTYPE", value.getCIMDataType().toString());
    }
    xml.append(">");
    appendValue(xml, value);
    xml.append("</PARAMVALUE>");
}

void beginResponse(std::string& xml, const char* messageId, const char* element, const char* method)
{
    xml.append(R"(<?xml version="1.0" ?><CIM CIMVERSION="2.0" DTDVERSION="2.0"><MESSAGE)");
    appendAttribute(xml, "ID", messageId);
    xml.append(R"( PROTOCOLVERSION="1.0"><SIMPLERSP><)").append(element);
    appendAttribute(xml, "NAME", method);
    xml.append(">");
}

void endResponse(std::string& xml, const char* element)
{
    xml.append("</").append(element).append("></SIMPLERSP></MESSAGE></CIM>\r\n");
}

void appendError(std::string& xml, int code, const char* description)
{
    xml.append("<ERROR");
    appendAttribute(xml, "CODE", std::string_view(std::to_string(code)));
    appendAttribute(xml, "DESCRIPTION", description);
    xml.append("></ERROR>");
}

} // namespace cimom
