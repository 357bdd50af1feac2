#ifndef OW_CIM_NAME_HPP_
#define OW_CIM_NAME_HPP_

#include "OW_SafeBool.hpp"
#include "OW_String.hpp"

namespace OpenWBEM
{

// A name of the CIM schema. It keeps its spelling. Equality ignores case, the order does not quite: it is
// that of String::compareToIgnoreCase.
class CIMName
{
  public:
    CIMName() {}
    CIMName(const String& name) : m_name(name) {}
    CIMName(const char* name) : m_name(name) {}
    CIMName(const CIMName&) = default;
    CIMName& operator=(const CIMName&) = default;
    virtual ~CIMName();

    String toString() const { return m_name; }

    OW_SAFE_BOOL(!m_name.empty())

  private:
    String m_name;
};

bool operator==(const CIMName& lhs, const CIMName& rhs);
bool operator!=(const CIMName& lhs, const CIMName& rhs);
bool operator<(const CIMName& lhs, const CIMName& rhs);
bool operator<=(const CIMName& lhs, const CIMName& rhs);
bool operator>(const CIMName& lhs, const CIMName& rhs);
bool operator>=(const CIMName& lhs, const CIMName& rhs);
std::ostream& operator<<(std::ostream& ostr, const CIMName& name);

} // namespace OpenWBEM

#endif
