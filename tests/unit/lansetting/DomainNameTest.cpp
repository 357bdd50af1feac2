#include "DomainName.hpp"

#include <gtest/gtest.h>

#include <string>

namespace
{

using OpenWBEM::String;

const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
const std::string others = "0123456789.-";

bool isOneOf(const std::string& characters, int byte)
{
    return characters.find(static_cast<char>(byte)) != std::string::npos;
}

bool isValid(const std::string& name)
{
    return isValidDomainName(String(name.data(), name.size()));
}

TEST(DomainName, StartsWithALetterAndNothingElse)
{
    for (int byte = 0; byte < 256; ++byte) {
        const std::string first(1, static_cast<char>(byte));
        EXPECT_EQ(isValid(first), isOneOf(letters, byte)) << "byte " << byte;
        EXPECT_EQ(isValid(first + "x"), isOneOf(letters, byte)) << "byte " << byte;
    }
}

TEST(DomainName, GoesOnWithLettersDigitsDotsAndHyphensAndNothingElse)
{
    for (int byte = 0; byte < 256; ++byte) {
        const std::string later(1, static_cast<char>(byte));
        const bool expected = isOneOf(letters + others, byte);
        EXPECT_EQ(isValid("a" + later), expected) << "byte " << byte;
        EXPECT_EQ(isValid("a" + later + "b"), expected) << "byte " << byte;
        EXPECT_EQ(isValid("abc.d" + later), expected) << "byte " << byte;
    }
}

TEST(DomainName, IsNotEmpty)
{
    EXPECT_FALSE(isValidDomainName(String("")));
    EXPECT_FALSE(isValidDomainName(String()));
}

TEST(DomainName, MayRepeatAndTrailDotsAndHyphens)
{
    for (const char* name : {"a-b.c-", "a..b", "a.", "a-", "a.-.-", "site.example"})
        EXPECT_TRUE(isValid(name)) << name;
}

TEST(DomainName, MayBeOfAnyLength)
{
    EXPECT_TRUE(isValid(std::string(5000, 'a')));
    EXPECT_FALSE(isValid(std::string(4999, 'a') + "_"));
}

TEST(DomainName, TakesNoWayOutOfACommandLine)
{
    for (const char* name : {"a b", "a;reboot", "a\nb", "a`b`", "a$b", "a|b", "a&b", "a/b", "a'b", "a\"b"})
        EXPECT_FALSE(isValid(name)) << name;
}

std::string domainOfHost(const char* hostName)
{
    return domainOf(String(hostName)).c_str();
}

TEST(DomainOfAHost, IsTheTextAfterTheFirstDot)
{
    EXPECT_EQ(domainOfHost("pbx.site.example"), "site.example");
    EXPECT_EQ(domainOfHost("pbx.lan"), "lan");
}

TEST(DomainOfAHost, IsEmptyWithoutADot)
{
    EXPECT_EQ(domainOfHost("pbx"), "");
    EXPECT_EQ(domainOfHost(""), "");
}

TEST(DomainOfAHost, IsTakenAsItComes)
{
    EXPECT_EQ(domainOfHost("pbx."), "");
    EXPECT_EQ(domainOfHost(".site"), "site");
    EXPECT_EQ(domainOfHost("pbx..site"), ".site");
}

} // namespace
