#include "scaling/PrefsColourEdit.h"

#include <gtest/gtest.h>

namespace plotvane {
namespace {

class PrefsColourEditTest : public testing::Test {
protected:
    PrefsColourEditTest() { m_edit.Begin(); }

    Prefs m_prefs;
    PrefsColourEdit m_edit{m_prefs};
};

TEST_F(PrefsColourEditTest, BeginsWithTheFirstTrace) {
    EXPECT_EQ(m_edit.ColourOf(ColourRow::Background), 0x000000u);
    EXPECT_EQ(m_edit.ColourOf(ColourRow::Grid), 0xFFFFFFu);
    EXPECT_EQ(m_edit.ColourOf(ColourRow::Trace), 0x0000FFu);  // Red
}

TEST_F(PrefsColourEditTest, SplitsAColourIntoItsParts) {
    m_prefs.gridColor = 0x123456;
    EXPECT_EQ(m_edit.PartOf(ColourRow::Grid, ColourPart::Red), 0x56);
    EXPECT_EQ(m_edit.PartOf(ColourRow::Grid, ColourPart::Green), 0x34);
    EXPECT_EQ(m_edit.PartOf(ColourRow::Grid, ColourPart::Blue), 0x12);
}

TEST_F(PrefsColourEditTest, StoresAPartAtOnceAndLeavesTheOthers) {
    EXPECT_TRUE(m_edit.SetPart(ColourRow::Background, ColourPart::Green, 0x80));
    EXPECT_EQ(m_prefs.backColor, 0x008000u);
    EXPECT_TRUE(m_edit.SetPart(ColourRow::Background, ColourPart::Red, 255));
    EXPECT_EQ(m_prefs.backColor, 0x0080FFu);
    EXPECT_TRUE(m_edit.SetPart(ColourRow::Grid, ColourPart::Blue, 0));
    EXPECT_EQ(m_prefs.gridColor, 0x00FFFFu);
    EXPECT_TRUE(m_edit.SetPart(ColourRow::Trace, ColourPart::Blue, 1));
    EXPECT_EQ(m_prefs.lineColor[0], 0x0100FFu);
}

TEST_F(PrefsColourEditTest, StoringTheSamePartAgainIsNoChange) {
    EXPECT_FALSE(m_edit.SetPart(ColourRow::Trace, ColourPart::Red, 255));
    EXPECT_FALSE(m_edit.SetPart(ColourRow::Trace, ColourPart::Green, 0));
}

TEST_F(PrefsColourEditTest, PositionsOutsideAByteAreIgnored) {
    for (const int position : {-1, 256, 100000}) {
        EXPECT_FALSE(m_edit.SetPart(ColourRow::Trace, ColourPart::Green, position));
    }
    EXPECT_EQ(m_prefs.lineColor[0], 0x0000FFu);
}

TEST_F(PrefsColourEditTest, AnotherTraceReplacesTheOneInTheTraceRow) {
    EXPECT_TRUE(m_edit.SelectTrace(11));
    EXPECT_EQ(m_edit.ColourOf(ColourRow::Trace), 0xA0A000u);  // DkCyan
    m_edit.SetPart(ColourRow::Trace, ColourPart::Red, 7);
    EXPECT_EQ(m_prefs.lineColor[11], 0xA0A007u);
    EXPECT_EQ(m_prefs.lineColor[0], 0x0000FFu);
}

TEST_F(PrefsColourEditTest, ATraceOfTheSameColourIsSelectedToo) {
    m_prefs.lineColor[5] = m_prefs.lineColor[0];
    EXPECT_FALSE(m_edit.SelectTrace(5));
    m_edit.UsePreset(ColourRow::Trace, 12);
    EXPECT_EQ(m_prefs.lineColor[5], kBlack);
}

TEST_F(PrefsColourEditTest, AnInvalidTraceLeavesThePreviousOne) {
    m_edit.SelectTrace(3);
    for (const int trace : {-1, 12}) EXPECT_FALSE(m_edit.SelectTrace(trace));
    m_edit.UsePreset(ColourRow::Trace, 13);
    EXPECT_EQ(m_prefs.lineColor[3], kWhite);
}

TEST_F(PrefsColourEditTest, APresetSetsAllThreeParts) {
    EXPECT_TRUE(m_edit.UsePreset(ColourRow::Grid, 9));  // Pink
    EXPECT_EQ(m_prefs.gridColor, 0xC0C0FFu);
    EXPECT_TRUE(m_edit.UsePreset(ColourRow::Background, 7));  // DkBlue
    EXPECT_EQ(m_prefs.backColor, 0x7F0000u);
}

TEST_F(PrefsColourEditTest, AnInvalidPresetChangesNothing) {
    for (const int preset : {-1, 14}) EXPECT_FALSE(m_edit.UsePreset(ColourRow::Grid, preset));
    EXPECT_EQ(m_prefs.gridColor, kWhite);
}

TEST_F(PrefsColourEditTest, HighBytesAreLostWhenTheirColourComesIntoView) {
    m_prefs.backColor = 0xFF000001;
    m_prefs.gridColor = 0x01FFFFFF;
    m_prefs.lineColor[0] = 0x02000000;
    m_prefs.lineColor[1] = 0x03000000;
    m_edit.Begin();
    EXPECT_EQ(m_prefs.backColor, 0x000001u);
    EXPECT_EQ(m_prefs.gridColor, 0xFFFFFFu);
    EXPECT_EQ(m_prefs.lineColor[0], 0x000000u);
    EXPECT_EQ(m_prefs.lineColor[1], 0x03000000u);
    m_edit.SelectTrace(1);
    EXPECT_EQ(m_prefs.lineColor[1], 0x000000u);
}

}  // namespace
}  // namespace plotvane
