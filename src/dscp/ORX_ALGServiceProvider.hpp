#ifndef KV_DSCP_ORX_ALGSERVICEPROVIDER_HPP
#define KV_DSCP_ORX_ALGSERVICEPROVIDER_HPP

#include "dscp/ORX_ALGService.hpp"

#include <OW_config.h>

#include <OW_Array.hpp>
#include <OW_CIM.hpp>
#include <OW_CIMParamValue.hpp>
#include <OW_CppInstanceProviderIFC.hpp>
#include <OW_CppMethodProviderIFC.hpp>
#include <OW_ProviderEnvironmentIFC.hpp>
#include <OW_ResultHandlerIFC.hpp>
#include <OW_String.hpp>
#include <OW_WBEMFlags.hpp>

/// Serves the CIM class ORX_ALGService: translates between CIM instances and the service objects of the
/// current instance manager. It keeps no state and expects one request at a time.
///
/// Failures leave as CIMException and are never written to the object manager's log. Codes 6 (not found) and
/// 17 (method not found) have no text; 1, 4 and 7 have an identifier or a status number between two number
/// signs. What OpenWBEM throws for a value of the wrong type passes through, and so does what a result
/// handler throws.
class ORX_ALGServiceProvider : public virtual OpenWBEM::CppInstanceProviderIFC,
                               public OpenWBEM::CppMethodProviderIFC
{
  public:
    ~ORX_ALGServiceProvider() override;

    /// Installs the instance manager whose services live in the server's registry. May be called several
    /// times; each call starts over with a new manager and leaves the earlier services to the process.
    void initialize(const OpenWBEM::ProviderEnvironmentIFCRef& env) override;

    /// Releases nothing: manager and services stay until the library is unloaded.
    void cleanup();

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

    /// The new object exists in memory only. If it refuses the instance, it is deleted again. A value of the
    /// wrong type ends the creation, too, but leaves the object.
    OpenWBEM::CIMObjectPath createInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env,
                                           const OpenWBEM::String& ns,
                                           const OpenWBEM::CIMInstance& cimInstance) override;

    void deleteInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env, const OpenWBEM::String& ns,
                        const OpenWBEM::CIMObjectPath& cop) override;

    /// Finds the object by the key properties of `modifiedInstance`; the other arguments are not looked at.
    void modifyInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env, const OpenWBEM::String& ns,
                        const OpenWBEM::CIMInstance& modifiedInstance,
                        const OpenWBEM::CIMInstance& previousInstance,
                        OpenWBEM::WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                        const OpenWBEM::StringArray* propertyList,
                        const OpenWBEM::CIMClass& theClass) override;

    /// The class has no methods: always throws code 17.
    OpenWBEM::CIMValue invokeMethod(const OpenWBEM::ProviderEnvironmentIFCRef& env,
                                    const OpenWBEM::String& ns, const OpenWBEM::CIMObjectPath& path,
                                    const OpenWBEM::String& methodName,
                                    const OpenWBEM::CIMParamValueArray& in,
                                    OpenWBEM::CIMParamValueArray& out) override;

  private:
    /// Applies every writable, non-null property of `instance` to `service`, in the instance's order. The
    /// first property that the service refuses ends the change: earlier ones keep their new values in memory,
    /// and endChange is not called.
    void modifyInstance(ORX_ALGService& service, const OpenWBEM::CIMInstance& instance);

    /// Sets the properties that `service` supports. Others keep what `instance` held.
    void ORX_ALGServiceToCIMInstance(const ORX_ALGService& service, OpenWBEM::CIMInstance& instance);

    OpenWBEM::CIMObjectPath ORX_ALGServiceToCIMObjectPath(const ORX_ALGService& service,
                                                          const OpenWBEM::String& className,
                                                          const OpenWBEM::String& ns);

    /// Both throw code 6 if a key is missing or null, or if there is no such object.
    ORX_ALGService& getORX_ALGServiceWithCIMObjectPath(const OpenWBEM::CIMObjectPath& path);
    ORX_ALGService& getORX_ALGServiceWithCIMInstance(const OpenWBEM::CIMInstance& instance);
};

#endif
