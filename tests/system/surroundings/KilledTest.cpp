// Program and host are killed at random moments, over and over, in the same folder. Afterwards every settings
// file is whole, and the next run starts with it. scripts/soak.sh does it a hundred times and more.
#include <algorithm>
#include <random>
#include <thread>

#include "tests/support/system/Feed.h"
#include "tests/support/system/MainDialog.h"
#include "tests/support/system/Repeats.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

// Each stop saves the ranges of one module, seven kilobytes.
constexpr int kModules = 5;
constexpr int kUsualKills = 6;
constexpr auto kLongestLife = 1500ms;

std::string ModuleRecord(int number) {
    std::string record = DriveRecord(number);
    record.replace(0, record.find(','), "MOD " + std::to_string(number % kModules));
    return record;
}

// A file that was saved to its end has this many lines, and this last one.
struct WholeFile {
    std::ptrdiff_t lines;
    std::string_view end;
};

WholeFile WholeFormOf(const std::filesystem::path& file) {
    if (file.extension() == ".SCL") return {256, "\r\n255,0,100,0,100,0,100,0,100,\r\n"};
    if (file.filename() == "Prefs.cfg") return {24, "\r\nFuelHistoryDepth=1\r\n"};
    return {10, "\r\nms,0,30,\r\n"};
}

bool IsSettingsFile(const std::filesystem::path& file) {
    return file.extension() == ".SCL" || file.extension() == ".cfg";
}

class Killed : public ::testing::Test {
protected:
    // One run of the program in that folder. Either the program is killed, or its host dies.
    void Run(const std::filesystem::path& folder, bool hostDies) {
        Session session(folder);
        session.StartWithHost();
        const std::jthread killer = hostDies ? std::jthread() : KillAfter(SomeTime(), session.Process().Id());
        KeepSaving(session, hostDies ? SomeTime() : kDeadline);
        if (!hostDies) return;
        session.Host().Die();
        // The window may not have come yet, or may be gone already.
        EXPECT_TRUE(Becomes(
            [&] {
                FindMainDialog(session.Process().Id()).Close();
                return session.Process().Running();
            },
            false));
        EXPECT_EQ(session.Process().ExitCode(), 0u);
    }
    // Sends records of changing modules, with a stop and a start after each, until the process has ended. Now
    // and then it closes the window, so that the preferences are saved too.
    void KeepSaving(Session& session, std::chrono::milliseconds time) {
        const auto end = std::chrono::steady_clock::now() + time;
        while (session.Process().Running() && std::chrono::steady_clock::now() < end) {
            if (session.Host().Unread() < 2 * kBlockBytes) {
                session.Host().SendRecord(ModuleRecord(++m_number));
                session.Host().StopSending();
            }
            const RemoteWindow main = FindMainDialog(session.Process().Id());
            main.PostClick(IDC_PAUSE);
            if (m_random() % 100 == 0) main.Close();
            ::Sleep(2);
        }
    }
    static std::jthread KillAfter(std::chrono::milliseconds time, DWORD processId) {
        return std::jthread([time, processId] {
            const Handle process(::OpenProcess(PROCESS_TERMINATE, FALSE, processId));
            std::this_thread::sleep_for(time);
            ::TerminateProcess(process.Get(), 9);
        });
    }
    std::chrono::milliseconds SomeTime() { return kLongestLife * static_cast<int>(m_random() % 1000) / 1000; }

    static void ExpectEveryFileWhole(const std::filesystem::path& scaling) {
        if (!std::filesystem::exists(scaling)) return;
        for (const auto& entry : std::filesystem::directory_iterator(scaling)) {
            if (!IsSettingsFile(entry.path())) continue;
            const std::string bytes = BytesOf(entry.path());
            const WholeFile whole = WholeFormOf(entry.path());
            EXPECT_EQ(std::ranges::count(bytes, '\n'), whole.lines) << entry.path();
            EXPECT_TRUE(bytes.ends_with(whole.end)) << entry.path();
        }
    }

    std::mt19937 m_random{20261122};
    int m_number = 0;
};

TEST_F(Killed, AtAnyMomentLeavesEverySettingsFileWhole) {
    const TempFolder folder;
    for (int kill = 0; kill < Repeats("PLOTVANE_KILLS", kUsualKills) && !HasFailure(); ++kill) {
        SCOPED_TRACE("kill " + std::to_string(kill));
        Run(folder.Path(), kill % 3 == 2);
        ExpectEveryFileWhole(folder / "Scaling");
    }
    EXPECT_GT(m_number, kUsualKills) << "there was something to save";

    Session session(folder.Path());
    session.StartWithHost();
    session.Host().SendRecord(ModuleRecord(1));
    EXPECT_TRUE(session.Shows(0, DriveText(1)));
    EXPECT_EQ(WindowsOf(session.Process().Id()).size(), 1u) << "no message";
    EXPECT_TRUE(session.Closes());
    ExpectEveryFileWhole(folder / "Scaling");
}

}  // namespace
}  // namespace plotvane::test
