// The frame around the requests: what is refused, what is done without a request, and what an unexpected
// exception becomes.

#include "SettingRequests.hpp"

#include "reporting/Logging.hpp"

#include <OW_LogMessage.hpp>

#include <functional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using OpenWBEM::CIMInstance;
using OpenWBEM::CIMObjectPath;
using OpenWBEM::CIMValue;
using OpenWBEM::LoggerRef;

constexpr const char* unit = "ORX_LANSettingProvider.cpp";

class SettingRequest : public SettingRequests
{
};

TEST_F(SettingRequest, InitializeAndCleanupDoNothing)
{
    provider.initialize(env);
    provider.initialize(env);
    provider.cleanup();
    EXPECT_EQ(world.journal(), Lines{});
}

TEST_F(SettingRequest, CreationIsNotSupported)
{
    EXPECT_EQ(
        failureOf([&] { provider.createInstance(env, "root/cimv2", CIMInstance("ORX_LANServiceSetting")); }),
        (Failure{7, "", unit}));
    EXPECT_EQ(world.journal(), Lines{});
}

TEST_F(SettingRequest, DeletionIsNotSupported)
{
    EXPECT_EQ(failureOf([&] {
                  provider.deleteInstance(env, "root/cimv2", CIMObjectPath("ORX_LANServiceSetting"));
              }),
              (Failure{7, "", unit}));
    EXPECT_EQ(world.journal(), Lines{});
}

TEST_F(SettingRequest, ResetRouterReturnsAText)
{
    const CIMValue result = invokeMethod("ResetRouter");
    EXPECT_EQ(result.getType(), OpenWBEM::CIMDataType::STRING);
    EXPECT_STREQ(result.toString().c_str(), "Router reset initiated");
    EXPECT_EQ(world.journal(), Lines{"osResetRouter"});
}

TEST_F(SettingRequest, ResetRouterLooksAtNeitherNamespaceNorPathNorParameters)
{
    CIMObjectPath path("Another_Class", "root/another");
    path.setKeyValue("InstanceID", CIMValue("nonsense"));
    OpenWBEM::CIMParamValueArray in;
    in.push_back(OpenWBEM::CIMParamValue("Delay", CIMValue(OpenWBEM::UInt16(5))));
    for (const char* ns : {"", "root/orx"}) {
        world.clearJournal();
        OpenWBEM::CIMParamValueArray out;
        const CIMValue result = provider.invokeMethod(env, ns, path, "ResetRouter", in, out);
        EXPECT_STREQ(result.toString().c_str(), "Router reset initiated") << ns;
        EXPECT_EQ(out.size(), 0U) << ns;
        EXPECT_EQ(world.journal(), Lines{"osResetRouter"}) << ns;
    }
}

TEST_F(SettingRequest, AnyOtherMethodIsNotFound)
{
    for (const char* name : {"resetRouter", "RESETROUTER", "ResetRouter ", "Reset", ""})
        EXPECT_EQ(failureOf([&] { invokeMethod(name); }), (Failure{17, "", unit})) << name;
    EXPECT_EQ(world.journal(), Lines{});
}

TEST_F(SettingRequest, ARefusedResetReachesTheClientUnchanged)
{
    world.routerResetStatus = 103;
    EXPECT_EQ(failureOf([&] { invokeMethod("ResetRouter"); }),
              modelFailure("No router attached#LAN_ERROR_noRouterAttached#"));
    EXPECT_EQ(world.journal(fakes::Log), Lines{"gLogger ERROR No router attached: 103"});
}

TEST_F(SettingRequest, AFailedReadReachesTheClientUnchanged)
{
    const Failure expected = modelFailure("Error getting host info. #LAN_ERROR_cannotGetHostInfo#");
    const std::function<void()> reads[] = {[&] { enumInstanceNames(); }, [&] { enumInstances(); },
                                           [&] { getInstance(); }};
    for (const auto& read : reads) {
        world.clearJournal();
        world.failNth(1, "gethostbyname", 2);
        EXPECT_EQ(failureOf(read), expected);
        EXPECT_EQ(world.journal(fakes::Log),
                  Lines{"gLogger ERROR Error getting host info. Error code is: 2"});
    }
}

/// A logger that throws, which stands for whatever may go wrong inside of an operation.
class ThrowingLogger : public OpenWBEM::Logger
{
  public:
    explicit ThrowingLogger(bool standard) : Logger(OpenWBEM::E_ALL_LEVEL), m_standard(standard) {}

  protected:
    void doProcessLogMessage(const OpenWBEM::LogMessage&) const override
    {
        if (m_standard)
            throw std::runtime_error("boom");
        throw 7;
    }
    LoggerRef doClone() const override { return LoggerRef(new ThrowingLogger(m_standard)); }

