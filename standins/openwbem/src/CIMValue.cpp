#include "CIMValueData.hpp"
#include "OW_CIMValueCast.hpp"
#include <algorithm>

namespace OpenWBEM
{

OW_DEFINE_NUMBERED_EXCEPTION(ValueCast, 6)

namespace
{

template <class T>
[[noreturn]] void throwNotA()
{
    using Names = CIMTypeOf<typename IsArray<T>::Element>;
    const String message = String("CIMValue::CIMValueImpl::get - Value is not a ") +
                           (IsArray<T>::value ? Names::arrayName : Names::name);
    OW_THROW(ValueCastException, message.c_str());
}

template <class T>
T held(const CIMContent& content)
{
    if (const T* exact = std::get_if<T>(&content)) {
        return *exact;
    }
    if constexpr (std::is_arithmetic_v<T>) {
        // Numeric keys arrive from clients as sint64, so that one type serves as every other number.
        if (const Int64* number = std::get_if<Int64>(&content)) {
            return static_cast<T>(*number);
        }
    }
    throwNotA<T>();
}

template <class T>
bool sameContent(const T& lhs, const T& rhs)
{
    if constexpr (std::is_same_v<T, CIMInstance>) {
        return bool(lhs) == bool(rhs); // whatever they hold
    } else if constexpr (IsArray<T>::value) {
        return std::equal(lhs.begin(), lhs.end(), rhs.begin(), rhs.end(), [](const auto& a, const auto& b) {
            return sameContent<typename IsArray<T>::Element>(a, b);
        });
    } else {
        return lhs == rhs;
    }
}

template <class T>
CIMValue simpleValue(T value)
{
    return CIMValue(value);
}

} // namespace

CIMValue::CIMValue(CIMNULL_t) {}
CIMValue::CIMValue(bool arg) : m_data(new Data(Bool(arg))) {}
CIMValue::CIMValue(const char* arg) : m_data(new Data(String(arg ? arg : ""))) {}

void CIMValue::setNull()
{
    m_data.setNull();
}

// The arguments are types, which take no parentheses.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define CIM_VALUE_MEMBERS(TYPE, ARGUMENT)                                                                    \
    CIMValue::CIMValue(ARGUMENT arg) : m_data(new Data(TYPE(arg))) {}                                        \
    CIMValue::CIMValue(const Array<TYPE>& arg) : m_data(new Data(arg)) {}                                    \
    void CIMValue::get(TYPE& arg) const                                                                      \
    {                                                                                                        \
        arg = held<TYPE>(m_data.read().content);                                                             \
    }                                                                                                        \
    void CIMValue::get(Array<TYPE>& arg) const                                                               \
    {                                                                                                        \
        arg = held<Array<TYPE>>(m_data.read().content);                                                      \
    }                                                                                                        \
    Array<TYPE> CIMValue::to##TYPE##Array() const                                                            \
    {                                                                                                        \
        return held<Array<TYPE>>(m_data.read().content);                                                     \
    }

#define CIM_VALUE_TYPE(TYPE, ARGUMENT)                                                                       \
    CIM_VALUE_MEMBERS(TYPE, ARGUMENT)                                                                        \
    TYPE CIMValue::to##TYPE() const                                                                          \
    {                                                                                                        \
        return held<TYPE>(m_data.read().content);                                                            \
    }
// NOLINTEND(bugprone-macro-parentheses)

CIM_VALUE_TYPE(Bool, const Bool&)
CIM_VALUE_TYPE(UInt8, UInt8)
CIM_VALUE_TYPE(Int8, Int8)
CIM_VALUE_TYPE(UInt16, UInt16)
CIM_VALUE_TYPE(Int16, Int16)
CIM_VALUE_TYPE(UInt32, UInt32)
CIM_VALUE_TYPE(Int32, Int32)
CIM_VALUE_TYPE(UInt64, UInt64)
CIM_VALUE_TYPE(Int64, Int64)
CIM_VALUE_TYPE(Real32, Real32)
CIM_VALUE_TYPE(Real64, Real64)
CIM_VALUE_TYPE(Char16, const Char16&)
CIM_VALUE_MEMBERS(String, const String&)
CIM_VALUE_TYPE(CIMDateTime, const CIMDateTime&)
CIM_VALUE_TYPE(CIMObjectPath, const CIMObjectPath&)
CIM_VALUE_TYPE(CIMClass, const CIMClass&)
CIM_VALUE_TYPE(CIMInstance, const CIMInstance&)

String CIMValue::toString() const
{
    return m_data.isNull() ? String("(null)") : contentToString(m_data.read().content);
}

String CIMValue::toMOF() const
{
    return contentToMOF(m_data.read().content);
}

CIMDataType::Type CIMValue::getType() const
{
    return std::visit(
        [](const auto& content) {
            return CIMTypeOf<typename IsArray<std::decay_t<decltype(content)>>::Element>::type;
        },
        m_data.read().content);
}

CIMDataType CIMValue::getCIMDataType() const
{
    return isArray() ? CIMDataType(getType(), -1) : CIMDataType(getType());
}

bool CIMValue::isArray() const
{
    return m_data.read().content.index() >= std::variant_size_v<CIMContent> / 2; // all arrays come last
}

UInt32 CIMValue::getArraySize() const
{
    return std::visit(
        [](const auto& content) -> UInt32 {
            if constexpr (IsArray<std::decay_t<decltype(content)>>::value) {
                return static_cast<UInt32>(content.size());
            } else {
                return 1;
            }
        },
        m_data.read().content);
}

bool CIMValue::isNumericType() const
{
    return getCIMDataType().isNumericType();
}

bool CIMValue::sameType(const CIMValue& arg) const
{
    return m_data.read().content.index() == arg.m_data.read().content.index();
}

bool CIMValue::equal(const CIMValue& arg) const
{
    if (m_data.isNull() || arg.m_data.isNull()) {
        return m_data.isNull() && arg.m_data.isNull();
    }
    if (m_data.isSharedWith(arg.m_data)) {
        return true; // also when it holds a null object, which cannot be compared
    }
    const CIMContent& others = arg.m_data.read().content;
    return sameType(arg) && std::visit(
                                [&others](const auto& mine) {
                                    return sameContent(mine, std::get<std::decay_t<decltype(mine)>>(others));
                                },
                                m_data.read().content);
}

bool CIMValue::operator<(const CIMValue& arg) const
{
    if (m_data.isNull() || arg.m_data.isNull()) {
        return m_data.isNull() && !arg.m_data.isNull();
    }
    if (m_data.isSharedWith(arg.m_data)) {
        return false; // also when it holds what has no order
    }
    const CIMContent& others = arg.m_data.read().content;
    return sameType(arg) &&
           std::visit(
               [&others](const auto& mine) { return mine < std::get<std::decay_t<decltype(mine)>>(others); },
               m_data.read().content);
}

CIMValue CIMValue::createSimpleValue(const String& cimType, const String& text)
{
    switch (CIMDataType::strToSimpleType(cimType)) {
    case CIMDataType::BOOLEAN:
        return simpleValue(text.toBool());
    case CIMDataType::UINT8:
        return simpleValue(text.toUInt8());
    case CIMDataType::SINT8:
        return simpleValue(text.toInt8());
    case CIMDataType::UINT16:
        return simpleValue(text.toUInt16());
    case CIMDataType::SINT16:
        return simpleValue(text.toInt16());
    case CIMDataType::UINT32:
        return simpleValue(text.toUInt32());
    case CIMDataType::SINT32:
        return simpleValue(text.toInt32());
    case CIMDataType::UINT64:
        return simpleValue(text.toUInt64());
    case CIMDataType::SINT64:
        return simpleValue(text.toInt64());
    case CIMDataType::REAL32:
        return simpleValue(text.toReal32());
    case CIMDataType::REAL64:
        return simpleValue(text.toReal64());
    case CIMDataType::CHAR16:
        return simpleValue(Char16(text));
    case CIMDataType::DATETIME:
        return simpleValue(CIMDateTime(text));
    case CIMDataType::STRING:
        return simpleValue(text);
    case CIMDataType::REFERENCE:
        return simpleValue(CIMObjectPath::parse(text));
    default:
        return CIMValue(CIMNULL);
    }
}

} // namespace OpenWBEM
