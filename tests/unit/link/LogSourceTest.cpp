#include "link/LogSource.h"

#include "res/resource.h"
#include "tests/support/OpenFile.h"
#include "tests/support/ReplayFixture.h"

namespace plotvane {
namespace {

using test::kInTheLongRow;
using test::kLongText;
using test::kReplayedLog;

class LogSourceTest : public test::ReplayFixture {};

TEST_F(LogSourceTest, ALogIsOpenWhileItIsPlayedAndNoLonger) {
    bool wasHeld = false;
    After(300.0, [&] { wasHeld = test::IsHeldOpen(folder / "x.csv"); });
    Load();
    EXPECT_TRUE(wasHeld);
    EXPECT_FALSE(test::IsHeldOpen(folder / "x.csv"));
}

TEST_F(LogSourceTest, ALogIsClosedWhateverEndsItsReplay) {
    const std::vector<std::function<void()>> endings{[&] { dialog.Stop(); }, [&] { dialog.Close(); },
                                                     [&] {
                                                         dialog.Stop();
                                                         dialog.Pause();
                                                         dialog.Stop();
                                                     },
                                                     [&] {
                                                         dialog.Stop();
                                                         Load();
                                                         dialog.Stop();
                                                     },
                                                     [&] {  // the second replay goes on to its end
                                                         dialog.Stop();
                                                         dialog.Pause();
                                                     }};
    for (std::size_t ending = 0; ending < endings.size(); ++ending) {
        After(300.0, endings[ending]);
        Load();
        EXPECT_TRUE(state.stopped) << ending;
        EXPECT_FALSE(test::IsHeldOpen(folder / "x.csv")) << ending;
    }
}

TEST_F(LogSourceTest, ALogIsClosedAfterAMalformedRecord) {
    Choose("x.csv", std::string(kReplayedLog) + "3,4.00," + std::string(101, '1') +
                        ",90,1,1,4.12,800,240,238,12,,,,,\n4,\n");
    Load();
    EXPECT_FALSE(test::IsHeldOpen(folder / "x.csv"));
}

TEST_F(LogSourceTest, SomethingElseThanALogIsRefused) {
    Choose("x.csv", "not,a,log\n");
    Load();
    ASSERT_EQ(dialog.messages.size(), 1u);
    EXPECT_EQ(dialog.messages[0], std::make_pair(IDS_NOT_A_LOG, IDS_DOH));
    EXPECT_FALSE(state.logMode);
    EXPECT_TRUE(chart.samples.empty());
}

TEST_F(LogSourceTest, OpeningTellsALogFromACancelledDialogAndFromSomethingElse) {
    ReplayPacing pacing(acquisition.sample, {chart, panel, meters}, pump);
    LogSource source(state, pacing, dialog, pump);
    EXPECT_EQ(source.OpenLogFile(), 1);
    Choose("x.csv", "not,a,log\n");
    EXPECT_EQ(source.OpenLogFile(), -1);
    std::filesystem::remove(folder / "x.csv");
    EXPECT_EQ(source.OpenLogFile(), -1);
    dialog.choice.reset();
    EXPECT_EQ(source.OpenLogFile(), 0);
}

TEST_F(LogSourceTest, AMissingFileIsReportedOnce) {
    std::filesystem::remove(folder / "x.csv");
    Load();
    ASSERT_EQ(dialog.messages.size(), 1u);
    EXPECT_EQ(dialog.messages[0], std::make_pair(IDS_CANNOT_OPEN_FILE, IDS_ERROR));
}

// If another log were opened now, the row that is being read would go on with that log's text.
TEST_F(LogSourceTest, NoLogIsOpenedWhileARowIsRead) {
    Choose("x.csv", std::string(kReplayedLog) + kLongText + kLongText);
    int dispatchesAfterIt = 0;
    pump.onDispatch = [&] {
        if (chart.samples.size() < 3 || ++dispatchesAfterIt != kInTheLongRow) return;
        dialog.Stop();
        dialog.Pause();
        Load();
        EXPECT_EQ(dialog.asked, 1);
        EXPECT_TRUE(state.stopped);
    };
    Load();
    EXPECT_TRUE(state.stopped);
    pump.onDispatch = nullptr;
    Choose("x.csv", kReplayedLog);
    dialog.Pause();
    EXPECT_EQ(chart.samples.size(), 3u + 3u);
}

TEST_F(LogSourceTest, ACloseInsideALongHeaderPlaysNothing) {
    Choose("x.csv", "Friday,20,November,2026,10:15:30\n038 906 019 FT," + kLongText + kLongText);
    int dispatches = 0;
    pump.onDispatch = [&] {
        if (++dispatches == 2) dialog.Close();
    };
    Load();
    EXPECT_EQ(dispatches, 2) << "the reading must stop there";
    EXPECT_TRUE(state.stopped);
    EXPECT_FALSE(state.logMode);
    EXPECT_FALSE(dialog.look.stopActive);
    EXPECT_TRUE(dialog.messages.empty());
}

TEST_F(LogSourceTest, ACloseWhileALogIsChosenPlaysNothing) {
    dialog.whileAsked = [this] { dialog.Close(); };
    Load();
    EXPECT_TRUE(state.stopped);
    EXPECT_TRUE(chart.samples.empty());
}

TEST_F(LogSourceTest, PressesWhileALogIsChosenAndItsHeaderReadOpenNoOther) {
    Choose("x.csv", "Friday,20,November,2026,10:15:30\n038 906 019 FT," + kLongText +
                        std::string(kReplayedLog).substr(47));
    const auto press = [this] {
        if (state.logMode) return;
        Load();
        dialog.Pause();
    };
    dialog.whileAsked = press;
    int dispatchesBefore = 0;
    pump.onDispatch = [&] {
        if (!state.logMode) ++dispatchesBefore;
        press();
    };
    Load();
    EXPECT_GE(dispatchesBefore, 10) << "at least one every 100 KB";
    EXPECT_EQ(dialog.asked, 1);
    EXPECT_EQ(chart.samples.size(), 3u);
    EXPECT_TRUE(state.playing);
}

TEST_F(LogSourceTest, PressesBelowTheMessageThatALogIsGoneShowNoOther) {
    Load();
    std::filesystem::remove(folder / "x.csv");
    dialog.whileMessage = [this] { dialog.Pause(); };
    dialog.Pause();
    EXPECT_EQ(dialog.messages.size(), 1u);
}

}  // namespace
}  // namespace plotvane
