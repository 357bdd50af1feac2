#include "ProviderLoader.hpp"
#include "ConsoleLogger.hpp"
#include "ProviderEnvironment.hpp"
#include "StderrCapture.hpp"

#include "OW_CIMException.hpp"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace cimom::test
{
namespace
{

using namespace OpenWBEM;
namespace fs = std::filesystem;

// A directory with the libraries that a test names, and a loader for it.
class ProviderLoading : public ::testing::Test
{
  protected:
    ProviderLoading() : loader({directory().string()}, environment()) {}
    ~ProviderLoading() override
    {
        unsetenv("JOURNAL_PROVIDER");
        fs::remove_all(directory());
    }

    static fs::path directory()
    {
        const fs::path path = fs::temp_directory_path() / ("providers-" + std::to_string(getpid()));
        fs::create_directories(path);
        return path;
    }
    static ProviderEnvironmentIFCRef environment()
    {
        const LoggerRef logger(new ConsoleLogger(E_INFO_LEVEL));
        return ProviderEnvironmentIFCRef(new ProviderEnvironment(logger, {{"item", "value"}}));
    }
    static void install(const std::string& id)
    {
        fs::copy(fs::path(TEST_PROVIDER_DIR) / ("lib" + id + ".so"), directory());
    }
    std::string failureOf(const std::string& id)
    {
        try {
            loader.provider(id);
        } catch (const CIMException& e) {
            return e.getMessage();
        }
        return "none";
    }

    StderrCapture printed;
    ProviderLoader loader;
};

const char* const inspection =
    "created\npolled?\nwhich instances?\nwhich methods?\nindications?\ndestroyed\n";
const char* const firstUse = "created\ninitialized\nERROR a word from the provider\nitem: value\n";

TEST_F(ProviderLoading, InspectionMakesAndDropsAProviderWithoutInitializingIt)
{
    install("Journal");
    EXPECT_EQ(loader.inspect(), std::vector<std::string>{"Journal"});
    EXPECT_EQ(printed.take(), inspection);
}

TEST_F(ProviderLoading, AProviderIsMadeAndInitializedOnceByItsFirstRequest)
{
    install("Journal");
    loader.inspect();
    printed.take();
    EXPECT_TRUE(bool(loader.provider("Journal")));
    EXPECT_TRUE(bool(loader.provider("Journal")));
    EXPECT_EQ(printed.take(), firstUse);
}

TEST_F(ProviderLoading, SymbolsOfAProviderAreVisibleToOtherLibrariesWhileItIsLoaded)
{
    install("Journal");
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "createProviderJournal"), nullptr);
    loader.provider("Journal");
    EXPECT_NE(dlsym(RTLD_DEFAULT, "createProviderJournal"), nullptr);
}

TEST_F(ProviderLoading, LibrariesOfAnotherVersionAreRefused)
{
    install("OtherVersion");
    EXPECT_TRUE(loader.inspect().empty());
    EXPECT_EQ(printed.take(),
              "ERROR Cannot load provider OtherVersion: it is made for OpenWBEM 3.0.2, not 3.0.3\n");
    EXPECT_EQ(failureOf("OtherVersion"), "general error (Invalid provider: OtherVersion)");
}

TEST_F(ProviderLoading, LibrariesWithoutVersionAreRefused)
{
    install("NoVersion");
    EXPECT_TRUE(loader.inspect().empty());
    EXPECT_EQ(printed.take(), "ERROR Cannot load provider NoVersion: it has no function getOWVersion\n");
}

TEST_F(ProviderLoading, TheNamesOfLibraryAndFunctionMustAgree)
{
    install("OtherName");
    EXPECT_TRUE(loader.inspect().empty());
    EXPECT_EQ(printed.take(),
              "ERROR Cannot load provider OtherName: it has no function createProviderOtherName\n");
}

TEST_F(ProviderLoading, ALibraryThatMakesNothingIsRefused)
{
    install("MadeNothing");
    EXPECT_EQ(failureOf("MadeNothing"), "general error (Invalid provider: MadeNothing)");
    EXPECT_EQ(printed.take(),
              "ERROR Cannot load provider MadeNothing: createProviderMadeNothing made nothing\n");
}

TEST_F(ProviderLoading, AFileThatIsNoLibraryIsRefused)
{
    std::ofstream(directory() / "libText.so") << "no library";
    EXPECT_TRUE(loader.inspect().empty());
    EXPECT_EQ(printed.take().rfind("ERROR Cannot load provider Text: ", 0), 0U);
}

TEST_F(ProviderLoading, OtherFilesAreNotLookedAt)
{
    std::ofstream(directory() / "README") << "text";
    std::ofstream(directory() / "Journal.so") << "text";
    EXPECT_TRUE(loader.inspect().empty());
    EXPECT_EQ(printed.take(), "");
}

TEST_F(ProviderLoading, AMissingLibraryFailsTheRequest)
{
    EXPECT_EQ(failureOf("Nowhere"), "general error (Invalid provider: Nowhere)");
    EXPECT_EQ(printed.take(), "ERROR Cannot load provider Nowhere: there is no libNowhere.so\n");
}

TEST_F(ProviderLoading, AProviderThatCannotInitializeIsTriedAgain)
{
    install("Failing");
    EXPECT_EQ(failureOf("Failing"), "general error (not today)");
    EXPECT_EQ(failureOf("Failing"), "general error (not today)");
    EXPECT_EQ(printed.take(), "created\ndestroyed\ncreated\ndestroyed\n");
}

TEST_F(ProviderLoading, AnIdleProviderIsUnloadedAndComesBack)
{
    install("Journal");
    loader.provider("Journal");
    loader.unloadIdle(std::chrono::seconds(60));
    EXPECT_EQ(printed.take(), firstUse);
    loader.unloadIdle(std::chrono::seconds(-1));
    EXPECT_EQ(printed.take(), "INFO Unloading provider Journal\ndestroyed\n");
    loader.unloadIdle(std::chrono::seconds(-1));
    EXPECT_EQ(printed.take(), "");
    loader.provider("Journal");
    EXPECT_EQ(printed.take(), firstUse);
}

TEST_F(ProviderLoading, AProviderMayRefuseToBeUnloaded)
{
    install("Journal");
    loader.provider("Journal");
    printed.take();
    setenv("JOURNAL_PROVIDER", "busy", 1);
    loader.unloadIdle(std::chrono::seconds(-1));
    EXPECT_EQ(printed.take(), "");
    unsetenv("JOURNAL_PROVIDER");
    loader.provider("Journal")->setPersist(true);
    loader.unloadIdle(std::chrono::seconds(-1));
    EXPECT_EQ(printed.take(), "");
    loader.provider("Journal")->setPersist(false);
}

TEST_F(ProviderLoading, AnUnreadableDirectoryIsLogged)
{
    ProviderLoader elsewhere({"/nonexistent/providers"}, environment());
    EXPECT_TRUE(elsewhere.inspect().empty());
    EXPECT_EQ(printed.take(),
              "ERROR Cannot read provider directory /nonexistent/providers: No such file or directory\n");
}

} // namespace
} // namespace cimom::test
