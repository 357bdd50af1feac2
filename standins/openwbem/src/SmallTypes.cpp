#include "OW_Array.hpp"
#include "OW_Bool.hpp"
#include "OW_CIMBase.hpp"
#include "OW_CIMElement.hpp"
#include "OW_CIMFlavor.hpp"
#include "OW_CIMName.hpp"
#include "OW_Char16.hpp"
#include "OW_DateTime.hpp"
#include "OW_String.hpp"
#include <ctime>
#include <ostream>

namespace OpenWBEM
{

OW_DEFINE_NUMBERED_EXCEPTION(OutOfBounds, 31)
OW_DEFINE_NUMBERED_EXCEPTION(DateTime, 17)

void throwArrayOutOfBounds(size_t size, size_t index)
{
    const String message =
        "Array Index out of bounds. size = " + String(UInt64(size)) + ", index = " + String(UInt64(index));
    OW_THROW(OutOfBoundsException, message.c_str());
}

String Bool::toString() const
{
    return m_value ? "true" : "false";
}

std::ostream& operator<<(std::ostream& ostr, const Bool& arg)
{
    return ostr << arg.toString();
}

namespace
{

const UInt16 NO_CHARACTER = 0xFFFF;

// The first character of a UTF-8 text of at most three bytes a character.
UInt16 firstCharacter(const String& text)
{
    const auto byte = [&text](size_t i) { return static_cast<unsigned char>(text.charAt(i)); };
    const auto isContinuation = [&byte](size_t i) { return (byte(i) & 0xC0U) == 0x80; };
    if (byte(0) < 0x80) {
        return byte(0);
    }
    if ((byte(0) & 0xE0U) == 0xC0 && isContinuation(1)) {
        return static_cast<UInt16>(((byte(0) & 0x1FU) << 6U) | (byte(1) & 0x3FU));
    }
    if ((byte(0) & 0xF0U) == 0xE0 && isContinuation(1) && isContinuation(2)) {
        return static_cast<UInt16>(((byte(0) & 0x0FU) << 12U) | ((byte(1) & 0x3FU) << 6U) |
                                   (byte(2) & 0x3FU));
    }
    return NO_CHARACTER;
}

} // namespace

Char16::Char16(const String& text) : m_value(firstCharacter(text)) {}

String Char16::toString() const
{
    const unsigned value = m_value;
    String text;
    if (value < 0x80) {
        return text += static_cast<char>(value);
    }
    if (value < 0x800) {
        text += static_cast<char>(0xC0U | (value >> 6U));
    } else {
        text += static_cast<char>(0xE0U | (value >> 12U));
        text += static_cast<char>(0x80U | ((value >> 6U) & 0x3FU));
    }
    return text += static_cast<char>(0x80U | (value & 0x3FU));
}

// As itself if it is ASCII, else as its number.
std::ostream& operator<<(std::ostream& ostr, const Char16& arg)
{
    if (arg.getValue() > 0 && arg.getValue() < 0x80) {
        return ostr << static_cast<char>(arg.getValue());
    }
    String number;
    number.format("\\x%04X", static_cast<unsigned>(arg.getValue()));
    return ostr << number;
}

void DateTime::setToCurrent()
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    *this = DateTime(now.tv_sec, static_cast<UInt32>(now.tv_nsec / 1000));
}

CIMName::~CIMName() = default;

bool operator==(const CIMName& lhs, const CIMName& rhs)
{
    return lhs.toString().equalsIgnoreCase(rhs.toString());
}

bool operator!=(const CIMName& lhs, const CIMName& rhs)
{
    return !(lhs == rhs);
}

bool operator<(const CIMName& lhs, const CIMName& rhs)
{
    return lhs.toString().compareToIgnoreCase(rhs.toString()) < 0;
}

bool operator<=(const CIMName& lhs, const CIMName& rhs)
{
    return !(rhs < lhs);
}

bool operator>(const CIMName& lhs, const CIMName& rhs)
{
    return rhs < lhs;
}

bool operator>=(const CIMName& lhs, const CIMName& rhs)
{
    return !(lhs < rhs);
}

std::ostream& operator<<(std::ostream& ostr, const CIMName& name)
{
    return ostr << name.toString();
}

CIMBase::~CIMBase() = default;

std::ostream& operator<<(std::ostream& ostr, const CIMBase& cb)
{
    return ostr << cb.toString();
}

CIMElement::~CIMElement() = default;

String CIMElement::toString() const
{
    return getName();
}

// Not const, like the comparisons that use it: that is the interface.
int CIMElement::compare(const CIMElement& arg) // NOLINT(readability-make-member-function-const)
{
    return getName().compareToIgnoreCase(arg.getName());
}

bool CIMElement::equals(const CIMElement& arg)
{
    return compare(arg) == 0;
}

bool CIMElement::operator==(const CIMElement& arg)
{
    return equals(arg);
}

bool CIMElement::operator!=(const CIMElement& arg)
{
    return !equals(arg);
}

CIMFlavor::CIMFlavor() : m_flavor(INVALID) {}

CIMFlavor::CIMFlavor(Flavor flavor) : m_flavor(flavor > TRANSLATE ? INVALID : flavor) {}

void CIMFlavor::setNull()
{
    m_flavor = INVALID;
}

String CIMFlavor::toString() const
{
    return "FLAVOR(" + toMOF() + ")";
}

String CIMFlavor::toMOF() const
{
    switch (m_flavor) {
    case ENABLEOVERRIDE:
        return "EnableOverride";
    case DISABLEOVERRIDE:
        return "DisableOverride";
    case RESTRICTED:
        return "Restricted";
    case TOSUBCLASS:
        return "ToSubclass";
    case TRANSLATE:
        return "Translatable";
    case INVALID:
        break;
    }
    return "BAD FLAVOR";
}

} // namespace OpenWBEM
