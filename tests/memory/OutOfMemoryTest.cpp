#include <gtest/gtest.h>

#include <cstdint>
#include <new>
#include <string_view>
#include <vector>

#include "plot/chart/GridOverlay.h"
#include "tests/memory/FailingNew.h"
#include "tests/support/AcquisitionFixture.h"
#include "tests/support/OpenFile.h"

// Running out of memory leaves nothing half done. Each test lets every request for memory fail once, from the
// first to the last, and each time the program then goes on as if nothing had happened.
namespace plotvane {
namespace {

using test::RequestFails;

// Does the work while the request with that number fails. False if there are fewer requests.
template <typename Work>
bool FailsAt(std::size_t request, Work work) {
    const RequestFails fails(request);
    try {
        work();
    } catch (const std::bad_alloc&) {
    }
    return fails.HasFailed();
}

TEST(OutOfMemory, AGridThatWasTakenInPartIsNotLaid) {
    using Pixels = std::vector<std::uint32_t>;
    constexpr int kSide = 64;
    const auto view = [](Pixels& pixels) { return ChartPixels{pixels.data(), kSide, kSide}; };
    Pixels dots(kSide * kSide);
    for (std::size_t i = 0; i < dots.size(); i += 3) dots[i] = 1;
    const Pixels traces(kSide * kSide, 8);

    constexpr std::size_t kBuffers = 3;
    std::size_t request = 1;
    for (bool failed = true; failed; ++request) {
        GridOverlay grid;
        Pixels small(kSide * kSide);
        small.front() = 2;
        grid.TakeFrom(view(small));
        failed = FailsAt(request, [&] { grid.TakeFrom(view(dots)); });
        Pixels picture = traces;
        grid.LayOn(view(picture));
        EXPECT_EQ(picture == traces, failed) << request;
        grid.LiftOff(view(picture));
        EXPECT_EQ(picture, traces) << request;
    }
    EXPECT_GT(request, kBuffers);
}

constexpr std::string_view kLog =
    "Friday,20,November,2026,10:15:30\n"
    "OBD-II,generic data\n"
    "PID- 012- 013- 000- 000\n"
    "(/min)(km/h)\n"
    "0,0.00,780,0.05,0,,,,\n"
    "1,0.50,1240,0.55,12,,,,\n";

// The acquisition on fake views, as a plain object: a test makes one for each request.
struct Session : test::AcquisitionFixture {
    using AcquisitionFixture::chart;
    using AcquisitionFixture::dialog;

    bool RunFails(std::size_t request) {
        test::WriteBytes(folder / "MB-PIPE.TXT", "5\n");
        state.hostRunning = true;
        FillPipe();
        return FailsAt(request, [this] { acquisition.control.StartLive(); });
    }
    void FillPipe() {
        pipe = test::ScriptedPipe();
        for (int record = 0; record < 2; ++record) pipe.Write(test::BlockOf(test::EngineRecord()));
        pipe.Write("\xFE");
    }

    bool ReplayFails(std::size_t request) {
        test::WriteBytes(folder / "x.csv", kLog);
        dialog.choice = folder / "x.csv";
        return FailsAt(request, [this] { acquisition.control.LoadLog(); });
    }
    bool HasRun() const { return state.generation > 0; }

    void ExpectStopped() const {
        EXPECT_TRUE(state.stopped);
        EXPECT_TRUE(chart.redraw);
        EXPECT_EQ(dialog.look.pause, PauseImage::StartOver);
        EXPECT_TRUE(dialog.look.pauseEnabled);
        EXPECT_FALSE(dialog.choice && test::IsHeldOpen(*dialog.choice));
    }

private:
    void TestBody() override {}
};

TEST(OutOfMemory, ALiveRunStopsAndCanBeStartedAgain) {
    std::size_t request = 1;
    for (bool failed = true; failed; ++request) {
        SCOPED_TRACE(request);
        Session session;
        failed = session.RunFails(request);
        session.ExpectStopped();
        session.FillPipe();
        const std::size_t samples = session.chart.samples.size();
        session.dialog.Pause();
        EXPECT_EQ(session.chart.samples.size(), samples + 2);
    }
    EXPECT_GT(request, 20u);
}

TEST(OutOfMemory, AReplayStopsAndCanBeStartedAgain) {
    std::size_t request = 1;
    int runsThatFailed = 0;
    for (bool failed = true; failed; ++request) {
        SCOPED_TRACE(request);
        Session session;
        failed = session.ReplayFails(request);
        if (!session.HasRun()) continue;  // before there was anything to stop
        ++runsThatFailed;
        session.ExpectStopped();
        const std::size_t samples = session.chart.samples.size();
        session.dialog.Pause();
        EXPECT_EQ(session.chart.samples.size(), samples + 2);
    }
    EXPECT_GT(runsThatFailed, 20);
}

}  // namespace
}  // namespace plotvane
