#include "CIMValueData.hpp"
#include "OW_CIMValueCast.hpp"

namespace OpenWBEM
{

namespace
{

enum class Kind { text, number, other };

// Numbers, booleans and characters convert into one another as far as their texts allow.
Kind kindOf(CIMDataType::Type type)
{
    switch (type) {
    case CIMDataType::STRING:
        return Kind::text;
    case CIMDataType::DATETIME:
    case CIMDataType::REFERENCE:
    case CIMDataType::EMBEDDEDCLASS:
    case CIMDataType::EMBEDDEDINSTANCE:
        return Kind::other;
    default:
        return Kind::number;
    }
}

bool isEmbedded(CIMDataType::Type type)
{
    return type == CIMDataType::EMBEDDEDCLASS || type == CIMDataType::EMBEDDEDINSTANCE;
}

bool convertible(CIMDataType::Type from, CIMDataType::Type to)
{
    const bool throughText = kindOf(from) == Kind::text || kindOf(to) == Kind::text;
    return from == to || throughText || (kindOf(from) == Kind::number && kindOf(to) == Kind::number);
}

void checkConvertible(const CIMValue& value, CIMDataType::Type to)
{
    const CIMDataType::Type from = value.getType();
    const bool isOneKind = from == CIMDataType::DATETIME || from == CIMDataType::REFERENCE;
    if (isEmbedded(to) && from != to && from != CIMDataType::STRING && !isOneKind) {
        const String message = "Invalid to datatype: " + String(Int32(to));
        OW_THROW(ValueCastException, message.c_str());
    }
    if (!convertible(from, to)) {
        const String message =
            "Failed to convert \"" + value.toString() + "\" to " + CIMDataType(to).toString();
        throw CIMException(__FILE__, __LINE__, CIMException::FAILED, message.c_str());
    }
}

// By way of its text, from which an embedded object cannot be read back: it stays a text.
CIMValue castScalar(const CIMValue& value, const CIMDataType& type)
{
    // An empty text converts to 0, whether or not it was ever given content.
    const String text(value.toString().c_str());
    try {
        return CIMValue::createSimpleValue(type.toString(), text);
    } catch (const StringConversionException& e) {
        throw CIMException(__FILE__, __LINE__, CIMException::FAILED, e.getMessage());
    }
}

// Those of an array are arrays of one, whose text is another one than that of a single character.
CIMValueArray elementsOf(const CIMValue& value)
{
    CIMValueArray elements;
    if (!value.isArray()) {
        elements.push_back(value);
        return elements;
    }
    const auto collect = [&value, &elements](auto tag) {
        Array<typename decltype(tag)::type> held;
        value.get(held);
        for (const auto& element : held) {
            elements.push_back(CIMValue(Array<typename decltype(tag)::type>(1, element)));
        }
    };
    withCppType(value.getType(), collect, TypeTag<CIMContent>());
    return elements;
}

CIMValue arrayOf(const CIMValueArray& elements, CIMDataType::Type type)
{
    CIMValue array(CIMNULL);
    const auto build = [&elements, &array](auto tag) {
        Array<typename decltype(tag)::type> held(elements.size());
        for (size_t i = 0; i < elements.size(); ++i) {
            elements[i].get(held[i]);
        }
        array = CIMValue(held);
    };
    withCppType(type, build, TypeTag<CIMContent>());
    return array;
}

} // namespace

CIMValue CIMValueCast::castValueToDataType(const CIMValue& value, const CIMDataType& dataType)
{
    if (!value || !dataType) {
        return CIMValue(CIMNULL);
    }
    const CIMDataType::Type type = dataType.getType();
    if (value.getType() == type && value.isArray() == dataType.isArrayType()) {
        return value;
    }
    checkConvertible(value, type);
    const bool hasEmbedded = isEmbedded(value.getType()) || (isEmbedded(type) && dataType.isArrayType());
    if (value.isArray() && hasEmbedded) {
        OW_THROW(ValueCastException, "LOGIC ERROR");
    }
    CIMValueArray elements = elementsOf(value);
    if (!dataType.isArrayType()) {
        return castScalar(elements[0], dataType);
    }
    for (CIMValue& element : elements) {
        element = castScalar(element, dataType);
    }
    return arrayOf(elements, isEmbedded(type) ? CIMDataType::STRING : type);
}

} // namespace OpenWBEM
