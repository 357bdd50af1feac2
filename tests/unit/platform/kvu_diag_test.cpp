#include "kvu_diag.h"

#include "PlatformTest.hpp"

#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace
{

class Diagnostics : public PlatformTest
{
  protected:
    static unsigned int registerAs(const char* logFileName, KvuDiagHandle& handle)
    {
        return KvuDiagRegisterModule("ORX_DSCPService", "DSCP", 0, logFileName, &handle);
    }

    KvuDiagHandle registered() const
    {
        KvuDiagHandle handle = 0;
        EXPECT_EQ(registerAs("ORX_DSCP.log", handle), 0U);
        return handle;
    }

    /** The log with each line's time, which must be there, replaced by "TIME". */
    std::string log() const
    {
        std::istringstream lines(contents("ORX_DSCP.log"));
        std::string result;
        for (std::string line; std::getline(lines, line);)
            result += isTime(line.substr(0, 20)) ? "TIME" + line.substr(20) + "\n" : line + "\n";
        return result;
    }

  private:
    static bool isTime(const std::string& text)
    {
        std::string shape = text;
        for (char& c : shape)
            c = c >= '0' && c <= '9' ? '9' : c;
        return shape == "9999-99-99T99:99:99Z";
    }
};

TEST_F(Diagnostics, RegistrationGivesAHandleAndAnEmptyLog)
{
    const KvuDiagHandle handle = registered();
    EXPECT_NE(handle, 0U);
    EXPECT_TRUE(exists("ORX_DSCP.log"));
    EXPECT_EQ(log(), "");
    EXPECT_EQ(KvuDiagDeregisterModule(handle), 0U);
}

TEST_F(Diagnostics, EntriesAreLinesWithTimeModuleAndLevel)
{
    const KvuDiagHandle handle = registered();
    EXPECT_EQ(KvuDiagAddLogEntry(handle, 2, 1, -1, "broken\n"), 0U);
    EXPECT_EQ(KvuDiagAddLogEntry(handle, 2, 4, -1, "odd"), 0U);
    EXPECT_EQ(KvuDiagAddLogEntry(handle, 2, 8, -1, "done\n"), 0U);
    EXPECT_EQ(KvuDiagAddLogEntry(handle, 2, 2, -1, ""), 0U);
    EXPECT_EQ(log(), "TIME DSCP error: broken\n"
                     "TIME DSCP warning: odd\n"
                     "TIME DSCP note: done\n"
                     "TIME DSCP level 2: \n");
    KvuDiagDeregisterModule(handle);
}

TEST_F(Diagnostics, AnEntryOfSeveralLinesStaysOneLine)
{
    const KvuDiagHandle handle = registered();
    EXPECT_EQ(KvuDiagAddLogEntry(handle, 2, 1, -1, "one\ntwo\r\n\n"), 0U);
    EXPECT_EQ(log(), "TIME DSCP error: one\\ntwo\\x0D\\n\n");
    KvuDiagDeregisterModule(handle);
}

TEST_F(Diagnostics, ALaterRegistrationContinuesTheLog)
{
    const KvuDiagHandle first = registered();
    KvuDiagAddLogEntry(first, 2, 8, -1, "first");
    KvuDiagDeregisterModule(first);
    const KvuDiagHandle second = registered();
    KvuDiagAddLogEntry(second, 2, 8, -1, "second");
    KvuDiagDeregisterModule(second);
    EXPECT_EQ(log(), "TIME DSCP note: first\nTIME DSCP note: second\n");
}

TEST_F(Diagnostics, EveryModuleHasItsOwnLog)
{
    KvuDiagHandle other = 0;
    ASSERT_EQ(KvuDiagRegisterModule("Other", "OTH", 0, "other.log", &other), 0U);
    const KvuDiagHandle handle = registered();
    EXPECT_NE(other, handle);
    KvuDiagAddLogEntry(other, 2, 8, -1, "elsewhere");
    EXPECT_EQ(log(), "");
    EXPECT_NE(contents("other.log").find("OTH note: elsewhere\n"), std::string::npos);
    KvuDiagDeregisterModule(other);
    KvuDiagDeregisterModule(handle);
}

TEST_F(Diagnostics, AHandleNeverGivenOutIsRefused)
{
    EXPECT_EQ(KvuDiagAddLogEntry(0, 2, 1, -1, "text"), 1U);
    EXPECT_EQ(KvuDiagDeregisterModule(0), 1U);
}

TEST_F(Diagnostics, ADeregisteredHandleIsRefused)
{
    const KvuDiagHandle handle = registered();
    EXPECT_EQ(KvuDiagDeregisterModule(handle), 0U);
    EXPECT_EQ(KvuDiagDeregisterModule(handle), 1U);
    EXPECT_EQ(KvuDiagAddLogEntry(handle, 2, 1, -1, "text"), 1U);
    EXPECT_EQ(log(), "");
}

TEST_F(Diagnostics, NullPointersAreRefused)
{
    KvuDiagHandle handle = 4711;
    EXPECT_EQ(KvuDiagRegisterModule(nullptr, "DSCP", 0, "a.log", &handle), 1U);
    EXPECT_EQ(KvuDiagRegisterModule("ORX_DSCPService", nullptr, 0, "a.log", &handle), 1U);
    EXPECT_EQ(KvuDiagRegisterModule("ORX_DSCPService", "DSCP", 0, nullptr, &handle), 1U);
    EXPECT_EQ(KvuDiagRegisterModule("ORX_DSCPService", "DSCP", 0, "a.log", nullptr), 1U);
    EXPECT_EQ(handle, 4711U);
    EXPECT_FALSE(exists("a.log"));

    const KvuDiagHandle valid = registered();
    EXPECT_EQ(KvuDiagAddLogEntry(valid, 2, 1, -1, nullptr), 1U);
    KvuDiagDeregisterModule(valid);
}

TEST_F(Diagnostics, ALogNameThatCouldHarmAnotherFileIsRefused)
{
    for (const std::string name :
         {"", ".log", "registry.db", "events.log", "../x.log", "/tmp/x.log", "lan.lock"}) {
        KvuDiagHandle handle = 4711;
        EXPECT_EQ(complaints([&] { EXPECT_EQ(registerAs(name.c_str(), handle), 1U) << name; }),
                  "kvplatform: KvuDiagRegisterModule: " + name + ": not a log file name\n");
        EXPECT_EQ(handle, 4711U);
    }
}

TEST_F(Diagnostics, AMissingStateDirectoryIsReported)
{
    const KvuDiagHandle handle = registered();
    loseStateDir();
    const std::string reason = path("ORX_DSCP.log") + ": No such file or directory\n";
    KvuDiagHandle second = 0;
    EXPECT_EQ(complaints([&] { EXPECT_EQ(registerAs("ORX_DSCP.log", second), 1U); }),
              "kvplatform: KvuDiagRegisterModule: " + reason);
    EXPECT_EQ(complaints([&] { EXPECT_EQ(KvuDiagAddLogEntry(handle, 2, 1, -1, "text"), 1U); }),
              "kvplatform: KvuDiagAddLogEntry: " + reason);
    EXPECT_EQ(complaints([&] { EXPECT_EQ(KvuDiagDeregisterModule(handle), 0U); }),
              "kvplatform: KvuDiagDeregisterModule: " + path("events.log") + ": No such file or directory\n");
}

TEST_F(Diagnostics, EveryCallIsRecordedAsAnEvent)
{
    const KvuDiagHandle handle = registered();
    KvuDiagAddLogEntry(handle, 2, 8, -1, "done\n");
    KvuDiagDeregisterModule(handle);
    KvuDiagDeregisterModule(handle);
    const std::string number = std::to_string(handle);
    EXPECT_EQ(events(), "KvuDiagRegisterModule(\"ORX_DSCPService\", \"DSCP\", 0, \"ORX_DSCP.log\") = 0\n"
                        "KvuDiagAddLogEntry(" +
                            number +
                            ", 2, 8, -1, \"done\\n\") = 0\n"
                            "KvuDiagDeregisterModule(" +
                            number +
                            ") = 0\n"
                            "KvuDiagDeregisterModule(" +
                            number + ") = 1\n");
}

TEST_F(Diagnostics, EntriesOfSeveralThreadsNeverMix)
{
    const KvuDiagHandle handle = registered();
    const auto add = [handle] {
        for (int i = 0; i < 50; ++i)
            KvuDiagAddLogEntry(handle, 2, 8, -1, "0123456789");
    };
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(add);
    for (std::thread& thread : threads)
        thread.join();
    std::string expected;
    for (int i = 0; i < 200; ++i)
        expected += "TIME DSCP note: 0123456789\n";
    EXPECT_EQ(log(), expected);
    KvuDiagDeregisterModule(handle);
}

} // namespace
