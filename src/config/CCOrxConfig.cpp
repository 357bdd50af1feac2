#include "config/CCOrxConfig.hpp"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace
{

constexpr std::size_t lineBuffer = 1024;
constexpr int lineLimit = 1023; ///< for fgets: 1022 characters and the NUL; a longer line arrives in pieces

/// Only the very first character makes a comment: an indented "#" is a key like any other.
bool isComment(const char* line)
{
    return line[0] == '\0' || line[0] == '#';
}

} // namespace

CCOrxConfig::CCOrxConfig(const char* path, std::int32_t style) : m_style(style)
{
    m_path[0] = '\0';
    const std::size_t length = std::strlen(path);
    if (length >= sizeof m_path)
        return;
    m_stream.reset(std::fopen(path, "re"));
    if (!m_stream)
        return;
    readEntries();
    std::memcpy(m_path, path, length + 1);
    Close();
}

CCOrxConfig::~CCOrxConfig()
{
    Close();
}

void CCOrxConfig::readEntries()
{
    const char* separators = m_style == EqualsSeparated ? "=\t\r\n" : " \t\r\n";
    bool nameserverSeen = m_style != BlankSeparated; // the other styles know no name servers
    std::array<char, lineBuffer> line;
    while (std::fgets(line.data(), lineLimit, m_stream.get())) {
        if (isComment(line.data()))
            continue;
        char* rest = nullptr;
        const char* key = strtok_r(line.data(), separators, &rest);
        if (!key)
            continue;
        const char* value = strtok_r(nullptr, separators, &rest);
        if (!nameserverSeen && std::strcmp(key, specialtoken) == 0) {
            nameserverSeen = true;
            key = faketoken;
        }
        m_list.Insert(CCOrxConfigObj(value ? value : "none"), CCOrxConfigObj(key));
    }
}

void CCOrxConfig::Close()
{
    m_stream.reset();
}

void CCOrxConfig::Commit()
{
    Close();
    if (m_path[0] == '\0')
        return;
    const std::string backup = std::string(m_path) + ".0";
    // Without a backup the file is overwritten in place: a change matters more than the way back.
    static_cast<void>(std::remove(backup.c_str()));
    static_cast<void>(std::rename(m_path, backup.c_str()));
    m_stream.reset(std::fopen(m_path, "we"));
    if (!m_stream)
        return;
    writeEntries();
    Close();
}

void CCOrxConfig::writeEntries()
{
    std::vector<CCOrxConfigObj> keys(static_cast<std::size_t>(m_list.GetCount()));
    m_list.GetKeys(keys.data(), m_list.GetCount());
    const char* separator = m_style == BlankSeparated ? "   " : "=";
    for (const CCOrxConfigObj& key : keys) {
        // Kept: the value is looked up by key, so all entries with one key get the value of the first.
        CCOrxConfigObj value;
        m_list.Find(value, key);
        const bool firstNameserver = m_style == BlankSeparated && key.text() == faketoken;
        std::fprintf(m_stream.get(), "%s%s%s\n", firstNameserver ? specialtoken : key.text().c_str(),
                     separator, value.text().c_str());
    }
}

void CCOrxConfig::GetStrValue(const char* key, char* out) const
{
    const std::string value = GetStrValue(key);
    std::memcpy(out, value.c_str(), value.size() + 1);
}

std::string CCOrxConfig::GetStrValue(const char* key) const
{
    CCOrxConfigObj value;
    m_list.Find(value, CCOrxConfigObj(key));
    return value.text();
}

std::int32_t CCOrxConfig::GetIntValue(const char* key) const
{
    return std::atoi(GetStrValue(key).c_str());
}

long CCOrxConfig::GetLongValue(const char* key) const
{
    return std::atol(GetStrValue(key).c_str());
}

void CCOrxConfig::SetValue(const char* key, const char* value)
{
    if (!m_list.Modify(CCOrxConfigObj(value), CCOrxConfigObj(key)))
        m_list.Insert(CCOrxConfigObj(value), CCOrxConfigObj(key));
}

void CCOrxConfig::SetValue(const char* key, int value)
{
    m_list.Modify(CCOrxConfigObj(std::to_string(value)), CCOrxConfigObj(key));
}

void CCOrxConfig::SetValue(const char* key, long value)
{
    m_list.Modify(CCOrxConfigObj(std::to_string(value) + " "), CCOrxConfigObj(key));
}
