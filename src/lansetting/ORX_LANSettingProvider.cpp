#include "lansetting/ORX_LANSettingProvider.hpp"

#include "reporting/Failure.hpp"
#include "reporting/Logging.hpp"
#include "reporting/OperationGuard.hpp"

#include <OW_Array.hpp>
#include <OW_Bool.hpp>
#include <OW_CIMException.hpp>
#include <OW_CIMParamValue.hpp>
#include <OW_CIMProperty.hpp>

ORX_LANSetting setting;

namespace
{

using OpenWBEM::Bool;
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
constexpr const char* instanceIDOfInstance = "Kalvor:ORX_LANServiceSetting";

/// A property that clients may change, and the model's operations for it.
struct TextProperty {
    const char* name;
    bool (ORX_LANSetting::*get)(String&) const;
    bool (ORX_LANSetting::*set)(const String&);
};

struct SwitchProperty {
    const char* name;
    bool (ORX_LANSetting::*get)(bool&) const;
    bool (ORX_LANSetting::*set)(bool);
};

constexpr TextProperty textProperties[] = {
    {"DomainName", &ORX_LANSetting::getDomainName, &ORX_LANSetting::setDomainName},
    {"PrimaryDNS", &ORX_LANSetting::getPrimaryDNS, &ORX_LANSetting::setPrimaryDNS},
    {"SecondaryDNS", &ORX_LANSetting::getSecondaryDNS, &ORX_LANSetting::setSecondaryDNS},
};

constexpr SwitchProperty switchProperties[] = {
    {"isIcmpFilterEnabled", &ORX_LANSetting::getIsIcmpFilterEnabled, &ORX_LANSetting::setIsIcmpFilterEnabled},
    {"isArpFilterEnabled", &ORX_LANSetting::getIsArpFilterEnabled, &ORX_LANSetting::setIsArpFilterEnabled},
    {"isBroadcastFilterEnabled", &ORX_LANSetting::getIsBroadcastFilterEnabled,
     &ORX_LANSetting::setIsBroadcastFilterEnabled},
    {"isIPAddressConflictEnabled", &ORX_LANSetting::getIsIPAddressConflictEnabled,
     &ORX_LANSetting::setIsIPAddressConflictEnabled},
};

void addText(CIMInstance& instance, const char* name, const String& value)
{
    instance.setProperty(CIMProperty(name, CIMValue(value)));
}

void addSwitch(CIMInstance& instance, const char* name, bool value)
{
    instance.setProperty(CIMProperty(name, CIMValue(Bool(value))));
}

bool setIfDifferent(ORX_LANSetting& model, const TextProperty& property, const String& value)
{
    String current;
    (model.*property.get)(current);
    return value == current || (model.*property.set)(value);
}

bool setIfDifferent(ORX_LANSetting& model, const SwitchProperty& property, bool value)
{
    bool current = false;
    (model.*property.get)(current);
    return value == current || (model.*property.set)(value);
}

/// Applies one property of a modification. Names are compared exactly; properties that cannot be changed and
/// those without a value are passed over. False when the model did not take the value.
bool applyProperty(ORX_LANSetting& model, const String& name, const CIMValue& value)
{
    if (!value)
        return true;
    for (const TextProperty& property : textProperties) {
        if (name == property.name)
            return setIfDifferent(model, property, value.toString());
    }
    for (const SwitchProperty& property : switchProperties) {
        if (name == property.name)
            return setIfDifferent(model, property, value.toBool());
    }
    return true;
}

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
    String text;
    if (model.getInstanceID(text))
        instance.setProperty(CIMProperty("InstanceID", CIMValue(instanceIDOfInstance)));
    for (const TextProperty& property : textProperties) {
        if (!(model.*property.get)(text))
            text = "";
        addText(instance, property.name, text);
    }
    bool enabled = false;
    for (const SwitchProperty& property : switchProperties) {
        (model.*property.get)(enabled);
        addSwitch(instance, property.name, enabled);
    }
    bool fitted = false;
    model.getIsRouterPresent(fitted);
    addSwitch(instance, "isRouterPresent", fitted);
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
    const CIMPropertyArray properties = instance.getProperties();
    for (const CIMProperty& property : properties) {
        const String name = property.getName();
        // The code in the log is fixed: a setter answers with a flag, of which only 0 refuses.
        if (!applyProperty(model, name, property.getValue()))
            reporting::logAndFail({unit, __LINE__},
                                  "Failed to modify property  " + instance.toString() + "." + name,
                                  "LAN_ERROR_failedModifyProperty", ":  with return code: 0");
    }
}
