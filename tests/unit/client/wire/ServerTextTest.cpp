#include "wire/ServerText.hpp"

#include <gtest/gtest.h>

using namespace lanctl::wire;

namespace
{

void expectText(int code, const std::string& description, const std::string& text,
                const std::string& identifier)
{
    const ServerText read = bareText(code, description);
    EXPECT_EQ(read.text, text) << description;
    EXPECT_EQ(read.identifier, identifier) << description;
}

} // namespace

TEST(ServerText, isFreedOfTheDecoration)
{
    expectText(1, "general error (Invalid subnet format)", "Invalid subnet format", "");
    expectText(1, "general error (Invalid domain name#LAN_ERROR_domainNameBadFormat#)", "Invalid domain name",
               "LAN_ERROR_domainNameBadFormat");
    expectText(16, "extrinsic method could not be executed (Failed to execute the command: /kv/bin/x (y))",
               "Failed to execute the command: /kv/bin/x (y)", "");
}

TEST(ServerText, isTheDescriptionWhereThereIsNoText)
{
    expectText(6, "requested object could not be found", "requested object could not be found", "");
    expectText(1, "general error (#101#)", "general error", "101");
    expectText(1, "", "general error", "");
    expectText(99, "", "unknown error", "");
    expectText(-1, "", "unknown error", "");
}

TEST(ServerText, staysAsItIsWithoutDecoration)
{
    expectText(1, "a plain failure (really)", "a plain failure (really)", "");
    expectText(1, "general error (never closed", "general error (never closed", "");
}

TEST(ServerText, leavesOutTheArgumentsOfAnIdentifier)
{
    expectText(4,
               "invalid parameter passed to method (The length of PrimaryOwnerName must be <= 64\n"
               "#CFG_000_0004,MOF_Props_ORX_ALGService_PrimaryOwnerName,64#)",
               "The length of PrimaryOwnerName must be <= 64", "CFG_000_0004");
}

TEST(ServerText, mayHoldANumberSignOfItsOwn)
{
    expectText(1, "general error (port #5 is broken)", "port #5 is broken", "");
    expectText(1, "general error (#)", "#", "");
}

TEST(ServerText, losesTheLineBreakAtItsEnd)
{
    expectText(1, "general error (Could not make the requested change.\n)",
               "Could not make the requested change.", "");
}
