#include "CaseFolding.hpp"
#include "OW_Array.hpp"
#include "OW_Bool.hpp"
#include "OW_CIMBase.hpp"
#include "OW_CIMElement.hpp"
#include "OW_CIMFlavor.hpp"
#include "OW_CIMName.hpp"
#include "OW_Char16.hpp"
#include "OW_DateTime.hpp"
#include <ctime>
#include <ostream>

namespace OpenWBEM
{

OW_DEFINE_EXCEPTION(OutOfBounds)
OW_DEFINE_EXCEPTION(DateTime)

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

// The first character of a UTF-8 text of at most three bytes a character; 0 when there is none.
UInt16 firstCharacter(const String& text)
{
    const unsigned first = static_cast<unsigned char>(text.charAt(0));
    if (first < 0xC0) {
        return static_cast<UInt16>(first);
    }
    const unsigned second = static_cast<unsigned char>(text.charAt(1)) & 0x3FU;
    if (first < 0xE0) {
        return static_cast<UInt16>(((first & 0x1FU) << 6U) | second);
    }
    const unsigned third = static_cast<unsigned char>(text.charAt(2)) & 0x3FU;
    return static_cast<UInt16>(((first & 0x0FU) << 12U) | (second << 6U) | third);
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

std::ostream& operator<<(std::ostream& ostr, const Char16& arg)
{
    return ostr << arg.toString();
}

void DateTime::setToCurrent()
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    *this = DateTime(now.tv_sec, static_cast<UInt32>(now.tv_nsec / 1000));
}

int compareNames(const CIMName& lhs, const CIMName& rhs)
{
    return compareIgnoringCase(lhs.m_name.c_str(), rhs.m_name.c_str());
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
    return compareNames(getName(), arg.getName());
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

String CIMFlavor::toString() const
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
    }
    return String();
}

} // namespace OpenWBEM
