// Exceptions that nobody foresaw, on their way to the client.

#include "Failures.hpp"
#include "ProviderFixture.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace fakes; // for the sums of journal lines
using OpenWBEM::CIMException;
using OpenWBEM::CIMInstance;
using OpenWBEM::CIMProperty;
using OpenWBEM::CIMValue;
using OpenWBEM::String;

namespace
{

const std::string unit = "ORX_LANEndpointProvider.cpp 1 ";

class UnexpectedExceptions : public ProviderTest
{
  protected:
    /// An operation, the text of its target, and what runs it. Each asks for the name of an endpoint, which
    /// is where interruptWith breaks in.
    struct Operation {
        const char* name;
        String target;
        std::function<void()> run;
    };

    std::vector<Operation> operations()
    {
        const CIMInstance modified = instanceOf("eth1", {property("SubnetMask", "255.255.0.0")});
        return {{"enumInstanceNames", "Some_Class", [this] { enumInstanceNames("Some_Class"); }},
                {"enumInstances", "Some_Class", [this] { enumInstances("Some_Class"); }},
                {"getInstance", pathTo("eth1").toString(), [this] { getInstance("eth1"); }},
                {"modifyInstance", modified.toString(), [this, modified] { modifyInstance(modified); }}};
    }

    /// Begins each enumeration anew: an interrupted one leaves its cursor where it was.
    std::string failureOfRunning(const Operation& operation)
    {
        provider.initialize(env);
        return failureOf(operation.run);
    }

    void interruptWith(const std::function<void()>& interruption)
    {
        overrides.interruptions["getName"] = interruption;
    }

    int lineOfFailure(const Operation& operation)
    {
        provider.initialize(env);
        try {
            operation.run();
        } catch (const CIMException& e) {
            return e.getLine();
        }
        return 0;
    }
};

TEST_F(UnexpectedExceptions, AStandardExceptionIsReportedWithOperationTargetAndText)
{
    interruptWith([] { throw std::runtime_error("boom"); });
    for (const Operation& operation : operations()) {
        world.clearJournal();
        const std::string text = unknownError(operation.name, operation.target) + "boom\n";
        EXPECT_EQ(unit + text, failureOfRunning(operation));
        EXPECT_EQ(Lines{"request ERROR " + text}, world.journal(Log));
    }
}

TEST_F(UnexpectedExceptions, AnyOtherExceptionIsReportedWithOperationAndTarget)
{
    interruptWith([] { throw 42; });
    for (const Operation& operation : operations()) {
        world.clearJournal();
        const std::string text = unknownError(operation.name, operation.target);
        EXPECT_EQ(unit + text, failureOfRunning(operation));
        EXPECT_EQ(Lines{"request ERROR " + text}, world.journal(Log));
    }
}

TEST_F(UnexpectedExceptions, ACimExceptionPassesUnchangedAndUnlogged)
{
    interruptWith([] { throw CIMException("Elsewhere.cpp", 7, CIMException::NOT_FOUND, "gone"); });
    for (const Operation& operation : operations()) {
        EXPECT_EQ("Elsewhere.cpp 6 gone", failureOfRunning(operation));
        EXPECT_EQ(7, lineOfFailure(operation));
    }
    EXPECT_EQ(Lines{}, world.journal(Log));
}

TEST_F(UnexpectedExceptions, TheTwoKindsAreReportedFromDifferentLines)
{
    for (const Operation& operation : operations()) {
        interruptWith([] { throw std::runtime_error("boom"); });
        const int standard = lineOfFailure(operation);
        interruptWith([] { throw 42; });
        EXPECT_NE(standard, lineOfFailure(operation)) << operation.name;
    }
}

TEST_F(UnexpectedExceptions, ThePathOfTheRequestIsNamedAsText)
{
    interruptWith([] { throw std::runtime_error("boom"); });
    EXPECT_EQ(unit + "Unknown Error:  while performing getInstance operation on "
                     "/:ORX_LANEndpoint.Name=\"eth1\"\nboom\n",
              failureOf([this] { getInstance("eth1"); }));
}

TEST_F(UnexpectedExceptions, AValueOfTheWrongTypeIsSuchAnException)
{
    const CIMInstance wrongMtu = instanceOf("eth1", {property("MaxDataSize", "1400")});
    EXPECT_EQ(unit + unknownError("modifyInstance", wrongMtu.toString()) +
                  "CIMValue::CIMValueImpl::get - Value is not a SINT32\n",
              failureOf([&] { modifyInstance(wrongMtu); }));
    const CIMInstance wrongFlag = instanceOf("eth1", {property("isDhcpEnabled", "true")});
    EXPECT_EQ(unit + unknownError("modifyInstance", wrongFlag.toString()) +
                  "CIMValue::CIMValueImpl::get - Value is not a BOOLEAN\n",
              failureOf([&] { modifyInstance(wrongFlag); }));
    EXPECT_EQ(Lines{}, world.journal(Command));
}

TEST_F(UnexpectedExceptions, ATextPropertyTakesAnyValueAsText)
{
    const std::pair<CIMProperty, const char*> values[] = {
        {property("IPAddress", 17), "dhcpIpInfoIsIPAddrValid 17"},
        {CIMProperty("DefaultGateway", CIMValue(OpenWBEM::UInt16(1))), "dhcpIpInfoIsIPAddrValid 1"}};
    for (const auto& [value, query] : values) {
        const CIMInstance modified = instanceOf("eth1", {value});
        EXPECT_EQ("ORX_LANEndpoint.cpp 1 Invalid IP address format",
                  failureOf([&] { modifyInstance(modified); }));
        EXPECT_EQ(query, world.journal(Dhcp).back());
    }
}

TEST_F(UnexpectedExceptions, APropertyThatCannotBeChangedMayHaveAValueOfAnyType)
{
    modifyInstance(instanceOf("eth1", {property("Speed", "fast"), property("OperationalStatus", true),
                                       CIMProperty("Description", CIMValue(OpenWBEM::UInt16(1)))}));
    EXPECT_EQ(Lines{}, world.journal(Command | Notice | Log));
}

TEST_F(UnexpectedExceptions, AnExceptionOfTheResultHandlerIsOneToo)
{
    onResult = [] { throw std::runtime_error("handler"); };
    EXPECT_EQ(unit + unknownError("enumInstances", "ORX_LANEndpoint") + "handler\n",
              failureOf([this] { enumInstances(); }));
}

} // namespace
