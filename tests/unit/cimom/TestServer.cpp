#include "TestServer.hpp"

#include "ConsoleLogger.hpp"
#include "ProviderEnvironment.hpp"

namespace cimom::test
{
namespace
{

HttpOptions onFreePort(HttpOptions options)
{
    options.port = 0;
    return options;
}

} // namespace

std::unique_ptr<ObjectManager> sampleObjectManager()
{
    const OpenWBEM::LoggerRef logger(new ConsoleLogger(OpenWBEM::E_NONE_LEVEL));
    const OpenWBEM::ProviderEnvironmentIFCRef environment(new ProviderEnvironment(logger, {}));
    const std::string data = CIM_XML_DATA_DIR;
    ObjectManagerOptions options;
    options.mof = {data + "/sample.mof", data + "/small.mof"};
    options.providerDirectories = {SAMPLE_PROVIDER_DIR};
    return std::make_unique<ObjectManager>(options, environment);
}

TestServer::TestServer(HttpOptions options)
    : m_objectManager(sampleObjectManager()),
      m_server(
          onFreePort(std::move(options)),
          [this](const std::string& body) { return m_objectManager->answer(body); },
          [](const std::string&) {})
{
}

} // namespace cimom::test
