#include "provider/LANProvider.hpp"

#include "dscp/ORX_ALGServiceProvider.hpp"
#include "lanendpoint/ORX_LANEndpointProvider.hpp"
#include "lansetting/ORX_LANSettingProvider.hpp"
#include "netutil/ServerInterfaces.hpp"
#include "provider/MTUSize.hpp"
#include "reporting/Failure.hpp"
#include "reporting/Logging.hpp"

#include <OW_CIM.hpp>
#include <OW_CIMException.hpp>
#include <OW_CIMParamValue.hpp>

#include <cstdio>

using namespace OpenWBEM; // the operations below are all about OpenWBEM's types

// The static objects of this file, constructed in this order when the library is loaded and destroyed in the
// reverse order when it is unloaded. The linker decides when those of other files are constructed. None needs
// another.
IntrusiveReference<Logger> gLogger;

namespace
{

constexpr const char* unit = "LANProvider.cpp";

const String endpointClassName("ORX_LANEndpoint");
const String settingClassName("ORX_LANServiceSetting");
const String algServiceClassName("ORX_ALGService");

ORX_LANEndpointProvider endpointProvider;
ORX_LANSettingProvider settingProvider;
ORX_ALGServiceProvider algServiceProvider;

/// The sub-provider that serves the class, as an `Interface` (instance or method provider); null for an
/// unknown class.
template <typename Interface>
Interface* subProviderOf(const String& className)
{
    if (className.equals(endpointClassName))
        return &endpointProvider;
    if (className.equals(settingClassName))
        return &settingProvider;
    if (className.equals(algServiceClassName))
        return &algServiceProvider;
    return nullptr;
}

} // namespace

LANProvider::~LANProvider() = default;

void LANProvider::initialize(const ProviderEnvironmentIFCRef& env)
{
    gLogger = env->getLogger();
    endpointProvider.initialize(env);
    settingProvider.initialize(env);
    algServiceProvider.initialize(env);
    for (const ServerInterface& interface : serverInterfaces)
        setMTUSize(interface.name);
}

void LANProvider::cleanup()
{
    endpointProvider.cleanup();
    settingProvider.cleanup();
    algServiceProvider.cleanup();
}

// Each operation refuses an unknown class from a line of its own, so a report tells them apart.

void LANProvider::enumInstanceNames(const ProviderEnvironmentIFCRef& env, const String& ns,
                                    const String& className, CIMObjectPathResultHandlerIFC& result,
                                    const CIMClass& cimClass)
{
    auto* provider = subProviderOf<CppInstanceProviderIFC>(className);
    if (!provider)
        reporting::fail({unit, __LINE__}, CIMException::INVALID_CLASS);
    // Kept: the marking service prints the setting's line, too.
    std::printf("%s", className.equals(endpointClassName) ? "endpoint enum instance name received\n"
                                                          : "setting enum instance name received\n");
    provider->enumInstanceNames(env, ns, className, result, cimClass);
}

void LANProvider::enumInstances(const ProviderEnvironmentIFCRef& env, const String& ns,
                                const String& className, CIMInstanceResultHandlerIFC& result,
                                WBEMFlags::ELocalOnlyFlag localOnly, WBEMFlags::EDeepFlag deep,
                                WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                                const StringArray* propertyList, const CIMClass& requestedClass,
                                const CIMClass& cimClass)
{
    auto* provider = subProviderOf<CppInstanceProviderIFC>(className);
    if (!provider)
        reporting::fail({unit, __LINE__}, CIMException::INVALID_CLASS);
    provider->enumInstances(env, ns, className, result, localOnly, deep, includeQualifiers,
                            includeClassOrigin, propertyList, requestedClass, cimClass);
}

CIMInstance LANProvider::getInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                     const CIMObjectPath& instanceName, WBEMFlags::ELocalOnlyFlag localOnly,
                                     WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                     WBEMFlags::EIncludeClassOriginFlag includeClassOrigin,
                                     const StringArray* propertyList, const CIMClass& cimClass)
{
    auto* provider = subProviderOf<CppInstanceProviderIFC>(instanceName.getClassName());
    if (!provider)
        reporting::fail({unit, __LINE__}, CIMException::INVALID_CLASS);
    return provider->getInstance(env, ns, instanceName, localOnly, includeQualifiers, includeClassOrigin,
                                 propertyList, cimClass);
}

CIMObjectPath LANProvider::createInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                          const CIMInstance& cimInstance)
{
    auto* provider = subProviderOf<CppInstanceProviderIFC>(cimInstance.getClassName());
    if (!provider)
        reporting::fail({unit, __LINE__}, CIMException::INVALID_CLASS);
    return provider->createInstance(env, ns, cimInstance);
}

void LANProvider::deleteInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                 const CIMObjectPath& cop)
{
    auto* provider = subProviderOf<CppInstanceProviderIFC>(cop.getClassName());
    if (!provider)
        reporting::fail({unit, __LINE__}, CIMException::INVALID_CLASS);
    provider->deleteInstance(env, ns, cop);
}

void LANProvider::modifyInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                 const CIMInstance& modifiedInstance, const CIMInstance& previousInstance,
                                 WBEMFlags::EIncludeQualifiersFlag includeQualifiers,
                                 const StringArray* propertyList, const CIMClass& theClass)
{
    auto* provider = subProviderOf<CppInstanceProviderIFC>(modifiedInstance.getClassName());
    if (!provider)
        reporting::fail({unit, __LINE__}, CIMException::INVALID_CLASS);
    provider->modifyInstance(env, ns, modifiedInstance, previousInstance, includeQualifiers, propertyList,
                             theClass);
}

CIMValue LANProvider::invokeMethod(const ProviderEnvironmentIFCRef& env, const String& ns,
                                   const CIMObjectPath& path, const String& methodName,
                                   const CIMParamValueArray& in, CIMParamValueArray& out)
{
    auto* provider = subProviderOf<CppMethodProviderIFC>(path.getClassName());
    if (!provider)
        reporting::fail({unit, __LINE__}, CIMException::INVALID_CLASS);
    return provider->invokeMethod(env, ns, path, methodName, in, out);
}
