#ifndef OW_CPP_INSTANCE_PROVIDER_IFC_HPP_
#define OW_CPP_INSTANCE_PROVIDER_IFC_HPP_

#include "OW_CppProviderBaseIFC.hpp"
#include "OW_InstanceProviderInfo.hpp"
#include "OW_ResultHandlerIFC.hpp"
#include "OW_SharedLibraryReference.hpp"
#include "OW_WBEMFlags.hpp"

namespace OpenWBEM
{

// A provider of instances. ns is the namespace of the request, propertyList may be 0 (all properties).
class CppInstanceProviderIFC : public virtual CppProviderBaseIFC
{
  public:
    virtual ~CppInstanceProviderIFC();

    virtual void getInstanceProviderInfo(InstanceProviderInfo& info); // registers nothing
    virtual void enumInstanceNames(const ProviderEnvironmentIFCRef& env, const String& ns,
                                   const String& className, CIMObjectPathResultHandlerIFC& result,
                                   const CIMClass& cimClass) = 0;
    // Calls enumInstanceNames and hands out what getInstance gives for each name.
    virtual void enumInstances(const ProviderEnvironmentIFCRef& env, const String& ns,
                               const String& className, CIMInstanceResultHandlerIFC& result,
                               WBEMFlags::ELocalOnlyFlag localOnly, WBEMFlags::EDeepFlag deep,
                               WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                               WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                               const StringArray* propertyList, const CIMClass& requestedClass,
                               const CIMClass& cimClass);
    virtual CIMInstance getInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                    const CIMObjectPath& instanceName, WBEMFlags::ELocalOnlyFlag localOnly,
                                    WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                    WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                                    const StringArray* propertyList, const CIMClass& cimClass) = 0;
#ifndef OW_DISABLE_INSTANCE_MANIPULATION
    virtual CIMObjectPath createInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                         const CIMInstance& cimInstance) = 0;
    virtual void modifyInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                const CIMInstance& modifiedInstance, const CIMInstance& previousInstance,
                                WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                const StringArray* propertyList, const CIMClass& theClass) = 0;
    virtual void deleteInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                const CIMObjectPath& cop) = 0;
#endif
    virtual CppInstanceProviderIFC* getInstanceProvider();
};

} // namespace OpenWBEM

#endif
