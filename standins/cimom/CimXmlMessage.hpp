#pragma once

#include "XmlElement.hpp"

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
    // Throws RequestRefused.
    explicit CimXmlMessage(const std::string& body);
    CimXmlMessage(const CimXmlMessage&) = delete;
    CimXmlMessage& operator=(const CimXmlMessage&) = delete;

    const char* id() const { return m_id; }
    bool isIntrinsic() const { return m_isIntrinsic; }
    // <IMETHODCALL> or <METHODCALL>, which has a NAME.
    const XmlElement& call() const { return *m_call; }
    const char* name() const { return m_call->attribute("NAME"); }

  private:
    XmlElement m_document;
    const char* m_id = "";
    bool m_isIntrinsic = false;
    const XmlElement* m_call = nullptr;
};

} // namespace cimom
