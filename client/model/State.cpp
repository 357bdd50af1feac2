#include "model/State.hpp"

#include <algorithm>

namespace lanctl::model
{

const Endpoint* ServerState::endpoint(const std::string& name) const
{
    auto found = std::find_if(endpoints.begin(), endpoints.end(),
                              [&](const Endpoint& endpoint) { return endpoint.name == name; });
    return found == endpoints.end() ? nullptr : &*found;
}

} // namespace lanctl::model
