#ifndef KV_PROVIDER_SERIALISINGLANPROVIDER_HPP
#define KV_PROVIDER_SERIALISINGLANPROVIDER_HPP

#include "provider/LANProvider.hpp"

/// A LANProvider for an object manager that runs requests side by side, as OpenWBEM runs reads. It forwards
/// every call unchanged, one at a time; results and exceptions pass through untouched.
///
/// One mutex serves all objects of this class, because they share the sub-providers: an object manager that
/// drops an idle provider may create the next one while a request of the first still runs.
///
/// No operation may be called from inside another one, by a result handler for example: the inner one would
/// wait for ever.
class SerialisingLANProvider : public OpenWBEM::CppMethodProviderIFC, public OpenWBEM::CppInstanceProviderIFC
{
  public:
    ~SerialisingLANProvider() override;

    OpenWBEM::CIMValue invokeMethod(const OpenWBEM::ProviderEnvironmentIFCRef& env,
                                    const OpenWBEM::String& ns, const OpenWBEM::CIMObjectPath& path,
                                    const OpenWBEM::String& methodName,
                                    const OpenWBEM::CIMParamValueArray& in,
                                    OpenWBEM::CIMParamValueArray& out) override;

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

    void cleanup();

  private:
    LANProvider m_provider;
};

#endif
