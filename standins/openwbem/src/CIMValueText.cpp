#include "CIMValueData.hpp"
#include "MofText.hpp"

namespace OpenWBEM
{

namespace
{

template <class T>
String scalarToString(const T& scalar)
{
    if constexpr (std::is_floating_point_v<T>) {
        return String(Real64(scalar));
    } else if constexpr (std::is_integral_v<T>) {
        return std::is_signed_v<T> ? String(Int64(scalar)) : String(UInt64(scalar));
    } else if constexpr (std::is_same_v<T, Char16>) {
        return String(
            static_cast<char>(scalar.getValue() & 0xFFU)); // the high byte is lost: that is the interface
    } else {
        return scalar.toString();
    }
}

// A character of an array keeps its high byte.
template <class T>
String elementToString(const T& element)
{
    if constexpr (std::is_same_v<T, Char16>) {
        return element.toString();
    } else {
        return scalarToString(element);
    }
}

template <class T>
String scalarToMOF(const T& scalar)
{
    if constexpr (std::is_arithmetic_v<T> || std::is_same_v<T, Bool> || std::is_same_v<T, Char16>) {
        return scalarToString(scalar);
    } else if constexpr (std::is_same_v<T, CIMObjectPath>) {
        return scalar.toMOF();
    } else {
        return quotedMOF(scalarToString(scalar));
    }
}

// Objects in an array stand as they are, without quotation marks.
template <class T>
String elementToMOF(const T& element)
{
    if constexpr (std::is_same_v<T, Char16> || std::is_same_v<T, CIMObjectPath> ||
                  std::is_same_v<T, CIMClass> || std::is_same_v<T, CIMInstance>) {
        return element.toString();
    } else {
        return scalarToMOF(element);
    }
}

template <class T, class Render>
String joined(const Array<T>& elements, Render render)
{
    String text = elements.empty() ? String("") : render(elements[0]);
    for (size_t i = 1; i < elements.size(); ++i) {
        text += "," + render(elements[i]);
    }
    return text;
}

} // namespace

String contentToString(const CIMContent& content)
{
    return std::visit(
        [](const auto& held) -> String {
            using T = std::decay_t<decltype(held)>;
            if constexpr (IsArray<T>::value) {
                return joined(held, elementToString<typename IsArray<T>::Element>);
            } else {
                return scalarToString(held);
            }
        },
        content);
}

String contentToMOF(const CIMContent& content)
{
    return std::visit(
        [](const auto& held) -> String {
            using T = std::decay_t<decltype(held)>;
            if constexpr (IsArray<T>::value) {
                return "{" + joined(held, elementToMOF<typename IsArray<T>::Element>) + "}";
            } else {
                return scalarToMOF(held);
            }
        },
        content);
}

} // namespace OpenWBEM
