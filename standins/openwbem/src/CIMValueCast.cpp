#include "CIMValueData.hpp"
#include "OW_CIMException.hpp"
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

bool convertible(CIMDataType::Type from, CIMDataType::Type to)
{
    if (to == CIMDataType::EMBEDDEDCLASS || to == CIMDataType::EMBEDDEDINSTANCE) {
        return false; // an object cannot be read back from its text
    }
    const bool throughText = kindOf(from) == Kind::text || kindOf(to) == Kind::text;
    return throughText || (kindOf(from) == Kind::number && kindOf(to) == Kind::number);
}

CIMValue castScalar(const CIMValue& value, const CIMDataType& type)
{
    // An empty text converts to 0, whether or not it was ever given content.
    const String text(value.toString().c_str());
    if (!convertible(value.getType(), type.getType())) {
        const String message = "Failed to convert \"" + text + "\" to " + type.toString();
        throw CIMException(__FILE__, __LINE__, CIMException::FAILED, message.c_str());
    }
    try {
        return CIMValue::createSimpleValue(type.toString(), text);
    } catch (const StringConversionException& e) {
        throw CIMException(__FILE__, __LINE__, CIMException::FAILED, e.getMessage());
    }
}

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
            elements.push_back(CIMValue(element));
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
    const bool sameType = value.getType() == dataType.getType();
    if (sameType && value.isArray() == dataType.isArrayType()) {
        return value;
    }
    CIMValueArray elements = elementsOf(value);
    if (!sameType) {
        for (CIMValue& element : elements) {
            element = castScalar(element, dataType);
        }
    }
    if (dataType.isArrayType()) {
        return arrayOf(elements, dataType.getType());
    }
    return elements.empty() ? CIMValue(CIMNULL) : elements.front();
}

} // namespace OpenWBEM
