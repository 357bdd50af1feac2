// From the instances that the server sends to the typed state.
#pragma once

#include "model/State.hpp"
#include "wire/Cim.hpp"

#include <stdexcept>
#include <vector>

namespace lanctl::model
{

/// An instance lacks a property, or has a value of another form than its class promises.
class UnexpectedInstance : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

/// The object's name comes from the properties: OpenWBEM enumerates instances under names without keys.
Endpoint endpointFrom(const wire::Instance& instance);
Setting settingFrom(const wire::Instance& instance);
Marking markingFrom(const wire::Instance& instance);

std::vector<Endpoint> endpointsFrom(const std::vector<wire::Instance>& instances);
/// The only one of its class.
Setting onlySettingFrom(const std::vector<wire::Instance>& instances);
/// The one that is there from the start; clients can create others.
Marking firstMarkingFrom(const std::vector<wire::Instance>& instances);

/// The names under which the server finds these objects.
wire::InstanceName nameOf(const Endpoint& endpoint);
wire::InstanceName nameOf(const Setting& setting);
wire::InstanceName nameOf(const Marking& marking);

} // namespace lanctl::model
