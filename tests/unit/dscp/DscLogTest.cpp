#include "ServiceTest.hpp"

#include "dscp/dscLog.hpp"

namespace
{

using dscptest::Lines;
using dscptest::logged;

class DscLog : public dscptest::ServiceTest
{
};

TEST_F(DscLog, ATextIsAppendedAsItStands)
{
    const std::string text = "100 % of %s and %d\n" + std::string(1000, 'x');
    dscLogLevel(3, 8, text.c_str());
    EXPECT_EQ(world.journal(), Lines{logged(8, text)});
}

TEST_F(DscLog, FormatsAreFilledIn)
{
    dscLogFormat(1, "%s: %d, rc: 0x%08X\n", "signaling", 258, 0x20000Du);
    dscLogLevelFormat(3, 4, "%s: %d, rc: 0x%08X\n", "fax", 0, 11u);
    EXPECT_EQ(world.journal(),
              (Lines{logged(1, "signaling: 258, rc: 0x0020000D\n"), logged(4, "fax: 0, rc: 0x0000000B\n")}));
}

TEST_F(DscLog, StatusCodesWithTheHighestBitKeepEightDigits)
{
    dscLogFormat(1, "0x%08X", 0x80004005u);
    dscLogLevelFormat(3, 1, "0x%08X", 0xFFFFFFFFu);
    EXPECT_EQ(world.journal(), (Lines{logged(1, "0x80004005"), logged(1, "0xFFFFFFFF")}));
}

TEST_F(DscLog, AFormattedTextIsCutTo255Characters)
{
    for (const std::size_t length : {254u, 255u, 256u, 1000u}) {
        world.clearJournal();
        const std::string given(length, 'x');
        dscLogFormat(1, "%s", given.c_str());
        dscLogLevelFormat(3, 8, "%s", given.c_str());
        const std::string kept(length == 254 ? 254 : 255, 'x');
        EXPECT_EQ(world.journal(), (Lines{logged(1, kept), logged(8, kept)})) << length;
    }
}

TEST_F(DscLog, TheLevelIsPassedOnAs16Bits)
{
    dscLogLevel(3, 0x10008, "a");
    dscLogFormat(0x20001, "%s", "b");
    dscLogLevelFormat(3, 0x30004, "%s", "c");
    EXPECT_EQ(world.journal(), (Lines{logged(8, "a"), logged(1, "b"), logged(4, "c")}));
}

TEST_F(DscLog, TheFirstArgumentOfTheLevelFunctionsIsNotLookedAt)
{
    dscLogLevel(0, 8, "a");
    dscLogLevelFormat(77, 8, "%s", "b");
    EXPECT_EQ(world.journal(), (Lines{logged(8, "a"), logged(8, "b")}));
}

TEST_F(DscLog, EntriesGoToTheRegisteredModule)
{
    world.diagHandle = 0xABC; // an entry for another module would be a problem that fails the test
    dscDiagHandle_g = 0xABC;
    dscLogLevel(3, 8, "a");
    dscLogFormat(1, "%s", "b");
    dscLogLevelFormat(3, 8, "%s", "c");
    EXPECT_EQ(world.journal(), (Lines{logged(8, "a"), logged(1, "b"), logged(8, "c")}));
}

TEST_F(DscLog, AnEntryThatCannotBeWrittenIsNotReported)
{
    world.failAll("KvuDiagAddLogEntry", 5);
    dscLogLevel(3, 8, "a");
    dscLogFormat(1, "%s", "b");
    dscLogLevelFormat(3, 8, "%s", "c");
    EXPECT_EQ(world.journal(), (Lines{logged(8, "a"), logged(1, "b"), logged(8, "c")}));
}

} // namespace
