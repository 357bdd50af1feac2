#include "json/StateJson.hpp"

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

TEST(StateJson, isAsciiWithoutControlCharacters)
{
    model::Setting setting;
    setting.domainName = "\xC3\xBC\x1B\x7F\xFF";
    const std::string printed = text(toJson(setting));
    EXPECT_NE(printed.find("\"domain\": \"\\u00fc\\u001b\\u007f\\ufffd\""), std::string::npos) << printed;
}

} // namespace
} // namespace lanctl::json
