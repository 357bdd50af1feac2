#include "CCOrxConfigObj.hpp"

CCOrxConfigObj::CCOrxConfigObj(const char* text) : text_(text) {}

CCOrxConfigObj::CCOrxConfigObj(const std::string& text) : text_(text) {}

CCOrxConfigObj::~CCOrxConfigObj() = default;

bool CCOrxConfigObj::operator<(const CCOrxConfigObj& other) const
{
    return text_ < other.text_;
}

bool CCOrxConfigObj::operator>=(const CCOrxConfigObj& other) const
{
    return text_ >= other.text_;
}

bool CCOrxConfigObj::operator==(const CCOrxConfigObj& other) const
{
    return text_ == other.text_;
}

const std::string& CCOrxConfigObj::text() const
{
    return text_;
}
