// How the model words the outcomes of a change.

#include "EndpointServer.hpp"
#include "Failures.hpp"
#include "Overrides.hpp"
#include "lanendpoint/ORX_LANEndpoint.hpp"

#include <gtest/gtest.h>

using fakes::failureOf;
using fakes::Lines;

namespace
{

class ChangeOutcomes : public fakes::EndpointServer
{
  protected:
    fakes::Overrides overrides;

    std::string failureWith(int outcome)
    {
        world.clearJournal();
        overrides.results["ORX_LANEndpointAPI::endChange"] = outcome;
        return failureOf([] { ORX_LANEndpoint(1).endChange(); });
    }
};

TEST_F(ChangeOutcomes, EachFailureHasItsTextAndIsLoggedWithoutDecoration)
{
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Invalid IP address format", failureWith(2));
    EXPECT_EQ(Lines{"gLogger ERROR Invalid IP address format"}, world.journal());
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Invalid subnet format", failureWith(3));
    EXPECT_EQ(Lines{"gLogger ERROR Invalid subnet format"}, world.journal());
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Failed to notify related components on the address change",
              failureWith(4));
    EXPECT_EQ(Lines{"gLogger ERROR Failed to notify related components on the address change"},
              world.journal());
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 The IP/mask pair overlaps with another interface", failureWith(5));
    EXPECT_EQ(Lines{"gLogger ERROR The IP/mask pair overlaps with another interface"}, world.journal());
}

TEST_F(ChangeOutcomes, EveryOtherOutcomeIsSuccess)
{
    for (const int outcome : {1, 0, -1, 6, 1000}) {
        overrides.results["ORX_LANEndpointAPI::endChange"] = outcome;
        EXPECT_EQ(1, ORX_LANEndpoint(1).endChange()) << outcome;
    }
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(ChangeOutcomes, TheOutcomesAreThoseOfTheChange)
{
    const auto change = [](const char* address, const char* mask, const char* gateway) {
        ORX_LANEndpoint endpoint(1);
        endpoint.get();
        EXPECT_EQ(1, endpoint.startChange());
        EXPECT_EQ(1, endpoint.setIPAddress(address));
        EXPECT_EQ(1, endpoint.setSubnetMask(mask));
        EXPECT_EQ(1, endpoint.setGateway(gateway));
        EXPECT_EQ(1, endpoint.endChange());
    };
    EXPECT_EQ("nothing", failureOf([&] { change("10.0.0.6", "255.255.0.0", "10.0.0.2"); }));
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Invalid IP address format",
              failureOf([&] { change("10.0.0.256", "255.255.255.0", "10.0.0.1"); }));
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Invalid IP address format",
              failureOf([&] { change("10.0.0.6", "255.255.255.0", "no gateway"); }));
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Invalid subnet format",
              failureOf([&] { change("10.0.0.6", "255.0.255.0", "10.0.0.1"); }));
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 The IP/mask pair overlaps with another interface",
              failureOf([&] { change("172.16.0.6", "255.255.255.0", "10.0.0.1"); }));
    world.failNth(1, "EmsConnectionOpen", 1);
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Failed to notify related components on the address change",
              failureOf([&] { change("10.0.0.6", "255.255.255.0", "10.0.0.1"); }));
}

TEST_F(ChangeOutcomes, TheSettersOfTheModelReturnSuccessWhateverTheBaseReturns)
{
    ORX_LANEndpoint endpoint(1);
    EXPECT_EQ(1, endpoint.setIPAddress("nonsense")); // outside a change: applied at once, the outcome is lost
    EXPECT_EQ(1, endpoint.setSubnetMask("nonsense"));
    EXPECT_EQ(1, endpoint.setGateway("nonsense"));
    EXPECT_EQ(Lines{}, world.journal(fakes::Effects));
}

TEST_F(ChangeOutcomes, TheDhcpSwitchReturnsTheNegatedResultOfTheBase)
{
    ORX_LANEndpoint endpoint(1);
    EXPECT_EQ(1, endpoint.setIsDHCPEnabled(false));
    overrides.results["ORX_LANEndpointAPI::setIsDHCPEnabled"] = 0;
    EXPECT_EQ(1, endpoint.setIsDHCPEnabled(true));
    for (const int result : {1, -1, 2}) {
        overrides.results["ORX_LANEndpointAPI::setIsDHCPEnabled"] = result;
        EXPECT_EQ(0, endpoint.setIsDHCPEnabled(true));
    }
}

} // namespace
