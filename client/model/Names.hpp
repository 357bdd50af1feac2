// Names: what a user writes beside what the server calls it. Commands, files, plans and completion read them
// here.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace lanctl::model
{

/// Objects as users name them: an endpoint by its interface, and these two.
constexpr std::string_view lanObject = "lan";
constexpr std::string_view markingObject = "marking";

/// The part of a file in which the endpoints stand.
constexpr std::string_view endpointsSection = "endpoints";

/// The interfaces that every such server has.
constexpr std::array<std::string_view, 3> interfaceNames{"eth0", "eth1", "eth2"};
/// The default route leaves through this interface. Only its gateway can be read.
inline const std::string customerLan = "eth1";
bool isInterface(std::string_view name);

enum class Kind { Endpoint, Setting, Marking };

/// Which class an object is of; any name but "lan" and "marking" is an interface's.
Kind kindOf(std::string_view object);

namespace classes
{
constexpr std::string_view endpoint = "ORX_LANEndpoint";
constexpr std::string_view setting = "ORX_LANServiceSetting";
constexpr std::string_view marking = "ORX_ALGService";
} // namespace classes

/// What a value of a key may look like.
enum class Form { Address, Text, Number, Switch, Mark };

/// One thing that a user can set, and the property behind it. "address" may carry a prefix length, which sets
/// the mask, too. A mark sets a menu value and, when custom, the TOS byte as well.
struct Key {
    Kind kind;
    std::string_view key;      // as users write it
    std::string_view property; // as the server calls it
    std::string_view type;     // its CIM type
    Form form;
    std::string_view companion; // property of the TOS byte of a mark, otherwise empty
};

/// All keys, in the order in which they are shown.
const std::vector<Key>& allKeys();

/// The key of that name, or nullptr.
const Key* findKey(Kind kind, std::string_view key);

} // namespace lanctl::model
