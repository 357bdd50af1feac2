#include "dscp/CFG_Exception.hpp"

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

TEST(ConfigurationFailures, FormOneFamilyWhoseTypesCarryTheMeaning)
{
    EXPECT_TRUE((std::is_base_of_v<std::exception, CFG_Exception>));
    EXPECT_TRUE((std::is_base_of_v<CFG_Exception, CFG_NoInstance>));
    EXPECT_TRUE((std::is_base_of_v<CFG_Exception, CFG_InstanceCreationFailed>));
    EXPECT_TRUE((std::is_base_of_v<CFG_Exception, CFG_InstanceDeletionFailed>));
    EXPECT_FALSE((std::is_base_of_v<CFG_NoInstance, CFG_InstanceCreationFailed>));
    EXPECT_TRUE(std::has_virtual_destructor_v<CFG_InstanceDeletionFailed>);
    EXPECT_EQ(sizeof(std::exception), sizeof(CFG_NoInstance));
}

TEST(ConfigurationFailures, HaveTheTextOfTheStandardException)
{
    EXPECT_STREQ(std::exception().what(), CFG_Exception().what());
    EXPECT_STREQ(std::exception().what(), CFG_NoInstance().what());
    EXPECT_STREQ(std::exception().what(), CFG_InstanceCreationFailed().what());
    EXPECT_STREQ(std::exception().what(), CFG_InstanceDeletionFailed().what());
}

} // namespace
