#include "model/Marking.hpp"

#include <gtest/gtest.h>

using namespace lanctl::model;

TEST(Marking, isWrittenAsADscpName)
{
    EXPECT_EQ(parseMark("EF"), menuMark(0xB8));
    EXPECT_EQ(parseMark("ef"), menuMark(0xB8));
    EXPECT_EQ(parseMark("CS0"), menuMark(0));
    EXPECT_EQ(parseMark("CS5"), menuMark(0xA0));
    EXPECT_EQ(parseMark("AF41"), menuMark(0x88));
}

TEST(Marking, isWrittenAsATosByte)
{
    EXPECT_EQ(parseMark("0xB8"), menuMark(184));
    EXPECT_EQ(parseMark("0Xb8"), menuMark(184));
    EXPECT_EQ(parseMark("184"), menuMark(184));
    EXPECT_EQ(parseMark("255"), menuMark(255));
}

TEST(Marking, canBeCustom)
{
    EXPECT_EQ(parseMark("custom:0x68"), customMark(0x68));
    EXPECT_EQ(parseMark("Custom:EF"), customMark(0xB8));
    EXPECT_EQ(parseMark("custom:12"), customMark(12));
}

TEST(Marking, isNothingElse)
{
    for (const char* text : {"", "E", "EFF", "256", "0x100", "-1", "+1", "0x", "1 ", " EF", "custom",
                             "custom:", "custom:258", "AF44", "AF51", "CS8", "0b11", "258"})
        EXPECT_EQ(parseMark(text), std::nullopt) << text;
}

TEST(Marking, isShownSoThatItCanBeReadBack)
{
    EXPECT_EQ(markText(menuMark(0xB8)), "EF");
    EXPECT_EQ(markText(menuMark(0xA4)), "0xA4");
    EXPECT_EQ(markText(customMark(0x68)), "custom:AF31");
    EXPECT_EQ(markText(customMark(1)), "custom:0x01");
    for (std::uint16_t byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(parseMark(markText(menuMark(byte))), menuMark(byte));
        EXPECT_EQ(parseMark(markText(customMark(byte))), customMark(byte));
    }
}

TEST(Marking, isPresetByTheSwitch)
{
    EXPECT_EQ(presetMark(Flow::Signalling, true), menuMark(164));
    EXPECT_EQ(presetMark(Flow::Signalling, false), menuMark(160));
    EXPECT_EQ(presetMark(Flow::Voice, true), menuMark(188));
    EXPECT_EQ(presetMark(Flow::Voice, false), menuMark(184));
    EXPECT_EQ(presetMark(Flow::Video, true), menuMark(140));
    EXPECT_EQ(presetMark(Flow::Video, false), menuMark(136));
    EXPECT_EQ(presetMark(Flow::Fax, true), menuMark(188));
    EXPECT_EQ(presetMark(Flow::Fax, false), menuMark(184));
}

TEST(Marking, hasAnEffectiveByte)
{
    EXPECT_EQ(menuMark(184).effective(), 184);
    EXPECT_EQ(customMark(104).effective(), 104);
    EXPECT_NE(menuMark(104), customMark(104));
}
