// What a replay says when a file is not what it should be: the text and caption of each message, and the
// state afterwards.
#include "tests/support/system/Handle.h"
#include "tests/support/system/Replay.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

class ReplayFailures : public Replay {
protected:
    void SetUp() override {
        Start();
        m_atRest = Buttons();
    }

    // Call it after the program has refused a log.
    void ExpectNothingIsLoaded() {
        EXPECT_TRUE(Becomes([this] { return Buttons(); }, m_atRest));
        EXPECT_FALSE(HasDialog());
        for (int slot = 0; slot < 12; ++slot) EXPECT_EQ(session.ValueText(slot), L"");
    }
    // Call it after a replay that has ended too early.
    void ExpectTheReplayIsOver() {
        EXPECT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
        EXPECT_TRUE(Buttons().pauseEnabled);
        EXPECT_FALSE(HasDialog()) << "the message comes once";
    }

    RunButtonsSeen m_atRest;
};

TEST_F(ReplayFailures, AFileThatIsNoLogIsRefused) {
    Load(WriteLog("x.csv", "time,speed,flow\r\n0,1,2\r\n"));
    ConfirmMessage(L"This is not an original Diagnel log file!", L"Doh! ;-)");
    ExpectNothingIsLoaded();
}

TEST_F(ReplayFailures, AFirstLineWithALetterInItsTimeIsRefused) {
    std::string log = ClassicLog({{"0.01", kIdle}});
    log[log.find("10:15:30") + 4] = 'x';
    Load(WriteLog("x.csv", log));
    ConfirmMessage(L"This is not an original Diagnel log file!", L"Doh! ;-)");
    ExpectNothingIsLoaded();
}

TEST_F(ReplayFailures, AFileThatCannotBeOpenedIsReported) {
    const auto log = WriteLog("x.csv", ClassicLog({{"0.01", kIdle}}));
    const Handle keptToOneself(
        ::CreateFileW(log.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    Load(log);
    ConfirmMessage(L"Sorry, can't open this file.", L"Error");
    ExpectNothingIsLoaded();
}

TEST_F(ReplayFailures, AfterARefusalAnotherLogCanBeLoaded) {
    Load(WriteLog("x.csv", "no log"));
    ConfirmMessage(L"This is not an original Diagnel log file!", L"Doh! ;-)");
    Load(WriteLog("y.csv", LogThatLingersAt(kDriving)));
    EXPECT_TRUE(session.Shows(0, L"1240 /min"));
}

TEST_F(ReplayFailures, ARowCutShortEndsTheReplayWithAMessage) {
    Load(WriteLog("x.csv", ClassicLog({{"0.01", kIdle}, {"0.02", kDriving}}) + "0,0.03,900,90.0\r\n"));
    ConfirmMessage(L"Unexpected end of values. Is this an appended log file?", L"Uh oh....");
    ExpectTheReplayIsOver();
    EXPECT_EQ(session.ValueText(0), L"1240 /min") << "what was drawn stays";
}

TEST_F(ReplayFailures, ASecondLogAfterTheFirstEndsTheReplayWithAMessage) {
    const std::string log = ClassicLog({{"0.01", kIdle}, {"0.02", kDriving}});
    Load(WriteLog("x.csv", log + log));
    ConfirmMessage(L"Unexpected end of values. Is this an appended log file?", L"Uh oh....");
    ExpectTheReplayIsOver();
}

TEST_F(ReplayFailures, AHeaderThatEndsAtOnceEndsQuietly) {
    Load(WriteLog("x.csv", "Friday,20,November,2026,10:15:30\r\n"));
    EXPECT_TRUE(Becomes([this] { return main.IsEnabled(IDC_PAUSE); }, true));
    ExpectTheReplayIsOver();
    EXPECT_EQ(session.ValueText(0), L"");
}

TEST_F(ReplayFailures, TheByteFFEndsTheLogAsItsEndDoes) {
    std::string log = ClassicLog({{"0.01", kIdle}, {"0.02", kDriving}});
    Load(WriteLog("x.csv", log + "\xFF" + "0,0.03,900,90.0,0,0.9,,,,,,,,,,\r\n"));
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    ExpectTheReplayIsOver();
    EXPECT_EQ(session.ValueText(0), L"1240 /min");
}

TEST_F(ReplayFailures, AnEmptyRangeFileOfTheModuleIsReadAndWrittenAgain) {
    std::filesystem::create_directory(session.Scaling(""));
    WriteBytes(session.Scaling("038-906-019-FT.SCL"), "");
    Load(WriteLog("x.csv", ClassicLog({{"0.01", kIdle}, {"0.02", kDriving}})));
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    ExpectTheReplayIsOver();
    const std::string written = BytesOf(session.Scaling("038-906-019-FT.SCL"));
    EXPECT_NE(written.find("\r\n255,0,100,0,100,0,100,0,100,\r\n"), std::string::npos);
}

TEST_F(ReplayFailures, RangesThatCannotBeSavedAreReported) {
    Load(WriteLog("x.csv", LogThatLingersAt(kDriving)));
    ASSERT_TRUE(session.Shows(0, L"1240 /min"));
    // A folder has the name of the file, so the program cannot write it.
    std::filesystem::remove(session.Scaling("038-906-019-FT.SCL"));
    std::filesystem::create_directory(session.Scaling("038-906-019-FT.SCL"));
    Press(IDC_STOP);
    ConfirmMessage(L"Sorry, the scaling values couldn't be saved to disk", L"Error");
    ExpectTheReplayIsOver();
    EXPECT_TRUE(session.Closes());
}

}  // namespace
}  // namespace plotvane::test
