// The addresses of this machine at which a browser reaches the page.
#pragma once

#include "web/HttpServer.hpp"

#include <vector>

namespace lanctl::web
{

/// The address itself; for one that stands for all of them (0.0.0.0, ::) those of the interfaces that are up,
/// and the loopback's where there is no other.
std::vector<ListenAddress> reachableAt(const ListenAddress& address);

} // namespace lanctl::web
