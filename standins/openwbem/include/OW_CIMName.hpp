#ifndef OW_CIM_NAME_HPP_
#define OW_CIM_NAME_HPP_

#include "OW_SafeBool.hpp"
#include "OW_String.hpp"

namespace OpenWBEM
{

// A name of the CIM schema: keeps its spelling and compares without regard to case.
class CIMName
{
  public:
    CIMName() {}
    CIMName(const String& name) : m_name(name) {}
    CIMName(const char* name) : m_name(name) {}

    String toString() const { return m_name; }

    OW_SAFE_BOOL(!m_name.empty())

  private:
    friend int compareNames(const CIMName& lhs, const CIMName& rhs);
    friend bool operator==(const CIMName& lhs, const CIMName& rhs);
    String m_name;
};

// Below, at or above 0, like strcmp, ignoring case.
int compareNames(const CIMName& lhs, const CIMName& rhs);

inline bool operator==(const CIMName& lhs, const CIMName& rhs)
{
    // Capital and small letter take the same number of bytes.
    return lhs.m_name.length() == rhs.m_name.length() && compareNames(lhs, rhs) == 0;
}
inline bool operator!=(const CIMName& lhs, const CIMName& rhs)
{
    return !(lhs == rhs);
}
inline bool operator<(const CIMName& lhs, const CIMName& rhs)
{
    return compareNames(lhs, rhs) < 0;
}
inline bool operator<=(const CIMName& lhs, const CIMName& rhs)
{
    return compareNames(lhs, rhs) <= 0;
}
inline bool operator>(const CIMName& lhs, const CIMName& rhs)
{
    return compareNames(lhs, rhs) > 0;
}
inline bool operator>=(const CIMName& lhs, const CIMName& rhs)
{
    return compareNames(lhs, rhs) >= 0;
}

} // namespace OpenWBEM

#endif
