// The entry points of the library for an object manager that runs one request at a time.

#include "provider/LANProvider.hpp"

using namespace OpenWBEM; // OW_PROVIDERFACTORY names OpenWBEM's types

OW_PROVIDERFACTORY(LANProvider, LANProvider)
