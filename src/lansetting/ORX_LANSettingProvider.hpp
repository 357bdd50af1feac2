#ifndef KV_LANSETTING_ORX_LANSETTINGPROVIDER_HPP
#define KV_LANSETTING_ORX_LANSETTINGPROVIDER_HPP

#include "lansetting/ORX_LANSetting.hpp"

#include <OW_CIMClass.hpp>
#include <OW_CIMFwd.hpp>
#include <OW_CIMInstance.hpp>
#include <OW_CIMObjectPath.hpp>
#include <OW_CIMValue.hpp>
#include <OW_CppInstanceProviderIFC.hpp>
#include <OW_CppMethodProviderIFC.hpp>
#include <OW_ProviderEnvironmentIFC.hpp>
#include <OW_ResultHandlerIFC.hpp>
#include <OW_WBEMFlags.hpp>

/// The server's one set of LAN settings, which lives as long as the library is loaded. Requests share it
/// without a lock.
extern ORX_LANSetting setting;

/// Serves the CIM class ORX_LANServiceSetting: one instance, whatever key a client asks for, and the method
/// "ResetRouter". Every instance carries the full set of properties, whatever the request's flags and
/// property list say. All the work is done on the global `setting`.
class ORX_LANSettingProvider : public OpenWBEM::CppInstanceProviderIFC, public OpenWBEM::CppMethodProviderIFC
{
  public:
    ~ORX_LANSettingProvider() override;

    /// One name. Kept: its InstanceID is the model's, which is empty. The instance has another one.
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

    /// The keys of `objectPath` are not looked at.
    OpenWBEM::CIMInstance getInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env,
                                      const OpenWBEM::String& ns, const OpenWBEM::CIMObjectPath& objectPath,
                                      OpenWBEM::WBEMFlags::ELocalOnlyFlag localOnly,
                                      OpenWBEM::WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                      OpenWBEM::WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                                      const OpenWBEM::StringArray* propertyList,
                                      const OpenWBEM::CIMClass& cimClass) override;

    /// Throws CIM_ERR_NOT_SUPPORTED, as does deleteInstance.
    OpenWBEM::CIMObjectPath createInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env,
                                           const OpenWBEM::String& ns,
                                           const OpenWBEM::CIMInstance& cimInstance) override;

    /// Applies the properties of `modifiedInstance` one by one, in its order; a failure leaves those before
    /// it applied. Kept: a value is compared with what the last read found, not with the system as it is
    /// now. An equal one changes nothing.
    void modifyInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env, const OpenWBEM::String& ns,
                        const OpenWBEM::CIMInstance& modifiedInstance,
                        const OpenWBEM::CIMInstance& previousInstance,
                        OpenWBEM::WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                        const OpenWBEM::StringArray* propertyList,
                        const OpenWBEM::CIMClass& cimClass) override;

    void deleteInstance(const OpenWBEM::ProviderEnvironmentIFCRef& env, const OpenWBEM::String& ns,
                        const OpenWBEM::CIMObjectPath& cop) override;

    /// Does nothing.
    void initialize(const OpenWBEM::ProviderEnvironmentIFCRef& env) override;

    /// "ResetRouter", spelled exactly so, returns a string. Any other name throws CIM_ERR_METHOD_NOT_FOUND.
    OpenWBEM::CIMValue invokeMethod(const OpenWBEM::ProviderEnvironmentIFCRef& env,
                                    const OpenWBEM::String& ns, const OpenWBEM::CIMObjectPath& path,
                                    const OpenWBEM::String& methodName,
                                    const OpenWBEM::CIMParamValueArray& in,
                                    OpenWBEM::CIMParamValueArray& out) override;

    /// Does nothing: there is nothing to give back.
    void cleanup();

  private:
    static void ORX_LANSettingToCIMInstance(const OpenWBEM::String& ns, const ORX_LANSetting& model,
                                            const OpenWBEM::CIMClass& cimClass,
                                            OpenWBEM::CIMInstance& instance);
    static void ORX_LANSettingToCIMObjectPath(const ORX_LANSetting& model, OpenWBEM::CIMObjectPath& path);
    static void modifyInstance(ORX_LANSetting& model, const OpenWBEM::CIMInstance& instance);
};

#endif
