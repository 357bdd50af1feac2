#include "kvu_registry.h"

#include "ChildProcess.hpp"
#include "PlatformTest.hpp"

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>

namespace
{

class RegistryFailure : public PlatformTest
{
  protected:
    static unsigned int read(uint16_t& value) { return KvuGetRegEntryUint16Ex(5, "key", "name", &value); }
    static unsigned int store(uint16_t value) { return KvuSetRegEntryUint16Ex(5, "key", "name", value); }

    std::string complaint(const char* function, const char* reason) const
    {
        return std::string("kvplatform: ") + function + ": " + path("registry.db") + ": " + reason + "\n";
    }

    /** Reading and writing both fail with one complaint each and leave the caller's value alone. */
    void expectBothFail(const char* readReason, const char* writeReason) const
    {
        uint16_t value = 4711;
        EXPECT_EQ(complaints([&value] { EXPECT_EQ(read(value), 1U); }),
                  complaint("KvuGetRegEntryUint16Ex", readReason));
        EXPECT_EQ(value, 4711);
        EXPECT_EQ(complaints([] { EXPECT_EQ(store(1), 1U); }),
                  complaint("KvuSetRegEntryUint16Ex", writeReason));
    }
};

TEST_F(RegistryFailure, NullPointersAreRefused)
{
    uint16_t value = 4711;
    EXPECT_EQ(KvuGetRegEntryUint16Ex(5, nullptr, "name", &value), 1U);
    EXPECT_EQ(KvuGetRegEntryUint16Ex(5, "key", nullptr, &value), 1U);
    EXPECT_EQ(KvuGetRegEntryUint16Ex(5, "key", "name", nullptr), 1U);
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, nullptr, "name", 1), 1U);
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, "key", nullptr, 1), 1U);
    EXPECT_EQ(value, 4711);
    EXPECT_FALSE(exists("registry.db"));
    EXPECT_EQ(events(), "KvuSetRegEntryUint16Ex(5, NULL, \"name\", 1) = 1\n"
                        "KvuSetRegEntryUint16Ex(5, \"key\", NULL, 1) = 1\n");
}

TEST_F(RegistryFailure, AMissingStateDirectoryIsNoEmptyRegistry)
{
    loseStateDir();
    expectBothFail("No such file or directory", "unable to open database file");
    EXPECT_FALSE(std::filesystem::exists(stateDir()));
}

TEST_F(RegistryFailure, AFileThatIsNoDatabaseIsReportedAndLeftAlone)
{
    const std::string garbage(5000, 'g');
    write("registry.db", garbage);
    expectBothFail("file is not a database", "file is not a database");
    EXPECT_EQ(contents("registry.db"), garbage);
}

TEST_F(RegistryFailure, ADamagedDatabaseIsReported)
{
    ASSERT_EQ(store(1), 0U);
    std::string damaged = contents("registry.db");
    damaged.replace(100, damaged.size() - 100, damaged.size() - 100, '\xFF');
    write("registry.db", damaged);
    expectBothFail("database disk image is malformed", "database disk image is malformed");
    EXPECT_EQ(contents("registry.db"), damaged);
}

TEST_F(RegistryFailure, AFolderInPlaceOfTheDatabaseIsReported)
{
    std::filesystem::create_directory(path("registry.db"));
    expectBothFail("unable to open database file", "unable to open database file");
}

TEST_F(RegistryFailure, AnEmptyFileIsAnEmptyRegistry)
{
    write("registry.db", "");
    uint16_t value = 4711;
    EXPECT_EQ(read(value), 2097165U);
    EXPECT_EQ(store(12), 0U);
    EXPECT_EQ(read(value), 0U);
    EXPECT_EQ(value, 12);
}

TEST_F(RegistryFailure, AStoredNumberBeyond16BitsIsAFailure)
{
    ASSERT_EQ(store(1), 0U);
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path("registry.db").c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, "UPDATE entry SET value = 65536", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(database);
    uint16_t value = 4711;
    EXPECT_EQ(complaints([&value] { EXPECT_EQ(read(value), 1U); }),
              complaint("KvuGetRegEntryUint16Ex", "value 65536 does not fit 16 bits"));
    EXPECT_EQ(value, 4711);
}

TEST_F(RegistryFailure, AReadOnlyRegistryIsReadButNotWritten)
{
    ASSERT_EQ(store(1), 0U);
    ::chmod(path("registry.db").c_str(), 0444);
    ::chmod(stateDir().c_str(), 0555);
    ::chmod(std::filesystem::path(stateDir()).parent_path().c_str(), 0755);
    const std::string told = complaints([] {
        EXPECT_EQ(inChild([] {
                      // Root may write everywhere; nobody may not.
                      if (::geteuid() == 0 && ::setuid(65534) != 0)
                          return 1;
                      uint16_t value = 0;
                      return read(value) == 0 && value == 1 && store(2) == 1 && read(value) == 0 && value == 1
                                 ? 0
                                 : 2;
                  }),
                  0);
    });
    ::chmod(stateDir().c_str(), 0755);
    EXPECT_EQ(told, complaint("KvuSetRegEntryUint16Ex", "attempt to write a readonly database"));
}

TEST_F(RegistryFailure, AFullDiskLeavesTheEarlierValue)
{
    ASSERT_EQ(store(1), 0U);
    const std::string told = complaints([] {
        EXPECT_EQ(inChild([] {
                      // As on a disk with room for the complaint, but not for a page of the database.
                      std::signal(SIGXFSZ, SIG_IGN);
                      const rlimit limit = {2000, 2000};
                      ::setrlimit(RLIMIT_FSIZE, &limit);
                      return static_cast<int>(store(2));
                  }),
                  1);
    });
    EXPECT_EQ(told, complaint("KvuSetRegEntryUint16Ex", "disk I/O error"));
    uint16_t value = 0;
    EXPECT_EQ(read(value), 0U);
    EXPECT_EQ(value, 1);
}

TEST_F(RegistryFailure, AWriterKilledInTheMiddleLeavesTheEarlierValue)
{
    ASSERT_EQ(store(1), 0U);
    Signal written;
    ChildProcess writer([&] {
        sqlite3* database = nullptr;
        sqlite3_open(path("registry.db").c_str(), &database);
        // A cache of one page makes SQLite write the change to the file before it is committed.
        sqlite3_exec(database,
                     "PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN;"
                     "UPDATE entry SET value = 2;"
                     "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 500)"
                     "INSERT INTO entry SELECT 5, 'filler', printf('%0100d', i), 1 FROM n",
                     nullptr, nullptr, nullptr);
        written.send();
        ::pause();
        return 0;
    });
    written.wait();
    writer.kill();
    writer.wait();
    ASSERT_TRUE(exists("registry.db-journal"));
    uint16_t value = 0;
    EXPECT_EQ(read(value), 0U);
    EXPECT_EQ(value, 1);
}

} // namespace
