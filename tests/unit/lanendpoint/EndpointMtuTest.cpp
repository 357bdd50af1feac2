#include "EndpointServer.hpp"
#include "Failures.hpp"
#include "lanendpoint/ORX_LANEndpoint.hpp"

#include <gtest/gtest.h>

#include <cerrno>

using namespace fakes; // for the sums of journal lines

namespace
{

const std::pair<std::string, std::string> storedOfEth1 = {"providers\\ORX_LANProvider\\eth1", "MTUSize"};

class EndpointMtus : public EndpointServer
{
  protected:
    ORX_LANEndpoint endpoint{1};

    int maxDataSize()
    {
        int size = -1;
        endpoint.getMaxDataSize(size);
        return size;
    }

    /// Reads the endpoint when the registry has no MTU of it; what that did, without the configuration file.
    Lines seeding()
    {
        world.registry.erase(storedOfEth1);
        world.clearJournal();
        EXPECT_EQ(1, endpoint.get());
        return world.journal(Kernel | Registry | System);
    }

    const Lines beforeSeed = {"socket", "ioctl SIOCGIFHWADDR eth1", "close socket",
                              "KvuGetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize"};
};

TEST_F(EndpointMtus, AnAbsentMtuIsSeededFromTheKernel)
{
    world.interfaces["eth1"].mtu = 1492;
    EXPECT_EQ(beforeSeed + (Lines{"socket", "ioctl SIOCGIFMTU eth1", "close socket",
                                  "KvuSetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize 1492"}),
              seeding());
    EXPECT_EQ(1492, maxDataSize());
    EXPECT_EQ(1492, world.registry[storedOfEth1]);
}

TEST_F(EndpointMtus, EachOfTheThreeInterfacesIsSeeded)
{
    for (int number = 0; number < 3; ++number) {
        const std::string name = "eth" + std::to_string(number);
        world.interfaces[name].mtu = 1400 + number;
        world.registry.erase({"providers\\ORX_LANProvider\\" + name, "MTUSize"});
        EXPECT_EQ(1, ORX_LANEndpoint(number).get());
        EXPECT_EQ(1400 + number, (world.registry[{"providers\\ORX_LANProvider\\" + name, "MTUSize"}]))
            << name;
    }
}

TEST_F(EndpointMtus, AnotherNameThatTheKernelKnowsIsReadAndNothingIsStoredForIt)
{
    for (const char* name : {"eth1:x", "eth10", "eth3", "eth"}) {
        world.interfaces[name] = world.interfaces["eth1"];
        world.interfaces[name].mtu = 1492;
        const auto before = world.registry;
        ORX_LANEndpoint alias{OpenWBEM::String(name)};
        EXPECT_EQ(1, alias.get());
        int size = 0;
        alias.getMaxDataSize(size);
        EXPECT_EQ(1492, size) << name;
        EXPECT_EQ(before, world.registry) << name;
    }
}

TEST_F(EndpointMtus, OnlyTheLow16BitsOfTheKernelsMtuAreTaken)
{
    world.interfaces["eth1"].mtu = 65536 + 1000;
    seeding();
    EXPECT_EQ(1000, maxDataSize());
    EXPECT_EQ(1000, world.registry[storedOfEth1]);
}

TEST_F(EndpointMtus, WithoutASecondSocketTheSeedIs1500)
{
    world.interfaces["eth1"].mtu = 1492;
    world.failNth(2, "socket", EMFILE);
    EXPECT_EQ(beforeSeed + (Lines{"socket", "perror socket: Too many open files",
                                  "KvuSetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize 1500"}),
              seeding());
    EXPECT_EQ(1500, maxDataSize());
}

TEST_F(EndpointMtus, WhenTheKernelDoesNotTellTheSeedIs1500)
{
    world.interfaces["eth1"].mtu = 1492;
    world.failNth(1, "ioctl", EIO, "SIOCGIFMTU");
    EXPECT_EQ(beforeSeed + (Lines{"socket", "ioctl SIOCGIFMTU eth1", "close socket",
                                  "KvuSetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize 1500"}),
              seeding());
    EXPECT_EQ(1500, maxDataSize());
}

TEST_F(EndpointMtus, ASeedThatCannotBeStoredIsReportedAllTheSame)
{
    world.interfaces["eth1"].mtu = 1492;
    world.failNth(1, "KvuSetRegEntryUint16Ex", 5);
    seeding();
    EXPECT_EQ(1492, maxDataSize());
    EXPECT_EQ(Lines{}, world.journal(Log));
}

TEST_F(EndpointMtus, ARegistryThatFailsOtherwiseIsTakenAsItIs)
{
    world.failNth(1, "KvuGetRegEntryUint16Ex", 5);
    EXPECT_EQ(1, endpoint.get());
    EXPECT_EQ(0, maxDataSize());
    EXPECT_EQ(beforeSeed, world.journal(Kernel | Registry | System));

    world.failedReadLeaves = 1234;
    world.failNth(1, "KvuGetRegEntryUint16Ex", 5);
    EXPECT_EQ(1, endpoint.get());
    EXPECT_EQ(1234, maxDataSize());
}

TEST_F(EndpointMtus, TheWholeRangeOfTheRegistryIsReported)
{
    world.registry[storedOfEth1] = 65535;
    endpoint.get();
    EXPECT_EQ(65535, maxDataSize());
}

TEST_F(EndpointMtus, ANewMtuIsAppliedAndStoredAtOnce)
{
    EXPECT_EQ(1, endpoint.setMaxDataSize(1400));
    EXPECT_EQ(1400, maxDataSize());
    EXPECT_EQ(1400, world.interfaces["eth1"].mtu);
    EXPECT_EQ(
        (Lines{"socket", "ioctl SIOCSIFMTU eth1 1400", "socket", "ioctl SIOCGIFMTU eth1", "close socket",
               "close socket", "KvuSetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize 1400"}),
        world.journal());
}

TEST_F(EndpointMtus, InsideAChangeANewMtuIsAppliedAtOnceToo)
{
    endpoint.startChange();
    EXPECT_EQ(1, endpoint.setMaxDataSize(1400));
    EXPECT_EQ(1400, world.interfaces["eth1"].mtu);
}

TEST_F(EndpointMtus, TheLimitsAreInclusive)
{
    EXPECT_EQ(1, endpoint.setMaxDataSize(68));
    EXPECT_EQ(68, world.interfaces["eth1"].mtu);
    EXPECT_EQ(1, endpoint.setMaxDataSize(1500));
    EXPECT_EQ(1500, world.interfaces["eth1"].mtu);
}

TEST_F(EndpointMtus, AnMtuOutOfTheRangeIsRefusedBeforeTheKernelSeesIt)
{
    for (const int mtu : {67, 1501, 0, -1, -2147483647 - 1, 2147483647, 65536 + 1400}) {
        world.clearJournal();
        EXPECT_EQ("ORX_LANEndpoint.cpp 1 MTU size entered is out of the range: (68-1500)",
                  failureOf([&] { endpoint.setMaxDataSize(mtu); }));
        EXPECT_EQ(Lines{"gLogger ERROR MTU size entered is out of the range: (68-1500)"}, world.journal());
    }
    EXPECT_EQ(0, maxDataSize());
}

TEST_F(EndpointMtus, AnMtuThatTheKernelRefusesIsNotStored)
{
    world.failNth(1, "ioctl", EINVAL, "SIOCSIFMTU");
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 MTU size not set. Error reported in kernel",
              failureOf([&] { endpoint.setMaxDataSize(1400); }));
    EXPECT_EQ((Lines{"socket", "ioctl SIOCSIFMTU eth1 1400", "close socket",
                     "gLogger ERROR MTU size not set. Error reported in kernel"}),
              world.journal());
    EXPECT_EQ(0, maxDataSize());
    EXPECT_EQ(1500, world.registry[storedOfEth1]);
}

TEST_F(EndpointMtus, WithoutASocketAnMtuIsNotSet)
{
    world.failNth(1, "socket", EMFILE);
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 MTU size not set. Error reported in kernel",
              failureOf([&] { endpoint.setMaxDataSize(1400); }));
    EXPECT_EQ((Lines{"socket", "perror socket: Too many open files",
                     "gLogger ERROR MTU size not set. Error reported in kernel"}),
              world.journal());
}

TEST_F(EndpointMtus, ANewMtuThatCannotBeStoredIsSetAllTheSame)
{
    world.failNth(1, "KvuSetRegEntryUint16Ex", 5);
    EXPECT_EQ(1, endpoint.setMaxDataSize(1400));
    EXPECT_EQ(1400, maxDataSize());
    EXPECT_EQ(1400, world.interfaces["eth1"].mtu);
}

} // namespace
