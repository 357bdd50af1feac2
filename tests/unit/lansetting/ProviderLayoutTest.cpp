// The object manager calls the provider through its virtual tables, so the order of bases and slots is part
// of the interface.

#include "ClassLayout.hpp"
#include "lansetting/ORX_LANSettingProvider.hpp"

TEST(SettingProviderLayout, TheInstanceInterfaceIsTheFirstBaseAndTheMethodInterfaceTheSecond)
{
    fakes::expectInstanceThenMethodProvider<ORX_LANSettingProvider>();
}

TEST(SettingProviderLayout, TheOperationsStandInTheInstanceInterfacesOrderAndTheOthersBehindThem)
{
    fakes::expectOperationsInOrder<ORX_LANSettingProvider>();
}

TEST(SettingProviderLayout, TheProviderHasNoDataOfItsOwn)
{
    struct NothingButTheBases : OpenWBEM::CppInstanceProviderIFC, OpenWBEM::CppMethodProviderIFC {
    };
    EXPECT_EQ(sizeof(NothingButTheBases), sizeof(ORX_LANSettingProvider));
}
