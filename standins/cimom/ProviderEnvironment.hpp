#pragma once

#include "OW_ProviderEnvironmentIFC.hpp"
#include "OW_RepositoryIFC.hpp"

#include <map>
#include <string>

namespace cimom
{

// What a provider can ask its object manager for: the log and configuration items. There are no handles for
// calls back into the object manager; they are null.
class ProviderEnvironment : public OpenWBEM::ProviderEnvironmentIFC
{
  public:
    using ConfigItems = std::map<std::string, std::string>;

    ProviderEnvironment(const OpenWBEM::LoggerRef& logger, ConfigItems configItems);

    virtual OpenWBEM::CIMOMHandleIFCRef getCIMOMHandle() const { return OpenWBEM::CIMOMHandleIFCRef(); }
    virtual OpenWBEM::CIMOMHandleIFCRef getRepositoryCIMOMHandle() const
    {
        return OpenWBEM::CIMOMHandleIFCRef();
    }
    virtual OpenWBEM::RepositoryIFCRef getRepository() const { return OpenWBEM::RepositoryIFCRef(); }
    virtual OpenWBEM::LoggerRef getLogger() const { return m_logger; }
    virtual OpenWBEM::LoggerRef getLogger(const OpenWBEM::String&) const { return m_logger; }
    virtual OpenWBEM::String getConfigItem(const OpenWBEM::String& name,
                                           const OpenWBEM::String& defRetVal = "") const;
    virtual OpenWBEM::String getUserName() const { return OpenWBEM::String(""); } // nobody logs in
    virtual OpenWBEM::OperationContext& getOperationContext() { return m_context; }

  private:
    OpenWBEM::LoggerRef m_logger;
    ConfigItems m_configItems;
    OpenWBEM::OperationContext m_context;
};

} // namespace cimom
