#include "json/StateJson.hpp"

#include "model/WantedText.hpp"

#include <gtest/gtest.h>

namespace lanctl::json
{
namespace
{

TEST(StateJson, saysNullWhereTheServerCouldNotTell)
{
    model::Endpoint endpoint;
    endpoint.enabledState = 2;
    const Json json = toJson(endpoint);
    EXPECT_EQ(json["up"], false);
    EXPECT_TRUE(json["link"].is_null());
}

TEST(StateJson, namesWhatHasAName)
{
    model::Marking marking;
    marking.mark(model::Flow::Voice) = model::customMark(0xA5);
    const Json json = toJson(marking);
    EXPECT_EQ(json["voice"], (Json{{"tos", 165}, {"dscp", nullptr}, {"custom", true}}));
    EXPECT_EQ(json["fax"], (Json{{"tos", 0}, {"dscp", "CS0"}, {"custom", false}}));
}

model::ServerState someState()
{
    model::ServerState state;
    state.endpoints.resize(2);
    state.endpoints[0].name = "eth1";
    state.endpoints[0].ipAddress = "10.0.0.5";
    state.endpoints[0].subnetMask = "255.255.255.0";
    state.endpoints[0].mtu = 1500;
    state.endpoints[1].name = "eth2";
    state.endpoints[1].dhcp = true;
    state.endpoints[1].mtu = 1400;
    state.setting.domainName = "\"site\\example\" \xC3\xBC\x7F\x01\n";
    state.setting.arpFilter = true;
    state.marking.mark(model::Flow::Voice) = model::menuMark(0xB8);
    state.marking.mark(model::Flow::Fax) = model::customMark(0x69);
    return state;
}

TEST(StateJson, hasTheKeysAndValuesOfAWantedState)
{
    const Json json = wantedJson(someState());
    EXPECT_EQ(json["endpoints"]["eth1"], (Json{{"dhcp", false},
                                               {"address", "10.0.0.5"},
                                               {"mask", "255.255.255.0"},
                                               {"gateway", ""},
                                               {"mtu", 1500}}));
    EXPECT_EQ(json["endpoints"]["eth2"], (Json{{"dhcp", true}, {"mtu", 1400}}));
    EXPECT_EQ(json["lan"]["arp-filter"], true);
    EXPECT_EQ(json["marking"], (Json{{"enabled", false},
                                     {"signalling", "CS0"},
                                     {"voice", "EF"},
                                     {"video", "CS0"},
                                     {"fax", "custom:0x69"}}));
}

TEST(StateJson, ofAWantedStateIsReadBack)
{
    const model::ServerState state = someState();
    const model::WantedState wanted = model::parseWanted(text(wantedJson(state)));
    ASSERT_EQ(wanted.endpoints.size(), 2U);
    EXPECT_EQ(wanted.endpoints[0].ipAddress, "10.0.0.5");
    EXPECT_EQ(wanted.endpoints[0].defaultGateway, "");
    EXPECT_EQ(wanted.endpoints[1].dhcp, true);
    EXPECT_EQ(wanted.endpoints[1].mtu, 1400);
    EXPECT_EQ(wanted.setting.domainName, state.setting.domainName);
    EXPECT_EQ(wanted.setting.arpFilter, true);
    EXPECT_EQ(wanted.marking.mark(model::Flow::Fax), model::customMark(0x69));
}

TEST(StateJson, isAsciiWithoutControlCharacters)
{
    model::Setting setting;
    setting.domainName = "\xC3\xBC\x1B\x7F\xFF";
    const std::string printed = text(toJson(setting));
    EXPECT_NE(printed.find("\"domain\": \"\\u00fc\\u001b\\u007f\\ufffd\""), std::string::npos) << printed;
}

} // namespace
} // namespace lanctl::json
