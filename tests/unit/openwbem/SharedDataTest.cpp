#include "OW_CIMInstance.hpp"
#include "OW_CIMValue.hpp"
#include <gtest/gtest.h>
#include <thread>
#include <vector>

using namespace OpenWBEM;

// Two enumerations can run in a provider at the same time, on copies of the same objects.
TEST(SharedData, isChangedByManyThreadsWithoutOneSeeingTheOther)
{
    CIMInstance original("C");
    original.setProperty("x", CIMValue(Int32(-1)));
    std::vector<std::thread> threads;
    threads.reserve(4);
    std::vector<int> wrong(4, 0);
    for (int id = 0; id < 4; ++id) {
        threads.emplace_back([copy = original, id, &wrong] {
            for (int n = 0; n < 500; ++n) {
                CIMInstance mine(copy);
                mine.setProperty("x", CIMValue(Int32(id)));
                wrong[size_t(id)] += mine.getPropertyValue("x").toInt32() == id ? 0 : 1;
                wrong[size_t(id)] += copy.getPropertyValue("x").toInt32() == -1 ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(std::vector<int>(4, 0), wrong);
    EXPECT_EQ(-1, original.getPropertyValue("x").toInt32());
}
