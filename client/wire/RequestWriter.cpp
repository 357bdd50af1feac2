#include "wire/RequestWriter.hpp"

#include "wire/XmlText.hpp"

#include <array>
#include <cctype>
#include <cstdio>
#include <sstream>

namespace lanctl::wire
{

namespace
{

std::string percentEncoded(const std::string& text)
{
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) != 0 || c == '_' || c == '.' || c == '-') {
            out += c;
            continue;
        }
        std::array<char, 4> code{};
        std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned>(byte));
        out += code.data();
    }
    return out;
}

std::string parameter(const std::string& name, const std::string& content)
{
    return "<IPARAMVALUE NAME=\"" + name + "\">" + content + "</IPARAMVALUE>";
}

std::string value(const std::string& text)
{
    return "<VALUE>" + escaped(text) + "</VALUE>";
}

std::string nameXml(const InstanceName& name)
{
    std::string xml = "<INSTANCENAME CLASSNAME=\"" + escaped(name.className) + "\">";
    for (const auto& [key, text] : name.keys)
        xml += "<KEYBINDING NAME=\"" + escaped(key) + R"("><KEYVALUE VALUETYPE="string">)" + escaped(text) +
               "</KEYVALUE></KEYBINDING>";
    return xml + "</INSTANCENAME>";
}

std::string instanceXml(const Instance& instance)
{
    std::string xml = "<INSTANCE CLASSNAME=\"" + escaped(instance.className) + "\">";
    for (const auto& property : instance.properties)
        xml += "<PROPERTY NAME=\"" + escaped(property.name) + "\" TYPE=\"" + escaped(property.type) + "\">" +
               (property.value ? value(*property.value) : "") + "</PROPERTY>";
    return xml + "</INSTANCE>";
}

std::string listXml(const std::vector<std::string>& names)
{
    std::string xml = "<VALUE.ARRAY>";
    for (const auto& name : names)
        xml += value(name);
    return xml + "</VALUE.ARRAY>";
}

/// The object path as text, for the CIMObject header.
std::string pathText(const std::string& cimNamespace, const InstanceName& name)
{
    std::string text = cimNamespace + ":" + name.className;
    char separator = '.';
    for (const auto& [key, keyValue] : name.keys) {
        text += separator;
        text.append(key).append("=\"").append(keyValue).append("\"");
        separator = ',';
    }
    return text;
}

} // namespace

Request RequestWriter::enumerateInstances(const std::string& className)
{
    // Qualifiers bring the server's warnings about a change. Not LocalOnly: the classes derive from nothing.
    return intrinsic(
        "EnumerateInstances",
        parameter("ClassName", "<CLASSNAME NAME=\"" + escaped(className) + "\"/>") +
            parameter("LocalOnly", value("FALSE")) + parameter("DeepInheritance", value("TRUE")) +
            parameter("IncludeQualifiers", value("TRUE")) + parameter("IncludeClassOrigin", value("FALSE")));
}

Request RequestWriter::modifyInstance(const Modification& modification)
{
    Request request = intrinsic(
        "ModifyInstance",
        parameter("ModifiedInstance", "<VALUE.NAMEDINSTANCE>" + nameXml(modification.name) +
                                          instanceXml(modification.instance) + "</VALUE.NAMEDINSTANCE>") +
            parameter("IncludeQualifiers", value("FALSE")) +
            parameter("PropertyList", listXml(modification.propertyList)));
    request.changes = true;
    return request;
}

Request RequestWriter::invokeMethod(const InstanceName& object, const std::string& method)
{
    Request request =
        message(method, "<METHODCALL NAME=\"" + escaped(method) + "\"><LOCALINSTANCEPATH>" + namespacePath() +
                            nameXml(object) + "</LOCALINSTANCEPATH></METHODCALL>");
    request.cimObject = percentEncoded(pathText(m_namespace, object));
    request.changes = true;
    return request;
}

Request RequestWriter::intrinsic(const std::string& method, const std::string& parameters)
{
    return message(method,
                   "<IMETHODCALL NAME=\"" + method + "\">" + namespacePath() + parameters + "</IMETHODCALL>");
}

Request RequestWriter::message(const std::string& method, const std::string& call)
{
    Request request;
    request.id = std::to_string(++m_lastId);
    request.method = method;
    request.cimObject = percentEncoded(m_namespace);
    request.body = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
                   "<MESSAGE ID=\"" +
                   request.id + R"(" PROTOCOLVERSION="1.0"><SIMPLEREQ>)" + call +
                   "</SIMPLEREQ></MESSAGE></CIM>\n";
    return request;
}

std::string RequestWriter::namespacePath() const
{
    std::string xml = "<LOCALNAMESPACEPATH>";
    std::istringstream names(m_namespace);
    for (std::string name; std::getline(names, name, '/');)
        xml += "<NAMESPACE NAME=\"" + escaped(name) + "\"/>";
    return xml + "</LOCALNAMESPACEPATH>";
}

} // namespace lanctl::wire
