#ifndef KV_TESTS_UNIT_LANSETTING_SETTINGREQUESTS_HPP
#define KV_TESTS_UNIT_LANSETTING_SETTINGREQUESTS_HPP

#include "SettingTest.hpp"

#include <OW_CIMInstance.hpp>
#include <OW_CIMNULL.hpp>
#include <OW_CIMParamValue.hpp>
#include <OW_CIMProperty.hpp>
#include <OW_ResultHandlers.hpp>

#include <string>

namespace WBEMFlags = OpenWBEM::WBEMFlags;

/// "type name value" of each property, in order.
inline Lines propertiesOf(const OpenWBEM::CIMInstance& instance)
{
    Lines lines;
    const OpenWBEM::CIMPropertyArray properties = instance.getProperties();
    for (const auto& property : properties)
        lines.push_back(std::string(property.getDataType().toString().c_str()) + " " +
                        property.getName().c_str() + " " + property.getValue().toString().c_str());
    return lines;
}

inline OpenWBEM::CIMProperty text(const char* name, const char* value)
{
    return OpenWBEM::CIMProperty(name, OpenWBEM::CIMValue(value));
}

inline OpenWBEM::CIMProperty flag(const char* name, bool value)
{
    return OpenWBEM::CIMProperty(name, OpenWBEM::CIMValue(value));
}

/// Requests as the object manager makes them, with the least that they need.
class SettingRequests : public SettingTest
{
  protected:
    OpenWBEM::CIMObjectPathArray enumInstanceNames(const char* className = "ORX_LANServiceSetting",
                                                   const char* ns = "root/cimv2")
    {
        OpenWBEM::CIMObjectPathArray names;
        OpenWBEM::CIMObjectPathArrayBuilder result(names);
        provider.enumInstanceNames(env, ns, className, result, nullClass);
        return names;
    }

    void enumInstances(OpenWBEM::CIMInstanceResultHandlerIFC& result,
                       const char* className = "ORX_LANServiceSetting")
    {
        provider.enumInstances(env, "root/cimv2", className, result, WBEMFlags::E_NOT_LOCAL_ONLY,
                               WBEMFlags::E_DEEP, WBEMFlags::E_EXCLUDE_QUALIFIERS,
                               WBEMFlags::E_EXCLUDE_CLASS_ORIGIN, nullptr, nullClass, nullClass);
    }

    OpenWBEM::CIMInstanceArray enumInstances(const char* className = "ORX_LANServiceSetting")
    {
        OpenWBEM::CIMInstanceArray instances;
        OpenWBEM::CIMInstanceArrayBuilder result(instances);
        enumInstances(result, className);
        return instances;
    }

    OpenWBEM::CIMInstance
    getInstance(const OpenWBEM::CIMObjectPath& path = OpenWBEM::CIMObjectPath("ORX_LANServiceSetting"))
    {
        return provider.getInstance(env, "root/cimv2", path, WBEMFlags::E_NOT_LOCAL_ONLY,
                                    WBEMFlags::E_EXCLUDE_QUALIFIERS, WBEMFlags::E_EXCLUDE_CLASS_ORIGIN,
                                    nullptr, nullClass);
    }

    static OpenWBEM::CIMInstance instanceOf(std::initializer_list<OpenWBEM::CIMProperty> properties)
    {
        OpenWBEM::CIMInstance instance("ORX_LANServiceSetting");
        for (const OpenWBEM::CIMProperty& property : properties)
            instance.setProperty(property);
        return instance;
    }

    void modifyInstance(const OpenWBEM::CIMInstance& modified)
    {
        provider.modifyInstance(env, "root/cimv2", modified, OpenWBEM::CIMInstance("ORX_LANServiceSetting"),
                                WBEMFlags::E_EXCLUDE_QUALIFIERS, nullptr, nullClass);
    }

    void modify(std::initializer_list<OpenWBEM::CIMProperty> properties)
    {
        modifyInstance(instanceOf(properties));
    }

    OpenWBEM::CIMValue invokeMethod(const char* name)
    {
        const OpenWBEM::CIMParamValueArray in;
        OpenWBEM::CIMParamValueArray out;
        const OpenWBEM::CIMValue result = provider.invokeMethod(
            env, "root/cimv2", OpenWBEM::CIMObjectPath("ORX_LANServiceSetting"), name, in, out);
        EXPECT_EQ(out.size(), 0U);
        return result;
    }

    ORX_LANSettingProvider provider;
    const OpenWBEM::CIMClass nullClass{OpenWBEM::CIMNULL};
};

#endif
