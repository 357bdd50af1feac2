#ifndef KV_PROVIDER_LANPROVIDER_HPP
#define KV_PROVIDER_LANPROVIDER_HPP

#include <OW_config.h>

#include <OW_CIM.hpp>
#include <OW_CIMParamValue.hpp>
#include <OW_CppInstanceProviderIFC.hpp>
#include <OW_CppMethodProviderIFC.hpp>
#include <OW_CppProviderBaseIFC.hpp>
#include <OW_ProviderEnvironmentIFC.hpp>
#include <OW_ResultHandlerIFC.hpp>
#include <OW_String.hpp>
#include <OW_WBEMFlags.hpp>

/// The one provider that the object manager sees. It does no CIM work of its own. The class name of a
/// request, compared exactly, selects a sub-provider; the call is forwarded to it unchanged. Results and
/// exceptions pass through untouched. A class that no sub-provider serves is refused with
/// CIM_ERR_INVALID_CLASS and no text.
///
/// The sub-providers are static objects of the library: they outlive every LANProvider, which itself holds no
/// state and needs no lock.
class LANProvider : public OpenWBEM::CppMethodProviderIFC, public OpenWBEM::CppInstanceProviderIFC
{
  public:
    ~LANProvider() override;

    OpenWBEM::CIMValue invokeMethod(const OpenWBEM::ProviderEnvironmentIFCRef& env,
                                    const OpenWBEM::String& ns, const OpenWBEM::CIMObjectPath& path,
                                    const OpenWBEM::String& methodName,
                                    const OpenWBEM::CIMParamValueArray& in,
                                    OpenWBEM::CIMParamValueArray& out) override;

    /// Takes gLogger from the environment, initialises the sub-providers and applies the stored MTU to all
    /// interfaces of the server. Completes even where an interface is missing. May be called again.
    void initialize(const OpenWBEM::ProviderEnvironmentIFCRef& env) override;

    void enumInstanceNames(const OpenWBEM::ProviderEnvironmentIFCRef& env, const OpenWBEM::String& ns,
                           const OpenWBEM::String& className, OpenWBEM::CIMObjectPathResultHandlerIFC& result,
                           const OpenWBEM::CIMClass& cimClass) override;

    void enumInstances(const OpenWBEM::ProviderEnvironmentIFCRef& env, const OpenWBEM::String& ns,
                       const OpenWBEM::String& className, OpenWBEM::CIMInstanceResultHandlerIFC& result,
                       OpenWBEM::WBEMFlags::ELocalOnlyFlag localOnly, OpenWBEM::WBEMFlags::EDeepFlag deep,
                       OpenWBEM::WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                       OpenWBEM::WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                       const OpenWBEM::StringArray* propertyList, const OpenWBEM::CIMClass& requestedClass,
                       const OpenWBEM::CIMClass& cimClass) override;

    OpenWBEM::CIMInstance getInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env,
                                      const OpenWBEM::String& ns, const OpenWBEM::CIMObjectPath& instanceName,
                                      OpenWBEM::WBEMFlags::ELocalOnlyFlag localOnly,
                                      OpenWBEM::WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                      OpenWBEM::WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                                      const OpenWBEM::StringArray* propertyList,
                                      const OpenWBEM::CIMClass& cimClass) override;

    OpenWBEM::CIMObjectPath createInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env,
                                           const OpenWBEM::String& ns,
                                           const OpenWBEM::CIMInstance& cimInstance) override;

    void deleteInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env, const OpenWBEM::String& ns,
                        const OpenWBEM::CIMObjectPath& cop) override;

    void modifyInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env, const OpenWBEM::String& ns,
                        const OpenWBEM::CIMInstance& modifiedInstance,
                        const OpenWBEM::CIMInstance& previousInstance,
                        OpenWBEM::WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                        const OpenWBEM::StringArray* propertyList,
                        const OpenWBEM::CIMClass& theClass) override;

    /// Calls cleanup() of the three sub-providers. Kept: nothing calls it.
    void cleanup();
};

#endif