  private:
    bool m_standard;
};

/// Every operation that works on the model, on a server where each of them has something to log.
class UnexpectedException : public SettingRequests
{
  protected:
    UnexpectedException()
    {
        world.failAll("gethostname", 22);
        world.routerResetStatus = 1;
    }
    void TearDown() override
    {
        gLogger = fakes::recordingLogger("gLogger");
        failureOf([&] { invokeMethod("ResetRouter"); });
        setting.get(); // every programmed failure has been met
        SettingRequests::TearDown();
    }

    struct Case {
        const char* operation;
        std::string target;
        std::function<void()> request;
    };

    std::vector<Case> cases()
    {
        CIMObjectPath path("ORX_LANServiceSetting", "root/cimv2");
        path.setKeyValue("InstanceID", CIMValue("x"));
        return {{"enumInstanceNames", "Some_Class", [this] { enumInstanceNames("Some_Class"); }},
                {"enumInstances", "Some_Class", [this] { enumInstances("Some_Class"); }},
                {"getInstance", "/root/cimv2:ORX_LANServiceSetting.InstanceID=\"x\"",
                 [this, path] { getInstance(path); }},
                {"modifyInstance", "instance of ORX_LANServiceSetting {\nDomainName = 1;\n}\n",
                 [this] { modify({text("DomainName", "1")}); }},
                {"invokeMethod", "ResetRouter", [this] { invokeMethod("ResetRouter"); }}};
    }

    static std::string message(const Case& each)
    {
        return std::string("Unknown Error:  while performing ") + each.operation + " operation on " +
               each.target + "\n";
    }
};

TEST_F(UnexpectedException, OfTheStandardKindBecomesAFailureWithItsText)
{
    gLogger = LoggerRef(new ThrowingLogger(true));
    for (const Case& each : cases()) {
        world.clearJournal();
        EXPECT_EQ(failureOf(each.request), (Failure{1, message(each) + "boom\n", unit}));
        EXPECT_EQ(world.journal(fakes::Log), Lines{"request ERROR " + message(each) + "boom\n"})
            << "the logger of the request, once";
    }
}

TEST_F(UnexpectedException, OfAnyOtherKindBecomesAFailureWithoutOne)
{
    gLogger = LoggerRef(new ThrowingLogger(false));
    for (const Case& each : cases()) {
        world.clearJournal();
        EXPECT_EQ(failureOf(each.request), (Failure{1, message(each), unit}));
        EXPECT_EQ(world.journal(fakes::Log), Lines{"request ERROR " + message(each)});
    }
}

TEST_F(UnexpectedException, IsReportedFromALineOfItsOwn)
{
    std::set<int> lines;
    for (const bool standard : {true, false}) {
        gLogger = LoggerRef(new ThrowingLogger(standard));
        for (const Case& each : cases())
            lines.insert(failureOf(each.request).line);
    }
    EXPECT_EQ(lines.size(), 10U);
}

TEST_F(UnexpectedException, OfAResultHandlerIsTreatedAlike)
{
    struct Handler : OpenWBEM::CIMInstanceResultHandlerIFC {
        void doHandle(const CIMInstance&) override { throw std::runtime_error("client gone"); }
    } handler;
    const std::string expected =
        "Unknown Error:  while performing enumInstances operation on ORX_LANServiceSetting\nclient gone\n";
    EXPECT_EQ(failureOf([&] { enumInstances(handler); }), (Failure{1, expected, unit}));
}

TEST_F(UnexpectedException, OfOpenWbemIsOfTheStandardKind)
{
    const std::string target = "instance of ORX_LANServiceSetting {\nisIcmpFilterEnabled = true;\n}\n";
    const std::string expected = "Unknown Error:  while performing modifyInstance operation on " + target +
                                 "\nCIMValue::CIMValueImpl::get - Value is not a BOOLEAN\n";
    EXPECT_EQ(failureOf([&] { modify({text("isIcmpFilterEnabled", "true")}); }),
              (Failure{1, expected, unit}));
    EXPECT_EQ(world.journal(), Lines{"request ERROR " + expected});
}

TEST_F(UnexpectedException, OfTheKindForClientsPassesUnchangedAndUnlogged)
{
    struct Handler : OpenWBEM::CIMInstanceResultHandlerIFC {
        void doHandle(const CIMInstance&) override
        {
            throw OpenWBEM::CIMException("Client.cpp", 1, OpenWBEM::CIMException::NOT_FOUND, "gone");
        }
    } handler;
    EXPECT_EQ(failureOf([&] { enumInstances(handler); }), (Failure{6, "gone", "Client.cpp"}));
    for (const std::string& line : world.journal(fakes::Log))
        EXPECT_EQ(line.find("request"), std::string::npos) << line;
}

} // namespace
