#include "lansetting/ORX_LANSetting.hpp"

#include <gtest/gtest.h>

namespace
{

TEST(SettingLayout, TheModelBeginsWithAnEndpointOfTheCustomerLan)
{
    const ORX_LANSetting setting;
    const auto& endpoint = reinterpret_cast<const ORX_LANEndpointAPI&>(setting);
    OpenWBEM::String name;
    EXPECT_EQ(1, endpoint.getName(name));
    EXPECT_STREQ("eth1", name.c_str());
}

} // namespace
