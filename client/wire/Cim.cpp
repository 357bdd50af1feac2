#include "wire/Cim.hpp"

#include <algorithm>

namespace lanctl::wire
{

const Property* Instance::find(const std::string& name) const
{
    auto found = std::find_if(properties.begin(), properties.end(),
                              [&](const Property& property) { return property.name == name; });
    return found == properties.end() ? nullptr : &*found;
}

} // namespace lanctl::wire
