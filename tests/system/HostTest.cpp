// The host stops, closes, falls silent, breaks off or dies; the window keeps answering.
#include <gtest/gtest.h>

#include "tests/support/system/Prompt.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

class Host : public ::testing::Test {
protected:
    void SetUp() override {
        m_session.StartWithHost();
        ASSERT_TRUE(m_session.Main().Exists());
    }
    PipeHost& TheHost() { return m_session.Host(); }
    std::string ScalingNow() { return BytesOf(m_session.Scaling(kScalingFile)); }

    Session m_session;
};

TEST_F(Host, ASilentHostLeavesTheWindowAnswering) {
    EXPECT_TRUE(KeepsAnswering(m_session.Main()));
    TheHost().SendRecord(kFirstRecord);
    EXPECT_TRUE(m_session.Shows(0, L"780 /min"));
    EXPECT_TRUE(KeepsAnswering(m_session.Main()));
    EXPECT_TRUE(m_session.Closes());
}

TEST_F(Host, HalfABlockLeavesTheWindowAnsweringAndIsFinishedLater) {
    std::string block = kFirstRecord;
    block.resize(513, '\0');
    TheHost().Send(block.substr(0, 200));
    ASSERT_TRUE(Becomes([this] { return TheHost().Unread(); }, 0u)) << "the program took the half";
    EXPECT_TRUE(KeepsAnswering(m_session.Main()));
    EXPECT_EQ(m_session.ValueText(0), L"");
    TheHost().Send(block.substr(200));
    EXPECT_TRUE(m_session.Shows(0, L"780 /min"));
}

TEST_F(Host, HalfABlockDoesNotPreventClosing) {
    TheHost().Send(kFirstRecord.substr(0, 20));
    ASSERT_TRUE(Becomes([this] { return TheHost().Unread(); }, 0u));
    EXPECT_TRUE(m_session.Closes());
}

TEST_F(Host, AHostThatDiesInTheMiddleOfABlockCountsAsStopped) {
    TheHost().SendRecord(kFirstRecord);
    ASSERT_TRUE(m_session.Shows(0, L"780 /min"));
    TheHost().Send(kSecondRecord.substr(0, 100));
    TheHost().Die();
    EXPECT_TRUE(Becomes([this] { return ScalingNow(); }, ScalingBytes(3, kUnitRanges)));
    EXPECT_TRUE(KeepsAnswering(m_session.Main()));
    EXPECT_EQ(m_session.ValueText(0), L"780 /min") << "half a record is no record";
    EXPECT_TRUE(m_session.Main().IsEnabled(IDC_PAUSE));
    EXPECT_TRUE(m_session.Closes());
}

TEST_F(Host, AHostThatDiesBetweenBlocksCountsAsStopped) {
    TheHost().SendRecord(kFirstRecord);
    TheHost().Die();
    EXPECT_TRUE(Becomes([this] { return ScalingNow(); }, ScalingBytes(3, kUnitRanges)));
    EXPECT_TRUE(KeepsAnswering(m_session.Main()));
    EXPECT_TRUE(m_session.Closes());
}

TEST_F(Host, RestartingAfterTheHostHasDiedStopsAgain) {
    TheHost().Die();
    ASSERT_TRUE(Becomes([this] { return m_session.Main().IsEnabled(IDC_PAUSE); }, true));
    m_session.Main().PostClick(IDC_PAUSE);
    EXPECT_TRUE(KeepsAnswering(m_session.Main()));
    EXPECT_TRUE(m_session.Closes());
}

