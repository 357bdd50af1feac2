#include "ServiceTest.hpp"

#include <memory>

namespace
{

using dscptest::Lines;
using dscptest::ServiceTest;

/// Writes down what happens to it.
class WatchedManager : public ORX_ALGServiceInstanceManager
{
  public:
    WatchedManager(Lines& events, const std::string& name) : m_events(events), m_name(name) {}
    ~WatchedManager() override { note("deleted"); }

    std::uint32_t init() override
    {
        note(ORX_ALGService::getInstanceManager() == this ? "init" : "init before it is installed");
        return initResult;
    }
    void add(ORX_ALGService* service) override
    {
        note("add");
        ORX_ALGServiceInstanceManager::add(service);
    }
    void remove(ORX_ALGService* service) override
    {
        note("remove");
        ORX_ALGServiceInstanceManager::remove(service);
    }

    std::uint32_t initResult = 0;

  private:
    void note(const std::string& what) { m_events.push_back(m_name + " " + what); }

    Lines& m_events;
    std::string m_name;
};

class ManagerInstallation : public ServiceTest
{
  protected:
    // The fixture's base deletes the installed manager; it must not write to `events` then.
    ~ManagerInstallation() override { ORX_ALGService::SetInstanceManager(new ORX_ALGServiceInstanceManager); }

    WatchedManager* manager(const std::string& name) { return new WatchedManager(events, name); }

    Lines events;
};

TEST_F(ManagerInstallation, AnInstalledManagerIsInitialisedAndTakesOver)
{
    WatchedManager* const first = manager("first");
    ORX_ALGService::SetInstanceManager(first);
    EXPECT_EQ(ORX_ALGService::getInstanceManager(), first);
    EXPECT_EQ(events, Lines{"first init"});
}

TEST_F(ManagerInstallation, TheResultIsThatOfInit)
{
    WatchedManager* const first = manager("first");
    EXPECT_EQ(ORX_ALGService::SetInstanceManager(first), 0u);
    first->initResult = 0x80004005u;
    EXPECT_EQ(ORX_ALGService::SetInstanceManager(first), 0x80004005u);
    EXPECT_EQ(ORX_ALGService::getInstanceManager(), first);
}

TEST_F(ManagerInstallation, AnotherManagerDeletesTheOneBefore)
{
    ORX_ALGService::SetInstanceManager(manager("first"));
    ORX_ALGService::SetInstanceManager(manager("second"));
    EXPECT_EQ(events, (Lines{"first init", "first deleted", "second init"}));
}

TEST_F(ManagerInstallation, TheSameManagerIsInitialisedAgainAndKept)
{
    WatchedManager* const first = manager("first");
    ORX_ALGService::SetInstanceManager(first);
    ORX_ALGService::SetInstanceManager(first);
    EXPECT_EQ(events, (Lines{"first init", "first init"}));
}

TEST_F(ManagerInstallation, TheDefaultManagerIsNeverDeleted)
{
    ORX_ALGService::SetInstanceManager(manager("first"));
    EXPECT_EQ(ORX_ALGService::SetInstanceManager(defaultManager), 0u);
    ORX_ALGService::SetInstanceManager(manager("second"));
    EXPECT_EQ(ORX_ALGService::SetInstanceManager(defaultManager), 0u);
    EXPECT_EQ(ORX_ALGService::getInstanceManager(), defaultManager);
    EXPECT_EQ(events, (Lines{"first init", "first deleted", "second init", "second deleted"}));
    const ORX_ALGService service("SCCN", "SN", "CCN", "Name");
    EXPECT_EQ(defaultManager->get("SCCN", "SN", "CCN", "Name"), &service);
}

TEST_F(ManagerInstallation, ClearingGoesBackToTheDefaultManagerWithoutDeleting)
{
    const std::unique_ptr<WatchedManager> first(manager("first"));
    ORX_ALGService::SetInstanceManager(first.get());
    ORX_ALGService::ClearInstanceManager();
    EXPECT_EQ(ORX_ALGService::getInstanceManager(), defaultManager);
    EXPECT_EQ(events, Lines{"first init"});
}

TEST_F(ManagerInstallation, AManagerIsKeptWhenItReturnsAfterClearing)
{
    WatchedManager* const first = manager("first");
    ORX_ALGService::SetInstanceManager(first);
    ORX_ALGService::ClearInstanceManager();
    ORX_ALGService::SetInstanceManager(first);
    EXPECT_EQ(ORX_ALGService::getInstanceManager(), first);
    EXPECT_EQ(events, (Lines{"first init", "first init"}));
}

TEST_F(ManagerInstallation, ClearingTwiceHasNoFurtherEffect)
{
    ORX_ALGService::ClearInstanceManager();
    ORX_ALGService::ClearInstanceManager();
    EXPECT_EQ(ORX_ALGService::getInstanceManager(), defaultManager);
}

TEST_F(ManagerInstallation, TheServicesOfADeletedManagerLiveOn)
{
    ORX_ALGService::SetInstanceManager(manager("first"));
    const ORX_ALGService service("SCCN", "SN", "CCN", "Name");
    ORX_ALGService::SetInstanceManager(manager("second"));
    EXPECT_EQ(dscptest::valueOf(service, &ORX_ALGService::getName), "Name");
    EXPECT_EQ(events, (Lines{"first init", "first add", "first deleted", "second init"}));
}

TEST_F(ManagerInstallation, AServiceGoesFromTheManagerThatIsCurrentAtItsEnd)
{
    const std::unique_ptr<WatchedManager> first(manager("first"));
    ORX_ALGService::SetInstanceManager(first.get());
    auto service = std::make_unique<ORX_ALGService>("SCCN", "SN", "CCN", "Name");
    ORX_ALGService::ClearInstanceManager();
    ORX_ALGService::SetInstanceManager(manager("second"));
    service.reset();
    EXPECT_EQ(events, (Lines{"first init", "first add", "second init", "second remove"}));
}

} // namespace
