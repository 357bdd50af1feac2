#ifndef OW_CIM_ELEMENT_HPP_
#define OW_CIM_ELEMENT_HPP_

#include "OW_CIMBase.hpp"
#include "OW_CIMFwd.hpp"
#include "OW_String.hpp"

namespace OpenWBEM
{

// A CIM object with a name. The comparisons look at nothing but the names, ignoring case, and are not const:
// on const objects == and != fall back to comparing the truth tests. That is how the interface is; compare
// values instead.
class CIMElement : public CIMBase
{
  public:
    virtual ~CIMElement();
    virtual String getName() const = 0;
    virtual void setName(const CIMName& name) = 0;
    virtual String toString() const; // getName()

    int compare(const CIMElement& arg);
    bool equals(const CIMElement& arg);
    bool operator==(const CIMElement& arg);
    bool operator!=(const CIMElement& arg);
    CIMElement& operator=(const CIMElement&) = default;

  protected:
    CIMElement() = default;
    CIMElement(const CIMElement&) = default;
};

} // namespace OpenWBEM

#endif
