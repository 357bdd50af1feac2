#ifndef KV_CONFIG_CCORXCONFIGOBJ_HPP
#define KV_CONFIG_CCORXCONFIGOBJ_HPP

#include <string>
#include <utility>

/// One key or one value of a configuration file: a text of 8-bit characters of any length, in no particular
/// encoding. Comparisons are byte-wise and case-sensitive, a prefix before the longer text, so upper-case
/// keys come before lower-case ones.
class CCOrxConfigObj
{
  public:
    CCOrxConfigObj() = default;
    /// `text` ends with NUL and is copied.
    explicit CCOrxConfigObj(const char* text) : m_text(text) {}
    explicit CCOrxConfigObj(std::string text) : m_text(std::move(text)) {}
    CCOrxConfigObj(const CCOrxConfigObj&) = default;
    CCOrxConfigObj& operator=(const CCOrxConfigObj&) = default;
    virtual ~CCOrxConfigObj() = default;

    bool operator<(const CCOrxConfigObj& other) const { return m_text < other.m_text; }
    bool operator>=(const CCOrxConfigObj& other) const { return m_text >= other.m_text; }
    bool operator==(const CCOrxConfigObj& other) const { return m_text == other.m_text; }

    /// The text itself; valid until the object is changed or destroyed.
    const std::string& text() const { return m_text; }

  private:
    std::string m_text;
};

#endif
