// The object manager calls the provider through its virtual tables, so the order of bases and slots is part
// of the interface.

#include "ClassLayout.hpp"
#include "lanendpoint/ORX_LANEndpointProvider.hpp"

TEST(EndpointProviderLayout, TheInstanceInterfaceIsTheFirstBaseAndTheMethodInterfaceTheSecond)
{
    fakes::expectInstanceThenMethodProvider<ORX_LANEndpointProvider>();
}

TEST(EndpointProviderLayout, TheOperationsStandInTheInstanceInterfacesOrderAndTheOthersBehindThem)
{
    fakes::expectOperationsInOrder<ORX_LANEndpointProvider>();
}
