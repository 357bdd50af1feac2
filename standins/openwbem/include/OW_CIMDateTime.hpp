#ifndef OW_CIM_DATE_TIME_HPP_
#define OW_CIM_DATE_TIME_HPP_

#include "OW_CIMException.hpp"
#include "OW_CIMNULL.hpp"
#include "OW_COWReference.hpp"
#include "OW_CommonFwd.hpp"
#include "OW_SafeBool.hpp"
#include "OW_String.hpp"
#include "OW_Types.hpp"

namespace OpenWBEM
{

// A text that is no CIM datetime. The message is Invalid format for date time.
OW_DECLARE_EXCEPTION(CIMDateTime)

// A date with its offset from UTC, or an interval (DMTF DSP0004, datetime type). The character with index 21
// decides what a text is: + or - a date, : an interval. The sign of a zero offset is not kept.
class CIMDateTime
{
  public:
    CIMDateTime(); // the zero interval
    explicit CIMDateTime(CIMNULL_t);
    explicit CIMDateTime(const String& text);
    CIMDateTime(const DateTime& time);
    explicit CIMDateTime(UInt64 microseconds); // an interval

    UInt16 getYear() const;
    UInt8 getMonth() const;
    UInt32 getDay() const;
    UInt32 getDays() const; // the same: of a date its day, of an interval its days
    UInt8 getHours() const;
    UInt8 getMinutes() const;
    UInt8 getSeconds() const;
    UInt32 getMicroSeconds() const;
    Int16 getUtc() const; // minutes east of UTC

    CIMDateTime& setYear(UInt16 value);
    CIMDateTime& setMonth(UInt8 value);
    CIMDateTime& setDay(UInt32 value);
    CIMDateTime& setDays(UInt32 value);
    CIMDateTime& setHours(UInt8 value);
    CIMDateTime& setMinutes(UInt8 value);
    CIMDateTime& setSeconds(UInt8 value);
    CIMDateTime& setMicroSeconds(UInt32 value);
    CIMDateTime& setUtc(Int16 value);

    bool isInterval() const;
    void setInterval(bool interval);
    bool equal(const CIMDateTime& arg) const; // all fields
    String toString() const;
    DateTime toDateTime() const; // DateTimeException as below

    // False when null, and also when all fields from the year to the microseconds are zero.
    OW_SAFE_BOOL(isSet())

  private:
    struct Data;
    bool isSet() const;

    COWReference<Data> m_data;
};

bool operator==(const CIMDateTime& lhs, const CIMDateTime& rhs);
bool operator!=(const CIMDateTime& lhs, const CIMDateTime& rhs);
// By calendar time; DateTimeException for what has none, such as intervals and the zero date.
bool operator<(const CIMDateTime& lhs, const CIMDateTime& rhs);
bool operator<=(const CIMDateTime& lhs, const CIMDateTime& rhs);
bool operator>(const CIMDateTime& lhs, const CIMDateTime& rhs);
bool operator>=(const CIMDateTime& lhs, const CIMDateTime& rhs);
std::ostream& operator<<(std::ostream& ostr, const CIMDateTime& arg);

} // namespace OpenWBEM

#endif