TEST_F(Host, NothingNewDrawsNothingAndHoldsNothingUp) {
    // A program that waited 50 ms for each of these bytes would lag by a quarter of an hour.
    TheHost().Send(std::string(20'000, '\xFF'));
    EXPECT_TRUE(KeepsAnswering(m_session.Main()));
    EXPECT_EQ(m_session.ValueText(0), L"");
    TheHost().SendRecord(kFirstRecord);
    EXPECT_TRUE(Becomes([this] { return m_session.ValueText(0); }, L"780 /min", 2000ms));
}

TEST_F(Host, ManyBlocksAtOnceAreDrawnOneAfterAnother) {
    for (int rpm = 1; rpm <= 40; ++rpm) {
        TheHost().SendRecord(
            RecordOf("038 906 019 FT", "G001,F0," + std::to_string(rpm) + ",/min,G000,,,,G000,,,,G000,,,,"));
    }
    EXPECT_TRUE(KeepsAnswering(m_session.Main()));
    EXPECT_TRUE(m_session.Shows(0, L"40 /min"));
    EXPECT_EQ(TheHost().Unread(), 0u);
}

TEST_F(Host, AfterStopSendingPauseReadsOnFromTheSamePipe) {
    TheHost().SendRecord(kFirstRecord);
    TheHost().StopSending();
    ASSERT_TRUE(Becomes([this] { return ScalingNow(); }, ScalingBytes(3, kUnitRanges)));
    TheHost().SendRecord(kSecondRecord);
    EXPECT_TRUE(Stays([this] { return TheHost().Unread(); }, 513u, 300ms)) << "stopped means not reading";
    EXPECT_EQ(m_session.ValueText(0), L"780 /min");

    m_session.Main().PostClick(IDC_PAUSE);
    EXPECT_TRUE(m_session.Shows(0, L"1780 /min"));
    // The restart plays; the next press holds.
    m_session.Main().PostClick(IDC_PAUSE);
    ASSERT_TRUE(m_session.Main().Answers(kDeadline));
    TheHost().SendRecord(kFirstRecord);
    EXPECT_TRUE(Stays([this] { return m_session.ValueText(0); }, std::wstring(L"1780 /min"), 300ms));
    m_session.Main().PostClick(IDC_PAUSE);
    EXPECT_TRUE(m_session.Shows(0, L"780 /min"));
}

TEST_F(Host, StopAndRestartAgainAndAgain) {
    for (int round = 0; round < 5; ++round) {
        const std::string rpm = std::to_string(1000 + round);
        TheHost().SendRecord(RecordOf("038 906 019 FT", "G001,F0," + rpm + ",/min,G000,,,,G000,,,,G000,,,,"));
        ASSERT_TRUE(m_session.Shows(0, std::wstring(rpm.begin(), rpm.end()) + L" /min"));
        TheHost().StopSending();
        ASSERT_TRUE(Becomes([this] { return TheHost().Unread(); }, 0u));
        m_session.Main().PostClick(IDC_PAUSE);
    }
    EXPECT_TRUE(m_session.Closes());
}

TEST_F(Host, PauseHoldsAndReleases) {
    TheHost().SendRecord(kFirstRecord);
    ASSERT_TRUE(m_session.Shows(0, L"780 /min"));
    m_session.Main().PostClick(IDC_PAUSE);
    ASSERT_TRUE(m_session.Main().Answers(kDeadline));
    TheHost().SendRecord(kSecondRecord);
    EXPECT_TRUE(Stays([this] { return m_session.ValueText(0); }, std::wstring(L"780 /min"), 300ms));
    EXPECT_TRUE(KeepsAnswering(m_session.Main()));
    m_session.Main().PostClick(IDC_PAUSE);
    EXPECT_TRUE(m_session.Shows(0, L"1780 /min"));
}

TEST_F(Host, AHeldProgramCloses) {
    TheHost().SendRecord(kFirstRecord);
    ASSERT_TRUE(m_session.Shows(0, L"780 /min"));
    m_session.Main().PostClick(IDC_PAUSE);
    ASSERT_TRUE(m_session.Main().Answers(kDeadline));
    EXPECT_TRUE(m_session.Closes());
}

TEST_F(Host, AClosingHostClosesTheProgram) {
    TheHost().SendRecord(kFirstRecord);
    TheHost().SendClosing();
    EXPECT_TRUE(m_session.Process().EndsWithin(kDeadline));
    EXPECT_EQ(ScalingNow(), ScalingBytes(3, kUnitRanges));
    EXPECT_TRUE(std::filesystem::exists(m_session.Scaling("Prefs.cfg")));
    EXPECT_FALSE(std::filesystem::exists(m_session.ExchangeFile()));
}

TEST_F(Host, AMalformedRecordEndsTheReadingForGood) {
    TheHost().SendRecord(kFirstRecord);
    ASSERT_TRUE(m_session.Shows(0, L"780 /min"));
    TheHost().SendRecord(kMalformedRecord);
    ASSERT_TRUE(Becomes([this] { return TheHost().Unread(); }, 0u));
    TheHost().SendRecord(kSecondRecord);
    EXPECT_TRUE(Stays([this] { return TheHost().Unread(); }, 513u, 500ms));
    EXPECT_EQ(m_session.ValueText(0), L"780 /min") << "the display keeps its last state";
    EXPECT_TRUE(KeepsAnswering(m_session.Main()));
    // Press Pause twice: the program must neither hang nor read again.
    m_session.Main().PostClick(IDC_PAUSE);
    m_session.Main().PostClick(IDC_PAUSE);
    EXPECT_TRUE(Stays([this] { return TheHost().Unread(); }, 513u, 300ms));
    EXPECT_TRUE(m_session.Closes());
}

TEST_F(Host, LoadingALogIsNotOfferedWhileTheHostRuns) {
    TheHost().SendRecord(kFirstRecord);
    ASSERT_TRUE(m_session.Shows(0, L"780 /min"));
    // Enter reaches the hidden default button, and also arrives as IDOK.
    m_session.Main().PostClick(IDC_LOAD_LOG);
    m_session.Main().PostClick(IDOK);
    TheHost().SendRecord(kSecondRecord);
    EXPECT_TRUE(m_session.Shows(0, L"1780 /min"));
    EXPECT_EQ(WindowsOf(m_session.Process().Id()).size(), 1u);
}

// The block that the host hands over shows how wide its handles are.
TEST(HostOf32Bits, IsUnderstoodAsWell) {
    Session session;
    session.StartWithHost([](HANDLE pipe, int descriptor) { return DescriptorBlock(pipe, descriptor, 4); });
    session.Host().SendRecord(kFirstRecord);
    EXPECT_TRUE(session.Shows(0, L"780 /min"));
    EXPECT_TRUE(session.Closes());
}

TEST(HostWithABrokenBlock, CountsAsStopped) {
    const auto broken = [](HANDLE pipe, int descriptor) {
        std::vector<BYTE> block = DescriptorBlock(pipe, descriptor, 4);
        block.pop_back();
        return block;
    };
    Session session;
    session.StartWithHost(broken);
    EXPECT_TRUE(Becomes([&] { return session.Main().IsEnabled(IDC_PAUSE); }, true));
    EXPECT_TRUE(KeepsAnswering(session.Main()));
    EXPECT_TRUE(session.Closes());
}

TEST(NoExchangeFile, IsReportedAndEndsTheProgram) {
    Session session;
    session.StartWithHostButNoExchangeFile();
    constexpr int kMessageText = 0xFFFF;
    const RemoteWindow box = session.DialogWith(kMessageText);
    EXPECT_EQ(box.Text(), L"Impossible to run the graphs");
    EXPECT_EQ(box.Text(kMessageText), L"Couldn't open MB-PIPE.TXT");
    box.PostClick(box.Control(IDOK).Exists() ? IDOK : IDCANCEL);
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline));
}

TEST(NoExchangeFile, OneThatNamesNoDescriptorCountsAsAStoppedHost) {
    Session session;
    WriteBytes(session.ExchangeFile(), "not a number\n");
    session.StartWithHostButNoExchangeFile();
    const RemoteWindow main = session.Main();
    EXPECT_TRUE(Becomes([&] { return main.IsEnabled(IDC_PAUSE); }, true));
    EXPECT_TRUE(KeepsAnswering(main, 500ms));
    EXPECT_TRUE(session.Closes());
}

}  // namespace
}  // namespace plotvane::test
