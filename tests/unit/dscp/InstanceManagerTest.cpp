#include "ServiceTest.hpp"

#include "dscp/CFG_Exception.hpp"

#include <memory>
#include <typeinfo>

namespace
{

using dscptest::ServiceTest;

/// The type of what `call` throws: CFG_NoInstance is to be told from its base.
template <typename Call>
std::string thrownBy(const Call& call)
{
    try {
        call();
    } catch (const CFG_Exception& e) {
        return typeid(e).name();
    }
    return "nothing";
}

class InstanceManager : public ServiceTest
{
  protected:
    std::unique_ptr<ORX_ALGService> service(const std::string& systemClass, const std::string& system = "",
                                            const std::string& creationClass = "",
                                            const std::string& name = "")
    {
        return std::make_unique<ORX_ALGService>(systemClass, system, creationClass, name);
    }

    std::vector<ORX_ALGService*> enumerate()
    {
        std::vector<ORX_ALGService*> found;
        manager.startIteration();
        while (manager.hasNext())
            found.push_back(manager.next());
        manager.endIteration();
        return found;
    }

    ORX_ALGServiceInstanceManager& manager = *defaultManager;
    const std::string noInstance = typeid(CFG_NoInstance).name();
};

TEST_F(InstanceManager, AServiceRegistersItselfWhenItIsBuilt)
{
    const auto built = service("SCCN", "SN", "CCN", "Name");
    EXPECT_EQ(manager.get("SCCN", "SN", "CCN", "Name"), built.get());
}

TEST_F(InstanceManager, ADestroyedServiceIsNoLongerFound)
{
    service("SCCN", "SN", "CCN", "Name").reset();
    EXPECT_EQ(thrownBy([&] { manager.get("SCCN", "SN", "CCN", "Name"); }), noInstance);
    EXPECT_TRUE(enumerate().empty());
}

TEST_F(InstanceManager, KeysThatNobodyHasAreNotFound)
{
    const auto built = service("SCCN", "SN", "CCN", "Name");
    EXPECT_EQ(thrownBy([&] { manager.get("SCCN", "SN", "CCN", "name"); }), noInstance);
    EXPECT_EQ(thrownBy([&] { manager.get("Name", "CCN", "SN", "SCCN"); }), noInstance);
    EXPECT_EQ(thrownBy([&] { manager.get("", "", "", ""); }), noInstance);
}

TEST_F(InstanceManager, KeysThatRunTogetherAlikeAreOneEntry)
{
    const auto built = service("AB", "C", "D", "E");
    EXPECT_EQ(manager.get("A", "BC", "D", "E"), built.get());
    EXPECT_EQ(manager.get("", "", "", "ABCDE"), built.get());
}

TEST_F(InstanceManager, ALaterServiceReplacesAnEarlierOneOfTheSameKeyWithoutDeletingIt)
{
    const auto earlier = service("AB", "C", "D", "E");
    const auto later = service("A", "BC", "D", "E");
    EXPECT_EQ(enumerate(), std::vector<ORX_ALGService*>{later.get()});
    EXPECT_EQ(dscptest::valueOf(*earlier, &ORX_ALGService::getSystemName), "C");
}

TEST_F(InstanceManager, DestroyingTheReplacedServiceRemovesTheEntryOfItsSuccessor)
{
    auto earlier = service("AB", "C");
    const auto later = service("A", "BC");
    earlier.reset();
    EXPECT_TRUE(enumerate().empty());
}

TEST_F(InstanceManager, DestroyingTheSuccessorRemovesTheEntryToo)
{
    const auto earlier = service("AB", "C");
    auto later = service("A", "BC");
    later.reset();
    EXPECT_TRUE(enumerate().empty());
}

TEST_F(InstanceManager, RemovingDoesNotDelete)
{
    const auto built = service("SCCN", "SN");
    manager.remove(built.get());
    EXPECT_TRUE(enumerate().empty());
    EXPECT_EQ(dscptest::valueOf(*built, &ORX_ALGService::getSystemName), "SN");
}

TEST_F(InstanceManager, RemovingWhatIsAbsentHasNoEffect)
{
    const auto first = service("first");
    const auto second = service("second");
    manager.remove(first.get());
    manager.remove(first.get());
    EXPECT_EQ(enumerate(), std::vector<ORX_ALGService*>{second.get()});
}

class RenamedService : public ORX_ALGService
{
  public:
    using ORX_ALGService::ORX_ALGService;
    Status getSystemCreationClassName(std::string& value, Qualifiers&) const override
    {
        return give("1", value);
    }
    Status getSystemName(std::string& value, Qualifiers&) const override { return give("2", value); }
    Status getCreationClassName(std::string&, Qualifiers&) const override { return NotSupported; }
    Status getName(std::string& value, Qualifiers&) const override { return give("4", value); }

