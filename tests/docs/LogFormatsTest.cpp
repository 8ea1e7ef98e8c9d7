// docs/file-formats-logs.md: the program's own reader reads each example, and the result is what the page
// says.
#include <gtest/gtest.h>

#include "logs/LabelFile.h"
#include "logs/LogCheck.h"
#include "logs/LogReader.h"
#include "logs/ModuleKey.h"
#include "scaling/ModuleScaling.h"
#include "tests/docs/Page.h"
#include "tests/docs/Records.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {
namespace {

class LogFormatsTest : public testing::Test {
protected:
    // Opens a log with this text and reads its header.
    void Open(const std::string& text) {
        WriteBytes(m_folder / "x.csv", text);
        EXPECT_EQ(CheckLog(m_folder / "x.csv"), LogCheck::HostLog);
        ASSERT_TRUE(m_log.Open(m_folder / "x.csv"));
        ASSERT_EQ(m_log.ReadLogHeader(m_slots), 1);
    }

    std::string NextRecord() {
        EXPECT_EQ(m_log.ReadLogRow(m_record), LogRow::Complete);
        return std::string(m_record.Text());
    }

    // "0", "0.12": the times of the last row, as the page writes them.
    std::string Time(std::size_t row) const {
        std::string text = std::to_string(m_log.Stamps().at(row));
        text.erase(text.find_last_not_of('0') + 1);
        if (text.ends_with('.')) text.pop_back();
        return text;
    }

    const Page m_page{"docs/file-formats-logs.md"};
    TempFolder m_folder;
    RunState m_state;
    SlotTable m_slots;
    RecordBuffer m_record;
    LogReader m_log{m_state};
};

TEST_F(LogFormatsTest, FirstLineIsThatOfALog) {
    WriteBytes(m_folder / "x.csv", m_page.Example("first line"));
    EXPECT_EQ(CheckLog(m_folder / "x.csv"), LogCheck::HostLog);
}

TEST_F(LogFormatsTest, MeasuringBlocksBecomeTheRecordOnThePage) {
    Open(m_page.Example("measuring blocks"));
    EXPECT_EQ(NextRecord(), Unspaced(m_page.Example("record of measuring blocks")));
    EXPECT_TRUE(m_page.Says("with the times " + Time(0) + " and " + Time(1) + " of rows A and B."));
    NextRecord();
    EXPECT_EQ(m_log.ReadLogRow(m_record), LogRow::Ended);
}

TEST_F(LogFormatsTest, TenChannelsBecomeTheItemsOnThePage) {
    const std::string begin = m_page.Example("first line") + "038 906 019 FT,x\n\n";
    Open(begin + m_page.Example("ten channels"));
    EXPECT_EQ(NextRecord(), "038-906-019-FT," + Unspaced(m_page.Example("items of ten channels")));
    EXPECT_TRUE(m_page.Says("with the times " + Time(0) + ", " + Time(1) + " and " + Time(2) +
                            " of rows A, B and C."));
}

TEST_F(LogFormatsTest, AdvancedBlocksBecomeTheRecordOnThePage) {
    Open(m_page.Example("advanced measuring blocks"));
    EXPECT_EQ(NextRecord(), Unspaced(m_page.Example("record of advanced measuring blocks")));
    EXPECT_TRUE(m_page.Says("with the time " + Time(0) + "."));
}

TEST_F(LogFormatsTest, GenericObdBecomesTheRecordOnThePage) {
    Open(m_page.Example("generic OBD"));
    EXPECT_EQ(NextRecord(), Unspaced(m_page.Example("record of generic OBD")));
    EXPECT_TRUE(m_page.Says("with the time " + Time(0) + ". The PID stands"));
    EXPECT_TRUE(m_state.obdFile);

    Open(m_page.Example("generic OBD over more lines"));
    EXPECT_EQ(NextRecord(), Unspaced(m_page.Example("record of generic OBD")));
    EXPECT_EQ(m_log.ReadLogRow(m_record), LogRow::Ended);
}

// "Coolant" and "temperature " come from the file on the page, the others from the file that it redirects to.
TEST_F(LogFormatsTest, LabelsAreFoundAsThePageTells) {
    WriteBytes(m_folder / "038-906-019.LBL", m_page.Example("038-906-019.LBL"));
    WriteBytes(m_folder / "038-906-019-G.LBL", "001,1,From the other file\n");
    const auto load = [this](std::string_view module) {
        LabelTable labels;
        LoadLabels(m_folder.Path(), KeyStemOf(ScalingFileNameOf(module)), labels);
        return labels;
    };
    EXPECT_EQ(load("038 906 019 GH").FieldName(1, 1), "From the other file");

    const LabelTable labels = load("038 906 019 FT");
    EXPECT_EQ(labels.GroupTitle(1), "Basic values");
    EXPECT_TRUE(m_page.Says("field 2 of group 1 is \"" + labels.FieldName(1, 2) + "\", \"" +
                            labels.FieldSecondText(1, 2) + "\""));
    EXPECT_TRUE(m_page.Says("the meter of G001,F0 is titled \" " + labels.FieldName(1, 1) + " " +
                            labels.FieldSecondText(1, 1) + "\""));
}

// The heading holds the identifiers. Each cell below them is a name, or "none".
TEST_F(LogFormatsTest, NamesAreMadeAsInTheTable) {
    const Table table = m_page.TableOf({"step", "038 906 019 FT"});
    ASSERT_EQ(table.size(), 8U);
    const Row& identifiers = table[0];
    ASSERT_EQ(identifiers.size(), 5U);
    for (std::size_t column = 1; column < identifiers.size(); ++column) {
        const std::string scalingFile = ScalingFileNameOf(identifiers[column]);
        EXPECT_EQ(scalingFile, table[5][column]);
        const std::string_view stem = KeyStemOf(scalingFile);
        const std::string own =
            ModuleSuffixOf(stem).empty() ? "none" : LabelFileNameOf(stem, LabelForm::Full);
        EXPECT_EQ(own, table[6][column]);
        EXPECT_EQ(LabelFileNameOf(stem, LabelForm::Short), table[7][column]);
    }
}

}  // namespace
}  // namespace plotvane::test
