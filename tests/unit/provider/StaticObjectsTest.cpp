// The static objects of LANProvider.cpp, told by the registration of their destructors: the C++ runtime calls
// these in the reverse order.

#include "reporting/Logging.hpp"

#include <OW_String.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <typeinfo>

namespace
{

// Filled before any static object is constructed, hence without a constructor.
constexpr int maximum = 1000;
const void* registered[maximum];
int count = 0;

/// The class of a polymorphic object, which its virtual table names in the place before the first operation.
const std::type_info& classOf(const void* object)
{
    const auto* const table = *static_cast<const std::type_info* const* const*>(object);
    return *table[-1];
}

const char* textOf(const void* string)
{
    return static_cast<const OpenWBEM::String*>(string)->c_str();
}

} // namespace

extern "C" {
// The linker's and the runtime's names.
int __real___cxa_atexit(void (*destructor)(void*), void* object, void* library);
int __wrap___cxa_atexit(void (*destructor)(void*), void* object, void* library);

int __wrap___cxa_atexit(void (*destructor)(void*), void* object, void* library)
{
    if (count < maximum)
        registered[count++] = object;
    return __real___cxa_atexit(destructor, object, library);
}
}

namespace
{

TEST(StaticObjects, LoggerClassNamesAndSubProvidersAreConstructedInThisOrder)
{
    const void* const* const begin = registered;
    const void* const* const end = begin + count;
    const void* const* const logger = std::find(begin, end, &gLogger);
    ASSERT_LT(logger + 6, end);
    EXPECT_STREQ("ORX_LANEndpoint", textOf(logger[1]));
    EXPECT_STREQ("ORX_LANServiceSetting", textOf(logger[2]));
    EXPECT_STREQ("ORX_ALGService", textOf(logger[3]));
    EXPECT_STREQ("23ORX_LANEndpointProvider", classOf(logger[4]).name());
    EXPECT_STREQ("22ORX_LANSettingProvider", classOf(logger[5]).name());
    EXPECT_STREQ("22ORX_ALGServiceProvider", classOf(logger[6]).name());
}

} // namespace
