#include "Shown.hpp"
#include <cstdio>
#include <cstring>

namespace recorded
{

std::string quoted(const std::string& bytes)
{
    const char* const digits = "0123456789abcdef";
    std::string text = "\"";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n') {
            text += "\\n";
        } else if (c == '"' || c == '\\') {
            text += {'\\', c};
        } else if (byte < 0x20 || byte > 0x7E) {
            text += {'\\', 'x', digits[byte / 16], digits[byte % 16]};
        } else {
            text += c;
        }
    }
    return text + "\"";
}

std::string shown(const std::string& text)
{
    return text;
}

std::string shown(const String& text)
{
    return quoted(std::string(text.c_str(), text.length()));
}

std::string shown(const char* text)
{
    return text ? quoted(text) : "null pointer";
}

std::string shown(char c)
{
    return "char " + std::to_string(static_cast<unsigned char>(c));
}

std::string shown(bool truth)
{
    return truth ? "true" : "false";
}

std::string shown(double number)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", number);
    return text;
}

std::string shown(const Bool& truth)
{
    return truth ? "Bool(true)" : "Bool(false)";
}

std::string shown(const Char16& character)
{
    return "Char16 " + std::to_string(character.getValue());
}

std::string shown(const CIMName& name)
{
    return "name " + shown(name.toString());
}

std::string shown(const CIMDataType& type)
{
    if (type) {
        const std::string size = type.isArrayType() ? "[" + shown(type.getSize()) + "]" : "";
        return "type(" + shown(type.getType()) + size + ",ref " + shown(type.getRefClassName()) + ")";
    }
    try {
        return "type(false," + shown(type.getType()) + ")";
    } catch (const Exception&) {
        return "type(null)";
    }
}

std::string shown(const CIMDateTime& time)
{
    std::string text;
    try {
        text = shown(time.toString());
    } catch (const Exception&) {
        return "datetime(null)";
    }
    text += time.isInterval() ? ",interval," : ",date,";
    const long fields[] = {time.getYear(),    time.getMonth(),   time.getHours(),
                           time.getMinutes(), time.getSeconds(), static_cast<long>(time.getMicroSeconds()),
                           time.getUtc()};
    for (const long field : fields) {
        text += std::to_string(field) + ",";
    }
    return "datetime(" + text + (time ? "true)" : "false)");
}

std::string shown(const CIMValue& value)
{
    if (!value) {
        return "value(null)";
    }
    const std::string type = shown(value.getType()) + (value.isArray() ? "[]," : ",");
    try {
        return "value(" + type + shown(value.toString()) + ")";
    } catch (const Exception& e) {
        return "value(" + type + "throws " + e.type() + ")";
    }
}

std::string shown(const CIMFlavor& flavor)
{
    return "flavor(" + shown(flavor.getFlavor()) + ")";
}

std::string shown(const CIMQualifier& qualifier)
{
    if (!qualifier) {
        return "qualifier(null)";
    }
    const char* const end = qualifier.getPropagated() ? ",propagated)" : ")";
    return "qualifier(" + shown(qualifier.getName()) + "," + shown(qualifier.getValue()) + end;
}

std::string shown(const CIMProperty& property)
{
    if (!property) {
        return "property(null)";
    }
    std::string text = "property(" + shown(property.getName()) + "," + shown(property.getDataType()) + "," +
                       shown(property.getValue());
    if (!property.getQualifiers().empty()) {
        text += "," + shown(property.getQualifiers());
    }
    if (!property.getOriginClass().empty()) {
        text += ",from " + shown(property.getOriginClass());
    }
    return text + (property.getPropagated() ? ",propagated)" : ")");
}

std::string shown(const CIMParamValue& argument)
{
    return argument ? "param(" + shown(argument.getName()) + "," + shown(argument.getValue()) + ")"
                    : "param(null)";
}

std::string shown(const CIMInstance& instance)
{
    if (!instance) {
        return "instance(null)";
    }
    return "instance(" + shown(instance.getClassName()) + ", quals " + shown(instance.getQualifiers()) +
           ", props " + shown(instance.getProperties()) + ", keys " + shown(instance.getKeyValuePairs()) +
           ")";
}

std::string shown(const CIMObjectPath& path)
{
    if (!path) {
        return "path(null)";
    }
    return "path(" + shown(path.toString()) + ", ns " + shown(path.getNameSpace()) + ", class " +
           shown(path.getClassName()) + ", keys " + shown(path.getKeys()) + ")";
}

std::string shown(const CIMParameter& parameter)
{
    return parameter ? "parameter(" + shown(parameter.getName()) + ")" : "parameter(null)";
}

std::string shown(const CIMMethod& method)
{
    return method ? "method(" + shown(method.getName()) + ")" : "method(null)";
}

std::string shown(const CIMClass& cimClass)
{
    if (!cimClass) {
        return "class(null)";
    }
    return "class(" + shown(cimClass.getName()) + ":" + shown(cimClass.getSuperClass()) + ", quals " +
           shown(cimClass.getQualifiers()) + ", props " + shown(cimClass.getAllProperties()) + ")";
}

std::string shown(const Exception& e)
{
    const auto* const cim = dynamic_cast<const CIMException*>(&e);
    const std::string bare = cim ? "," + shown(cim->Exception::getMessage()) : "";
    return std::string(e.type()) + "(" + shown(e.getErrorCode()) + "," + shown(e.getMessage()) + bare + ")";
}

} // namespace recorded
