#ifndef OW_DATE_TIME_HPP_
#define OW_DATE_TIME_HPP_

#include "OW_CommonFwd.hpp"
#include "OW_Exception.hpp"
#include "OW_Types.hpp"
#include <time.h>

namespace OpenWBEM
{

// A point in time that does not exist in the calendar.
OW_DECLARE_EXCEPTION(DateTime)

// A point in time: seconds since the beginning of 1970 in UTC, and microseconds.
class DateTime
{
  public:
    DateTime() : m_seconds(0), m_microseconds(0) {}
    explicit DateTime(time_t seconds, UInt32 microseconds = 0)
        : m_seconds(seconds), m_microseconds(microseconds)
    {
    }

    time_t get() const { return m_seconds; }
    UInt32 getMicrosecond() const { return m_microseconds; }
    void setToCurrent();

    bool operator==(const DateTime& arg) const
    {
        return m_seconds == arg.m_seconds && m_microseconds == arg.m_microseconds;
    }
    bool operator!=(const DateTime& arg) const { return !(*this == arg); }
    bool operator<(const DateTime& arg) const
    {
        return m_seconds < arg.m_seconds ||
               (m_seconds == arg.m_seconds && m_microseconds < arg.m_microseconds);
    }

  private:
    time_t m_seconds;
    UInt32 m_microseconds;
};

} // namespace OpenWBEM

#endif
