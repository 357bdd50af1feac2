// What nobody foresaw is logged where the request says, not where the initialisation said.

#include "RoofFixture.hpp"
#include "reporting/Logging.hpp"

#include <OW_LogMessage.hpp>
#include <OW_Logger.hpp>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace OpenWBEM;
using fakes::Lines;

namespace
{

void interrupt()
{
    throw std::runtime_error("boom");
}

class ThrowingLogger : public Logger
{
  public:
    ThrowingLogger() : Logger(E_ALL_LEVEL) {}

  protected:
    void doProcessLogMessage(const LogMessage&) const override { interrupt(); }
    LoggerRef doClone() const override { return LoggerRef(new ThrowingLogger); }
};

class RequestEnvironments : public fakes::Roof
{
  protected:
    RequestEnvironments()
    {
        provider.initialize(fakes::environment("server"));
        world.clearJournal();
    }

    /// What `operation`, named so and asked to work on `target`, logs and throws when "boom" breaks into it.
    void expectReport(const std::string& name, const String& target, const std::function<void()>& operation)
    {
        const std::string text =
            "Unknown Error:  while performing " + name + " operation on " + target.c_str() + "\nboom\n";
        world.clearJournal();
        EXPECT_EQ(text, failureOf(operation).Exception::getMessage());
        EXPECT_EQ(Lines{"request ERROR " + text}, world.journal(fakes::Log));
    }

    const char* const endpoint = "ORX_LANEndpoint";
    const char* const setting = "ORX_LANServiceSetting";
};

TEST_F(RequestEnvironments, HearOfWhatBreaksIntoAnEnumeration)
{
    fakes::InterruptedHandler<CIMObjectPath> names(interrupt);
    fakes::InterruptedHandler<CIMInstance> instances(interrupt);
    for (const char* className : {endpoint, setting}) {
        expectReport("enumInstanceNames", className, [&] { enumNames(className, names); });
        expectReport("enumInstances", className, [&] { enumInstances(className, instances); });
    }
}

TEST_F(RequestEnvironments, HearOfWhatBreaksIntoTheOtherOperations)
{
    gLogger = LoggerRef(new ThrowingLogger); // breaks into whatever logs its own failure
    expectReport("getInstance", endpointPath("lo").toString(), [this] { get(endpointPath("lo")); });

    CIMInstance modified(endpoint);
    modified.setProperty(CIMProperty("Name", CIMValue(String("lo"))));
    expectReport("modifyInstance", modified.toString(), [&] { modify(modified, modified); });

    world.failNth(1, "osResetRouter", 99);
    expectReport("invokeMethod", "ResetRouter", [this] { invoke(setting, "ResetRouter"); });
}

} // namespace
