#include "RecordingLANProvider.hpp"

#include "provider/LANProvider.hpp"

using namespace OpenWBEM; // the operations are all about OpenWBEM's types
using recording::call;
using recording::inside;

std::function<void(const std::string&)> recording::inside;

LANProvider::~LANProvider() = default;

void LANProvider::initialize(const ProviderEnvironmentIFCRef& env)
{
    inside(call("initialize", &env));
}

void LANProvider::cleanup()
{
    inside(call("cleanup"));
}

void LANProvider::enumInstanceNames(const ProviderEnvironmentIFCRef& env, const String& ns,
                                    const String& className, CIMObjectPathResultHandlerIFC& result,
                                    const CIMClass& cimClass)
{
    inside(call("enumInstanceNames", &env, &ns, &className, &result, &cimClass));
}

void LANProvider::enumInstances(const ProviderEnvironmentIFCRef& env, const String& ns,
                                const String& className, CIMInstanceResultHandlerIFC& result,
                                WBEMFlags::ELocalOnlyFlag localOnly, WBEMFlags::EDeepFlag deep,
                                WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                                const StringArray* propertyList, const CIMClass& requestedClass,
                                const CIMClass& cimClass)
{
    inside(call("enumInstances", &env, &ns, &className, &result, localOnly, deep, includeQualifiers,
                includeClassOrigin, propertyList, &requestedClass, &cimClass));
}

CIMInstance LANProvider::getInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                     const CIMObjectPath& instanceName, WBEMFlags::ELocalOnlyFlag localOnly,
                                     WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                     WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                                     const StringArray* propertyList, const CIMClass& cimClass)
{
    inside(call("getInstance", &env, &ns, &instanceName, localOnly, includeQualifiers, includeClassOrigin,
                propertyList, &cimClass));
    return CIMInstance("Got");
}

CIMObjectPath LANProvider::createInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                          const CIMInstance& cimInstance)
{
    inside(call("createInstance", &env, &ns, &cimInstance));
    return CIMObjectPath("Created");
}

void LANProvider::deleteInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                 const CIMObjectPath& cop)
{
    inside(call("deleteInstance", &env, &ns, &cop));
}

void LANProvider::modifyInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                 const CIMInstance& modifiedInstance, const CIMInstance& previousInstance,
                                 WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                 const StringArray* propertyList, const CIMClass& theClass)
{
    inside(call("modifyInstance", &env, &ns, &modifiedInstance, &previousInstance, includeQualifiers,
                propertyList, &theClass));
}

CIMValue LANProvider::invokeMethod(const ProviderEnvironmentIFCRef& env, const String& ns,
                                   const CIMObjectPath& path, const String& methodName,
                                   const CIMParamValueArray& in, CIMParamValueArray& out)
{
    inside(call("invokeMethod", &env, &ns, &path, &methodName, &in, &out));
    return CIMValue(String("Invoked"));
}
