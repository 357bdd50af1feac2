#ifndef OW_CIM_FLAVOR_HPP_
#define OW_CIM_FLAVOR_HPP_

#include "OW_CIMBase.hpp"
#include "OW_SafeBool.hpp"
#include "OW_Types.hpp"

namespace OpenWBEM
{

// How a qualifier is inherited and overridden (DMTF DSP0004, qualifier flavors).
class CIMFlavor : public CIMBase
{
  public:
    enum Flavor {
        INVALID = 0,
        ENABLEOVERRIDE = 1,
        DISABLEOVERRIDE = 2,
        RESTRICTED = 3,
        TOSUBCLASS = 4,
        TRANSLATE = 5
    };

    CIMFlavor();
    CIMFlavor(Flavor flavor); // INVALID when it is none of those above

    Int32 getFlavor() const { return m_flavor; }
    virtual void setNull(); // to INVALID
    virtual String toString() const;
    virtual String toMOF() const;

    OW_SAFE_BOOL(m_flavor != INVALID)

  private:
    Flavor m_flavor;
};

bool operator<(const CIMFlavor& lhs, const CIMFlavor& rhs);

} // namespace OpenWBEM

#endif
