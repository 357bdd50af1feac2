#include "model/Export.hpp"
#include "model/WantedText.hpp"

#include <gtest/gtest.h>

using namespace lanctl::model;

namespace
{

std::string complaintAbout(const std::string& text)
{
    try {
        parseWanted(text);
    } catch (const BadWanted& e) {
        return e.what();
    }
    return "no complaint";
}

ServerState stateOfAServer()
{
    ServerState state;
    state.endpoints.resize(2);
    state.endpoints[0].name = "eth0";
    state.endpoints[0].ipAddress = "192.168.10.1";
    state.endpoints[0].subnetMask = "255.255.255.0";
    state.endpoints[0].mtu = 1500;
    state.endpoints[1] = state.endpoints[0];
    state.endpoints[1].name = "eth1";
    state.endpoints[1].ipAddress = "10.0.0.5";
    state.endpoints[1].defaultGateway = "10.0.0.1";
    state.setting.domainName = "site.example";
    state.setting.primaryDns = "10.0.0.2";
    state.setting.arpFilter = true;
    state.marking.mark(Flow::Voice) = menuMark(0xB8);
    state.marking.mark(Flow::Fax) = customMark(0x68);
    return state;
}

} // namespace

TEST(WantedFile, isReadAsYaml)
{
    const WantedState wanted = parseWanted("# the office\n"
                                           "endpoints:\n"
                                           "  eth1:\n"
                                           "    address: 10.0.0.6/24\n"
                                           "    dhcp: off\n"
                                           "  eth2: {mtu: 1400}\n"
                                           "lan:\n"
                                           "  domain: on\n"
                                           "  dns2: ''\n"
                                           "marking: {voice: EF}\n");
    ASSERT_EQ(wanted.endpoints.size(), 2U);
    EXPECT_EQ(wanted.endpoints[0].ipAddress, "10.0.0.6");
    EXPECT_EQ(wanted.endpoints[0].dhcp, false);
    EXPECT_EQ(wanted.endpoints[1].mtu, 1400);
    EXPECT_EQ(wanted.setting.domainName, "on"); // a domain can be called so
    EXPECT_EQ(wanted.setting.secondaryDns, "");
    EXPECT_EQ(wanted.marking.mark(Flow::Voice), menuMark(0xB8));
}

TEST(WantedFile, isReadAsJson)
{
    const WantedState wanted = parseWanted("{\n\t\"endpoints\": {\"eth1\": {\"mtu\": 1400, \"dhcp\": "
                                           "true}},\n\t\"lan\": {\"domain\": \"a\\u002eb\"}\n}\n");
    EXPECT_EQ(wanted.endpoints.at(0).mtu, 1400);
    EXPECT_EQ(wanted.endpoints.at(0).dhcp, true);
    EXPECT_EQ(wanted.setting.domainName, "a.b");
}

TEST(WantedFile, mayBeEmpty)
{
    for (const char* text : {"", "# nothing\n", "{}", "endpoints: {}", "---\n"}) {
        const WantedState wanted = parseWanted(text);
        EXPECT_TRUE(wanted.endpoints.empty()) << text;
        EXPECT_EQ(wanted.setting.domainName, std::nullopt) << text;
    }
}

