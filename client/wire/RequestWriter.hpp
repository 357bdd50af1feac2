// The requests as CIM-XML (DSP0200, DSP0201).
#pragma once

#include "wire/Cim.hpp"

#include <string>

namespace lanctl::wire
{

/// A request and what the HTTP headers say about it.
struct Request {
    std::string id;
    std::string method;    // CIMMethod
    std::string cimObject; // CIMObject, percent-encoded
    std::string body;
    bool changes = false; // a change must not be sent twice by itself
};

/// Writes the requests of one run, each under an id of its own.
class RequestWriter
{
  public:
    explicit RequestWriter(std::string cimNamespace) : m_namespace(std::move(cimNamespace)) {}

    Request enumerateInstances(const std::string& className);
    Request modifyInstance(const Modification& modification);
    Request invokeMethod(const InstanceName& object, const std::string& method);

  private:
    Request message(const std::string& method, const std::string& call);
    Request intrinsic(const std::string& method, const std::string& parameters);
    std::string namespacePath() const;

    std::string m_namespace;
    unsigned m_lastId = 1000;
};

} // namespace lanctl::wire
