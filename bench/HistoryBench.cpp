// Measures what looking back costs: a sample into the recording, a picture of two hours of twelve traces on
// 1600 x 800 pixels at every zoom, beside a plain copy of such a picture, and the pictures of a view that
// follows. Prints microseconds, milliseconds and ratios; only the ratios can be compared between machines.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <limits>
#include <optional>
#include <random>
#include <utility>
#include <vector>

#include "history/HistoryPicture.h"
#include "history/SampleRecorder.h"

namespace plotvane {
namespace {

constexpr int kWidth = 1600;
constexpr int kHeight = 800;
constexpr int kSamplesASecond = 20;
constexpr std::int64_t kTwoHours = 2 * 3600 * kSamplesASecond;
constexpr int kRounds = 15;

double NowMs() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

// Of a few rounds: what others take from the processor meanwhile counts least in the quickest.
double BestMs(const std::function<void()>& work) {
    double best = std::numeric_limits<double>::infinity();
    for (int round = 0; round < kRounds; ++round) {
        const double begin = NowMs();
        work();
        best = std::min(best, NowMs() - begin);
    }
    return best;
}

struct NoNames : FieldNames {
    std::string NameOf(int, int) const override { return "Engine speed"; }
};

ShownFields Fields() {
    ShownFields fields;
    for (int slot = 0; slot < kSlotCount; ++slot)
        fields[static_cast<std::size_t>(slot)] = {true, slot + 1, slot % 4, false, "/min", 0.0, 100.0};
    return fields;
}

// Waves that fill the plot, or noise over all of it, by which every column is one long line.
void Record(SampleRecorder& recorder, bool isNoise) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> anything(0.0, 100.0);
    const ShownFields fields = Fields();
    recorder.Begin("bench", SampleRecorder::Clock::FromFirstSample);
    for (std::int64_t i = 0; i < kTwoHours; ++i) {
        Recording::Values values;
        for (std::size_t k = 0; k < values.size(); ++k) {
            const double angle = static_cast<double>(i) * 0.002 * static_cast<double>(k + 1);
            values[k] = isNoise ? anything(random) : 50.0 + 45.0 * std::sin(angle);
        }
        recorder.Take(static_cast<double>(i) / kSamplesASecond, fields, values, 0xFFF);
    }
}

// Without the time that making values up takes.
void MeasureSample(Recording& recording, const FieldNames& names) {
    SampleRecorder recorder(recording, names);
    const ShownFields fields = Fields();
    const Recording::Values values{1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0, 10.0, 11.0, 12.0};
    const double ms = BestMs([&] {
        recorder.Begin("bench", SampleRecorder::Clock::FromFirstSample);
        for (std::int64_t i = 0; i < kTwoHours; ++i)
            recorder.Take(static_cast<double>(i) / kSamplesASecond, fields, values, 0xFFF);
    });
    std::printf("%-36s %8.3f us\n", "a sample", ms * 1000.0 / static_cast<double>(kTwoHours));
}

void MeasurePictures(const Recording& recording, const char* what) {
    std::vector<std::uint32_t> pixels(std::size_t{kWidth} * kHeight);
    std::vector<std::uint32_t> copy(pixels.size());
    const double copyMs =
        BestMs([&] { std::memcpy(copy.data(), pixels.data(), pixels.size() * sizeof pixels[0]); });
    const HistoryLook look = LookOf(Prefs{});
    LookBack state(recording);
    state.Refresh();
    const std::vector<ListedTrace> list = ListOf(state);
    const HistoryLayout layout(kWidth + 330, kHeight + 60, 15, static_cast<int>(list.size()));
    std::vector<std::uint32_t> window(
        static_cast<std::size_t>(layout.Client().right * layout.Client().bottom));
    state.SetPlotWidth(layout.Plot().Width());
    state.ShowAll();
    std::printf("%s, %d x %d; a copy of the picture takes %.2f ms\n", what, layout.Plot().Width(),
                layout.Plot().Height(), copyMs);
    double worst = 0.0;
    for (double before = 0.0; state.View().Length() != before; state.ZoomAbout(kWidth / 2.0, 0.5)) {
        before = state.View().Length();
        const double ms = BestMs([&] {
            TracePlotter plotter;
            const HistoryPicture picture(state, look, layout, list, "", plotter);
            picture.Paint({window.data(), layout.Client().right, layout.Client().bottom}, layout.Client());
        });
        worst = std::max(worst, ms);
        std::printf("  %10.1f s in view %8.2f ms %8.1f copies\n", before, ms, ms / copyMs);
    }
    std::printf("  at worst %22.2f ms %8.1f copies\n", worst, worst / copyMs);
    const double listMs = BestMs([&] { static_cast<void>(ListOf(state)); });
    // What the window does before it is seen; Windows' own part is not in it.
    const double openMs = BestMs([&] {
        LookBack opened(recording);
        opened.SetPlotWidth(layout.Plot().Width());
        opened.Refresh();
        TracePlotter plotter;
        const HistoryPicture picture(opened, look, layout, ListOf(opened), RecordedNote(opened), plotter);
        picture.Paint({window.data(), layout.Client().right, layout.Client().bottom}, layout.Client());
    });
    std::printf("  the list %22.3f ms; the opening %.3f ms\n", listMs, openMs);
}

// Ten pictures a second of the last minute, of which one in sixty is painted whole. Texts are not in it.
void MeasureFollowing(SampleRecorder& recorder, const Recording& recording) {
    constexpr int kPictures = 600;
    const HistoryLook look = LookOf(Prefs{});
    const ShownFields fields = Fields();
    LookBack state(recording);
    const HistoryLayout layout(kWidth + 330, kHeight + 60, 15, kSlotCount);
    std::vector<std::uint32_t> window(
        static_cast<std::size_t>(layout.Client().right * layout.Client().bottom));
    state.SetPlotWidth(layout.Plot().Width());
    std::int64_t sample = kTwoHours;
    std::optional<HistoryPicture> shown;
    TracePlotter plotter;
    const double ms = BestMs([&] {
        for (int i = 0; i < kPictures; ++i) {
            for (int added = 0; added < 2; ++added, ++sample) {
                Recording::Values values;
                values.fill(static_cast<double>(sample % 100));
                recorder.Take(static_cast<double>(sample) / kSamplesASecond, fields, values, 0xFFF);
            }
            state.Refresh();
            HistoryPicture picture(state, look, layout, ListOf(state), RecordedNote(state), plotter);
            std::vector<PixelRect> parts{picture.Client()};
            if (shown) parts = picture.ChangesSince(*shown);
            for (const PixelRect& part : parts)
                picture.Paint({window.data(), layout.Client().right, layout.Client().bottom}, part);
            shown.emplace(std::move(picture));
        }
    });
    std::printf("%-36s %8.3f ms\n", "the next picture, two samples later", ms / kPictures);
}

void MeasureAll() {
    const NoNames names;
    Recording recording;
    MeasureSample(recording, names);
    SampleRecorder recorder(recording, names);
    Record(recorder, false);
    MeasurePictures(recording, "waves");
    Record(recorder, true);
    MeasurePictures(recording, "noise");
    MeasureFollowing(recorder, recording);
}

}  // namespace
}  // namespace plotvane

int main() {
    plotvane::MeasureAll();
}
