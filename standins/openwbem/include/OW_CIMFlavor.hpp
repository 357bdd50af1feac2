#ifndef OW_CIM_FLAVOR_HPP_
#define OW_CIM_FLAVOR_HPP_

#include "OW_CIMFwd.hpp"
#include "OW_String.hpp"

namespace OpenWBEM
{

// How a qualifier is inherited and overridden (DMTF DSP0004, qualifier flavors).
class CIMFlavor
{
  public:
    enum Flavor { ENABLEOVERRIDE, DISABLEOVERRIDE, RESTRICTED, TOSUBCLASS, TRANSLATE };

    explicit CIMFlavor(Flavor flavor) : m_flavor(flavor) {}

    Flavor getFlavor() const { return m_flavor; }
    String toString() const; // as in MOF
    bool operator==(const CIMFlavor& arg) const { return m_flavor == arg.m_flavor; }
    bool operator!=(const CIMFlavor& arg) const { return m_flavor != arg.m_flavor; }
    bool operator<(const CIMFlavor& arg) const { return m_flavor < arg.m_flavor; }

  private:
    Flavor m_flavor;
};

} // namespace OpenWBEM

#endif
