#ifndef KVPLATFORM_ROUTINGTABLE_HPP
#define KVPLATFORM_ROUTINGTABLE_HPP

#include <istream>
#include <string>

namespace kvplatform
{

/**
 * Finds a default gateway in a routing table written as the kernel writes /proc/net/route (proc(5)).
 *
 * @param table the routing table; lines that cannot be read count as absent
 * @param interface the interface that the route must leave through; empty for any
 * @return the gateway of the default route with the lowest metric, the first one of equals, as dotted decimal
 *         text; empty when there is none
 */
std::string defaultGateway(std::istream& table, const std::string& interface);

} // namespace kvplatform

#endif
