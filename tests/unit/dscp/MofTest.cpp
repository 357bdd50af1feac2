// The class as the object manager knows it must be the class that the provider serves: the object manager
// casts what a client sends to the types of the class.

#include "Environment.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <string>

namespace
{

using fakes::Lines;

std::string mof()
{
    std::ostringstream content;
    content << std::ifstream(MOF_FILE).rdbuf();
    return std::regex_replace(content.str(), std::regex("//[^\n]*\n"), "\n");
}

std::string mofWithoutTexts()
{
    return std::regex_replace(mof(), std::regex("\"[^\"]*\""), "\"\"");
}

/// "<type> <name>[]" and the qualifiers Key, Write, MaxLen and ValueMap of every property.
Lines declaredProperties()
{
    Lines found;
    const std::string text = mofWithoutTexts();
    const std::regex property(R"(\[([^\]]*)\]\s*(\w+)\s+(\w+)(\[\])?\s*;)");
    for (std::sregex_iterator i(text.begin(), text.end(), property); i != std::sregex_iterator(); ++i) {
        std::string line = (*i)[2].str() + " " + (*i)[3].str() + (*i)[4].str();
        const std::string qualifiers = (*i)[1];
        const std::regex qualifier(R"(\b(Key|Write|ValueMap|MaxLen\(\d+\)))");
        for (std::sregex_iterator q(qualifiers.begin(), qualifiers.end(), qualifier);
             q != std::sregex_iterator(); ++q)
            line += " " + q->str();
        EXPECT_NE(qualifiers.find("Description"), std::string::npos) << line;
        found.push_back(line);
    }
    return found;
}

TEST(Mof, DeclaresThePropertiesThatTheProviderServes)
{
    EXPECT_EQ(declaredProperties(), (Lines{"string SystemCreationClassName Key",
                                           "string SystemName Key",
                                           "string CreationClassName Key",
                                           "string Name Key",
                                           "string ElementName",
                                           "boolean KLonKLEnabled Write",
                                           "uint16 QoSMarkVOIPSignaling Write ValueMap",
                                           "uint16 TOSByteSignaling Write",
                                           "uint16 QoSMarkVoiceMedia Write ValueMap",
                                           "uint16 TOSByteMedia Write",
                                           "uint16 QoSMarkVideoMedia Write ValueMap",
                                           "uint16 TOSByteVideoMedia Write",
                                           "uint16 videoMediaVisible",
                                           "uint16 QoSFaxMedia Write ValueMap",
                                           "uint16 TOSByteFax Write",
                                           "string PrimaryOwnerName Write MaxLen(64)",
                                           "string PrimaryOwnerContact Write MaxLen(256)",
                                           "string StartMode",
                                           "boolean Started",
                                           "uint16 EnabledState",
                                           "string OtherEnabledState",
                                           "uint16 RequestedState",
                                           "uint16 EnabledDefault Write",
                                           "datetime TimeOfLastStateChange",
                                           "datetime InstallDate",
                                           "uint16 OperationalStatus[]",
                                           "string StatusDescriptions[]",
                                           "string Status",
                                           "string Caption",
                                           "string Description"}));
}

TEST(Mof, NamesTheProviderAndNoSuperclass)
{
    EXPECT_NE(mof().find("Provider(\"c++::LANProvider\")"), std::string::npos);
    EXPECT_TRUE(std::regex_search(mofWithoutTexts(), std::regex(R"(\]\s*class ORX_ALGService\s*\{)")));
}

TEST(Mof, HasNoDefaultsBecauseTheyWouldBeAddedToEveryModification)
{
    EXPECT_EQ(mofWithoutTexts().find('='), std::string::npos);
}

TEST(Mof, HasNoMethods)
{
    EXPECT_FALSE(std::regex_search(mofWithoutTexts(), std::regex(R"(\)\s*;)")));
}

} // namespace
