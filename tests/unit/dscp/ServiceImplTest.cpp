#include "FlowTexts.hpp"
#include "ServiceTest.hpp"

#include "dscp/CFG_Exception.hpp"
#include "dscp/ORX_ALGServiceImpl.hpp"
#include "dscp/ORX_ALGServiceImplInstanceManager.hpp"

#include <memory>

namespace
{

using dscptest::flowTexts;
using dscptest::FlowTexts;
using dscptest::Lines;
using dscptest::Qualifiers;
using dscptest::valueOf;

class ServiceImpl : public dscptest::ServiceTest
{
  protected:
    ORX_ALGServiceImpl service{"SCCN", "SN", "CCN", "Name"};
};

TEST_F(ServiceImpl, ANewServiceMarksNothing)
{
    EXPECT_EQ(valueOf(service, &ORX_ALGServiceImpl::getElementName), "");
    EXPECT_FALSE(valueOf(service, &ORX_ALGServiceImpl::getKLonKLEnabled));
    EXPECT_EQ(valueOf(service, &ORX_ALGServiceImpl::getvideoMediaVisible), 1);
    for (const FlowTexts& flow : flowTexts) {
        EXPECT_EQ(valueOf(service, flow.getMenu), 0) << flow.name;
        EXPECT_EQ(valueOf(service, flow.getTosByte), 0) << flow.name;
    }
}

TEST_F(ServiceImpl, TheKeysAreThoseItWasBuiltWith)
{
    EXPECT_EQ(valueOf(service, &ORX_ALGService::getSystemCreationClassName), "SCCN");
    EXPECT_EQ(valueOf(service, &ORX_ALGService::getSystemName), "SN");
    EXPECT_EQ(valueOf(service, &ORX_ALGService::getCreationClassName), "CCN");
    EXPECT_EQ(valueOf(service, &ORX_ALGService::getName), "Name");
}

TEST_F(ServiceImpl, AnEmptyElementNameReplacesWhatTheCallerHeld)
{
    std::string value = "before";
    Qualifiers qualifiers;
    EXPECT_EQ(service.getElementName(value, qualifiers), 0u);
    EXPECT_EQ(value, "");
}

TEST_F(ServiceImpl, EverySetterStoresAnyValueForItsOwnGetterAndTouchesNothingElse)
{
    EXPECT_EQ(service.setKLonKLEnabled(true), 0u);
    EXPECT_TRUE(valueOf(service, &ORX_ALGServiceImpl::getKLonKLEnabled));
    std::uint16_t value = 65500;
    for (const FlowTexts& flow : flowTexts) {
        EXPECT_EQ(setMenu(service, flow, value++), 0u);
        EXPECT_EQ(setTosByte(service, flow, value++), 0u);
    }
    value = 65500;
    for (const FlowTexts& flow : flowTexts) {
        EXPECT_EQ(valueOf(service, flow.getMenu), value++) << flow.name;
        EXPECT_EQ(valueOf(service, flow.getTosByte), value++) << flow.name;
    }
    EXPECT_EQ(world.journal(), Lines());
}

TEST_F(ServiceImpl, StartingAChangeDoesNothing)
{
    EXPECT_EQ(service.startChange(), 0u);
    EXPECT_EQ(world.journal(), Lines());
}

TEST_F(ServiceImpl, OwnerStateAndStatusAreNotSupported)
{
    std::string text;
    bool flag = false;
    std::uint16_t number = 0;
    std::vector<std::uint16_t> numbers;
    std::vector<std::string> texts;
    Qualifiers none;
    EXPECT_EQ(service.getPrimaryOwnerName(text, none), 100u);
    EXPECT_EQ(service.setPrimaryOwnerName("x"), 101u);
    EXPECT_EQ(service.getPrimaryOwnerContact(text, none), 100u);
    EXPECT_EQ(service.setPrimaryOwnerContact("x"), 101u);
    EXPECT_EQ(service.getStartMode(text, none), 100u);
    EXPECT_EQ(service.getStarted(flag, none), 100u);
    EXPECT_EQ(service.getEnabledState(number, none), 100u);
    EXPECT_EQ(service.getOtherEnabledState(text, none), 100u);
    EXPECT_EQ(service.getRequestedState(number, none), 100u);
    EXPECT_EQ(service.getEnabledDefault(number, none), 100u);
    EXPECT_EQ(service.setEnabledDefault(1), 101u);
    EXPECT_EQ(service.getTimeOfLastStateChange(text, none), 100u);
    EXPECT_EQ(service.getInstallDate(text, none), 100u);
    EXPECT_EQ(service.getOperationalStatus(numbers, number, none), 100u);
    EXPECT_EQ(service.getStatusDescriptions(texts, none), 100u);
    EXPECT_EQ(service.getStatus(text, none), 100u);
    EXPECT_EQ(service.getCaption(text, none), 100u);
    EXPECT_EQ(service.getDescription(text, none), 100u);
}

class ImplInstanceManager : public dscptest::ServiceTest
{
  protected:
    bool isRegistered(const char* name)
    {
        try {
            defaultManager->get("A", "B", "C", name);
            return true;
        } catch (const CFG_NoInstance&) {
            return false;
        }
    }

    ORX_ALGServiceImplInstanceManager manager; // not installed: objects register with the default one
};

TEST_F(ImplInstanceManager, ACreatedServiceHasItsKeysAndIsRegistered)
{
    const std::unique_ptr<ORX_ALGService> created(manager.createORX_ALGService("A", "B", "C", "D"));
    EXPECT_NE(dynamic_cast<ORX_ALGServiceImpl*>(created.get()), nullptr);
    EXPECT_EQ(defaultManager->get("A", "B", "C", "D"), created.get());
    EXPECT_EQ(world.journal(), Lines());
}

TEST_F(ImplInstanceManager, DestroyingAServiceEndsTheDiagnosticsModule)
{
    ORX_ALGService* const created = manager.createORX_ALGService("A", "B", "C", "D");
    manager.destroyORX_ALGService(created);
    EXPECT_FALSE(isRegistered("D"));
    EXPECT_EQ(world.journal(), Lines{"KvuDiagDeregisterModule"});
}

TEST_F(ImplInstanceManager, DestroyingNothingEndsTheDiagnosticsModuleToo)
{
    manager.destroyORX_ALGService(nullptr);
    EXPECT_EQ(world.journal(), Lines{"KvuDiagDeregisterModule"});
}

TEST_F(ImplInstanceManager, AModuleThatCannotBeEndedDoesNotKeepTheServiceAlive)
{
    ORX_ALGService* const created = manager.createORX_ALGService("A", "B", "C", "D");
    world.failNth(1, "KvuDiagDeregisterModule", 5);
    manager.destroyORX_ALGService(created);
    EXPECT_FALSE(isRegistered("D"));
}

class LastWords : public ORX_ALGService
{
  public:
    explicit LastWords(fakes::World& world) : ORX_ALGService("A", "B", "C", "D"), m_world(world) {}
    ~LastWords() override { m_world.record(fakes::Diag, "deleted"); }

  private:
    fakes::World& m_world;
};

TEST_F(ImplInstanceManager, TheModuleEndsBeforeTheServiceIsDeleted)
{
    manager.destroyORX_ALGService(new LastWords(world));
    EXPECT_EQ(world.journal(), (Lines{"KvuDiagDeregisterModule", "deleted"}));
}

} // namespace
