#include "Flavors.hpp"
#include "OW_Array.hpp"
#include "OW_CIMFlavor.hpp"
#include "OW_String.hpp"

namespace OpenWBEM
{

namespace
{

CIMFlavor::Flavor oppositeOf(Int32 flavor)
{
    switch (flavor) {
    case CIMFlavor::ENABLEOVERRIDE:
        return CIMFlavor::DISABLEOVERRIDE;
    case CIMFlavor::DISABLEOVERRIDE:
        return CIMFlavor::ENABLEOVERRIDE;
    case CIMFlavor::RESTRICTED:
        return CIMFlavor::TOSUBCLASS;
    case CIMFlavor::TOSUBCLASS:
        return CIMFlavor::RESTRICTED;
    default:
        return CIMFlavor::INVALID;
    }
}

// The position of the flavor; the size of the list when it is not there.
size_t positionOf(const CIMFlavorArray& flavors, Int32 flavor)
{
    size_t position = 0;
    while (position < flavors.size() && flavors[position].getFlavor() != flavor) {
        ++position;
    }
    return position;
}

} // namespace

bool hasFlavorIn(const CIMFlavorArray& flavors, const CIMFlavor& flavor)
{
    return positionOf(flavors, flavor.getFlavor()) < flavors.size();
}

void addFlavorTo(CIMFlavorArray& flavors, const CIMFlavor& flavor)
{
    if (hasFlavorIn(flavors, flavor)) {
        return;
    }
    const size_t opposite = positionOf(flavors, oppositeOf(flavor.getFlavor()));
    if (opposite < flavors.size()) {
        flavors.remove(opposite);
    }
    flavors.push_back(flavor);
}

} // namespace OpenWBEM
