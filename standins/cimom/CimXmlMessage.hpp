#pragma once

#include <pugixml.hpp>
#include <stdexcept>
#include <string>

namespace cimom
{

// A request that gets an HTTP refusal instead of a CIM-XML answer: the status and the CIMError header that
// DSP0200 gives for it.
class RequestRefused : public std::runtime_error
{
  public:
    RequestRefused(unsigned status, const char* cimError) : std::runtime_error(cimError), m_status(status) {}
    unsigned status() const { return m_status; }

  private:
    unsigned m_status;
};

// The envelope of a request, <CIM><MESSAGE><SIMPLEREQ>, down to the one call in it.
class CimXmlMessage
{
  public:
    // Parses in place: the body is altered and must outlive the message. Throws RequestRefused.
    explicit CimXmlMessage(std::string& body);

    const char* id() const { return m_id; }
    bool isIntrinsic() const { return m_isIntrinsic; }
    // <IMETHODCALL> or <METHODCALL>, which has a NAME.
    pugi::xml_node call() const { return m_call; }
    const char* name() const { return m_call.attribute("NAME").value(); }

  private:
    pugi::xml_document m_document;
    const char* m_id = "";
    bool m_isIntrinsic = false;
    pugi::xml_node m_call;
};

} // namespace cimom
