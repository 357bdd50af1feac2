#include "CimXmlMessage.hpp"

#include "XmlText.hpp"

#include <cstring>

namespace cimom
{
namespace
{

const unsigned badRequest = 400;
const unsigned notImplemented = 501;

// Any 2.x: what is used here has been the same since 2.0.
void checkVersion(const pugi::xml_node& element, const char* attribute, const char* cimError)
{
    const pugi::xml_attribute version = element.attribute(attribute);
    if (!version) {
        throw RequestRefused(badRequest, "request-not-loosely-valid");
    }
    if (std::strncmp(version.value(), "2.", 2) != 0) {
        throw RequestRefused(notImplemented, cimError);
    }
}

} // namespace

CimXmlMessage::CimXmlMessage(std::string& body)
{
    // Blanks of a value that is nothing but blanks count. Entities of a DOCTYPE are never expanded.
    const unsigned options = pugi::parse_escapes | pugi::parse_cdata | pugi::parse_ws_pcdata_single;
    if (!isUtf8(body) ||
        !m_document.load_buffer_inplace(body.data(), body.size(), options, pugi::encoding_utf8)) {
        throw RequestRefused(badRequest, "request-not-well-formed");
    }
    const pugi::xml_node cim = m_document.child("CIM");
    const pugi::xml_node message = cim.child("MESSAGE");
    if (!message) {
        throw RequestRefused(badRequest, "request-not-loosely-valid");
    }
    checkVersion(cim, "CIMVERSION", "unsupported-cim-version");
    checkVersion(cim, "DTDVERSION", "unsupported-dtd-version");
    if (message.child("MULTIREQ")) {
        throw RequestRefused(notImplemented, "multiple-requests-unsupported");
    }
    const pugi::xml_node request = message.child("SIMPLEREQ");
    m_call = request.child("IMETHODCALL");
    m_isIntrinsic = !m_call.empty();
    if (!m_isIntrinsic) {
        m_call = request.child("METHODCALL");
    }
    if (!m_call.attribute("NAME") || !message.attribute("ID")) {
        throw RequestRefused(badRequest, "request-not-loosely-valid");
    }
    m_id = message.attribute("ID").value();
}

} // namespace cimom
