#ifndef OW_PROVIDER_ENVIRONMENT_IFC_HPP_
#define OW_PROVIDER_ENVIRONMENT_IFC_HPP_

#include "OW_CIMOMHandleIFC.hpp"
#include "OW_CommonFwd.hpp"
#include "OW_IfcsFwd.hpp"
#include "OW_IntrusiveCountableBase.hpp"
#include "OW_Logger.hpp"
#include "OW_ProviderFwd.hpp"

namespace OpenWBEM
{

// What the object manager offers to a provider. The environment of a request is valid during that request
// only.
class ProviderEnvironmentIFC : public IntrusiveCountableBase
{
  public:
    virtual ~ProviderEnvironmentIFC();

    virtual CIMOMHandleIFCRef getCIMOMHandle() const = 0;
    virtual CIMOMHandleIFCRef getRepositoryCIMOMHandle() const = 0;
    virtual RepositoryIFCRef getRepository() const = 0;
    virtual LoggerRef getLogger() const OW_DEPRECATED = 0;
    virtual LoggerRef getLogger(const String& componentName) const = 0;
    virtual String getConfigItem(const String& name, const String& defRetVal = "") const = 0;
    virtual String getUserName() const = 0;
    virtual OperationContext& getOperationContext() = 0;
};

} // namespace OpenWBEM

#endif
