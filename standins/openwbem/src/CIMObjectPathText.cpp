#include "CIMObjectPathData.hpp"

// Paths as text: //host/namespace:Class.key="value",key="value".
namespace OpenWBEM
{

namespace
{

[[noreturn]] void throwUnparsable(CIMException::ErrNoType code, const String& message)
{
    throw CIMException(__FILE__, __LINE__, code, message.c_str());
}

// The text before the separator; rest gets what follows it.
String takeUntil(size_t separator, String& rest)
{
    String taken = rest.substring(0, separator);
    rest = rest.substring(separator + 1);
    return taken;
}

CIMProperty parsedKey(const String& name, String value)
{
    if (value.startsWith('"')) {
        value = value.substring(1, value.length() - 2);
    }
    return CIMProperty(name, CIMValue(CIMObjectPath::unEscape(value)));
}

// Names and values in text. The last = outside of quotation marks ends a name. A key ends at a comma or with
// the text, if its quotation marks are even. The first character of a further key is not looked at: a last
// key of one character is lost. A comma at the end belongs to the value.
CIMPropertyArray parsedKeys(const String& text)
{
    CIMPropertyArray keys;
    bool isQuoted = false;
    size_t begin = 0;
    size_t equals = String::npos;
    for (size_t i = 0; i < text.length(); ++i) {
        const char c = text.charAt(i);
        if (c == '\\') {
            ++i;
        } else if (c == '"') {
            isQuoted = !isQuoted;
        } else if (c == '=' && !isQuoted) {
            equals = i;
        }
        const bool isLast = i + 1 >= text.length();
        if (isQuoted || (c != ',' && !isLast)) {
            continue;
        }
        if (equals == String::npos) {
            throwUnparsable(CIMException::NOT_FOUND, "Bad key in string (" + text + ")");
        }
        const size_t end = isLast ? text.length() : i;
        keys.push_back(
            parsedKey(text.substring(begin, equals - begin), text.substring(equals + 1, end - equals - 1)));
        begin = ++i;
        equals = String::npos;
    }
    return keys;
}

} // namespace

// Takes protocol, host and port, or one slash, from the beginning of the text.
void CIMObjectPath::Data::takePlace(String& rest, const String& whole)
{
    const size_t colon = rest.indexOf("://");
    if (colon >= rest.indexOf('"')) {
        protocol.erase();
        rest = rest.substring(rest.startsWith('/') ? 1 : 0);
        return;
    }
    protocol = rest.substring(0, colon);
    rest = rest.substring(colon + 3);
    const size_t slash = rest.indexOf('/');
    if (slash == String::npos) {
        throwUnparsable(CIMException::INVALID_PARAMETER, "Invalid instance name: " + whole);
    }
    host = takeUntil(slash, rest);
    const size_t portColon = host.indexOf(':');
    if (portColon == String::npos) {
        return;
    }
    try {
        port = host.substring(portColon + 1).toUInt16();
    } catch (const StringConversionException&) {
        throwUnparsable(CIMException::INVALID_PARAMETER, "Invalid port in Object Path");
    }
    host = host.substring(0, portColon);
}

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
        i += text[i] == '\\' ? 1U : 0U;
        if (i < text.length()) {
            plain += text[i];
        }
    }
    return plain;
}

CIMObjectPath CIMObjectPath::parse(const String& text)
{
    String rest(text);
    if (rest.trim().empty()) {
        return CIMObjectPath(CIMNULL);
    }
    CIMObjectPath path;
    path.m_data.write().takePlace(rest, text);
    path.setHost(path.getHost());
    const size_t colon = rest.indexOf(':');
    path.setNameSpace(colon == String::npos ? String("root") : takeUntil(colon, rest));
    const size_t dot = rest.indexOf('.');
    if (dot == String::npos) {
        throwUnparsable(CIMException::INVALID_PARAMETER, "class name not found in instance name: " + text);
    }
    path.setClassName(takeUntil(dot, rest));
    if (rest.empty()) {
        throwUnparsable(CIMException::INVALID_PARAMETER, "No key values found in instance name: " + text);
    }
    return path.setKeys(parsedKeys(rest));
}

String CIMObjectPath::toString() const
{
    const Data& data = m_data.read();
    String place = "/";
    if (data.host != "127.0.0.1") {
        place = (data.protocol.empty() ? String("http") : data.protocol) + "://" + data.host;
        place += data.port == 5988 ? String("/") : ":" + String(data.port) + "/";
    }
    return place + data.nameSpace + ":" + modelPath();
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
    return escape(toString());
}

} // namespace OpenWBEM
