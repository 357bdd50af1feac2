// Answers as text, in the form of the recordings.
#ifndef TESTS_UNIT_OPENWBEM_RECORDED_SHOWN_HPP
#define TESTS_UNIT_OPENWBEM_RECORDED_SHOWN_HPP

#include "OW_Array.hpp"
#include "OW_Bool.hpp"
#include "OW_CIM.hpp"
#include "OW_CIMException.hpp"
#include "OW_CIMParamValue.hpp"
#include "OW_Char16.hpp"
#include "OW_Exception.hpp"
#include "OW_String.hpp"
#include <sstream>
#include <string>
#include <type_traits>

namespace recorded
{

using namespace OpenWBEM;

// In quotation marks; what is no printable ASCII is escaped.
std::string quoted(const std::string& bytes);

std::string shown(const std::string& text); // as it is
std::string shown(const String& text);
std::string shown(const char* text);
std::string shown(char c);
std::string shown(bool truth);
std::string shown(double number);
std::string shown(const Bool& truth);
std::string shown(const Char16& character);
std::string shown(const CIMName& name);
std::string shown(const CIMDataType& type);
std::string shown(const CIMDateTime& time);
std::string shown(const CIMValue& value);
std::string shown(const CIMFlavor& flavor);
std::string shown(const CIMQualifier& qualifier);
std::string shown(const CIMProperty& property);
std::string shown(const CIMParamValue& argument);
std::string shown(const CIMInstance& instance);
std::string shown(const CIMObjectPath& path);
std::string shown(const CIMParameter& parameter);
std::string shown(const CIMMethod& method);
std::string shown(const CIMClass& cimClass);
std::string shown(const Exception& e);

template <class Number>
using IsCount =
    std::enable_if_t<(std::is_integral_v<Number> || std::is_enum_v<Number>)&&!std::is_same_v<Number, bool> &&
                     !std::is_same_v<Number, char>>;

template <class Number, class = IsCount<Number>>
std::string shown(Number number)
{
    if constexpr (std::is_enum_v<Number>) {
        return std::to_string(static_cast<int>(number));
    } else {
        return std::to_string(number);
    }
}

template <class Element>
std::string shown(const Array<Element>& elements)
{
    std::string text = "[";
    for (size_t i = 0; i < elements.size(); ++i) {
        text += (i ? ", " : "") + shown(elements[i]);
    }
    return text + "]";
}

// What the insertion into a stream writes, up to the first NUL.
template <class T>
std::string streamed(const T& object)
{
    std::ostringstream stream;
    stream << object;
    return shown(stream.str().c_str());
}

// Which of == != < <= > >= are true, a character each; a dot for one that is not.
template <class T>
std::string comparisons(const T& a, const T& b)
{
    std::string text = "......";
    text[0] = a == b ? '=' : '.';
    text[1] = a != b ? '!' : '.';
    text[2] = a < b ? '<' : '.';
    text[3] = a <= b ? 'l' : '.';
    text[4] = a > b ? '>' : '.';
    text[5] = a >= b ? 'g' : '.';
    return text;
}

} // namespace recorded

#endif
