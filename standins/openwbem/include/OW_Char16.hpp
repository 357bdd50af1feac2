#ifndef OW_CHAR16_HPP_
#define OW_CHAR16_HPP_

#include "OW_ArrayFwd.hpp"
#include "OW_Bool.hpp"
#include "OW_CommonFwd.hpp"
#include "OW_Types.hpp"
#include <iosfwd>

namespace OpenWBEM
{

// The CIM char16: one 16-bit character (UCS-2).
class Char16
{
  public:
    Char16() : m_value(0) {}
    Char16(UInt16 value) : m_value(value) {}
    explicit Char16(char value) : m_value(static_cast<UInt16>(static_cast<signed char>(value))) {}
    explicit Char16(UInt8 value) : m_value(value) {}
    explicit Char16(Int8 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(Int16 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(UInt32 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(Int32 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(UInt64 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(Int64 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(Real32 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(Real64 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(const Bool& value) : m_value(value ? 1 : 0) {}
    explicit Char16(const String& text); // its first UTF-8 character; 0 when there is none

    UInt16 getValue() const { return m_value; }
    String toString() const; // UTF-8

    operator UInt16() const { return m_value; } // comparisons and truth tests are those of the number
    bool operator!() const { return m_value == 0; }

  private:
    UInt16 m_value;
};

std::ostream& operator<<(std::ostream& ostr, const Char16& arg);

} // namespace OpenWBEM

#endif
