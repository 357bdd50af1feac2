#include "MofText.hpp"
#include "OW_CIM.hpp"
#include <cstring>

namespace OpenWBEM
{

String quotedMOF(const String& text)
{
    static const char SPECIAL[] = "\\\"\n\r\t";
    static const char LETTERS[] = "\\\"nrt";
    String quoted("\"");
    for (size_t i = 0; i < text.length(); ++i) {
        const char c = text.charAt(i);
        const char* const special = c ? strchr(SPECIAL, c) : nullptr;
        if (special) {
            quoted += '\\';
            quoted += LETTERS[special - SPECIAL];
        } else {
            quoted += c;
        }
    }
    return quoted += '"';
}

String qualifiersMOF(const CIMQualifierArray& qualifiers, const char* separator)
{
    if (qualifiers.empty()) {
        return "";
    }
    String text = "[";
    for (size_t i = 0; i < qualifiers.size(); ++i) {
        text += i ? separator : "";
        text += qualifiers[i].toMOF();
    }
    return text += "]";
}

String propertyQualifiersMOF(const CIMProperty& property)
{
    const String text = qualifiersMOF(property.getQualifiers(), ",");
    return text.empty() ? text : "  " + text + "\n";
}

String declarationMOF(const CIMDataType& type, const String& name)
{
    return type.toMOF() + " " + name + type.getArrayMOF();
}

} // namespace OpenWBEM
