#include "shell/Complaint.hpp"

#include <gtest/gtest.h>

using namespace lanctl;
using namespace lanctl::shell;

TEST(Complaint, isTextIdentifierAndAdvice)
{
    EXPECT_EQ(complaint(wire::CimError(1, "Invalid domain name", "LAN_ERROR_domainNameBadFormat")),
              "Invalid domain name (LAN_ERROR_domainNameBadFormat): the name must begin with a letter and "
              "hold letters, "
              "digits, dots and hyphens only.");
}

TEST(Complaint, prefersWhatIsKnownAboutTheValue)
{
    EXPECT_EQ(complaint(ServerComplaint{"Invalid domain name", "ID", "\"_x\" begins with no letter"}),
              "Invalid domain name (ID). \"_x\" begins with no letter.");
}

TEST(Complaint, withoutAdviceIsTheTextAlone)
{
    EXPECT_EQ(complaint(wire::CimError(1, "boom", "")), "boom.");
    EXPECT_EQ(complaint(wire::CimError(1, "boom!", "")), "boom!");
}

TEST(Complaint, aboutNoAnswerSaysWhatToDo)
{
    EXPECT_EQ(complaint(wire::Failure(wire::Failure::Kind::NotReached, "It is away.", "Look for it.")),
              "It is away. Look for it.");
    EXPECT_EQ(complaint(wire::Failure(wire::Failure::Kind::NotReached, "It is away.")), "It is away.");
}

TEST(Complaint, isHarmless)
{
    EXPECT_EQ(complaint(wire::CimError(1, "a\x1B[2J\nb", "")), "a\\x1b[2J\\x0ab.");
}
