// Files that are missing, cannot be moved or cannot be created: never an error, and nothing lost on the way.

#include "StoreTest.hpp"

#include <cerrno>

namespace
{

using Store = CCOrxConfig;

class StoreFailure : public StoreTest
{
  protected:
    /// An absolute path of `length` characters whose directories exist. Its file does not.
    std::string pathOf(std::size_t length)
    {
        const std::string directory = "/kv/" + std::string(100, 'd') + "/" + std::string(100, 'e');
        world.makeDirectory(directory);
        return directory + "/" + std::string(length - directory.size() - 1, 'f');
    }
};

TEST_F(StoreFailure, AMissingFileGivesAnEmptyStoreThatIsNotWritten)
{
    {
        Store store(path, Blank);
        store.SetValue("a", "1");
        store.Commit();
    }
    EXPECT_EQ(world.journal(), Lines{"fopen /kv/etc/store.cfg r"});
    EXPECT_FALSE(world.exists(path));
    EXPECT_FALSE(world.exists(backup));
}

TEST_F(StoreFailure, AFileThatCannotBeReadIsLeftAlone)
{
    givenFile("a 1\n");
    world.failNth(1, "fopen", EACCES);
    Store store(path, Blank);
    EXPECT_EQ(store.GetStrValue("a"), "");
    store.Commit();
    EXPECT_EQ(world.read(path), "a 1\n");
    EXPECT_FALSE(world.exists(backup));
}

TEST_F(StoreFailure, ABackupThatCannotBeRemovedIsNoObstacle)
{
    givenFile("a 1\n");
    world.failNth(1, "remove", EACCES);
    Store store(path, Blank);
    store.SetValue("a", "2");
    store.Commit();
    EXPECT_EQ(world.read(path), "a   2\n");
    EXPECT_EQ(world.read(backup), "a 1\n");
}

TEST_F(StoreFailure, AFileThatCannotBeRenamedIsOverwrittenInPlace)
{
    givenFile("a 1\nb 2 and a tail that must not survive\n");
    world.failNth(1, "rename", EACCES);
    Store store(path, Blank);
    store.Commit();
    EXPECT_EQ(world.read(path), "a   1\nb   2\n");
    EXPECT_FALSE(world.exists(backup));
}

TEST_F(StoreFailure, ARefusedRenameStillCostsTheEarlierBackup)
{
    givenFile("a 1\n");
    world.write(backup, "older\n");
    world.failNth(1, "rename", EACCES);
    Store store(path, Blank);
    store.Commit();
    EXPECT_FALSE(world.exists(backup));
}

TEST_F(StoreFailure, AFileThatCannotBeCreatedLeavesTheBackupOnly)
{
    givenFile("a 1\n");
    world.failNth(1, "fopen", EACCES, "store.cfg w");
    Store store(path, Blank);
    store.SetValue("a", "2");
    store.Commit();
    EXPECT_FALSE(world.exists(path));
    EXPECT_EQ(world.read(backup), "a 1\n");
    EXPECT_EQ(store.GetStrValue("a"), "2");
}

TEST_F(StoreFailure, APathOf255CharactersIsReadAndWritten)
{
    const std::string longPath = pathOf(255);
    ASSERT_EQ(longPath.size(), 255U);
    world.write(longPath, "a 1\n");
    Store store(longPath.c_str(), Blank);
    store.SetValue("a", "2");
    store.Commit();
    EXPECT_EQ(world.read(longPath), "a   2\n");
    EXPECT_EQ(world.read(longPath + ".0"), "a 1\n");
}

TEST_F(StoreFailure, APathOf256CharactersIsTakenForAFileThatCannotBeOpened)
{
    const std::string longPath = pathOf(256);
    world.write(longPath, "a 1\n");
    Store store(longPath.c_str(), Blank);
    EXPECT_EQ(store.GetStrValue("a"), "");
    store.SetValue("a", "2");
    store.Commit();
    EXPECT_EQ(world.journal(), Lines{});
    EXPECT_EQ(world.read(longPath), "a 1\n");
}

TEST_F(StoreFailure, ADirectoryGivesAnEmptyStore)
{
    world.makeDirectory(path);
    const Store store(path, Blank);
    EXPECT_EQ(store.GetStrValue("a"), "");
}

} // namespace
