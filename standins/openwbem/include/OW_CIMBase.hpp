#ifndef OW_CIM_BASE_HPP_
#define OW_CIM_BASE_HPP_

#include "OW_CommonFwd.hpp"
#include "OW_Types.hpp"
#include <iosfwd>

namespace OpenWBEM
{

// Base of the CIM classes. Their objects are handles that share their data until one of them is changed. On a
// null object everything throws but the truth test, copying, assignment and setNull. Each class has an
// operator< over all that its objects hold, the name first.
class CIMBase
{
  public:
    virtual ~CIMBase();
    virtual void setNull() = 0;
    virtual String toString() const = 0;
    virtual String toMOF() const = 0;

    CIMBase& operator=(const CIMBase&) = default;

  protected:
    CIMBase() = default;
    CIMBase(const CIMBase&) = default;
};

std::ostream& operator<<(std::ostream& ostr, const CIMBase& cb); // toString()

} // namespace OpenWBEM

#endif
