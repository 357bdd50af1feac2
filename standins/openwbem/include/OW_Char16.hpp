#ifndef OW_CHAR16_HPP_
#define OW_CHAR16_HPP_

#include "OW_CommonFwd.hpp"
#include <iosfwd>

namespace OpenWBEM
{

// The CIM char16: one 16-bit character (UCS-2).
class Char16
{
  public:
    Char16() : m_value(0) {}
    Char16(UInt16 value) : m_value(value) {}
    explicit Char16(char value) : m_value(static_cast<unsigned char>(value)) {}
    explicit Char16(UInt8 value) : m_value(value) {}
    explicit Char16(Int8 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(Int16 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(UInt32 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(Int32 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(UInt64 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(Int64 value) : m_value(static_cast<UInt16>(value)) {}
    explicit Char16(const String& text); // its first UTF-8 character; 0 when there is none

    UInt16 getValue() const { return m_value; }
    String toString() const; // UTF-8

    bool operator==(const Char16& arg) const { return m_value == arg.m_value; }
    bool operator!=(const Char16& arg) const { return m_value != arg.m_value; }
    bool operator<(const Char16& arg) const { return m_value < arg.m_value; }

  private:
    UInt16 m_value;
};

std::ostream& operator<<(std::ostream& ostr, const Char16& arg);

} // namespace OpenWBEM

#endif
