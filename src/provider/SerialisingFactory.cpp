// The entry points of the library for an object manager that runs requests side by side.

#include "provider/SerialisingLANProvider.hpp"

using namespace OpenWBEM; // OW_PROVIDERFACTORY names OpenWBEM's types

OW_PROVIDERFACTORY(SerialisingLANProvider, LANProvider)
