#ifndef KV_LANENDPOINT_ORX_LANENDPOINTPROVIDER_HPP
#define KV_LANENDPOINT_ORX_LANENDPOINTPROVIDER_HPP

#include "lanendpoint/ORX_LANEndpoint.hpp"
#include "lanendpoint/ORX_LANEndpointInstanceManager.hpp"

#include <OW_CIMClass.hpp>
#include <OW_CIMFwd.hpp>
#include <OW_CIMInstance.hpp>
#include <OW_CIMObjectPath.hpp>
#include <OW_CIMProperty.hpp>
#include <OW_CppInstanceProviderIFC.hpp>
#include <OW_CppMethodProviderIFC.hpp>
#include <OW_ProviderEnvironmentIFC.hpp>
#include <OW_ResultHandlerIFC.hpp>
#include <OW_WBEMFlags.hpp>

/// Serves the CIM class ORX_LANEndpoint: enumerates the server's three Ethernet interfaces, finds one by its
/// Name (interface name or description) and changes it property by property. Every instance carries the full
/// set of properties, whatever the request's flags and property list say. Holds no lock.
class ORX_LANEndpointProvider : public OpenWBEM::CppInstanceProviderIFC, public OpenWBEM::CppMethodProviderIFC
{
  public:
    ~ORX_LANEndpointProvider() override;

    void enumInstanceNames(const OpenWBEM::ProviderEnvironmentIFCRef& env, const OpenWBEM::String& ns,
                           const OpenWBEM::String& className, OpenWBEM::CIMObjectPathResultHandlerIFC& result,
                           const OpenWBEM::CIMClass& cimClass) override;

    /// The interfaces fill one instance object, one after the other. A property that cannot be read,
    /// OperationalStatus or Speed, is left as it is. Kept: it then has the value of the interface before.
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

    /// Throws CIM_ERR_NOT_SUPPORTED, as do deleteInstance and invokeMethod.
    OpenWBEM::CIMObjectPath createInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env,
                                           const OpenWBEM::String& ns,
                                           const OpenWBEM::CIMInstance& cimInstance) override;

    /// The endpoint is found by the Name property of `modifiedInstance`. MTU and DHCP change as they come in
    /// it; address, mask and gateway change together after them. A failure of these three does not
    /// undo a change of MTU or DHCP.
    void modifyInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env, const OpenWBEM::String& ns,
                        const OpenWBEM::CIMInstance& modifiedInstance,
                        const OpenWBEM::CIMInstance& previousInstance,
                        OpenWBEM::WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                        const OpenWBEM::StringArray* propertyList,
                        const OpenWBEM::CIMClass& theClass) override;

    void deleteInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env, const OpenWBEM::String& ns,
                        const OpenWBEM::CIMObjectPath& cop) override;

    /// Resets the enumeration cursor. May be called again.
    void initialize(const OpenWBEM::ProviderEnvironmentIFCRef& env) override;

    OpenWBEM::CIMValue invokeMethod(const OpenWBEM::ProviderEnvironmentIFCRef& env,
                                    const OpenWBEM::String& ns, const OpenWBEM::CIMObjectPath& path,
                                    const OpenWBEM::String& methodName,
                                    const OpenWBEM::CIMParamValueArray& in,
                                    OpenWBEM::CIMParamValueArray& out) override;

    /// Does nothing: there is nothing to give back.
    void cleanup();

  private:
    static void ORX_LANEndpointToCIMInstance(const OpenWBEM::String& ns, const ORX_LANEndpoint& endpoint,
                                             const OpenWBEM::CIMClass& cimClass,
                                             OpenWBEM::CIMInstance& instance);
    static void ORX_LANEndpointToCIMObjectPath(const ORX_LANEndpoint& endpoint,
                                               OpenWBEM::CIMObjectPath& path);
    static void getORX_LANEndpointWithCIMObjectPath(const OpenWBEM::CIMObjectPath& path,
                                                    ORX_LANEndpoint& endpoint);
    static void getORX_LANEndpointWithCIMInstance(const OpenWBEM::CIMInstance& instance,
                                                  ORX_LANEndpoint& endpoint);
    static void modifyInstance(ORX_LANEndpoint& endpoint, const OpenWBEM::CIMInstance& instance);

    ORX_LANEndpointInstanceManager m_instances;
};

#endif
