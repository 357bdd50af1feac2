#include "kvu_registry.h"

#include "PlatformTest.hpp"

#include <gmock/gmock.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

/*
 * SQLite flushes through these two functions, which this program defines in place of the C library, to see
 * what is flushed and in which order.
 */

namespace
{

std::vector<std::string>* flushed = nullptr;

void note(int fd)
{
    if (flushed != nullptr)
        flushed->push_back(std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(fd)).filename());
}

} // namespace

extern "C" int fsync(int fd)
{
    note(fd);
    return static_cast<int>(::syscall(SYS_fsync, fd));
}

extern "C" int fdatasync(int fd)
{
    note(fd);
    return static_cast<int>(::syscall(SYS_fdatasync, fd));
}

namespace
{

using testing::ElementsAre;

class RegistryDurability : public PlatformTest
{
};

TEST_F(RegistryDurability, AValueIsOnTheDiskWhenTheCallReturns)
{
    ASSERT_EQ(KvuSetRegEntryUint16Ex(5, "key", "name", 1), 0U);
    std::vector<std::string> names;
    flushed = &names;
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, "key", "name", 2), 0U);
    flushed = nullptr;
    ASSERT_GE(names.size(), 3U);
    EXPECT_EQ(names.front(), "registry.db-journal");
    EXPECT_EQ(names.at(names.size() - 2), "registry.db");
    // The folder last: only when the journal's removal is on the disk, no power cut can undo the change.
    EXPECT_EQ(names.back(), "state");
}

TEST_F(RegistryDurability, ReadingWaitsForNoDisk)
{
    ASSERT_EQ(KvuSetRegEntryUint16Ex(5, "key", "name", 1), 0U);
    std::vector<std::string> names;
    flushed = &names;
    uint16_t value = 0;
    EXPECT_EQ(KvuGetRegEntryUint16Ex(5, "key", "name", &value), 0U);
    flushed = nullptr;
    EXPECT_THAT(names, ElementsAre());
}

} // namespace
