// The values that travel: instances, their properties and names, as CIM-XML has them.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace lanctl::wire
{

/// One property as text. Without a value it is null; its qualifiers are those that came with the instance.
struct Property {
    std::string name;
    std::string type; // "string", "boolean", "uint16", "sint32", "uint64", "datetime"
    std::optional<std::string> value;
    std::map<std::string, std::string> qualifiers;
};

struct Instance {
    std::string className;
    std::vector<Property> properties;

    /// The property of that name, or nullptr.
    const Property* find(const std::string& name) const;
};

struct InstanceName {
    std::string className;
    std::vector<std::pair<std::string, std::string>> keys; // all keys of this server's classes are strings
};

/// What one ModifyInstance sends. The server finds its object by the properties, so the keys are among them.
struct Modification {
    InstanceName name;
    Instance instance;
    std::vector<std::string> propertyList;
};

} // namespace lanctl::wire
