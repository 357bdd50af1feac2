// The object manager calls the provider through its virtual tables, so the order of bases and slots is part
// of the interface, and so is the size of the object.

#include "ClassLayout.hpp"
#include "Environment.hpp"
#include "provider/LANProvider.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <typeinfo>

using fakes::Lines;
using fakes::slot;
using OpenWBEM::CppInstanceProviderIFC;
using OpenWBEM::CppMethodProviderIFC;

namespace
{

struct NothingButTheBases : CppMethodProviderIFC, CppInstanceProviderIFC {
};

TEST(LANProviderLayout, TheMethodInterfaceIsTheFirstBaseAndTheInstanceInterfaceTheSecond)
{
    EXPECT_EQ(fakes::basesOf(typeid(LANProvider)),
              (Lines{"public OpenWBEM::CppMethodProviderIFC", "public OpenWBEM::CppInstanceProviderIFC"}));
}

TEST(LANProviderLayout, TheProviderHasNoDataOfItsOwn)
{
    EXPECT_EQ(sizeof(NothingButTheBases), sizeof(LANProvider));
}

TEST(LANProviderLayout, TheOperationsStandInTheirOrderBehindThoseOfTheFirstBase)
{
    EXPECT_EQ(slot(&CppMethodProviderIFC::invokeMethod), slot(&LANProvider::invokeMethod));
    const std::size_t lastOfTheBase =
        std::max({slot(&CppMethodProviderIFC::getMethodProviderInfo),
                  slot(&CppMethodProviderIFC::invokeMethod), slot(&CppMethodProviderIFC::getMethodProvider)});
    const std::vector<std::size_t> slots = {
        slot(&LANProvider::initialize),     slot(&LANProvider::enumInstanceNames),
        slot(&LANProvider::enumInstances),  slot(&LANProvider::getInstance),
        slot(&LANProvider::createInstance), slot(&LANProvider::deleteInstance),
        slot(&LANProvider::modifyInstance),
    };
    fakes::expectConsecutive(lastOfTheBase + 1, slots);
}

} // namespace
