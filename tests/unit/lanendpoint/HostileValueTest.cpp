// Values that a client must not get past the checks.

#include "Failures.hpp"
#include "ProviderFixture.hpp"

#include <gtest/gtest.h>

using fakes::failureOf;
using fakes::Lines;
using OpenWBEM::CIMProperty;
using OpenWBEM::CIMValue;
using OpenWBEM::String;

namespace
{

using namespace std::string_literals;

/// Appended to and put in front of a valid address, and alone.
const std::vector<std::string> hostileTexts = {
    ";reboot",
    "; reboot",
    "|reboot",
    "&& reboot",
    "& reboot &",
    "`reboot`",
    "$(reboot)",
    "${IFS}reboot",
    "> /etc/passwd",
    "< /etc/shadow",
    "'",
    "\"",
    "\\",
    " ",
    "\n",
    "\r\n",
    "\t",
    "\nreboot\n",
    "\nBOOTPROTO=dhcp",
    " eth0",
    "#",
    "*",
    "~",
    "%s%n%n%n",
    "../../etc/passwd",
    "\0"s,
    "\0;reboot"s,
    "\x01\x7f",
    "\xff\xfe\xc3",
    "\xc3\xa4\xe2\x82\xac",
    std::string(65536, '1'),
    std::string(65536, 'A'),
    std::string(65536, ';'),
    std::string(65536, '\xff'),
    std::string(65536, '\0'),
};

struct WritableText {
    const char* property;
    const char* validValue;
};

const std::vector<WritableText> writableTexts = {
    {"IPAddress", "10.0.0.6"}, {"SubnetMask", "255.255.0.0"}, {"DefaultGateway", "10.0.0.2"}};

class HostileValues : public fakes::ProviderTest
{
  protected:
    void expectRefused(const char* name, const std::string& value)
    {
        world.clearJournal();
        const CIMProperty hostile(name, CIMValue(String(value.data(), value.size())));
        const std::string failure = failureOf([&] { modifyInstance(instanceOf("eth1", {hostile})); });
        EXPECT_TRUE(failure == "ORX_LANEndpoint.cpp 1 Invalid IP address format" ||
                    failure == "ORX_LANEndpoint.cpp 1 Invalid subnet format")
            << name << " " << value.substr(0, 40) << ": " << failure;
        const std::string file = fileOf("eth1");
        EXPECT_EQ((Lines{"fopen " + file + " r", "fclose " + file, "fopen " + file + " r", "fclose " + file}),
                  world.journal(fakes::File));
        EXPECT_EQ(Lines{"KvuGetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize"},
                  world.journal(fakes::Effects & ~static_cast<unsigned>(fakes::Log)));
    }
};

TEST_F(HostileValues, NoneReachesACommandAFileOrTheRegistry)
{
    for (const WritableText& text : writableTexts) {
        for (const std::string& hostile : hostileTexts) {
            expectRefused(text.property, hostile);
            expectRefused(text.property, text.validValue + hostile);
            expectRefused(text.property, hostile + text.validValue);
        }
    }
}

TEST_F(HostileValues, EvenAPlatformThatReadsOnlyTheBeginningOfATextSeesItWhole)
{
    for (const WritableText& text : writableTexts)
        expectRefused(text.property, text.validValue + "\0 ; reboot"s);
}

TEST_F(HostileValues, AHostileNameIsRefusedBeforeAModificationByTheReadingThatPrecedesIt)
{
    for (const std::string& hostile : hostileTexts) {
        for (const char* ifName : {"", "eth", "eth1"}) {
            const std::string name = ifName + hostile;
            if (name.find('\0') != std::string::npos)
                continue; // ends there, as every name does
            world.clearJournal();
            EXPECT_EQ(
                "ORX_LANEndpoint.cpp 1 Cannot find the corresponding if interface#LAN_ERROR_noIFNameMapping#",
                failureOf([&] { getInstance(String(name.c_str())); }))
                << name.substr(0, 40);
            EXPECT_EQ(Lines{"gLogger ERROR Cannot find the corresponding if interface"},
                      world.journal(fakes::Effects));
        }
    }
}

} // namespace
