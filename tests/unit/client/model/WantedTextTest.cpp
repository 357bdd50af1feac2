#include "model/WantedText.hpp"

#include <gtest/gtest.h>

using namespace lanctl::model;

namespace
{

WantedState wantedOf(const std::string& object, const std::vector<std::string>& assignments)
{
    WantedState wanted;
    for (const auto& assignment : assignments)
        wantAssignment(wanted, object, assignment);
    return wanted;
}

std::string complaintAbout(const std::string& object, const std::vector<std::string>& assignments)
{
    try {
        wantedOf(object, assignments);
    } catch (const BadWanted& e) {
        return e.what();
    }
    return "no complaint";
}

} // namespace

TEST(WantedText, setsAnEndpoint)
{
    const WantedState wanted = wantedOf(
        "eth1", {"address=10.0.0.6", "mask=255.255.0.0", "gateway=10.0.0.1", "mtu=1400", "dhcp=off"});
    ASSERT_EQ(wanted.endpoints.size(), 1U);
    const WantedEndpoint& endpoint = wanted.endpoints[0];
    EXPECT_EQ(endpoint.name, "eth1");
    EXPECT_EQ(endpoint.ipAddress, "10.0.0.6");
    EXPECT_EQ(endpoint.subnetMask, "255.255.0.0");
    EXPECT_EQ(endpoint.defaultGateway, "10.0.0.1");
    EXPECT_EQ(endpoint.mtu, 1400);
    EXPECT_EQ(endpoint.dhcp, false);
}

TEST(WantedText, leavesOutWhatIsLeftOut)
{
    const WantedState wanted = wantedOf("eth1", {"mtu=1400"});
    EXPECT_EQ(wanted.endpoints[0].ipAddress, std::nullopt);
    EXPECT_EQ(wanted.endpoints[0].dhcp, std::nullopt);
    EXPECT_EQ(wanted.setting.domainName, std::nullopt);
    EXPECT_EQ(wanted.marking.mark(Flow::Voice), std::nullopt);
}

TEST(WantedText, makesAMaskOfAPrefixLength)
{
    EXPECT_EQ(wantedOf("eth1", {"address=10.0.0.6/24"}).endpoints[0].subnetMask, "255.255.255.0");
    EXPECT_EQ(wantedOf("eth1", {"address=10.0.0.6/24"}).endpoints[0].ipAddress, "10.0.0.6");
    EXPECT_EQ(wantedOf("eth1", {"mask=/0"}).endpoints[0].subnetMask, "0.0.0.0");
    EXPECT_EQ(wantedOf("eth1", {"mask=/32"}).endpoints[0].subnetMask, "255.255.255.255");
    EXPECT_EQ(wantedOf("eth1", {"mask=/17"}).endpoints[0].subnetMask, "255.255.128.0");
    EXPECT_EQ(complaintAbout("eth1", {"mask=/33"}), "eth1 mask: \"33\" is no prefix length from 0 to 32");
    EXPECT_EQ(complaintAbout("eth1", {"address=10.0.0.6/"}),
              "eth1 address: \"\" is no prefix length from 0 to 32");
    EXPECT_EQ(complaintAbout("eth1", {"address=10.0.0.6/-1"}),
              "eth1 address: \"-1\" is no prefix length from 0 to 32");
}

TEST(WantedText, setsTheLan)
{
    const WantedSetting setting =
        wantedOf("lan", {"domain=a.example", "dns1=10.0.0.2", "dns2=", "icmp-filter=on", "arp-filter=TRUE",
                         "broadcast-filter=no", "conflict-watch=Yes"})
            .setting;
    EXPECT_EQ(setting.domainName, "a.example");
    EXPECT_EQ(setting.primaryDns, "10.0.0.2");
    EXPECT_EQ(setting.secondaryDns, "");
    EXPECT_EQ(setting.icmpFilter, true);
    EXPECT_EQ(setting.arpFilter, true);
    EXPECT_EQ(setting.broadcastFilter, false);
    EXPECT_EQ(setting.conflictWatch, true);
}

TEST(WantedText, setsMarkings)
{
    const WantedMarking marking =
        wantedOf("marking", {"enabled=on", "signalling=CS5", "voice=EF", "video=0x88", "fax=custom:0x68"})
            .marking;
    EXPECT_EQ(marking.enabled, true);
    EXPECT_EQ(marking.mark(Flow::Signalling), menuMark(0xA0));
    EXPECT_EQ(marking.mark(Flow::Voice), menuMark(0xB8));
    EXPECT_EQ(marking.mark(Flow::Video), menuMark(0x88));
    EXPECT_EQ(marking.mark(Flow::Fax), customMark(0x68));
}

TEST(WantedText, refusesWhatIsNoneOfItsForm)
{
    EXPECT_EQ(complaintAbout("eth1", {"mtu=1400 "}), "eth1 mtu: \"1400 \" is no number");
    EXPECT_EQ(complaintAbout("eth1", {"mtu=9999999999"}), "eth1 mtu: \"9999999999\" is no number");
    EXPECT_EQ(complaintAbout("eth1", {"dhcp="}), "eth1 dhcp: \"\" is neither on nor off");
    EXPECT_EQ(complaintAbout("marking", {"fax=loud"}),
              "marking fax: \"loud\" is no DSCP name (EF, CS5, AF41), no TOS byte (0xB8) and no custom:0x68");
    EXPECT_EQ(complaintAbout("marking", {"sound=EF"}),
              "marking has no \"sound\"; it has enabled, signalling, voice, video, fax");
    EXPECT_EQ(complaintAbout("eth1", {"mtu"}), "\"mtu\" is no KEY=VALUE");
}

TEST(WantedText, refusesAValueThatIsGivenTwice)
{
    EXPECT_EQ(complaintAbout("eth1", {"mtu=1400", "mtu=1400"}), "eth1 mtu: is given twice");
    EXPECT_EQ(complaintAbout("eth1", {"mask=255.0.0.0", "address=10.0.0.6/8"}),
              "eth1 address: is given twice");
}

TEST(WantedText, letsAValueHoldAnEqualsSign)
{
    EXPECT_EQ(wantedOf("lan", {"domain=a=b"}).setting.domainName, "a=b"); // for the plan to refuse
}
