#include "shell/StateJson.hpp"

#include <gtest/gtest.h>

using namespace lanctl;
using namespace lanctl::shell;

TEST(StateJson, leavesOutWhatWasNotAskedFor)
{
    EXPECT_EQ(stateJson(Shown{}), "{}\n");
    Shown shown;
    shown.marking = model::Marking{};
    EXPECT_EQ(stateJson(shown).find("\"lan\""), std::string::npos);
}

TEST(StateJson, saysNullWhereTheServerCouldNotTell)
{
    Shown shown;
    shown.endpoints.resize(1);
    shown.endpoints[0].enabledState = 2;
    const std::string json = stateJson(shown);
    EXPECT_NE(json.find("\"up\": false,\n      \"link\": null"), std::string::npos) << json;
}

TEST(StateJson, namesWhatHasAName)
{
    Shown shown;
    shown.marking = model::Marking{};
    shown.marking->mark(model::Flow::Voice) = model::customMark(0xA5);
    const std::string json = stateJson(shown);
    EXPECT_NE(json.find("\"voice\": {\n      \"tos\": 165,\n      \"dscp\": null,\n      \"custom\": true"),
              std::string::npos)
        << json;
    EXPECT_NE(json.find("\"fax\": {\n      \"tos\": 0,\n      \"dscp\": \"CS0\",\n      \"custom\": false"),
              std::string::npos)
        << json;
}

TEST(StateJson, isAsciiWithoutControlCharacters)
{
    Shown shown;
    shown.setting = model::Setting{};
    shown.setting->domainName = "\xC3\xBC\x1B\x7F\xFF";
    EXPECT_NE(stateJson(shown).find("\"domain\": \"\\u00fc\\u001b\\u007f\\ufffd\""), std::string::npos)
        << stateJson(shown);
}
