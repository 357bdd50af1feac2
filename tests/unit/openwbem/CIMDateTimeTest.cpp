#include "OW_CIMDateTime.hpp"
#include "OW_DateTime.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;

namespace
{

const char* const REFUSAL = "CIMDateTimeException: Invalid format for date time";

} // namespace

TEST(CIMDateTime, isTheZeroIntervalWithoutText)
{
    EXPECT_TRUE(CIMDateTime().isInterval());
    EXPECT_EQ("00000000000000.000000:000", CIMDateTime().toString());
    EXPECT_EQ("00000000000000.000000:000", CIMDateTime("").toString());
}

TEST(CIMDateTime, readsADate)
{
    const CIMDateTime date("20041015123456.654321-060");
    EXPECT_FALSE(date.isInterval());
    EXPECT_EQ(2004, date.getYear());
    EXPECT_EQ(10, date.getMonth());
    EXPECT_EQ(15, date.getDay());
    EXPECT_EQ(12, date.getHours());
    EXPECT_EQ(34, date.getMinutes());
    EXPECT_EQ(56, date.getSeconds());
    EXPECT_EQ(654321U, date.getMicroSeconds());
    EXPECT_EQ(-60, date.getUtc());
    EXPECT_EQ("20041015123456.654321-060", date.toString());
    EXPECT_EQ("20041015123456.654321+120", CIMDateTime("20041015123456.654321+120").toString());
}

TEST(CIMDateTime, readsAnInterval)
{
    const CIMDateTime interval("00000012030405.000006:000");
    EXPECT_TRUE(interval.isInterval());
    EXPECT_EQ(12U, interval.getDays());
    EXPECT_EQ(3, interval.getHours());
    EXPECT_EQ(4, interval.getMinutes());
    EXPECT_EQ(5, interval.getSeconds());
    EXPECT_EQ(6U, interval.getMicroSeconds());
    EXPECT_EQ("00000012030405.000006:000", interval.toString());
}

TEST(CIMDateTime, takesTheNegativeZeroOffsetForADateAndForgetsItsSign)
{
    const CIMDateTime zero("00000000000000.000000-000");
    EXPECT_FALSE(zero.isInterval());
    EXPECT_EQ(0, zero.getUtc());
    EXPECT_EQ("00000000000000.000000+000", zero.toString());
    EXPECT_FALSE(zero == CIMDateTime());
}

TEST(CIMDateTime, looksOnlyAtTheCharacterBehindTheMicroseconds)
{
    EXPECT_EQ(REFUSAL, thrown([] { CIMDateTime("yesterday"); }));
    EXPECT_EQ(REFUSAL, thrown([] { CIMDateTime("20041015123456.654321"); }));
    EXPECT_EQ(REFUSAL, thrown([] { CIMDateTime("20041015123456.654321*000"); }));
    EXPECT_EQ("20041015123456.654321+000", CIMDateTime("20041015123456.654321+").toString());
}

TEST(CIMDateTime, readsWhatIsNoDigitAsZero)
{
    EXPECT_EQ("00000000000000.000000+000", CIMDateTime("yyyymmddHHMMSS.mmmmmm+UUU").toString());
}

TEST(CIMDateTime, isMadeOfMicroseconds)
{
    EXPECT_EQ("00000001010101.000001:000", CIMDateTime(UInt64(90061000001ULL)).toString());
}

TEST(CIMDateTime, isFalseWhenAllFieldsAreZero)
{
    EXPECT_FALSE(CIMDateTime());
    EXPECT_FALSE(CIMDateTime("00000000000000.000000-000"));
    EXPECT_TRUE(CIMDateTime("20041015000000.000000+000"));
    EXPECT_TRUE(CIMDateTime("00000000000001.000000:000"));
    EXPECT_FALSE(CIMDateTime(CIMNULL));
}

TEST(CIMDateTime, throwsWhenNullAndWritten)
{
    EXPECT_EQ(NULL_REFERENCE, thrown([] { CIMDateTime(CIMNULL).toString(); }));
}

TEST(CIMDateTime, comparesAllFields)
{
    const CIMDateTime noon("20041015120000.000000+000");
    EXPECT_TRUE(noon == CIMDateTime("20041015120000.000000+000"));
    EXPECT_TRUE(noon.equal(CIMDateTime("20041015120000.000000+000")));
    EXPECT_TRUE(noon != CIMDateTime("20041015130000.000000+060"));
}

TEST(CIMDateTime, ordersByCalendarTime)
{
    const CIMDateTime noon("20041015120000.000000+000");
    EXPECT_TRUE(noon < CIMDateTime("20041015120000.000001+000"));
    EXPECT_TRUE(noon <= CIMDateTime("20041015120001.000000+000"));
    EXPECT_TRUE(noon > CIMDateTime("20041014120000.000000+000"));
    EXPECT_TRUE(noon >= CIMDateTime("20031015120000.000000+000"));
}

TEST(CIMDateTime, minusItsOffsetIsItsCalendarTime)
{
    const CIMDateTime noon("20041015120000.000000+000");
    EXPECT_TRUE(CIMDateTime("20041015123000.000000+060") < noon);
    EXPECT_TRUE(CIMDateTime("20041015113000.000000-060") > noon);
}

TEST(CIMDateTime, hasNoOrderWithoutCalendarTime)
{
    const CIMDateTime noon("20041015120000.000000+000");
    CIMDateTime interval(noon);
    interval.setInterval(true);
    EXPECT_THROW(static_cast<void>(noon < interval), DateTimeException);
    EXPECT_THROW(static_cast<void>(noon < CIMDateTime()), DateTimeException);
    EXPECT_THROW(static_cast<void>(CIMDateTime("00000000000000.000000-000") < noon), DateTimeException);
}

TEST(CIMDateTime, isChangedFieldByField)
{
    CIMDateTime date;
    const CIMDateTime copy(date);
    date.setInterval(false);
    date.setYear(2004);
    date.setMonth(1);
    date.setDay(2);
    date.setHours(3);
    date.setMinutes(4);
    date.setSeconds(5);
    date.setMicroSeconds(6);
    date.setUtc(-7);
    EXPECT_EQ("20040102030405.000006-007", date.toString());
    EXPECT_EQ("00000000000000.000000:000", copy.toString());
}

TEST(CIMDateTime, carriesDaysInAnInterval)
{
    CIMDateTime interval;
    interval.setDays(99);
    EXPECT_EQ("00000099000000.000000:000", interval.toString());
}
