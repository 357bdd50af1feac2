#include "lansetting/ORX_LANSettingProvider.hpp"

#include "cim/Modification.hpp"
#include "lansetting/SettingProperty.hpp"
#include "reporting/Failure.hpp"
#include "reporting/OperationGuard.hpp"

#include <OW_Array.hpp>
#include <OW_CIMException.hpp>
#include <OW_CIMParamValue.hpp>
#include <OW_CIMProperty.hpp>

ORX_LANSetting setting;

namespace
{

using OpenWBEM::CIMClass;
using OpenWBEM::CIMException;
using OpenWBEM::CIMInstance;
using OpenWBEM::CIMInstanceResultHandlerIFC;
using OpenWBEM::CIMObjectPath;
using OpenWBEM::CIMObjectPathResultHandlerIFC;
using OpenWBEM::CIMParamValueArray;
using OpenWBEM::CIMProperty;
using OpenWBEM::CIMPropertyArray;
using OpenWBEM::CIMValue;
using OpenWBEM::ProviderEnvironmentIFCRef;
using OpenWBEM::String;
using OpenWBEM::StringArray;
namespace WBEMFlags = OpenWBEM::WBEMFlags;

constexpr const char* unit = "ORX_LANSettingProvider.cpp";
constexpr const char* settingClass = "ORX_LANServiceSetting";

} // namespace

ORX_LANSettingProvider::~ORX_LANSettingProvider() = default;

void ORX_LANSettingProvider::initialize(const ProviderEnvironmentIFCRef&) {}

void ORX_LANSettingProvider::cleanup() {}

void ORX_LANSettingProvider::enumInstanceNames(const ProviderEnvironmentIFCRef& env, const String& ns,
                                               const String& className, CIMObjectPathResultHandlerIFC& result,
                                               const CIMClass&)
{
    reporting::guarded(
        env, {unit, "enumInstanceNames", __LINE__, __LINE__ + 1}, [&] { return className; },
        [&] {
            CIMObjectPath path(className, ns);
            setting.get();
            ORX_LANSettingToCIMObjectPath(setting, path);
            result.handle(path);
        });
}

void ORX_LANSettingProvider::enumInstances(const ProviderEnvironmentIFCRef& env, const String& ns,
                                           const String& className, CIMInstanceResultHandlerIFC& result,
                                           WBEMFlags::ELocalOnlyFlag, WBEMFlags::EDeepFlag,
                                           WBEMFlags::EIncludeQualifiersFlag,
                                           WBEMFlags::EIncludeClassOriginFlag, const StringArray*,
                                           const CIMClass&, const CIMClass& cimClass)
{
    reporting::guarded(
        env, {unit, "enumInstances", __LINE__, __LINE__ + 1}, [&] { return className; },
        [&] {
            CIMInstance instance;
            setting.get();
            ORX_LANSettingToCIMInstance(ns, setting, cimClass, instance);
            result.handle(instance);
        });
}

CIMInstance ORX_LANSettingProvider::getInstance(const ProviderEnvironmentIFCRef& env, const String& ns,
                                                const CIMObjectPath& objectPath, WBEMFlags::ELocalOnlyFlag,
                                                WBEMFlags::EIncludeQualifiersFlag,
                                                WBEMFlags::EIncludeClassOriginFlag, const StringArray*,
                                                const CIMClass& cimClass)
{
    return reporting::guarded(
        env, {unit, "getInstance", __LINE__, __LINE__ + 1}, [&] { return objectPath.toString(); },
        [&] {
            CIMInstance instance(settingClass);
            setting.get();
            ORX_LANSettingToCIMInstance(ns, setting, cimClass, instance);
            return instance;
        });
}

void ORX_LANSettingProvider::modifyInstance(const ProviderEnvironmentIFCRef& env, const String&,
                                            const CIMInstance& modifiedInstance, const CIMInstance&,
                                            WBEMFlags::EIncludeQualifiersFlag, const StringArray*,
                                            const CIMClass&)
{
    reporting::guarded(
        env, {unit, "modifyInstance", __LINE__, __LINE__ + 1}, [&] { return modifiedInstance.toString(); },
        [&] { modifyInstance(setting, modifiedInstance); });
}

CIMObjectPath ORX_LANSettingProvider::createInstance(const ProviderEnvironmentIFCRef&, const String&,
                                                     const CIMInstance&)
{
    reporting::fail({unit, __LINE__}, CIMException::NOT_SUPPORTED);
}

void ORX_LANSettingProvider::deleteInstance(const ProviderEnvironmentIFCRef&, const String&,
                                            const CIMObjectPath&)
{
    reporting::fail({unit, __LINE__}, CIMException::NOT_SUPPORTED);
}

CIMValue ORX_LANSettingProvider::invokeMethod(const ProviderEnvironmentIFCRef& env, const String&,
                                              const CIMObjectPath&, const String& methodName,
                                              const CIMParamValueArray&, CIMParamValueArray&)
{
    return reporting::guarded(
        env, {unit, "invokeMethod", __LINE__, __LINE__ + 1}, [&] { return methodName; },
        [&] {
            if (!methodName.equals("ResetRouter"))
                reporting::fail({unit, __LINE__}, CIMException::METHOD_NOT_FOUND);
            return CIMValue(setting.resetRouter());
        });
}

void ORX_LANSettingProvider::ORX_LANSettingToCIMInstance(const String&, const ORX_LANSetting& model,
                                                         const CIMClass&, CIMInstance& instance)
{
    instance.setClassName(settingClass);
    settingProperties.fill(instance, model);
}

void ORX_LANSettingProvider::ORX_LANSettingToCIMObjectPath(const ORX_LANSetting& model, CIMObjectPath& path)
{
    String instanceID;
    if (!model.getInstanceID(instanceID))
        reporting::fail({unit, __LINE__}, CIMException::NOT_FOUND);
    CIMPropertyArray keys;
    keys.push_back(CIMProperty("InstanceID", CIMValue(instanceID)));
    path.setKeys(keys);
}

void ORX_LANSettingProvider::modifyInstance(ORX_LANSetting& model, const CIMInstance& instance)
{
    cim::applyProperties(instance, settingProperties, model, {unit, __LINE__});
}