TEST(WantedFile, thatIsNoneIsRefusedWithItsLine)
{
    EXPECT_EQ(complaintAbout("endpoint: {}"),
              "line 1: \"endpoint\" is unknown; there are endpoints, lan and marking");
    EXPECT_EQ(complaintAbout("endpoints:\n  eth3: {}"),
              "line 2: \"eth3\" is no interface; there are eth0, eth1 and eth2");
    EXPECT_EQ(complaintAbout("lan:\n\n  dns3: x"),
              "line 3: lan has no \"dns3\"; it has domain, dns1, dns2, icmp-filter, "
              "arp-filter, broadcast-filter, conflict-watch");
    EXPECT_EQ(complaintAbout("lan:\n  dns1:\n"),
              "line 2: lan dns1 is to be one value; \"\" stands for an empty one");
    EXPECT_EQ(complaintAbout("lan: {dns1: {a: b}}"), "line 1: lan dns1 is to be one value");
    EXPECT_EQ(complaintAbout("lan: [a]"), "line 1: lan is to be a list of names and values");
    EXPECT_EQ(complaintAbout("endpoints: 3"), "line 1: endpoints is to be a list of names and values");
    EXPECT_EQ(complaintAbout("? [a]\n: b"), "line 1: a name is expected");
    EXPECT_EQ(complaintAbout("lan: {}\nlan: {}"), "line 2: \"lan\" is given twice");
    EXPECT_EQ(complaintAbout("lan: {}\n---\nlan: {}"), "line 2: a second document begins here");
    EXPECT_EQ(complaintAbout("{lan: {}},"), "line 1: a second document begins here");
    EXPECT_EQ(complaintAbout(","), "line 1: a second document begins here");
    EXPECT_EQ(complaintAbout("a: [").substr(0, 8), "line 1: ");
    EXPECT_EQ(complaintAbout("a: *b").substr(0, 8), "line 1: ");
}

TEST(WantedFile, thatIsTooLargeIsNotRead)
{
    EXPECT_EQ(complaintAbout(std::string(largestWantedFile + 1, '#')), "it is larger than 1 MB");
    EXPECT_EQ(complaintAbout(std::string(largestWantedFile, '#')), "no complaint");
}

TEST(WantedFile, ofAnExportSaysWhatTheServerHas)
{
    EXPECT_EQ(exportedText(stateOfAServer()), "endpoints:\n"
                                              "  eth0:\n"
                                              "    dhcp: off\n"
                                              "    address: \"192.168.10.1\"\n"
                                              "    mask: \"255.255.255.0\"\n"
                                              "    mtu: 1500\n"
                                              "  eth1:\n"
                                              "    dhcp: off\n"
                                              "    address: \"10.0.0.5\"\n"
                                              "    mask: \"255.255.255.0\"\n"
                                              "    gateway: \"10.0.0.1\"\n"
                                              "    mtu: 1500\n"
                                              "lan:\n"
                                              "  domain: \"site.example\"\n"
                                              "  dns1: \"10.0.0.2\"\n"
                                              "  dns2: \"\"\n"
                                              "  icmp-filter: off\n"
                                              "  arp-filter: on\n"
                                              "  broadcast-filter: off\n"
                                              "  conflict-watch: off\n"
                                              "marking:\n"
                                              "  enabled: off\n"
                                              "  signalling: CS0\n"
                                              "  voice: EF\n"
                                              "  video: CS0\n"
                                              "  fax: custom:AF31\n");
}

TEST(WantedFile, ofAnExportLeavesOutAddressesThatWereLent)
{
    ServerState state = stateOfAServer();
    state.endpoints.erase(state.endpoints.begin());
    state.endpoints[0].dhcp = true;
    EXPECT_EQ(exportedText(state).substr(0, 52), "endpoints:\n  eth1:\n    dhcp: on\n    mtu: 1500\nlan:\n ");
}

TEST(WantedFile, ofAnExportSaysThatThereIsNoGateway)
{
    ServerState state = stateOfAServer();
    state.endpoints[1].defaultGateway = "";
    const WantedState wanted = parseWanted(exportedText(state));
    EXPECT_EQ(wanted.endpoints.at(1).defaultGateway, "");
    EXPECT_EQ(wanted.endpoints.at(0).defaultGateway, std::nullopt); // there it always reads empty
}

TEST(WantedFile, ofAnExportIsReadBack)
{
    ServerState state = stateOfAServer();
    state.setting.domainName = "\"a\": 'b' #\x7F\x01\xC3\xBC\n*&!|>%@`";
    const WantedState wanted = parseWanted(exportedText(state));
    EXPECT_EQ(wanted.setting.domainName, state.setting.domainName);
    EXPECT_EQ(wanted.endpoints.at(1).defaultGateway, "10.0.0.1");
    EXPECT_EQ(wanted.marking.mark(Flow::Fax), customMark(0x68));
    EXPECT_EQ(exportedText(state).find('\x7F'), std::string::npos);
}
