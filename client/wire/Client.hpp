// The operations of a CIM server that lanctl uses.
#pragma once

#include "wire/AnswerParser.hpp"
#include "wire/Cim.hpp"
#include "wire/HttpConnection.hpp"
#include "wire/RequestWriter.hpp"

#include <string>
#include <vector>

namespace lanctl::wire
{

/// Each operation throws CimError when the server refuses it, and Failure when no usable answer comes.
class Client
{
  public:
    explicit Client(ConnectionOptions options)
        : m_writer(options.server.cimNamespace), m_connection(std::move(options))
    {
    }

    std::vector<Instance> enumerateInstances(const std::string& className);
    void modifyInstance(const Modification& modification);
    std::string invokeMethod(const InstanceName& object, const std::string& method);

    HttpConnection& connection() { return m_connection; }

  private:
    Answer call(const Request& request);

    RequestWriter m_writer;
    HttpConnection m_connection;
};

} // namespace lanctl::wire
