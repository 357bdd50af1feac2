#include "COWData.hpp"
#include "OW_CIMDateTime.hpp"
#include <ctime>

namespace OpenWBEM
{

OW_DEFINE_EXCEPTION(CIMDateTime)

namespace
{

const size_t SIGN_INDEX = 21;
const size_t LONGEST_TEXT = 34;
const UInt64 MICROSECONDS = 1000000;

// The number at the beginning of a field; 0 when the field does not begin with a digit.
UInt32 number(const String& text, size_t begin, size_t count)
{
    UInt32 value = 0;
    for (size_t i = begin; i < begin + count; ++i) {
        const char c = text.charAt(i);
        if (c < '0' || c > '9') {
            break;
        }
        value = value * 10 + static_cast<UInt32>(c - '0');
    }
    return value;
}

} // namespace

struct CIMDateTime::Data : COWData<Data> {
    UInt16 year = 0;
    UInt8 month = 0;
    UInt8 day = 0;
    UInt32 days = 0;
    UInt8 hours = 0;
    UInt8 minutes = 0;
    UInt8 seconds = 0;
    UInt32 microseconds = 0;
    Int16 utc = 0;
    bool isInterval = true;
};

CIMDateTime::CIMDateTime() : m_data(new Data) {}

CIMDateTime::CIMDateTime(CIMNULL_t) {}

CIMDateTime::CIMDateTime(const String& text) : m_data(new Data)
{
    if (text.empty()) {
        return;
    }
    const char sign = text.charAt(SIGN_INDEX);
    if (sign != ':' && sign != '+' && sign != '-') {
        OW_THROW(CIMDateTimeException, "Invalid format for date time");
    }
    Data& data = m_data.write();
    data.isInterval = sign == ':';
    if (data.isInterval) {
        data.days = number(text, 0, 8);
    } else {
        const auto offset = static_cast<Int16>(number(text, SIGN_INDEX + 1, LONGEST_TEXT - SIGN_INDEX - 1));
        data.utc = static_cast<Int16>(sign == '-' ? -offset : offset);
        data.year = static_cast<UInt16>(number(text, 0, 4));
        data.month = static_cast<UInt8>(number(text, 4, 2));
        data.day = static_cast<UInt8>(number(text, 6, 2));
    }
    data.hours = static_cast<UInt8>(number(text, 8, 2));
    data.minutes = static_cast<UInt8>(number(text, 10, 2));
    data.seconds = static_cast<UInt8>(number(text, 12, 2));
    data.microseconds = number(text, 15, 6);
}

CIMDateTime::CIMDateTime(const DateTime& time) : m_data(new Data)
{
    const time_t seconds = time.get();
    tm calendar = {};
    gmtime_r(&seconds, &calendar);
    Data& data = m_data.write();
    data.isInterval = false;
    data.year = static_cast<UInt16>(calendar.tm_year + 1900);
    data.month = static_cast<UInt8>(calendar.tm_mon + 1);
    data.day = static_cast<UInt8>(calendar.tm_mday);
    data.hours = static_cast<UInt8>(calendar.tm_hour);
    data.minutes = static_cast<UInt8>(calendar.tm_min);
    data.seconds = static_cast<UInt8>(calendar.tm_sec);
    data.microseconds = time.getMicrosecond();
}

CIMDateTime::CIMDateTime(UInt64 microseconds) : m_data(new Data)
{
    const UInt64 seconds = microseconds / MICROSECONDS;
    Data& data = m_data.write();
    data.days = static_cast<UInt32>(seconds / 86400);
    data.hours = static_cast<UInt8>(seconds / 3600 % 24);
    data.minutes = static_cast<UInt8>(seconds / 60 % 60);
    data.seconds = static_cast<UInt8>(seconds % 60);
    data.microseconds = static_cast<UInt32>(microseconds % MICROSECONDS);
}

// clang-format off
UInt16 CIMDateTime::getYear() const { return m_data.read().year; }
UInt8 CIMDateTime::getMonth() const { return m_data.read().month; }
UInt8 CIMDateTime::getDay() const { return m_data.read().day; }
UInt32 CIMDateTime::getDays() const { return m_data.read().days; }
UInt8 CIMDateTime::getHours() const { return m_data.read().hours; }
UInt8 CIMDateTime::getMinutes() const { return m_data.read().minutes; }
UInt8 CIMDateTime::getSeconds() const { return m_data.read().seconds; }
UInt32 CIMDateTime::getMicroSeconds() const { return m_data.read().microseconds; }
Int16 CIMDateTime::getUtc() const { return m_data.read().utc; }

CIMDateTime& CIMDateTime::setYear(UInt16 value) { m_data.write().year = value; return *this; }
CIMDateTime& CIMDateTime::setMonth(UInt8 value) { m_data.write().month = value; return *this; }
CIMDateTime& CIMDateTime::setDay(UInt8 value) { m_data.write().day = value; return *this; }
CIMDateTime& CIMDateTime::setDays(UInt32 value) { m_data.write().days = value; return *this; }
CIMDateTime& CIMDateTime::setHours(UInt8 value) { m_data.write().hours = value; return *this; }
CIMDateTime& CIMDateTime::setMinutes(UInt8 value) { m_data.write().minutes = value; return *this; }
CIMDateTime& CIMDateTime::setSeconds(UInt8 value) { m_data.write().seconds = value; return *this; }
CIMDateTime& CIMDateTime::setMicroSeconds(UInt32 value) { m_data.write().microseconds = value; return *this; }
CIMDateTime& CIMDateTime::setUtc(Int16 value) { m_data.write().utc = value; return *this; }
// clang-format on

bool CIMDateTime::isInterval() const
{
    return m_data.read().isInterval;
}

void CIMDateTime::setInterval(bool interval)
{
    m_data.write().isInterval = interval;
}

bool CIMDateTime::isSet() const
{
    if (m_data.isNull()) {
        return false;
    }
    const Data& data = m_data.read();
    return data.year || data.month || data.day || data.hours || data.minutes || data.seconds ||
           data.microseconds;
}

bool CIMDateTime::equal(const CIMDateTime& arg) const
{
    const Data& a = m_data.read();
    const Data& b = arg.m_data.read();
    return a.year == b.year && a.month == b.month && a.day == b.day && a.days == b.days &&
           a.hours == b.hours && a.minutes == b.minutes && a.seconds == b.seconds &&
           a.microseconds == b.microseconds && a.utc == b.utc && a.isInterval == b.isInterval;
}

String CIMDateTime::toString() const
{
    const Data& data = m_data.read();
    const unsigned hours = data.hours;
    const unsigned minutes = data.minutes;
    const unsigned seconds = data.seconds;
    String text;
    if (data.isInterval) {
        text.format("%08u%02u%02u%02u.%06u:000", data.days, hours, minutes, seconds, data.microseconds);
    } else {
        text.format("%04u%02u%02u%02u%02u%02u.%06u%+04d", unsigned(data.year), unsigned(data.month),
                    unsigned(data.day), hours, minutes, seconds, data.microseconds, int(data.utc));
    }
    return text;
}

namespace
{

// The point in time that a date stands for.
DateTime calendarTime(const CIMDateTime& date)
{
    if (date.isInterval() || date.getMonth() < 1 || date.getMonth() > 12 || date.getDay() < 1) {
        const String message = "Not a calendar date: " + date.toString();
        OW_THROW(DateTimeException, message.c_str());
    }
    tm calendar = {};
    calendar.tm_year = date.getYear() - 1900;
    calendar.tm_mon = date.getMonth() - 1;
    calendar.tm_mday = date.getDay();
    calendar.tm_hour = date.getHours();
    calendar.tm_min = date.getMinutes() - date.getUtc();
    calendar.tm_sec = date.getSeconds();
    return DateTime(timegm(&calendar), date.getMicroSeconds());
}

} // namespace

bool operator==(const CIMDateTime& lhs, const CIMDateTime& rhs)
{
    return lhs.equal(rhs);
}

bool operator!=(const CIMDateTime& lhs, const CIMDateTime& rhs)
{
    return !lhs.equal(rhs);
}

bool operator<(const CIMDateTime& lhs, const CIMDateTime& rhs)
{
    return calendarTime(lhs) < calendarTime(rhs);
}

bool operator<=(const CIMDateTime& lhs, const CIMDateTime& rhs)
{
    return !(rhs < lhs);
}

bool operator>(const CIMDateTime& lhs, const CIMDateTime& rhs)
{
    return rhs < lhs;
}

bool operator>=(const CIMDateTime& lhs, const CIMDateTime& rhs)
{
    return !(lhs < rhs);
}

} // namespace OpenWBEM
