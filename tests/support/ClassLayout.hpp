#ifndef KV_TESTS_CLASSLAYOUT_HPP
#define KV_TESTS_CLASSLAYOUT_HPP

#include <OW_CppInstanceProviderIFC.hpp>
#include <OW_CppMethodProviderIFC.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <typeinfo>
#include <vector>

namespace fakes
{

// In the Itanium C++ ABI, which GCC and Clang follow on this server and on the development machine, a pointer
// to a virtual member holds the offset of its slot plus one. A virtual destructor takes two slots.
template <typename Member>
std::size_t slot(Member member)
{
    static_assert(sizeof member >= sizeof(std::ptrdiff_t));
    std::ptrdiff_t offsetPlusOne = 0;
    std::memcpy(&offsetPlusOne, &member, sizeof offsetPlusOne);
    return static_cast<std::size_t>(offsetPlusOne - 1) / sizeof(void*);
}

/// Expects the slots to follow each other without a gap, beginning with `first`.
inline void expectConsecutive(std::size_t first, const std::vector<std::size_t>& slots)
{
    for (std::size_t i = 0; i < slots.size(); ++i)
        EXPECT_EQ(slots[i], i + first) << "operation " << i;
}

/// The direct bases of a class in their order, each as "[public ][virtual ]<name>". Empty for a class without
/// bases and for one with nothing but a single public base that is not virtual.
std::vector<std::string> basesOf(const std::type_info& type);

/// Expects the bases of a provider of instances and methods, in this order.
template <typename Provider>
void expectInstanceThenMethodProvider()
{
    EXPECT_EQ(basesOf(typeid(Provider)), (std::vector<std::string>{"public OpenWBEM::CppInstanceProviderIFC",
                                                                   "public OpenWBEM::CppMethodProviderIFC"}));
}

/// Expects such a provider's operations on instances in the slots of the interface, one after the other, and
/// behind them initialize and invokeMethod.
template <typename Provider>
void expectOperationsInOrder()
{
    using Operations = OpenWBEM::CppInstanceProviderIFC;
    EXPECT_EQ(slot(&Provider::enumInstanceNames), slot(&Operations::enumInstanceNames));
    expectConsecutive(slot(&Operations::enumInstanceNames),
                      {slot(&Provider::enumInstanceNames), slot(&Provider::enumInstances),
                       slot(&Provider::getInstance), slot(&Provider::createInstance),
                       slot(&Operations::modifyInstance), slot(&Provider::deleteInstance)});
    expectConsecutive(slot(&Operations::getInstanceProvider) + 1,
                      {slot(&Provider::initialize), slot(&Provider::invokeMethod)});
}

} // namespace fakes

#endif
