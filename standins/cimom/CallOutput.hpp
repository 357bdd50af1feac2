#pragma once

#include "ObjectManager.hpp"

#include <string>
#include <string_view>

namespace cimom
{

// What a call prints, as text or as JSON; appended to a string, without a final line break.

void appendJsonString(std::string& json, std::string_view text);
// Numbers, booleans, null and arrays are written as such, anything else as a string.
void appendJsonValue(std::string& json, const OpenWBEM::CIMValue& value);

std::string pathText(const OpenWBEM::CIMObjectPath& path, bool asJson);
std::string instanceText(const OpenWBEM::CIMInstance& instance, bool asJson);
std::string valueText(const OpenWBEM::CIMValue& value, bool asJson);
std::string methodResultText(const Operations::MethodResult& result, bool asJson);
std::string failureText(const CimFailure& failure, bool asJson);

} // namespace cimom