  private:
    static Status give(const char* text, std::string& value)
    {
        value = text;
        return Done;
    }
};

TEST_F(InstanceManager, TheKeyIsMadeOfWhatTheServicesOwnGettersGive)
{
    RenamedService renamed("SCCN", "SN", "CCN",
                           "Name"); // registered by its base class, with the base's texts
    EXPECT_EQ(manager.get("SCCN", "SN", "CCN", "Name"), &renamed);
    manager.add(&renamed);
    EXPECT_EQ(manager.get("1", "2", "", "4"), &renamed);
    manager.remove(&renamed);
    EXPECT_EQ(thrownBy([&] { manager.get("1", "2", "", "4"); }), noInstance);
}

TEST_F(InstanceManager, ServicesAreEnumeratedInTheByteOrderOfTheirKeys)
{
    const auto beyondAscii = service("\xC3\xA9");
    const auto small = service("a");
    const auto capital = service("B");
    const auto longer = service("B", "", "", "2");
    const auto digit = service("", "", "", "10");
    EXPECT_EQ(enumerate(), (std::vector<ORX_ALGService*>{digit.get(), capital.get(), longer.get(),
                                                         small.get(), beyondAscii.get()}));
}

TEST_F(InstanceManager, AnIterationOverNothingEndsAtOnce)
{
    manager.startIteration();
    EXPECT_FALSE(manager.hasNext());
    EXPECT_EQ(thrownBy([&] { manager.next(); }), noInstance);
}

TEST_F(InstanceManager, ThereIsNothingBeforeAnIterationStarts)
{
    ORX_ALGServiceInstanceManager fresh;
    const auto built = service("SCCN");
    fresh.add(built.get());
    EXPECT_FALSE(fresh.hasNext());
    EXPECT_EQ(thrownBy([&] { fresh.next(); }), noInstance);
}

TEST_F(InstanceManager, ThereIsNothingAfterTheLastService)
{
    const auto built = service("SCCN");
    manager.startIteration();
    EXPECT_TRUE(manager.hasNext());
    EXPECT_EQ(manager.next(), built.get());
    EXPECT_FALSE(manager.hasNext());
    EXPECT_EQ(thrownBy([&] { manager.next(); }), noInstance);
}

TEST_F(InstanceManager, EndingAnIterationSkipsWhatIsLeft)
{
    const auto first = service("1");
    const auto second = service("2");
    manager.startIteration();
    manager.next();
    manager.endIteration();
    EXPECT_FALSE(manager.hasNext());
    EXPECT_EQ(thrownBy([&] { manager.next(); }), noInstance);
}

TEST_F(InstanceManager, StartingAgainGoesBackToTheFirstService)
{
    const auto first = service("1");
    const auto second = service("2");
    manager.startIteration();
    manager.next();
    manager.startIteration();
    EXPECT_EQ(manager.next(), first.get());
}

TEST_F(InstanceManager, TheServiceJustReturnedMayBeDeleted)
{
    for (const char* name : {"1", "2", "3"})
        new ORX_ALGService(name, "", "", "");
    std::string seen;
    manager.startIteration();
    while (manager.hasNext()) {
        ORX_ALGService* const next = manager.next();
        seen += dscptest::valueOf(*next, &ORX_ALGService::getSystemCreationClassName);
        delete next;
    }
    EXPECT_EQ(seen, "123");
    EXPECT_TRUE(enumerate().empty());
}

TEST_F(InstanceManager, TheServiceThatWouldComeNextMayBeDeleted)
{
    const auto first = service("1");
    auto second = service("2");
    const auto third = service("3");
    manager.startIteration();
    EXPECT_EQ(manager.next(), first.get());
    second.reset();
    EXPECT_EQ(manager.next(), third.get());
    EXPECT_FALSE(manager.hasNext());
}

TEST_F(InstanceManager, TwoManagersIterateIndependently)
{
    const auto built = service("1");
    ORX_ALGServiceInstanceManager other;
    other.add(built.get());
    manager.startIteration();
    other.startIteration();
    other.endIteration();
    EXPECT_TRUE(manager.hasNext());
}

class ManagerWithNullEntry : public ORX_ALGServiceInstanceManager
{
  public:
    ManagerWithNullEntry() { services["SCCNSNCCNName"] = nullptr; }
};

TEST_F(InstanceManager, AnEntryWithoutServiceIsNoInstance)
{
    ManagerWithNullEntry hollow;
    EXPECT_EQ(thrownBy([&] { hollow.get("SCCN", "SN", "CCN", "Name"); }), noInstance);
    hollow.startIteration();
    EXPECT_TRUE(hollow.hasNext());
    EXPECT_EQ(thrownBy([&] { hollow.next(); }), noInstance);
}

TEST_F(InstanceManager, TheBaseClassNeitherCreatesNorDestroys)
{
    EXPECT_EQ(manager.init(), 0u);
    EXPECT_EQ(thrownBy([&] { manager.createORX_ALGService("SCCN", "SN", "CCN", "Name"); }),
              typeid(CFG_InstanceCreationFailed).name());
    const auto built = service("SCCN");
    EXPECT_EQ(thrownBy([&] { manager.destroyORX_ALGService(built.get()); }),
              typeid(CFG_InstanceDeletionFailed).name());
    EXPECT_EQ(enumerate(), std::vector<ORX_ALGService*>{built.get()});
    EXPECT_EQ(world.journal(), dscptest::Lines());
}

} // namespace
