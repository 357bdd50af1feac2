#include "model/Names.hpp"

#include "model/State.hpp"

#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>

using namespace lanctl::model;

namespace
{

std::string textOf(const std::string& path)
{
    std::ifstream in(path);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

const std::map<Kind, std::string_view>& classNames()
{
    static const std::map<Kind, std::string_view> names{{Kind::Endpoint, classes::endpoint},
                                                        {Kind::Setting, classes::setting},
                                                        {Kind::Marking, classes::marking}};
    return names;
}

} // namespace

TEST(Names, tellObjectsApart)
{
    EXPECT_EQ(kindOf("eth0"), Kind::Endpoint);
    EXPECT_EQ(kindOf("lan"), Kind::Setting);
    EXPECT_EQ(kindOf("marking"), Kind::Marking);
    EXPECT_TRUE(isInterface("eth2"));
    EXPECT_FALSE(isInterface("eth3"));
}

TEST(Names, ofKeysAreUniqueInTheirClass)
{
    std::set<std::pair<Kind, std::string_view>> seen;
    for (const Key& key : allKeys()) {
        EXPECT_TRUE(seen.insert({key.kind, key.key}).second) << key.key;
        EXPECT_EQ(findKey(key.kind, key.key), &key);
    }
    EXPECT_EQ(findKey(Kind::Setting, "mtu"), nullptr);
}

TEST(Names, ofPropertiesAreWritableOnesOfTheClassDefinitions)
{
    for (const Key& key : allKeys()) {
        const std::string definition = textOf(MOF_DIR "/" + std::string(classNames().at(key.kind)) + ".mof");
        for (const std::string_view property : {key.property, key.companion}) {
            if (property.empty())
                continue;
            const auto declared = definition.find(" " + std::string(property) + ";");
            ASSERT_NE(declared, std::string::npos) << property;
            const auto qualifiers = definition.rfind("\n  [", declared);
            EXPECT_EQ(definition.compare(qualifiers, 9, "\n  [Write"), 0) << property;
            EXPECT_EQ(definition.compare(declared - key.type.size(), key.type.size(), key.type), 0)
                << property;
        }
    }
}

TEST(Names, findAnEndpointOfTheState)
{
    ServerState state;
    state.endpoints.resize(2);
    state.endpoints[1].name = "eth1";
    EXPECT_EQ(state.endpoint("eth1"), &state.endpoints[1]);
    EXPECT_EQ(state.endpoint("eth2"), nullptr);
}
