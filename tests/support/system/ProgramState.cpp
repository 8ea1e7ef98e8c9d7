#include "tests/support/system/ProgramState.h"

#include <ostream>

#include "tests/support/system/Records.h"

namespace plotvane::test {

namespace {

using namespace std::chrono_literals;

// A value that only ComesBackToLife sends.
constexpr int kSignOfLife = 4321;
constexpr const char* kSignOfLifeRow = "4321,90.0,50,4.2";

// Twenty rows per second, for longer than any test watches, even at eight times the speed.
std::string LongLog() {
    std::vector<LogRowText> rows;
    for (int row = 1; row <= 8000; ++row) {
        char time[16];
        std::snprintf(time, sizeof time, "%.2f", row * 0.05);
        rows.push_back({time, row % 2 == 0 ? kIdle : kDriving});
    }
    return ClassicLog(rows);
}

}  // namespace

std::string NameOf(ProgramState state) {
    switch (state) {
        case ProgramState::Idle:
            return "Idle";
        case ProgramState::LiveWaiting:
            return "LiveWaiting";
        case ProgramState::LiveRunning:
            return "LiveRunning";
        case ProgramState::LiveHeld:
            return "LiveHeld";
        case ProgramState::LiveStopped:
            return "LiveStopped";
        case ProgramState::LiveMalformed:
            return "LiveMalformed";
        case ProgramState::ReplayPlaying:
            return "ReplayPlaying";
        case ProgramState::ReplayHeld:
            return "ReplayHeld";
        case ProgramState::ReplayEnded:
            return "ReplayEnded";
    }
    return "?";
}

void PrintTo(ProgramState state, std::ostream* out) {
    *out << NameOf(state);
}

void AnyState::Enter(ProgramState state) {
    m_state = state;
    switch (state) {
        case ProgramState::Idle:
            Start();
            break;
        case ProgramState::LiveWaiting:
            StartLive();
            break;
        case ProgramState::LiveRunning:
        case ProgramState::LiveHeld:
            StartLive();
            feed = Feed::Records(session.Host());
            ASSERT_TRUE(Becomes([this] { return session.ValueText(11).empty(); }, false));
            if (state == ProgramState::LiveHeld) HoldWithPause();
            break;
        case ProgramState::LiveStopped: {
            StartLive();
            const LRESULT running = Buttons().pauseImage;
            session.Host().SendRecord(DriveRecord(1));
            session.Host().StopSending();
            ASSERT_TRUE(Becomes([&] { return Buttons().pauseImage != running; }, true));
            break;
        }
        case ProgramState::LiveMalformed:
            StartLive();
            session.Host().SendRecord(DriveRecord(1));
            session.Host().SendRecord(kMalformedRecord);
            ASSERT_TRUE(session.Shows(0, DriveText(1)));
            ASSERT_TRUE(Becomes([this] { return session.Host().Unread(); }, 0u));
            break;
        case ProgramState::ReplayPlaying:
        case ProgramState::ReplayHeld:
            PlayLog(LongLog());
            ASSERT_TRUE(session.Shows(0, L"1240 /min"));
            if (state == ProgramState::ReplayHeld) HoldWithPause();
            break;
        case ProgramState::ReplayEnded:
            PlayLog(ClassicLog({{"0.01", kIdle}, {"0.02", kDriving}}));
            ASSERT_TRUE(session.Shows(0, L"1240 /min"));
            ASSERT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
            break;
    }
}

void AnyState::StartLive() {
    m_live = true;
    session.StartWithHost();
    main = session.Main();
    ASSERT_TRUE(Becomes([this] { return main.IsEnabled(IDC_PAUSE); }, true));
}

void AnyState::PlayLog(const std::string& log) {
    Start();
    Load(WriteLog("x.csv", log));
}

void AnyState::HoldWithPause() {
    const LRESULT running = Buttons().pauseImage;
    Press(IDC_PAUSE);
    ASSERT_TRUE(Becomes([&] { return Buttons().pauseImage != running; }, true));
}

::testing::AssertionResult AnyState::ComesBackToLife() {
    feed.reset();
    const std::wstring sign = DriveText(kSignOfLife);
    if (m_live) {
        session.Host().SendRecord(DriveRecord(kSignOfLife));
        if (m_state == ProgramState::LiveMalformed) {
            return Stays([this] { return session.ValueText(0); }, DriveText(1), 300ms);
        }
        // The program may take a while to read all that came before this record. If it is paused, or its host
        // has stopped, somebody has to press Pause.
        for (int press = 0; press < 2; ++press) {
            if (Becomes([&] { return session.ValueText(0) == sign || session.Host().Unread() > 0; }, true) &&
                Becomes([&] { return session.ValueText(0); }, sign, 1500ms)) {
                return ::testing::AssertionSuccess();
            }
            main.PostClick(IDC_PAUSE);
        }
        return session.Shows(0, sign);
    }
    main.PostClick(IDC_STOP);  // a short log may just have ended
    if (const auto stopped = Becomes([this] { return main.IsEnabled(IDC_STOP); }, false); !stopped)
        return stopped;
    Load(WriteLog("life.csv", LogThatLingersAt(kSignOfLifeRow)));
    return session.Shows(0, sign);
}

}  // namespace plotvane::test
