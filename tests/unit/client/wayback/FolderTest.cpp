#include "wayback/Folder.hpp"

#include "TemporaryFolder.hpp"
#include "wayback/Lock.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace lanctl::wayback
{
namespace
{

unsigned permissionsOf(const std::string& path)
{
    struct stat status = {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status.st_mode & 07777U;
}

class FolderTest : public testing::Test
{
  protected:
    TemporaryFolder m_temporary;
    Folder m_folder{m_temporary.path() + "/state/lanctl/pbx1"};
};

TEST_F(FolderTest, MakesTheFoldersAboveAndOnlyTheOwnerGetsIn)
{
    EXPECT_EQ(permissionsOf(m_temporary.path() + "/state"), 0700U);
    EXPECT_EQ(permissionsOf(m_folder.path()), 0700U);
}

TEST_F(FolderTest, AWrittenFileIsReadBackAndOnlyTheOwnerReadsIt)
{
    m_folder.write("a", std::string("x\0y", 3));
    EXPECT_EQ(m_folder.read("a"), std::string("x\0y", 3));
    EXPECT_EQ(permissionsOf(m_folder.pathOf("a")), 0600U);
}

TEST_F(FolderTest, NothingUnfinishedIsLeftBehind)
{
    m_folder.write("a", "text");
    EXPECT_EQ(m_folder.names(), std::vector<std::string>{"a"});
}

TEST_F(FolderTest, AFileThatCannotBeWrittenKeepsItsOldText)
{
    m_folder.write("a", "old");
    // A folder in the place of the unfinished file.
    ASSERT_EQ(mkdir(m_folder.pathOf("a.new").c_str(), 0700), 0);
    EXPECT_THROW(m_folder.write("a", "new"), FolderError);
    EXPECT_EQ(m_folder.read("a"), "old");
}

TEST_F(FolderTest, AMissingFileHasNoText)
{
    EXPECT_EQ(m_folder.read("a"), std::nullopt);
    EXPECT_FALSE(m_folder.has("a"));
    EXPECT_FALSE(m_folder.remove("a"));
}

TEST_F(FolderTest, AMarkIsThereUntilItIsRemoved)
{
    m_folder.mark("confirm");
    EXPECT_TRUE(m_folder.has("confirm"));
    EXPECT_TRUE(m_folder.remove("confirm"));
    EXPECT_FALSE(m_folder.has("confirm"));
}

TEST_F(FolderTest, RenamingWhatIsNotThereIsAnError)
{
    EXPECT_THROW(m_folder.rename("a", "b"), FolderError);
}

TEST(FolderPathTest, AFileInTheWayIsNamedInTheError)
{
    const TemporaryFolder temporary;
    Folder(temporary.path()).write("state", "");
    try {
        Folder(temporary.path() + "/state/lanctl");
        FAIL() << "it was accepted";
    } catch (const FolderError& e) {
        EXPECT_EQ(std::string(e.what()),
                  "cannot make the folder " + temporary.path() + "/state/lanctl: Not a directory");
    }
}

TEST(FolderNameTest, KeepsTheUsualNamesAsTheyAre)
{
    EXPECT_EQ(folderName("pbx1"), "pbx1");
    EXPECT_EQ(folderName("10.0.0.5:5988"), "10.0.0.5:5988");
    EXPECT_EQ(folderName("[::1]:5988"), "[::1]:5988");
}

TEST(FolderNameTest, NoNameLeadsOutOfTheFolder)
{
    EXPECT_EQ(folderName("../../etc"), "%2E.%2F..%2Fetc");
    EXPECT_EQ(folderName(".."), "%2E.");
    EXPECT_EQ(folderName(std::string("a\0b", 3)), "a%00b");
    EXPECT_EQ(folderName("büro"), "b%C3%BCro");
}

TEST_F(FolderTest, ASecondLockIsRefusedUntilTheFirstIsGone)
{
    {
        const auto lock = Lock::take(m_folder);
        ASSERT_TRUE(lock);
        EXPECT_FALSE(Lock::take(m_folder));
    }
    EXPECT_TRUE(Lock::take(m_folder));
}

} // namespace
} // namespace lanctl::wayback
