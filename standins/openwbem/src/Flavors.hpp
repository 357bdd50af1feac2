#ifndef OPENWBEM_SRC_FLAVORS_HPP_
#define OPENWBEM_SRC_FLAVORS_HPP_

#include "OW_CIMFwd.hpp"

// The flavors of a qualifier and of its declaration.
namespace OpenWBEM
{

bool hasFlavorIn(const CIMFlavorArray& flavors, const CIMFlavor& flavor);

// Unless it is there; what it contradicts goes.
void addFlavorTo(CIMFlavorArray& flavors, const CIMFlavor& flavor);

} // namespace OpenWBEM

#endif
