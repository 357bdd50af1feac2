// What clients see of the LAN settings.

#include "SettingRequests.hpp"

#include <OW_CIMQualifier.hpp>

namespace
{

using OpenWBEM::CIMDataType;
using OpenWBEM::CIMInstance;
using OpenWBEM::CIMObjectPath;
using OpenWBEM::CIMPropertyArray;
using OpenWBEM::String;

class SettingInstance : public SettingRequests
{
};

const Lines emptyInstance = {"string InstanceID Kalvor:ORX_LANServiceSetting",
                             "string DomainName site.example",
                             "string PrimaryDNS ",
                             "string SecondaryDNS ",
                             "boolean isIcmpFilterEnabled false",
                             "boolean isArpFilterEnabled false",
                             "boolean isBroadcastFilterEnabled false",
                             "boolean isIPAddressConflictEnabled false",
                             "boolean isRouterPresent false"};

TEST_F(SettingInstance, CarriesNinePropertiesInThisOrder)
{
    givenResolverFile("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    givenSwitches("1010");
    world.routerPresent = true;
    const CIMInstance instance = getInstance();
    EXPECT_STREQ(instance.getClassName().c_str(), "ORX_LANServiceSetting");
    EXPECT_EQ(propertiesOf(instance),
              (Lines{"string InstanceID Kalvor:ORX_LANServiceSetting", "string DomainName site.example",
                     "string PrimaryDNS 10.0.0.1", "string SecondaryDNS 10.0.0.2",
                     "boolean isIcmpFilterEnabled true", "boolean isArpFilterEnabled false",
                     "boolean isBroadcastFilterEnabled true", "boolean isIPAddressConflictEnabled false",
                     "boolean isRouterPresent true"}));
}

TEST_F(SettingInstance, TellsTheFourSwitchesApart)
{
    for (const char* digits : {"1000", "0100", "0010", "0001"}) {
        setting = ORX_LANSetting();
        givenSwitches(digits);
        const Lines properties = propertiesOf(getInstance());
        std::string found;
        for (std::size_t i = 4; i < 8; ++i)
            found += properties[i].find(" true") != std::string::npos ? '1' : '0';
        EXPECT_EQ(found, digits);
    }
}

TEST_F(SettingInstance, HasTypedPropertiesWithoutQualifiers)
{
    const CIMPropertyArray properties = getInstance().getProperties();
    for (const auto& property : properties) {
        EXPECT_EQ(property.getQualifiers().size(), 0U) << property.getName().c_str();
        EXPECT_EQ(property.getDataType().getType(), property.getValue().getType());
    }
}

TEST_F(SettingInstance, WithoutNameserversHasEmptyTextsAndNoNulls)
{
    EXPECT_EQ(propertiesOf(getInstance()), emptyInstance);
}

TEST_F(SettingInstance, IsReadFromTheServerForEveryRequest)
{
    getInstance();
    givenResolverFile("nameserver 10.0.0.9\n");
    EXPECT_EQ(propertiesOf(getInstance())[2], "string PrimaryDNS 10.0.0.9");
    EXPECT_EQ(propertiesOf(enumInstances()[0])[2], "string PrimaryDNS 10.0.0.9");
}

TEST_F(SettingInstance, IsFoundByAnyKey)
{
    for (const char* key : {"Kalvor:ORX_LANServiceSetting", "", "nonsense"}) {
        CIMObjectPath path("ORX_LANServiceSetting", "root/cimv2");
        path.setKeyValue("InstanceID", OpenWBEM::CIMValue(key));
        EXPECT_EQ(propertiesOf(getInstance(path)), emptyInstance);
    }
    EXPECT_EQ(propertiesOf(getInstance(CIMObjectPath("ORX_LANServiceSetting"))), emptyInstance);
    EXPECT_EQ(propertiesOf(getInstance(CIMObjectPath("Another_Class"))), emptyInstance);
}

TEST_F(SettingInstance, IsCompleteWhateverTheRequestAsksFor)
{
    OpenWBEM::StringArray list;
    list.push_back("DomainName");
    const CIMInstance instance = provider.getInstance(
        env, "root/cimv2", CIMObjectPath("ORX_LANServiceSetting"), WBEMFlags::E_LOCAL_ONLY,
        WBEMFlags::E_INCLUDE_QUALIFIERS, WBEMFlags::E_INCLUDE_CLASS_ORIGIN, &list, nullClass);
    EXPECT_EQ(propertiesOf(instance), emptyInstance);

    OpenWBEM::CIMInstanceArray instances;
    OpenWBEM::CIMInstanceArrayBuilder result(instances);
    provider.enumInstances(env, "root/cimv2", "ORX_LANServiceSetting", result, WBEMFlags::E_LOCAL_ONLY,
                           WBEMFlags::E_SHALLOW, WBEMFlags::E_INCLUDE_QUALIFIERS,
                           WBEMFlags::E_INCLUDE_CLASS_ORIGIN, &list, nullClass, nullClass);
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_EQ(propertiesOf(instances[0]), emptyInstance);
}

TEST_F(SettingInstance, IsTheSameInEveryNamespace)
{
    for (const char* ns : {"", "root/orx"}) {
        EXPECT_EQ(
            propertiesOf(provider.getInstance(env, ns, CIMObjectPath("ORX_LANServiceSetting", "root/x"),
                                              WBEMFlags::E_NOT_LOCAL_ONLY, WBEMFlags::E_EXCLUDE_QUALIFIERS,
                                              WBEMFlags::E_EXCLUDE_CLASS_ORIGIN, nullptr, nullClass)),
            emptyInstance);
        OpenWBEM::CIMInstanceArray instances;
        OpenWBEM::CIMInstanceArrayBuilder result(instances);
        provider.enumInstances(env, ns, "ORX_LANServiceSetting", result, WBEMFlags::E_NOT_LOCAL_ONLY,
                               WBEMFlags::E_DEEP, WBEMFlags::E_EXCLUDE_QUALIFIERS,
                               WBEMFlags::E_EXCLUDE_CLASS_ORIGIN, nullptr, nullClass, nullClass);
        ASSERT_EQ(instances.size(), 1U);
        EXPECT_EQ(propertiesOf(instances[0]), emptyInstance);
    }
}

TEST_F(SettingInstance, IsTheOnlyOneOfAnEnumeration)
{
    const OpenWBEM::CIMInstanceArray instances = enumInstances();
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_STREQ(instances[0].getClassName().c_str(), "ORX_LANServiceSetting");
    EXPECT_EQ(propertiesOf(instances[0]), emptyInstance);
}

TEST_F(SettingInstance, HasANameWithAnEmptyInstanceId)
{
    const OpenWBEM::CIMObjectPathArray names = enumInstanceNames();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_STREQ(names[0].getClassName().c_str(), "ORX_LANServiceSetting");
    EXPECT_STREQ(names[0].getNameSpace().c_str(), "root/cimv2");
    ASSERT_EQ(names[0].getKeys().size(), 1U);
    EXPECT_EQ(names[0].getKeys()[0].getDataType().getType(), CIMDataType::STRING);
    EXPECT_STREQ(names[0].toString().c_str(), "/root/cimv2:ORX_LANServiceSetting.InstanceID=\"\"");
}

TEST_F(SettingInstance, HasANameInTheClassAndNamespaceOfTheRequest)
{
    const OpenWBEM::CIMObjectPathArray names = enumInstanceNames("orx_lanservicesetting", "root/orx");
    ASSERT_EQ(names.size(), 1U);
    EXPECT_STREQ(names[0].toString().c_str(), "/root/orx:orx_lanservicesetting.InstanceID=\"\"");
}

TEST_F(SettingInstance, IsOfItsOneClassWhateverIsAskedFor)
{
    EXPECT_STREQ(getInstance(CIMObjectPath("Another_Class")).getClassName().c_str(), "ORX_LANServiceSetting");
    const OpenWBEM::CIMInstanceArray instances = enumInstances("Another_Class");
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_STREQ(instances[0].getClassName().c_str(), "ORX_LANServiceSetting");
}

TEST_F(SettingInstance, ItsNameIsOnlyGivenWhenTheServerCanBeRead)
{
    world.officialHostName.reset();
    EXPECT_EQ(failureOf([&] { enumInstanceNames(); }).code, 1);
    EXPECT_EQ(failureOf([&] { enumInstances(); }).code, 1);
    EXPECT_EQ(failureOf([&] { getInstance(); }).code, 1);
}

TEST_F(SettingInstance, IsGivenEvenWhenASwitchCannotBeRead)
{
    modelFaults.unreadableSwitches = {"kv_netfilter_icmp"};
    EXPECT_EQ(propertiesOf(getInstance()), emptyInstance);
    EXPECT_EQ(enumInstances().size(), 1U);
    EXPECT_EQ(enumInstanceNames().size(), 1U);
}

TEST_F(SettingInstance, WithoutAnIdOfTheModelHasNoInstanceId)
{
    modelFaults.getInstanceIDFails = true;
    EXPECT_EQ(propertiesOf(getInstance()), Lines(emptyInstance.begin() + 1, emptyInstance.end()));
}

TEST_F(SettingInstance, WithoutAnIdOfTheModelHasNoName)
{
    modelFaults.getInstanceIDFails = true;
    EXPECT_EQ(failureOf([&] { enumInstanceNames(); }), (Failure{6, "", "ORX_LANSettingProvider.cpp"}));
    EXPECT_EQ(world.journal(fakes::Log), Lines{});
}

TEST_F(SettingInstance, TextsThatTheModelCannotGiveAreEmpty)
{
    givenResolverFile("nameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    modelFaults.getDomainNameFails = true;
    EXPECT_EQ(propertiesOf(getInstance())[1], "string DomainName ");
    modelFaults = ModelFaults();
    modelFaults.getPrimaryDNSFails = true;
    EXPECT_EQ(propertiesOf(getInstance())[2], "string PrimaryDNS ");
    modelFaults = ModelFaults();
    modelFaults.getSecondaryDNSFails = true;
    EXPECT_EQ(propertiesOf(getInstance())[3], "string SecondaryDNS ");
}

} // namespace
