#include "ProviderEnvironment.hpp"

namespace cimom
{

ProviderEnvironment::ProviderEnvironment(const OpenWBEM::LoggerRef& logger, ConfigItems configItems)
    : m_logger(logger), m_configItems(std::move(configItems))
{
}

OpenWBEM::String ProviderEnvironment::getConfigItem(const OpenWBEM::String& name,
                                                    const OpenWBEM::String& defRetVal) const
{
    const auto found = m_configItems.find(name.c_str());
    return found != m_configItems.end() ? OpenWBEM::String(found->second.c_str()) : defRetVal;
}

} // namespace cimom
