#include "Environment.hpp"

#include "reporting/Logging.hpp"

#include <OW_CIMOMHandleIFC.hpp>
#include <OW_LogMessage.hpp>
#include <OW_OperationContext.hpp>
#include <OW_RepositoryIFC.hpp>
#include <OW_Types.hpp>

#include <filesystem>
#include <iterator>

namespace fakes
{

using OpenWBEM::Logger;
using OpenWBEM::LoggerRef;
using OpenWBEM::LogMessage;
using OpenWBEM::String;

namespace
{

/// How many descriptors the process has. The one that the counting opens is always included.
std::size_t openDescriptors()
{
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

class RecordingLogger : public Logger
{
  public:
    explicit RecordingLogger(const std::string& name) : Logger(OpenWBEM::E_ALL_LEVEL), m_name(name) {}

  protected:
    void doProcessLogMessage(const LogMessage& message) const override
    {
        if (World* world = World::current())
            world->record(Log, m_name + " " + message.category.c_str() + " " + message.message.c_str());
    }
    LoggerRef doClone() const override { return LoggerRef(new RecordingLogger(m_name)); }

  private:
    std::string m_name;
};

class Environment : public OpenWBEM::ProviderEnvironmentIFC
{
  public:
    explicit Environment(const std::string& loggerName) : m_logger(recordingLogger(loggerName)) {}

    OpenWBEM::CIMOMHandleIFCRef getCIMOMHandle() const override { return {}; }
    OpenWBEM::CIMOMHandleIFCRef getRepositoryCIMOMHandle() const override { return {}; }
    OpenWBEM::RepositoryIFCRef getRepository() const override { return {}; }
    LoggerRef getLogger() const override { return m_logger; }
    LoggerRef getLogger(const String&) const override { return m_logger; }
    String getConfigItem(const String&, const String& otherwise) const override { return otherwise; }
    String getUserName() const override { return {}; }
    OpenWBEM::OperationContext& getOperationContext() override { return m_context; }

  private:
    LoggerRef m_logger;
    OpenWBEM::OperationContext m_context;
};

} // namespace

LoggerRef recordingLogger(const std::string& name)
{
    return LoggerRef(new RecordingLogger(name));
}

OpenWBEM::ProviderEnvironmentIFCRef environment(const std::string& loggerName)
{
    return OpenWBEM::ProviderEnvironmentIFCRef(new Environment(loggerName));
}

ServerTest::ServerTest() : env(environment("request")), m_descriptorsBefore(openDescriptors())
{
    gLogger = recordingLogger("gLogger");
}

ServerTest::~ServerTest()
{
    gLogger = LoggerRef();
}

void ServerTest::TearDown()
{
    for (const std::string& problem : world.problems())
        ADD_FAILURE() << problem;
    EXPECT_EQ(m_descriptorsBefore + world.descriptors.size(), openDescriptors()) << "descriptors left open";
}

} // namespace fakes
