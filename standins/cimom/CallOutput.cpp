#include "CallOutput.hpp"

#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
#include "OW_CIMValue.hpp"
#include "OW_CIMValueCast.hpp"

#include <cstdio>

namespace cimom
{

using namespace OpenWBEM;

namespace
{

void appendJsonText(std::string& json, const String& text)
{
    appendJsonString(json, std::string_view(text.c_str(), text.length()));
}

void appendJsonMember(std::string& json, const char*& separator, const String& name, const CIMValue& value)
{
    json.append(separator);
    appendJsonText(json, name);
    json.append(":");
    appendJsonValue(json, value);
    separator = ",";
}

void appendJsonScalar(std::string& json, CIMDataType type, const String& text)
{
    if (type.isNumericType() || type.getType() == CIMDataType::BOOLEAN) {
        json.append(text.c_str());
    } else {
        appendJsonText(json, text);
    }
}

// {"IPAddress":{"ImpactWarning":"..."}}: the properties that have qualifiers.
void appendJsonQualifiers(std::string& json, const CIMInstance& instance)
{
    const char* separator = "";
    json.append("{");
    for (const CIMProperty& property : instance.getProperties()) {
        if (property.getQualifiers().empty()) {
            continue;
        }
        json.append(separator);
        separator = ",";
        appendJsonText(json, property.getName());
        json.append(":{");
        const char* innerSeparator = "";
        for (const CIMQualifier& qualifier : property.getQualifiers()) {
            appendJsonMember(json, innerSeparator, qualifier.getName(), qualifier.getValue());
        }
        json.append("}");
    }
    json.append("}");
}

std::string trimmed(const String& text)
{
    return String(text).rtrim().c_str();
}

} // namespace

void appendJsonString(std::string& json, std::string_view text)
{
    json += '"';
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            json.append(1, '\\').append(1, c);
        } else if (static_cast<unsigned char>(c) < 0x20) {
            char escape[7];
            std::snprintf(escape, sizeof escape, "\\u%04x",
                          static_cast<unsigned>(static_cast<unsigned char>(c)));
            json.append(escape);
        } else {
            json += c;
        }
    }
    json += '"';
}

void appendJsonValue(std::string& json, const CIMValue& value)
{
    if (!value) {
        json.append("null");
        return;
    }
    const CIMDataType type(value.getType());
    if (!value.isArray()) {
        appendJsonScalar(json, type, value.toString());
        return;
    }
    const char* separator = "";
    json.append("[");
    const CIMDataType texts(CIMDataType::STRING, -1);
    for (const String& text : CIMValueCast::castValueToDataType(value, texts).toStringArray()) {
        json.append(separator);
        appendJsonScalar(json, type, text);
        separator = ",";
    }
    json.append("]");
}

std::string pathText(const CIMObjectPath& path, bool asJson)
{
    if (!asJson) {
        return path.modelPath().c_str();
    }
    std::string json = "{\"class\":";
    appendJsonText(json, path.getClassName());
    json.append(",\"keys\":{");
    const char* separator = "";
    for (const CIMProperty& key : path.getKeys()) {
        appendJsonMember(json, separator, key.getName(), key.getValue());
    }
    return json + "}}";
}

std::string instanceText(const CIMInstance& instance, bool asJson)
{
    if (!asJson) {
        return trimmed(instance.toString());
    }
    std::string json = "{\"class\":";
    appendJsonText(json, instance.getClassName());
    json.append(",\"properties\":{");
    const char* separator = "";
    for (const CIMProperty& property : instance.getProperties()) {
        appendJsonMember(json, separator, property.getName(), property.getValue());
    }
    json.append("},\"qualifiers\":");
    appendJsonQualifiers(json, instance);
    return json + "}";
}

std::string valueText(const CIMValue& value, bool asJson)
{
    if (!asJson) {
        return value.toString().c_str();
    }
    std::string json;
    appendJsonValue(json, value);
    return json;
}

std::string methodResultText(const Operations::MethodResult& result, bool asJson)
{
    std::string text = asJson ? "{\"returnValue\":" : "";
    text.append(valueText(result.returnValue, asJson)).append(asJson ? ",\"out\":{" : "");
    const char* separator = "";
    for (const CIMParamValue& parameter : result.out) {
        if (asJson) {
            appendJsonMember(text, separator, parameter.getName(), parameter.getValue());
        } else {
            text.append("\n").append(parameter.getName().c_str()).append(" = ");
            text.append(parameter.getValue().toString().c_str());
        }
    }
    return text + (asJson ? "}}" : "");
}

std::string failureText(const CimFailure& failure, bool asJson)
{
    if (!asJson) {
        return "CIM error " + std::to_string(failure.code) + ": " + failure.description;
    }
    std::string json = R"({"error":{"code":)" + std::to_string(failure.code) + ",\"description\":";
    appendJsonString(json, std::string_view(failure.description));
    return json + "}}";
}

} // namespace cimom
