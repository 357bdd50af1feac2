#ifndef KV_CONFIG_CCORXCONFIGOBJ_HPP
#define KV_CONFIG_CCORXCONFIGOBJ_HPP

#include <string>

/// One key or one value of a configuration file: a text of 8-bit characters of any length, in no particular
/// encoding. Comparisons are byte-wise and case-sensitive, a prefix before the longer text, so upper-case
/// keys come before lower-case ones.
class CCOrxConfigObj
{
  public:
    CCOrxConfigObj() = default;
    /// `text` ends with NUL and is copied.
    explicit CCOrxConfigObj(const char* text);
    explicit CCOrxConfigObj(const std::string& text);
    CCOrxConfigObj(const CCOrxConfigObj&) = default;
    CCOrxConfigObj& operator=(const CCOrxConfigObj&) = default;
    virtual ~CCOrxConfigObj();

    bool operator<(const CCOrxConfigObj& other) const;
    bool operator>=(const CCOrxConfigObj& other) const;
    bool operator==(const CCOrxConfigObj& other) const;

    /// The text itself; valid until the object is changed or destroyed.
    const std::string& text() const;

  private:
    std::string m_text;
};

#endif
