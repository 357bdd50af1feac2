// What else a request carries - flags, property list, class - changes nothing: restricting answers is the
// object manager's business.

#include "ProviderFixture.hpp"

#include <OW_CIMClass.hpp>
#include <OW_ResultHandlers.hpp>

#include <gtest/gtest.h>

using namespace fakes;
using OpenWBEM::CIMClass;
using OpenWBEM::CIMInstanceArray;
using OpenWBEM::CIMInstanceArrayBuilder;
using OpenWBEM::CIMValue;
using OpenWBEM::StringArray;
namespace WBEMFlags = OpenWBEM::WBEMFlags;

namespace
{

class RequestArguments : public ProviderTest
{
  protected:
    RequestArguments() { listed.push_back("Name"); }

    StringArray listed;
};

TEST_F(RequestArguments, DoNotRestrictAnEnumeration)
{
    CIMInstanceArray instances;
    CIMInstanceArrayBuilder result(instances);
    provider.enumInstances(env, "root/other", "ORX_LANEndpoint", result, WBEMFlags::E_LOCAL_ONLY,
                           WBEMFlags::E_SHALLOW, WBEMFlags::E_EXCLUDE_QUALIFIERS,
                           WBEMFlags::E_INCLUDE_CLASS_ORIGIN, &listed, CIMClass("ORX_Other"),
                           CIMClass("ORX_Other"));
    const auto plain = enumInstances();
    ASSERT_EQ(plain.size(), instances.size());
    for (std::size_t i = 0; i < plain.size(); ++i)
        EXPECT_EQ(shown(plain[i]), shown(instances[i]));
}

TEST_F(RequestArguments, DoNotRestrictAModification)
{
    provider.modifyInstance(
        env, "root/cimv2", instanceOf("eth1", {property("MaxDataSize", OpenWBEM::Int32(1400))}),
        instanceOf("eth2", {}), WBEMFlags::E_EXCLUDE_QUALIFIERS, &listed, CIMClass("ORX_Other"));
    EXPECT_EQ(1400, world.interfaces["eth1"].mtu);
}

TEST_F(RequestArguments, ANameOfAnotherTypeIsTakenByItsText)
{
    OpenWBEM::CIMObjectPath path("ORX_LANEndpoint");
    path.setKeyValue("Name", CIMValue(OpenWBEM::UInt16(5)));
    try {
        getInstance(path);
        FAIL() << "nothing was thrown";
    } catch (const OpenWBEM::CIMException& e) {
        EXPECT_STREQ("Cannot find the corresponding if interface#LAN_ERROR_noIFNameMapping#",
                     e.Exception::getMessage());
    }
}

} // namespace
