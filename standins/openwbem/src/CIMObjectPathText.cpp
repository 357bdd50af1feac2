#include "CIMObjectPathData.hpp"
#include "MofText.hpp"
#include "OW_CIMException.hpp"

// Paths as text: //host/namespace:Class.key="value",key="value".
namespace OpenWBEM
{

namespace
{

bool isLocal(const String& host)
{
    return host.empty() || host.equalsIgnoreCase("localhost") || host == "127.0.0.1";
}

[[noreturn]] void throwUnparsable(const String& text)
{
    const String message = "Invalid object path: " + text;
    throw CIMException(__FILE__, __LINE__, CIMException::INVALID_PARAMETER, message.c_str());
}

// The text before the separator, or all of it; rest gets what follows.
String takeUntil(char separator, String& rest)
{
    const size_t position = rest.indexOf(separator);
    String taken = rest.substring(0, position);
    rest = position == String::npos ? String("") : rest.substring(position + 1);
    return taken;
}

// The position of the quotation mark that ends the quoted text at the beginning.
size_t closingQuote(const String& text)
{
    size_t position = 1;
    while (position < text.length() && text.charAt(position) != '"') {
        position += text.charAt(position) == '\\' ? 2U : 1U;
    }
    return position < text.length() ? position : String::npos;
}

// The value at the beginning of rest, in quotation marks or up to the next comma; rest loses it and the
// comma.
String takeValue(String& rest, const String& whole)
{
    if (!rest.startsWith('"')) {
        return takeUntil(',', rest);
    }
    const size_t end = closingQuote(rest);
    if (end == String::npos) {
        throwUnparsable(whole);
    }
    const String value = CIMObjectPath::unEscape(rest.substring(1, end - 1));
    rest = rest.substring(end + 1);
    takeUntil(',', rest);
    return value.empty() ? String("") : value;
}

// Moves host and namespace from the beginning of rest into the path.
void takePlace(String& rest, CIMObjectPath& path)
{
    const size_t scheme = rest.indexOf("//");
    const size_t quote = rest.indexOf('"');
    if (scheme < quote) {
        rest = rest.substring(scheme + 2);
        path.setHost(takeUntil('/', rest));
    }
    const size_t colon = rest.indexOf(':');
    if (colon < rest.indexOf('=')) {
        path.setNameSpace(takeUntil(':', rest));
    }
}

} // namespace

String CIMObjectPath::escape(const String& text)
{
    String escaped("");
    for (size_t i = 0; i < text.length(); ++i) {
        switch (const char c = text.charAt(i)) {
        case '\n':
            escaped += "\\n";
            break;
        case '\\':
        case '"':
            escaped += '\\';
            [[fallthrough]];
        default:
            escaped += c;
        }
    }
    return escaped;
}

String CIMObjectPath::unEscape(const String& text)
{
    String plain("");
    for (size_t i = 0; i < text.length(); ++i) {
        char c = text.charAt(i);
        if (c == '\\' && i + 1 < text.length()) {
            c = text.charAt(++i);
            c = c == 'n' ? '\n' : c;
        }
        plain += c;
    }
    return plain;
}

CIMObjectPath CIMObjectPath::parse(const String& text)
{
    if (text.empty()) {
        return CIMObjectPath(CIMNULL);
    }
    CIMObjectPath path;
    String rest(text);
    takePlace(rest, path);
    if (rest.indexOf('.') == String::npos) {
        throwUnparsable(text);
    }
    path.setClassName(takeUntil('.', rest));
    while (!rest.empty()) {
        if (rest.indexOf('=') == String::npos) {
            throwUnparsable(text);
        }
        const String name = takeUntil('=', rest);
        path.addKey(name, CIMValue(takeValue(rest, text)));
    }
    return path;
}

String CIMObjectPath::toString() const
{
    const String prefix = isLocal(getHost()) ? String("/") : "http://" + getHost() + "/";
    return prefix + getNameSpace() + ":" + modelPath();
}

String CIMObjectPath::modelPath() const
{
    String text = getClassName();
    const char* separator = ".";
    for (const CIMProperty& key : m_data.read().keys) {
        const CIMValue value = key.getValue();
        text +=
            separator + key.getName() + "=\"" + (value ? escape(value.toString()) : String("null")) + "\"";
        separator = ",";
    }
    return text;
}

String CIMObjectPath::toMOF() const
{
    return quotedMOF(modelPath());
}

} // namespace OpenWBEM
