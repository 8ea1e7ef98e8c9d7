// A user who presses all keys at random while data comes at its usual pace. PLOTVANE_KEYS_SECONDS says for
// how long, PLOTVANE_KEYS_SEED which keys.
#include <algorithm>
#include <cstdlib>
#include <random>

#include "tests/support/system/KeyTest.h"
#include "tests/support/system/Meters.h"
#include "tests/support/system/Records.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

unsigned Number(const char* name, unsigned otherwise) {
    const char* const wanted = std::getenv(name);
    return wanted ? static_cast<unsigned>(std::atoi(wanted)) : otherwise;
}

// All of the table, and what people press in dialogs and edits. No key that opens a menu: the first item that
// Enter finds there closes the program.
constexpr Key kKeys[] = {Ctrl('O'),      {VK_F5},
                         {VK_PAUSE},     {VK_F5, false, true},
                         {VK_F6},        {VK_F7},
                         {VK_F8},        {VK_PRIOR},
                         {VK_NEXT},      Ctrl(VK_LEFT),
                         Ctrl(VK_RIGHT), Ctrl('M'),
                         Ctrl('F'),      Ctrl('C'),
                         Ctrl('S'),      Ctrl(VK_OEM_COMMA),
                         {VK_F1},        {VK_ESCAPE},
                         {VK_RETURN},    Ctrl(VK_CANCEL),
                         {VK_TAB},       {VK_TAB, false, true},
                         {VK_SPACE},     {VK_UP},
                         {VK_DOWN},      {VK_HOME, false, true},
                         {VK_BACK},      {VK_DELETE},
                         {'1'},          {'0'},
                         {VK_OEM_MINUS}, Ctrl('V'),
                         Ctrl('X'),      Ctrl('A')};

class RandomKeys : public KeyTest, public ::testing::WithParamInterface<ProgramState> {
protected:
    void PressFor(std::chrono::seconds time, unsigned seed) {
        std::mt19937 random(seed);
        const auto end = std::chrono::steady_clock::now() + time;
        while (std::chrono::steady_clock::now() < end) {
            ASSERT_TRUE(session.Process().Running()) << "after " << m_pressed << " keys";
            const RemoteWindow front(::GetForegroundWindow());
            if (front.ProcessId() != main.ProcessId()) {
                ::SetForegroundWindow(::GetLastActivePopup(main.Get()));
            } else {
                PressKey(kKeys[random() % std::size(kKeys)]);
                ++m_pressed;
            }
            ::Sleep(20 + random() % 60);
        }
    }
    // Closes what is open over the main window, as a user does who wants to be rid of it.
    ::testing::AssertionResult ClosesDialogs() {
        return Becomes(
            [this] {
                for (const RemoteWindow& window : WindowsOf(main.ProcessId())) {
                    const bool hasCancel = window.Control(IDCANCEL).Exists();
                    if (window.Get() != main.Get() && (hasCancel || window.Control(IDOK).Exists()))
                        window.PostClick(hasCancel ? IDCANCEL : IDOK);
                }
                return ::IsWindowEnabled(main.Get()) != FALSE;
            },
            true);
    }

    // Whether a live run that may be on hold shows all that came meanwhile. It reads twenty records a second.
    ::testing::AssertionResult ShowsAllThatCame(LRESULT running) {
        if (!feed) return ::testing::AssertionSuccess();
        feed->Stop();
        if (Buttons().pauseImage != running) main.PostClick(IDC_PAUSE);
        if (const auto runs = Becomes([this] { return Buttons().pauseImage; }, running); !runs) return runs;
        return session.Shows(0, DriveText(feed->Sent()));
    }

    int m_pressed = 0;
};

TEST_P(RandomKeys, LoseNothingAndLeaveAProgramThatAnswers) {
    EnterWithKeyboard(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    const LRESULT running = Buttons().pauseImage;
    const unsigned seed = Number("PLOTVANE_KEYS_SEED", 1822) + static_cast<unsigned>(GetParam());
    PressFor(std::chrono::seconds(Number("PLOTVANE_KEYS_SECONDS", 12)), seed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    RecordProperty("keys", m_pressed);
    ASSERT_TRUE(ClosesDialogs());
    EXPECT_TRUE(main.Answers(kDeadline));
    EXPECT_TRUE(ShowsAllThatCame(running));
    EXPECT_TRUE(ComesBackToLife());
    ASSERT_TRUE(ClosesDialogs());
    EXPECT_TRUE(ClosesPromptly(session));
    const std::string ranges = BytesOf(session.Scaling(kScalingFile));
    EXPECT_EQ(std::ranges::count(ranges, '\n'), 256) << ranges.substr(0, 100);
    for (const auto& entry : std::filesystem::directory_iterator(session.Folder()))
        EXPECT_NE(entry.path().extension(), ".tmp") << "half a picture";
}

INSTANTIATE_TEST_SUITE_P(In, RandomKeys,
                         ::testing::Values(ProgramState::LiveRunning, ProgramState::ReplayPlaying),
                         [](const auto& info) { return NameOf(info.param); });

}  // namespace
}  // namespace plotvane::test
