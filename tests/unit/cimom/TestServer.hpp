#pragma once

#include "HttpServer.hpp"
#include "ObjectManager.hpp"

#include <memory>

namespace cimom::test
{

// An object manager with the sample classes and the sample provider; the log goes to standard error.
std::unique_ptr<ObjectManager> sampleObjectManager();

// HTTP in front of one, on a free port of the loopback interface.
class TestServer
{
  public:
    explicit TestServer(HttpOptions options = {});
    std::uint16_t port() const { return m_server.port(); }

  private:
    std::unique_ptr<ObjectManager> m_objectManager;
    HttpServer m_server;
};

} // namespace cimom::test
