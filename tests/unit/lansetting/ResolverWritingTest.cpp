// How a new domain or name server goes into the text that is kept of a resolver file.

#include "lansetting/ResolverText.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace
{

using OpenWBEM::String;

struct DomainChange {
    const char* name;
    std::string before;
    std::string after;
};

std::ostream& operator<<(std::ostream& out, const DomainChange& change)
{
    return out << change.name;
}

class ResolverDomain : public ::testing::TestWithParam<DomainChange>
{
};

TEST_P(ResolverDomain, BecomesNewExample)
{
    const String after = withSearchDomain(String(GetParam().before.c_str()), String("new.example"));
    EXPECT_EQ(after.c_str(), GetParam().after);
}

const DomainChange domainChanges[] = {
    {"InAnEmptyFile", "", "search new.example\n"},
    {"InASearchLine", "search\tlan\n", "search new.example\n"},
    {"InAFirstLine", "search lan\nnameserver 10.0.0.1\n", "search new.example\nnameserver 10.0.0.1\n"},
    {"InALaterLine", "nameserver 10.0.0.1\nsearch lan\n# end\n",
     "nameserver 10.0.0.1\nsearch new.example\n# end\n"},
    {"InALastLineWithoutALineBreak", "# start\nsearch lan", "# start\nsearch new.example\n"},
    {"InALineThatIsOnlyTheKeyword", "search", "search new.example\n"},
    {"AtTheEndWithoutASearchLine", "nameserver 10.0.0.1\n", "nameserver 10.0.0.1\nsearch new.example\n"},
    {"RightBehindALastLineWithoutALineBreak", "nameserver 10.0.0.1",
     "nameserver 10.0.0.1search new.example\n"},
    {"InTheFirstOfTwoSearchLines", "search a\nsearch b\n", "search new.example\nsearch b\n"},
    {"InACommentThatMentionsSearchFirst", "# search list below\nsearch lan\n",
     "# search new.example\nsearch lan\n"},
    {"BehindTheFirstMentionInALine", "search research search\n", "search new.example\n"},
    {"InsideAWord", "researching x\n", "research new.example\n"},
    {"BeforeACarriageReturnThatIsLost", "search lan\r\n# end\r\n", "search new.example\n# end\r\n"},
};

INSTANTIATE_TEST_SUITE_P(Goes, ResolverDomain, ::testing::ValuesIn(domainChanges),
                         [](const auto& test) { return test.param.name; });

TEST(ResolverDomainText, MayBeEmpty)
{
    EXPECT_STREQ(withSearchDomain("search lan\n", "").c_str(), "search \n");
    EXPECT_STREQ(withSearchDomain("", "").c_str(), "search \n");
}

struct NameserverChange {
    const char* name;
    int index;
    std::string address;
    std::string before;
    std::string after;
};

std::ostream& operator<<(std::ostream& out, const NameserverChange& change)
{
    return out << change.name;
}

class ResolverNameserver : public ::testing::TestWithParam<NameserverChange>
{
};

TEST_P(ResolverNameserver, IsWritten)
{
    const String after = withNameserver(String(GetParam().before.c_str()), String(GetParam().address.c_str()),
                                        GetParam().index);
    EXPECT_EQ(after.c_str(), GetParam().after);
}

const std::string two = "nameserver 10.0.0.1\nnameserver 10.0.0.2\n";

const NameserverChange nameserverChanges[] = {
    {"PrimaryIntoAnEmptyFile", 0, "10.1.1.1", "", "nameserver 10.1.1.1\n"},
    {"SecondaryIntoAnEmptyFile", 1, "10.1.1.1", "", "nameserver 10.1.1.1\n"},
    {"PrimaryInPlace", 0, "10.1.1.1", two, "nameserver 10.1.1.1\nnameserver 10.0.0.2\n"},
    {"SecondaryInPlace", 1, "10.1.1.1", two, "nameserver 10.0.0.1\nnameserver 10.1.1.1\n"},
    {"SecondaryAtTheEndBehindOneNameserver", 1, "10.1.1.1", "nameserver 10.0.0.1\nsearch lan\n",
     "nameserver 10.0.0.1\nsearch lan\nnameserver 10.1.1.1\n"},
    {"SecondaryOfThree", 1, "10.1.1.1", two + "nameserver 10.0.0.3\n",
     "nameserver 10.0.0.1\nnameserver 10.1.1.1\nnameserver 10.0.0.3\n"},
    {"BetweenOtherLines", 0, "10.1.1.1", "search lan\nnameserver\t10.0.0.1 x\n# end\n",
     "search lan\nnameserver 10.1.1.1\n# end\n"},
    {"InALastLineWithoutALineBreak", 1, "10.1.1.1", "nameserver 10.0.0.1\nnameserver 10.0.0.2",
     "nameserver 10.0.0.1\nnameserver 10.1.1.1\n"},
    {"RightBehindALastLineWithoutALineBreak", 1, "10.1.1.1", "nameserver 10.0.0.1",
     "nameserver 10.0.0.1nameserver 10.1.1.1\n"},
    {"InACommentThatMentionsItFirst", 0, "10.1.1.1", "# nameserver of the site\nnameserver 10.0.0.1\n",
     "# nameserver 10.1.1.1\nnameserver 10.0.0.1\n"},
    {"PastACommentThatCountsAsTheFirst", 1, "10.1.1.1", "# nameserver of the site\n" + two,
     "# nameserver of the site\nnameserver 10.1.1.1\nnameserver 10.0.0.2\n"},
    {"WhereOneLineMentionsItTwice", 1, "10.1.1.1", "# nameserver nameserver x\nnameserver 10.0.0.1\n",
     "# nameserver nameserver 10.1.1.1\nnameserver 10.0.0.1\n"},
    {"InsideAWord", 0, "10.1.1.1", "mynameservers x\n", "mynameserver 10.1.1.1\n"},
    {"ThirdOfThree", 2, "10.1.1.1", two + "nameserver 10.0.0.3\nsearch lan\n",
     two + "nameserver 10.1.1.1\nsearch lan\n"},
    {"ThirdAtTheEndBehindTwo", 2, "10.1.1.1", two + "search lan\n",
     two + "search lan\nnameserver 10.1.1.1\n"},
    {"AtTheEndWithANegativeNumber", -1, "10.1.1.1", two + "search lan\n",
     two + "search lan\nnameserver 10.1.1.1\n"},
    {"AtTheEndWithTheLowestNumber", std::numeric_limits<int>::min(), "10.1.1.1", two,
     two + "nameserver 10.1.1.1\n"},

    {"RemovedPrimary", 0, "", two, "nameserver 10.0.0.2\n"},
    {"RemovedSecondary", 1, "", two + "search lan\n", "nameserver 10.0.0.1\nsearch lan\n"},
    {"RemovedFromALastLineWithoutALineBreak", 1, "", "nameserver 10.0.0.1\nnameserver 10.0.0.2",
     "nameserver 10.0.0.1\n"},
    {"RemovedAloneLeavesNothing", 0, "", "nameserver 10.0.0.1\n", ""},
    {"RemovedFromBehindOtherTextLeavesThatText", 0, "", "# nameserver of the site\nsearch lan\n",
     "# search lan\n"},
    {"RemovedWhereThereIsNoneAddsAnEmptyLine", 1, "", "nameserver 10.0.0.1\n",
     "nameserver 10.0.0.1\nnameserver \n"},
    {"RemovedFromAnEmptyFileAddsAnEmptyLine", 0, "", "", "nameserver \n"},
    {"RemovedWithANegativeNumberAddsAnEmptyLine", -1, "", two, two + "nameserver \n"},
};

INSTANTIATE_TEST_SUITE_P(As, ResolverNameserver, ::testing::ValuesIn(nameserverChanges),
                         [](const auto& test) { return test.param.name; });

} // namespace
