#include <gtest/gtest.h>

#include <cstdint>
#include <new>
#include <string_view>
#include <vector>

#include "app/DriveRecorder.h"
#include "history/TraceList.h"
#include "plot/chart/GridOverlay.h"
#include "tests/memory/FailingNew.h"
#include "tests/support/AcquisitionFixture.h"
#include "tests/support/OpenFile.h"

// Running out of memory leaves nothing half done. Each test lets every request for memory fail once, from the
// first to the last, and each time the program then goes on as if nothing had happened.
namespace plotvane {
namespace {

using test::RequestFails;

constexpr std::size_t kNoRequest = 1'000'000'000;  // no run has so many

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
    using AcquisitionFixture::keeper;

    bool RunFails(std::size_t request) {
        Prepare();
        return FailsAt(request, [this] { acquisition.control.StartLive(); });
    }
    void Run() {
        Prepare();
        acquisition.control.StartLive();
    }
    void Prepare() {
        test::WriteBytes(folder / "MB-PIPE.TXT", "5\n");
        state.hostRunning = true;
        FillPipe();
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

// One request for memory fails while the first sample is recorded.
struct FailingOnce : SampleKeeper {
    FailingOnce(SampleKeeper& recorder, std::size_t request) : m_recorder(recorder), m_request(request) {}
    void MarkGap() override {}
    void Take(double seconds, const Sample& sample, const CurrentModule& module) override {
        const RequestFails fails(m_request);
        m_recorder.Take(seconds, sample, module);
        hasFailed = hasFailed || fails.HasFailed();
        m_request = kNoRequest;
    }
    bool hasFailed = false;

private:
    SampleKeeper& m_recorder;
    std::size_t m_request;
};

TEST(OutOfMemory, TheRecordingEndsWithAWordAndTheDriveGoesOn) {
    std::size_t request = 1;
    int failures = 0;
    for (bool failed = true; failed; ++request) {
        SCOPED_TRACE(request);
        Session session;
        Recording recording;
        ChartColumns columns;
        DriveRecorder recorder(recording, columns, "Field#");
        FailingOnce once(recorder, request);
        session.keeper.keeper = &once;
        session.Run();
        EXPECT_EQ(session.chart.samples.size(), 2U);
        failed = once.hasFailed;
        failures += failed ? 1 : 0;
        EXPECT_EQ(recording.HasEnded(), failed);
        EXPECT_EQ(recording.End(), failed ? 0 : 2);
        LookBack state(recording);
        state.Refresh();
        EXPECT_EQ(RecordedNote(state).find("no memory is left") != std::string::npos, failed);
        EXPECT_FALSE(columns.SampleAt(0) && failed);
    }
    EXPECT_GE(failures, 3);
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
