// CIMDateTime and DateTime.
#include "OW_DateTime.hpp"
#include "Recording.hpp"
#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <iterator>

using namespace recorded;

namespace
{

const Excepted EXCEPTED[] = {
    {"nobody here uses it: a DateTime from a text", R"(DateTime\(".*)", 57},
    {"nobody here uses them: fields, sums and texts of a DateTime",
     R"(DateTime(\+=| \+=|\.toString\(UTC\)|\(fields\)))", 3},
};

struct Time {
    std::string name;
    CIMDateTime time;
};

void checkText(Recording& recording, const std::string& text)
{
    const std::string call = "CIMDateTime(" + quoted(text) + ")";
    const char* const bytes = text.c_str();
    recording.check(call, [&] { return CIMDateTime(bytes); });
    recording.check(call + " from String", [&] { return CIMDateTime(String(bytes)); });
    recording.check(call + ".getDay()", [&] { return CIMDateTime(bytes).getDay(); });
    recording.check(call + ".getDays()", [&] { return CIMDateTime(bytes).getDays(); });
    recording.check(call + " streamed", [&] { return streamed(CIMDateTime(bytes)); });
    recording.check(call + ".toDateTime()", [&] { return CIMDateTime(bytes).toDateTime().get(); });
}

void checkNull(Recording& recording)
{
    const CIMDateTime null(CIMNULL);
    recording.check("CIMDateTime(CIMNULL)", [&] { return null; });
    recording.check("CIMDateTime(CIMNULL) as bool", [&] { return null ? true : false; });
    recording.check("CIMDateTime(CIMNULL).toString()", [&] { return null.toString(); });
    recording.check("CIMDateTime(CIMNULL).getYear()", [&] { return null.getYear(); });
    recording.check("CIMDateTime(CIMNULL).isInterval()", [&] { return null.isInterval(); });
    recording.check("CIMDateTime(CIMNULL) == itself", [&] { return null == CIMDateTime(CIMNULL); });
    recording.check("CIMDateTime(CIMNULL) == other", [&] { return null == CIMDateTime(); });
    recording.check("other == CIMDateTime(CIMNULL)", [&] { return CIMDateTime() == null; });
    recording.check("CIMDateTime(CIMNULL) < other", [&] { return null < CIMDateTime(); });
    recording.check("CIMDateTime(CIMNULL).setYear", [] { return CIMDateTime(CIMNULL).setYear(2000); });
    recording.check("CIMDateTime(CIMNULL).setInterval", [] {
        CIMDateTime t(CIMNULL);
        t.setInterval(true);
        return t;
    });
}

void checkPair(Recording& recording, const Time& first, const Time& second)
{
    const CIMDateTime& a = first.time;
    const CIMDateTime& b = second.time;
    const std::string operands = " " + first.name + " " + second.name;
    recording.check("CIMDateTime equal" + operands, [&] { return a.equal(b); });
    recording.check("CIMDateTime ==" + operands, [&] { return a == b; });
    recording.check("CIMDateTime !=" + operands, [&] { return a != b; });
    recording.check("CIMDateTime <" + operands, [&] { return a < b; });
    recording.check("CIMDateTime <=" + operands, [&] { return a <= b; });
    recording.check("CIMDateTime >" + operands, [&] { return a > b; });
    recording.check("CIMDateTime >=" + operands, [&] { return a >= b; });
}

CIMDateTime withInterval(CIMDateTime time, bool isInterval)
{
    time.setInterval(isInterval);
    return time;
}

void checkSetters(Recording& recording, const Time& given)
{
    const std::string name = "CIMDateTime " + given.name;
    recording.check(name + " set...", [&] {
        CIMDateTime t(given.time);
        t.setYear(1999).setMonth(12).setDay(31);
        t.setHours(23).setMinutes(59).setSeconds(58);
        t.setMicroSeconds(999999).setUtc(-300);
        return shown(t) + shown(given.time);
    });
    recording.check(name + " setDays", [&] { return CIMDateTime(given.time).setDays(42); });
    recording.check(name + " setDay", [&] { return CIMDateTime(given.time).setDay(42); });
    recording.check(name + " setInterval true", [&] { return withInterval(given.time, true); });
    recording.check(name + " setInterval false", [&] { return withInterval(given.time, false); });
    recording.check(name + " chained", [&] { return CIMDateTime(given.time).setYear(5).setMonth(6); });
}

void setZone(const char* zone)
{
    setenv("TZ", zone, 1);
    tzset();
}

void checkTimes(Recording& recording)
{
    for (const char* const zone : {"UTC", "CET-1", "EST5EDT,M4.1.0,M10.5.0", "IST-5:30"}) {
        setZone(zone);
        for (const time_t t :
             {time_t(0), time_t(1), time_t(-1), time_t(86399), time_t(946684800), time_t(1091000000),
              time_t(1104537600), time_t(2147483647), time_t(4102444800)}) {
            recording.check("CIMDateTime(DateTime " + std::to_string(t) + ") in " + zone,
                            [&] { return CIMDateTime(DateTime(t, 7)); });
        }
    }
    setZone("UTC");
    recording.check("DateTime().get()", [] { return DateTime().get(); });
    recording.check("DateTime(5,7)", [] { return DateTime(5, 7).getMicrosecond(); });
    recording.check("DateTime ==", [] { return DateTime(5, 7) == DateTime(5, 7); });
    recording.check("DateTime !=", [] { return DateTime(5, 7) != DateTime(5, 8); });
    recording.check("DateTime <", [] { return DateTime(5, 7) < DateTime(5, 8); });
    recording.check("DateTime >=", [] { return DateTime(5, 7) >= DateTime(5, 8); });
    recording.check("DateTime.setToCurrent", [] {
        DateTime t;
        t.setToCurrent();
        return t.get() > 1000000000;
    });
}

TEST(RecordedDates, answerAsTheOriginal)
{
    setZone("UTC");
    Recording recording("dates", {std::begin(EXCEPTED), std::end(EXCEPTED)});
    std::vector<Time> times;
    for (const std::string& text : recording.textsBetween("CIMDateTime(", ") streamed")) {
        checkText(recording, text);
        try {
            times.push_back({quoted(text), CIMDateTime(text.c_str())});
        } catch (const CIMDateTimeException&) {
            continue; // nothing to compare
        }
    }
    recording.check("CIMDateTime()", [] { return CIMDateTime(); });
    checkNull(recording);
    times.push_back({"default", CIMDateTime()});
    for (const Time& first : times) {
        for (const Time& second : times) {
            checkPair(recording, first, second);
        }
        checkSetters(recording, first);
    }
    for (const UInt64 n :
         {UInt64(0), UInt64(1), UInt64(999999), UInt64(1000000), UInt64(59999999), UInt64(60000000),
          UInt64(3600000000), UInt64(86400000000), UInt64(86399999999), UInt64(123456789012345),
          UInt64(4294967295000000), UInt64(4294967296000000), UInt64(9999999999999999), ~UInt64(0)}) {
        recording.check("CIMDateTime(UInt64 " + std::to_string(n) + ")", [&] { return CIMDateTime(n); });
    }
    checkTimes(recording);
    recording.expectComplete(16827);
}

} // namespace
