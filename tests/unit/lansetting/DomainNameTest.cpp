#include "lansetting/DomainName.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cctype>
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

/// While it lives, the C library takes every byte for a letter and a digit, as other locales do with some. It
/// stands in for them because no locale but the C library's own is on every machine.
class LocaleOfLetters
{
  public:
    LocaleOfLetters() : m_before(*__ctype_b_loc())
    {
        m_table.fill(0xFFFF);
        *__ctype_b_loc() = m_table.data() + 128; // the table begins with the byte -128
    }
    ~LocaleOfLetters() { *__ctype_b_loc() = m_before; }
    LocaleOfLetters(const LocaleOfLetters&) = delete;
    LocaleOfLetters& operator=(const LocaleOfLetters&) = delete;

  private:
    std::array<unsigned short, 384> m_table{};
    const unsigned short* m_before;
};

TEST(DomainName, HasTheSameCharactersInEveryLocale)
{
    std::string first, later;
    bool isSuchALocale = false;
    {
        const LocaleOfLetters locale;
        isSuchALocale = std::isalpha('_') != 0 && std::isalnum(0xE4) != 0;
        for (int byte = 0; byte < 256; ++byte) {
            const char c = static_cast<char>(byte);
            if (isValidDomainName(String(&c, 1)))
                first += c;
            const char name[] = {'a', c};
            if (isValidDomainName(String(name, sizeof name)))
                later += c;
        }
    }
    EXPECT_TRUE(isSuchALocale);
    EXPECT_EQ(first, letters);
    EXPECT_EQ(later, "-.0123456789" + letters);
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
