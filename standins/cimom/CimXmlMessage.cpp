#include "CimXmlMessage.hpp"

#include <cstring>

namespace cimom
{
namespace
{

const unsigned badRequest = 400;
const unsigned notImplemented = 501;

// Accepts any 2.x: what is used here has been the same since 2.0.
void checkVersion(const XmlElement& element, const char* attribute, const char* cimError)
{
    if (!element.hasAttribute(attribute)) {
        throw RequestRefused(badRequest, "request-not-loosely-valid");
    }
    if (std::strncmp(element.attribute(attribute), "2.", 2) != 0) {
        throw RequestRefused(notImplemented, cimError);
    }
}

XmlElement parse(const std::string& body)
{
    try {
        return parseXml(body);
    } catch (const XmlError&) {
        throw RequestRefused(badRequest, "request-not-well-formed");
    }
}

} // namespace

CimXmlMessage::CimXmlMessage(const std::string& body) : m_document(parse(body))
{
    const XmlElement& message = m_document.child("MESSAGE");
    if (m_document.name != "CIM" || !message) {
        throw RequestRefused(badRequest, "request-not-loosely-valid");
    }
    checkVersion(m_document, "CIMVERSION", "unsupported-cim-version");
    checkVersion(m_document, "DTDVERSION", "unsupported-dtd-version");
    if (message.child("MULTIREQ")) {
        throw RequestRefused(notImplemented, "multiple-requests-unsupported");
    }
    const XmlElement& request = message.child("SIMPLEREQ");
    m_isIntrinsic = bool(request.child("IMETHODCALL"));
    m_call = &request.child(m_isIntrinsic ? "IMETHODCALL" : "METHODCALL");
    if (!m_call->hasAttribute("NAME") || !message.hasAttribute("ID")) {
        throw RequestRefused(badRequest, "request-not-loosely-valid");
    }
    m_id = message.attribute("ID");
}

} // namespace cimom
