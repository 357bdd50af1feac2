#include "Recording.hpp"

#include "RecordedExchanges.hpp"
#include "XmlElement.hpp"
#include "XmlText.hpp"

#include <algorithm>

namespace cimom::test
{
namespace
{

Recording recordingOf(const recorded::Exchange& exchange)
{
    Recording recording{exchange.name, exchange.number, exchange.request, {}, exchange.provider};
    if (exchange.response.rfind("HTTP/", 0) == 0) {
        recording.response = parseReply(exchange.response);
    } else {
        recording.response.body = exchange.response;
    }
    return recording;
}

std::string errorText(const std::string& code, std::string description)
{
    // The header form of an error has blanks for line breaks and one more at its end.
    std::replace(description.begin(), description.end(), '\n', ' ');
    description.erase(description.find_last_not_of(' ') + 1);
    return "ERROR " + code + ": " + description;
}

// An element in one form of many; blanks between elements are none of it.
void append(std::string& xml, const XmlElement& element)
{
    xml += "<" + element.name;
    for (const auto& [name, value] : element.attributes) {
        xml += " " + name + "=\"";
        appendEscaped(xml, value);
        xml += "\"";
    }
    xml += ">";
    if (element.children.empty() || element.text.find_first_not_of(" \t\r\n") != std::string::npos) {
        appendEscaped(xml, element.text);
    }
    for (const XmlElement& child : element.children) {
        append(xml, child);
    }
    xml += "</" + element.name + ">";
}

std::string meaningOf(const XmlElement& message)
{
    for (const XmlElement& response : message.child("MESSAGE").child("SIMPLERSP").children) {
        const XmlElement& error = response.child("ERROR");
        if (error && response.children.size() == 1) {
            return errorText(error.attribute("CODE"), error.attribute("DESCRIPTION"));
        }
    }
    std::string xml;
    append(xml, message);
    return xml;
}

} // namespace

std::vector<Recording> allRecordings()
{
    std::vector<Recording> recordings;
    for (const recorded::Exchange& exchange : recorded::allExchanges()) {
        recordings.push_back(recordingOf(exchange));
    }
    return recordings;
}

std::string meaningOf(const HttpReply& reply)
{
    for (const auto& [name, code] : reply.headers) { // trailers, numbered
        if (name.size() > 3 && name.substr(3) == "cimstatuscode") {
            return errorText(code, reply.header(name.substr(0, 3) + "cimstatusdescription"));
        }
        if (name.size() > 3 && name.substr(3) == "cimerrorcode") { // to the earliest of OpenWBEM's clients
            return errorText(code, reply.header(name.substr(0, 3) + "cimerrordescription"));
        }
    }
    if (reply.status != 200 && reply.status != 0) {
        return "HTTP " + std::to_string(reply.status);
    }
    try {
        return meaningOf(parseXml(reply.body));
    } catch (const XmlError&) {
        return "malformed: " + reply.body;
    }
}

} // namespace cimom::test
