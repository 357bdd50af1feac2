#pragma once

#include "OW_OperationContext.hpp"
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

    OpenWBEM::CIMOMHandleIFCRef getCIMOMHandle() const override { return OpenWBEM::CIMOMHandleIFCRef(); }
    OpenWBEM::CIMOMHandleIFCRef getRepositoryCIMOMHandle() const override
    {
        return OpenWBEM::CIMOMHandleIFCRef();
    }
    OpenWBEM::RepositoryIFCRef getRepository() const override { return OpenWBEM::RepositoryIFCRef(); }
    OpenWBEM::LoggerRef getLogger() const override { return m_logger; }
    OpenWBEM::LoggerRef getLogger(const OpenWBEM::String&) const override { return m_logger; }
    OpenWBEM::String getConfigItem(const OpenWBEM::String& name,
                                   const OpenWBEM::String& defRetVal = "") const override;
    OpenWBEM::String getUserName() const override { return OpenWBEM::String(""); } // nobody logs in
    OpenWBEM::OperationContext& getOperationContext() override { return m_context; }

  private:
    OpenWBEM::LoggerRef m_logger;
    ConfigItems m_configItems;
    OpenWBEM::OperationContext m_context;
};

} // namespace cimom
