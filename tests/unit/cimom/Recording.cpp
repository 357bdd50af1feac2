#include "Recording.hpp"

#include "RecordedExchanges.hpp"

#include <algorithm>
#include <pugixml.hpp>
#include <sstream>

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
    pugi::xml_document document;
    if (!document.load_buffer(reply.body.data(), reply.body.size(),
                              pugi::parse_default | pugi::parse_ws_pcdata_single)) {
        return "malformed: " + reply.body;
    }
    const pugi::xml_node error = document.select_node("//ERROR").node();
    if (error && error.parent().first_child() == error.parent().last_child()) {
        return errorText(error.attribute("CODE").value(), error.attribute("DESCRIPTION").value());
    }
    std::ostringstream text;
    document.print(text, "", pugi::format_raw | pugi::format_no_declaration);
    return text.str();
}

} // namespace cimom::test
