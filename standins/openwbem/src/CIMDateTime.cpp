#include "COWData.hpp"
#include "OW_CIMDateTime.hpp"
#include "OW_DateTime.hpp"
#include <cstdlib>
#include <ctime>
#include <ostream>

namespace OpenWBEM
{

OW_DEFINE_NUMBERED_EXCEPTION(CIMDateTime, 49)

namespace
{

const size_t SIGN_INDEX = 21;
const size_t LONGEST_TEXT = 34;
const UInt64 MICROSECONDS = 1000000;
const int E_INVALID_FORMAT = 0;

// What atoi makes of a field: blanks and a sign may come first, and no digits are 0.
template <class Number>
Number field(const String& text, size_t begin, size_t count)
{
    return static_cast<Number>(strtoll(text.substring(begin, count).c_str(), nullptr, 10));
}

} // namespace

struct CIMDateTime::Data : COWData<Data> {
    UInt16 year = 0;
    UInt8 month = 0;
    UInt32 day = 0; // of an interval the number of days
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
        OW_THROW_ERR(CIMDateTimeException, "Invalid format for date time", E_INVALID_FORMAT);
    }
    Data& data = m_data.write();
    data.isInterval = sign == ':';
    if (data.isInterval) {
        data.day = field<UInt32>(text, 0, 8);
    } else {
        data.year = field<UInt16>(text, 0, 4);
        data.month = field<UInt8>(text, 4, 2);
        data.day = field<UInt32>(text, 6, 2);
        data.utc = field<Int16>(text, SIGN_INDEX, LONGEST_TEXT - SIGN_INDEX);
    }
    data.hours = field<UInt8>(text, 8, 2);
    data.minutes = field<UInt8>(text, 10, 2);
    data.seconds = field<UInt8>(text, 12, 2);
    data.microseconds = field<UInt32>(text, 15, 6);
}

CIMDateTime::CIMDateTime(const DateTime& time) : m_data(new Data)
{
    const time_t seconds = time.get();
    tm calendar = {};
    localtime_r(&seconds, &calendar);
    Data& data = m_data.write();
    data.isInterval = false;
    data.year = static_cast<UInt16>(calendar.tm_year + 1900);
    data.month = static_cast<UInt8>(calendar.tm_mon + 1);
    data.day = static_cast<UInt32>(calendar.tm_mday);
    data.hours = static_cast<UInt8>(calendar.tm_hour);
    data.minutes = static_cast<UInt8>(calendar.tm_min);
    data.seconds = static_cast<UInt8>(calendar.tm_sec);
    data.microseconds = time.getMicrosecond();
    data.utc = static_cast<Int16>(calendar.tm_gmtoff / 60);
}

CIMDateTime::CIMDateTime(UInt64 microseconds) : m_data(new Data)
{
    const auto seconds = static_cast<UInt32>(microseconds / MICROSECONDS);
    Data& data = m_data.write();
    data.day = seconds / 86400;
    data.hours = static_cast<UInt8>(seconds / 3600 % 24);
    data.minutes = static_cast<UInt8>(seconds / 60 % 60);
    data.seconds = static_cast<UInt8>(seconds % 60);
    data.microseconds = static_cast<UInt32>(microseconds % MICROSECONDS);
}

// clang-format off
UInt16 CIMDateTime::getYear() const { return m_data.read().year; }
UInt8 CIMDateTime::getMonth() const { return m_data.read().month; }
UInt32 CIMDateTime::getDay() const { return m_data.read().day; }
UInt32 CIMDateTime::getDays() const { return m_data.read().day; }
UInt8 CIMDateTime::getHours() const { return m_data.read().hours; }
UInt8 CIMDateTime::getMinutes() const { return m_data.read().minutes; }
UInt8 CIMDateTime::getSeconds() const { return m_data.read().seconds; }
UInt32 CIMDateTime::getMicroSeconds() const { return m_data.read().microseconds; }
Int16 CIMDateTime::getUtc() const { return m_data.read().utc; }

CIMDateTime& CIMDateTime::setYear(UInt16 value) { m_data.write().year = value; return *this; }
CIMDateTime& CIMDateTime::setMonth(UInt8 value) { m_data.write().month = value; return *this; }
CIMDateTime& CIMDateTime::setDay(UInt32 value) { m_data.write().day = value; return *this; }
CIMDateTime& CIMDateTime::setDays(UInt32 value) { m_data.write().day = value; return *this; }
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
    return a.year == b.year && a.month == b.month && a.day == b.day && a.hours == b.hours &&
           a.minutes == b.minutes && a.seconds == b.seconds && a.microseconds == b.microseconds &&
           a.utc == b.utc && a.isInterval == b.isInterval;
}

String CIMDateTime::toString() const
{
    const Data& data = m_data.read();
    const unsigned hours = data.hours;
    const unsigned minutes = data.minutes;
    const unsigned seconds = data.seconds;
    String text;
    if (data.isInterval) {
        text.format("%08u%02u%02u%02u.%06u:000", data.day, hours, minutes, seconds, data.microseconds);
    } else {
        text.format("%04u%02u%02u%02u%02u%02u.%06u%+04d", unsigned(data.year), unsigned(data.month), data.day,
                    hours, minutes, seconds, data.microseconds, int(data.utc));
    }
    return text;
}

namespace
{

// Whether the fields lie in their ranges, and few enough digits show them.
bool isCalendarDate(const CIMDateTime& date)
{
    return !date.isInterval() && date.toString().length() == 25 && date.getMonth() >= 1 &&
           date.getMonth() <= 12 && date.getDay() >= 1 && date.getDay() <= 31 && date.getHours() <= 23 &&
           date.getMinutes() <= 59 && date.getSeconds() <= 60;
}

[[noreturn]] void throwNoTime(const tm& calendar)
{
    char text[32] = "";
    strftime(text, sizeof text, "%a %b %e %H:%M:%S %Y", &calendar);
    const String message = String("Unable to represent time \"") + text + "\n\" as a time_t";
    OW_THROW(DateTimeException, message.c_str());
}

} // namespace

DateTime CIMDateTime::toDateTime() const
{
    if (!isCalendarDate(*this)) {
        const String message = "Invalid DateTime: " + toString();
        OW_THROW(DateTimeException, message.c_str());
    }
    tm calendar = {};
    calendar.tm_year = getYear() < 1900 ? getYear() : getYear() - 1900; // so 0004 is taken for 1904
    calendar.tm_mon = getMonth() - 1;
    calendar.tm_mday = static_cast<int>(getDay());
    calendar.tm_hour = getHours();
    calendar.tm_min = getMinutes() - getUtc();
    calendar.tm_sec = getSeconds();
    const time_t seconds = timegm(&calendar);
    if (seconds < 0) {
        throwNoTime(calendar);
    }
    return DateTime(seconds, getMicroSeconds());
}

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
    const DateTime right = rhs.toDateTime(); // the first to be found without a time
    return lhs.toDateTime() < right;
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

std::ostream& operator<<(std::ostream& ostr, const CIMDateTime& arg)
{
    return ostr << arg.toString();
}

} // namespace OpenWBEM
