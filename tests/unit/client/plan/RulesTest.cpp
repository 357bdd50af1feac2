#include "plan/Rules.hpp"
#include "Server.hpp"

#include <gmock/gmock.h>

namespace lanctl::plan
{

namespace
{

constexpr const char* invalid = "Invalid IP address format";
constexpr const char* overlaps = "The IP/mask pair overlaps with another interface";

/// The server's text, "key: " before it; "" when it takes the values.
std::string verdict(const std::optional<Refusal>& refusal)
{
    return refusal ? refusal->key + ": " + refusal->text : "";
}

std::string eth1Verdict(const std::string& address, const std::string& mask,
                        const std::string& gateway = "10.0.0.1", bool routerPresent = false)
{
    auto state = server();
    state.setting.routerPresent = routerPresent;
    auto& eth1 = endpoint(state, "eth1");
    eth1.ipAddress = address;
    eth1.subnetMask = mask;
    eth1.defaultGateway = gateway;
    return verdict(judgeAddresses(eth1, state));
}

TEST(Rules, AnAddressIsFourPlainNumbersThatAHostCanHave)
{
    for (const char* good :
         {"1.0.0.1", "10.0.0.6", "126.255.255.254", "128.0.0.1", "223.255.255.1", "10.0.0.255"})
        EXPECT_EQ(eth1Verdict(good, "255.255.255.0"), "") << good;
    for (const char* bad :
         {"", "10.0.0", "10.0.0.6.1", "10.0.0.256", "010.0.0.6", "0xa.0.0.6", "10.0.0.6 ", " 10.0.0.6",
          "0.0.0.1", "127.0.0.1", "224.0.0.1", "240.0.0.1", "255.255.255.255", "::1", "a.b.c.d"})
        EXPECT_EQ(eth1Verdict(bad, "255.255.255.0"), std::string("address: ") + invalid) << bad;
    EXPECT_EQ(eth1Verdict(std::string("10.0.0.6\0x", 10), "255.255.255.0"),
              std::string("address: ") + invalid);
}

TEST(Rules, TheHostPartIsNotZero)
{
    EXPECT_EQ(eth1Verdict("10.0.0.0", "255.255.255.0"), std::string("address: ") + invalid);
    EXPECT_EQ(eth1Verdict("10.0.0.128", "255.255.255.128"), std::string("address: ") + invalid);
    EXPECT_EQ(eth1Verdict("10.0.0.129", "255.255.255.255"), std::string("address: ") + invalid);
    EXPECT_EQ(eth1Verdict("10.0.0.129", "255.255.255.254"), "");
}

TEST(Rules, AMaskThatIsNoAddressAtAllIsAnInvalidAddress)
{
    for (const char* bad : {"", "mask", "255.255.255.256", "255..255.0", "/24"})
        EXPECT_EQ(eth1Verdict("10.0.0.6", bad), std::string("mask: ") + invalid) << bad;
    EXPECT_EQ(eth1Verdict("10.0.0.6", std::string("255.255.255.0\0", 14)), std::string("mask: ") + invalid);
}

TEST(Rules, AMaskIsOnesFollowedByZerosInTheUsualSpelling)
{
    for (const char* good : {"128.0.0.0", "255.128.0.0", "255.255.240.0", "255.255.255.252"})
        EXPECT_NE(eth1Verdict("10.0.0.6", good), "mask: Invalid subnet format") << good;
    for (const char* bad : {"255.0.255.0", "255.255.253.0", "255.255.255.00", "0xff.255.255.0", "255.255.0",
                            "255.255.128.128", "255.255.255.0 ", "254.255.0.0"})
        EXPECT_EQ(eth1Verdict("10.0.0.6", bad), "mask: Invalid subnet format") << bad;
}

TEST(Rules, ANetworkInsideOrAroundAnotherInterfacesIsAnOverlap)
{
    EXPECT_EQ(eth1Verdict("172.16.2.9", "255.255.255.0"), std::string("address: ") + overlaps);
    EXPECT_EQ(eth1Verdict("172.16.2.9", "255.255.255.248"), std::string("address: ") + overlaps);
    EXPECT_EQ(eth1Verdict("172.16.9.9", "255.255.0.0"), std::string("address: ") + overlaps);
    EXPECT_EQ(eth1Verdict("172.16.3.9", "255.255.255.0"), "");
    // Nothing is outside of the network of all addresses.
    EXPECT_EQ(eth1Verdict("10.0.0.6", "0.0.0.0"), std::string("address: ") + overlaps);
    // A prefix length is read as the mask 0.0.0.24.
    EXPECT_EQ(eth1Verdict("10.0.0.6", "24"), std::string("address: ") + overlaps);
}

TEST(Rules, TheOverlapIsFoundBeforeTheWrongMask)
{
    EXPECT_EQ(eth1Verdict("172.16.2.9", "255.0.255.0"), std::string("address: ") + overlaps);
}

TEST(Rules, AnInterfaceWithoutAddressIsInNobodysWay)
{
    auto state = server();
    endpoint(state, "eth2").ipAddress = "";
    auto eth1 = endpoint(state, "eth1");
    eth1.ipAddress = "172.16.2.9";
    EXPECT_FALSE(judgeAddresses(eth1, state));
    endpoint(state, "eth2").ipAddress = "172.16.2.1";
    endpoint(state, "eth2").subnetMask = "";
    EXPECT_FALSE(judgeAddresses(eth1, state));
}

TEST(Rules, AnUnreadableNeighbourBlocksEveryChange)
{
    auto state = server();
    endpoint(state, "eth2").ipAddress = "garbage";
    const auto refusal = judgeAddresses(endpoint(state, "eth1"), state);
    ASSERT_EQ(verdict(refusal), std::string("address: ") + overlaps);
    EXPECT_EQ(refusal->why, "The address of eth2 cannot be read as one.");
}

TEST(Rules, TheReasonOfAnOverlapNamesBothNetworks)
{
    auto state = server();
    auto eth1 = endpoint(state, "eth1");
    eth1.ipAddress = "172.16.9.9";
    eth1.subnetMask = "255.255.0.0";
    EXPECT_EQ(judgeAddresses(eth1, state)->why, "172.16.9.9/16 and eth2, 172.16.2.1/24, share a network.");
}

TEST(Rules, AGatewayIsEmptyOrUsable)
{
    EXPECT_EQ(eth1Verdict("10.0.0.6", "255.255.255.0", ""), "");
    EXPECT_EQ(eth1Verdict("10.0.0.6", "255.255.255.0", "10.0.0.6"), "");
    EXPECT_EQ(eth1Verdict("10.0.0.6", "255.255.255.0", "192.0.2.1"), "");
    EXPECT_EQ(eth1Verdict("10.0.0.6", "255.255.255.0", "gateway"), std::string("gateway: ") + invalid);
    EXPECT_EQ(eth1Verdict("10.0.0.6", "255.255.255.0", "255.255.255.255"),
              std::string("gateway: ") + invalid);
}

TEST(Rules, WithARouterCardTheGatewayIsNeitherEmptyNorTheOwnAddress)
{
    EXPECT_EQ(eth1Verdict("10.0.0.6", "255.255.255.0", "", true), std::string("gateway: ") + invalid);
    EXPECT_EQ(eth1Verdict("10.0.0.6", "255.255.255.0", "10.0.0.6", true), std::string("gateway: ") + invalid);
    EXPECT_EQ(eth1Verdict("10.0.0.6", "255.255.255.0", "10.0.0.1", true), "");
}

TEST(Rules, AnMtuIs68To1500)
{
    EXPECT_FALSE(judgeMtu(68));
    EXPECT_FALSE(judgeMtu(1500));
    for (const int bad : {67, 1501, 0, -1500, 65535})
        EXPECT_EQ(verdict(judgeMtu(bad)), "mtu: MTU size entered is out of the range: (68-1500)") << bad;
}

TEST(Rules, ADomainIsALetterAndThenLettersDigitsDotsAndHyphens)
{
    for (const char* good : {"a", "site.example", "a-b.c-", "a..b", "X9"})
        EXPECT_FALSE(judgeDomain(good)) << good;
    for (const char* bad : {"", "9site", "-site", ".site", "a_b", "a b", "site\n", "a;b",
                            "st\xc3\xa4"
                            "dte"}) {
        const auto refusal = judgeDomain(bad);
        ASSERT_EQ(verdict(refusal), "domain: Invalid domain name") << bad;
        EXPECT_TRUE(refusal->byServer);
        EXPECT_EQ(refusal->identifier, "LAN_ERROR_domainNameBadFormat");
    }
}

TEST(Rules, ADomainBeyond253CharactersIsRefusedByThisClientAlone)
{
    EXPECT_FALSE(judgeDomain(std::string(253, 'a')));
    const auto refusal = judgeDomain(std::string(254, 'a'));
    ASSERT_TRUE(refusal);
    EXPECT_FALSE(refusal->byServer);
    EXPECT_EQ(refusal->key, "domain");
    // What the server would refuse anyway, it refuses with its own text.
    EXPECT_TRUE(judgeDomain(std::string(254, '_'))->byServer);
}

TEST(Rules, ANameServerIsEmptyOrUsable)
{
    EXPECT_FALSE(judgeNameServer("dns1", ""));
    EXPECT_FALSE(judgeNameServer("dns1", "10.0.0.9"));
    const auto refusal = judgeNameServer("dns2", "127.0.0.53");
    ASSERT_EQ(verdict(refusal), std::string("dns2: ") + invalid);
    EXPECT_EQ(refusal->identifier, "LAN_ERROR_invalidIP");
}

TEST(Rules, ANetworkIsWrittenWithItsLengthWhereItHasOne)
{
    EXPECT_EQ(networkText("10.0.0.5", "255.255.255.0"), "10.0.0.5/24");
    EXPECT_EQ(networkText("10.0.0.5", "0.0.0.0"), "10.0.0.5/0");
    EXPECT_EQ(networkText("10.0.0.5", "255.255.255.255"), "10.0.0.5/32");
    EXPECT_EQ(networkText("10.0.0.5", "255.0.255.0"), "10.0.0.5 with mask 255.0.255.0");
}

TEST(Rules, ABroadcastAddressHasAllHostBitsSet)
{
    EXPECT_TRUE(isBroadcast("10.0.0.255", "255.255.255.0"));
    EXPECT_TRUE(isBroadcast("10.0.255.255", "255.255.0.0"));
    EXPECT_FALSE(isBroadcast("10.0.0.255", "255.255.0.0"));
    EXPECT_FALSE(isBroadcast("10.0.0.1", "255.255.255.254"));
    EXPECT_FALSE(isBroadcast("", ""));
}

} // namespace

} // namespace lanctl::plan
