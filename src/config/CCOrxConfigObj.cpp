#include "CCOrxConfigObj.hpp"

CCOrxConfigObj::CCOrxConfigObj(const char* text) : m_text(text) {}

CCOrxConfigObj::CCOrxConfigObj(const std::string& text) : m_text(text) {}

CCOrxConfigObj::~CCOrxConfigObj() = default;

bool CCOrxConfigObj::operator<(const CCOrxConfigObj& other) const
{
    return m_text < other.m_text;
}

bool CCOrxConfigObj::operator>=(const CCOrxConfigObj& other) const
{
    return m_text >= other.m_text;
}

bool CCOrxConfigObj::operator==(const CCOrxConfigObj& other) const
{
    return m_text == other.m_text;
}

const std::string& CCOrxConfigObj::text() const
{
    return m_text;
}
