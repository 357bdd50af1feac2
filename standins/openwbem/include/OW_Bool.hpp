#ifndef OW_BOOL_HPP_
#define OW_BOOL_HPP_

#include "OW_CommonFwd.hpp"
#include <iosfwd>

namespace OpenWBEM
{

// The CIM boolean: a class, so that nothing else silently becomes one.
class Bool
{
  public:
    Bool() : m_value(false) {}
    Bool(bool value) : m_value(value) {}
    Bool(const volatile void*) = delete; // a pointer is no boolean, which makes the literal 0 ambiguous

    operator bool() const { return m_value; }
    bool operator!() const { return !m_value; }
    bool operator==(bool arg) const { return m_value == arg; }
    bool operator==(const Bool& arg) const { return m_value == arg.m_value; }
    bool operator!=(bool arg) const { return m_value != arg; }
    bool operator!=(const Bool& arg) const { return m_value != arg.m_value; }
    bool operator<(const Bool& arg) const { return !m_value && arg.m_value; }

    String toString() const; // "true" or "false"

  private:
    bool m_value;
};

std::ostream& operator<<(std::ostream& ostr, const Bool& arg);

} // namespace OpenWBEM

#endif
