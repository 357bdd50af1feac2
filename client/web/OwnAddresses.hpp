// The addresses of this machine at which a browser reaches the page.
#pragma once

#include "web/HttpServer.hpp"

#include <vector>

namespace lanctl::web
{

/// The address itself. For 0.0.0.0 and ::, which stand for all, the addresses of the interfaces that are up,
/// or the loopback's when there is no other.
std::vector<ListenAddress> reachableAt(const ListenAddress& address);

} // namespace lanctl::web
