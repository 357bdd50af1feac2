// What is kept of a resolver file, and which name servers are found in it.

#include "lansetting/ResolverText.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace
{

using OpenWBEM::String;

struct Reading {
    const char* name;
    std::string file;
    std::string kept;
    std::string primary;
    std::string secondary;
};

std::ostream& operator<<(std::ostream& out, const Reading& reading)
{
    return out << reading.name;
}

/// Hands `file` over line by line, line breaks included, until no more is wanted.
ResolverText imageOf(const std::string& file, const char* domain)
{
    ResolverText image;
    std::size_t start = 0;
    while (start < file.size()) {
        const std::size_t end = std::min(file.find('\n', start), file.size() - 1) + 1;
        if (!image.addLine(String(file.substr(start, end - start).c_str()), String(domain)))
            break;
        start = end;
    }
    return image;
}

class ResolverReading : public ::testing::TestWithParam<Reading>
{
};

TEST_P(ResolverReading, OnAHostOfTheDomainSiteExample)
{
    const ResolverText image = imageOf(GetParam().file, "site.example");
    EXPECT_EQ(image.contents.c_str(), GetParam().kept);
    EXPECT_EQ(image.primaryDNS.c_str(), GetParam().primary);
    EXPECT_EQ(image.secondaryDNS.c_str(), GetParam().secondary);
}

const std::string ns1 = "nameserver 10.0.0.1\n";
const std::string ns2 = "nameserver 10.0.0.2\n";
const std::string ns3 = "nameserver 10.0.0.3\n";

const Reading readings[] = {
    {"NothingOfAnEmptyFile", "", "", "", ""},
    {"OneNameserver", ns1, ns1, "10.0.0.1", ""},
    {"TwoNameservers", ns1 + ns2, ns1 + ns2, "10.0.0.1", "10.0.0.2"},
    {"AThirdNameserverEndsTheReading", ns1 + ns2 + ns3 + "search site.example\n# end\nnameserver 10.0.0.4\n",
     ns1 + ns2 + ns3, "10.0.0.1", "10.0.0.2"},
    {"ASearchLineBeforeTheThirdNameserverIsKept", ns1 + ns2 + "search site.example\n" + ns3,
     ns1 + ns2 + "search site.example\n" + ns3, "10.0.0.1", "10.0.0.2"},

    {"ACommentIsKept", "# written by hand\n", "# written by hand\n", "", ""},
    {"ACommentThatMentionsSearchIsKeptAsItIs", "#search elsewhere.example\n", "#search elsewhere.example\n",
     "", ""},
    {"ACommentThatMentionsANameserverNamesNone", "# nameserver 10.9.9.9\n" + ns1,
     "# nameserver 10.9.9.9\n" + ns1, "10.0.0.1", ""},
    {"AnIndentedNumberSignIsNoComment", " # remark\n" + ns1, ns1, "10.0.0.1", ""},

    {"ASearchLineOfTheOwnDomainIsKeptAsItIs", " search\t site.example \r\n", " search\t site.example \r\n",
     "", ""},
    {"ASearchLineOfAnotherDomainIsCorrected", "search elsewhere.example\n", "search\tsite.example\n", "", ""},
    {"ASearchLineDiffersInLetterCase", "search Site.example\n", "search\tsite.example\n", "", ""},
    {"ASearchLineOfTwoDomainsIsDropped", "search site.example lan\n", "", "", ""},
    {"ASearchLineOfNoDomainIsDropped", "search\n", "", "", ""},
    {"SearchIsFoundAnywhereInALine", "domain research\n", "search\tsite.example\n", "", ""},
    {"SearchIsFoundInTheSecondToken", "x search\n", "search\tsite.example\n", "", ""},
    {"SearchIsLookedForBeforeNameserver", "nameserver search\n", "search\tsite.example\n", "", ""},
    {"SearchIsLookedForInLowerCaseOnly", "SEARCH elsewhere.example\n", "", "", ""},
    {"SeveralSearchLinesAreAllKept", "search a.example\nsearch site.example\n",
     "search\tsite.example\nsearch site.example\n", "", ""},

    {"ANameserverLineWithoutAnAddressIsDropped", "nameserver\n" + ns2, ns2, "10.0.0.2", ""},
    {"ANameserverLineWithARemarkIsDropped", "nameserver 10.0.0.1 # old\n" + ns2, ns2, "10.0.0.2", ""},
    {"ADroppedThirdNameserverDoesNotEndTheReading", ns1 + ns2 + "nameserver 10.0.0.3 x\n# end\n",
     ns1 + ns2 + "# end\n", "10.0.0.1", "10.0.0.2"},
    {"NameserverIsFoundAnywhereInALine", "mynameservers ::1\n", "mynameservers ::1\n", "::1", ""},
    {"NameserverIsFoundInTheSecondToken", "x nameserver\n", "x nameserver\n", "nameserver", ""},
    {"NameserverIsLookedForInLowerCaseOnly", "Nameserver 10.0.0.1\n", "", "", ""},
    {"TheAddressIsTakenUnchecked", "nameserver nonsense\n", "nameserver nonsense\n", "nonsense", ""},
    {"TheSameAddressTwiceIsTwoNameservers", ns1 + ns1 + ns2, ns1 + ns1 + ns2, "10.0.0.1", "10.0.0.1"},
    {"AnyMixOfDelimitersSeparates", "\v nameserver\t\r \v10.0.0.1\v\r\n",
     "\v nameserver\t\r \v10.0.0.1\v\r\n", "10.0.0.1", ""},
    {"AFormFeedIsNoDelimiter", "nameserver\f10.0.0.1 x\n", "nameserver\f10.0.0.1 x\n", "x", ""},

    {"BlankLinesAreDropped", "\n \t\n" + ns1 + "\r\n", ns1, "10.0.0.1", ""},
    {"OtherLinesAreDropped", "domain site.example\noptions rotate\nsortlist 10.0.0.0\n;nothing\n" + ns1, ns1,
     "10.0.0.1", ""},
    {"LinesWithCarriageReturnsAreKeptAsTheyAre", "nameserver 10.0.0.1\r\n", "nameserver 10.0.0.1\r\n",
     "10.0.0.1", ""},
    {"ALastLineWithoutALineBreakIsKeptAsItIs", ns1 + "nameserver 10.0.0.2", ns1 + "nameserver 10.0.0.2",
     "10.0.0.1", "10.0.0.2"},
    {"ACorrectedLastLineGetsALineBreak", "search elsewhere.example", "search\tsite.example\n", "", ""},
    {"BytesBeyondAsciiAreKept", "# \xFF\x80\x01\nnameserver \xC3\xA4\n",
     "# \xFF\x80\x01\nnameserver \xC3\xA4\n", "\xC3\xA4", ""},
};

INSTANTIATE_TEST_SUITE_P(Keeps, ResolverReading, ::testing::ValuesIn(readings),
                         [](const auto& test) { return test.param.name; });

TEST(ResolverReadingWithoutADomain, ASearchLineLosesItsDomain)
{
    EXPECT_STREQ(imageOf("search site.example\n", "").contents.c_str(), "search\t\n");
}

TEST(ResolverReadingWithoutADomain, ASearchLineWithoutADomainIsDroppedAllTheSame)
{
    EXPECT_STREQ(imageOf("search\t\n", "").contents.c_str(), "");
}

TEST(ResolverLine, SaysWhetherTheReadingGoesOn)
{
    ResolverText image;
    EXPECT_TRUE(image.addLine("nameserver 10.0.0.1\n", "lan"));
    EXPECT_TRUE(image.addLine("nameserver 10.0.0.2\n", "lan"));
    EXPECT_TRUE(image.addLine("search lan\n", "lan"));
    EXPECT_TRUE(image.addLine("# comment\n", "lan"));
    EXPECT_TRUE(image.addLine("options rotate\n", "lan"));
    EXPECT_TRUE(image.addLine("nameserver\n", "lan"));
    EXPECT_TRUE(image.addLine("", "lan"));
    EXPECT_FALSE(image.addLine("nameserver 10.0.0.3\n", "lan"));
}

} // namespace
