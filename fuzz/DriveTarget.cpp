#include <algorithm>
#include <cmath>
#include <deque>
#include <filesystem>
#include <functional>
#include <string>

#include "app/DriveRecorder.h"
#include "fuzz/DriveScript.h"
#include "fuzz/Inputs.h"
#include "fuzz/SampleCheck.h"
#include "fuzz/Slots.h"
#include "fuzz/Targets.h"
#include "history/CsvExport.h"
#include "history/TraceList.h"
#include "link/Acquisition.h"
#include "link/ExchangeFile.h"
#include "logs/ModuleKey.h"
#include "scaling/PrefsFile.h"
#include "tests/support/DriveViews.h"
#include "tests/support/FakeDialog.h"
#include "tests/support/Promise.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/ScriptedPipe.h"

namespace plotvane::fuzz {

using test::LineChart;
using test::OpenMeters;
using test::Require;
using test::ScratchPath;

namespace {

constexpr const char* kLogName = "drive.csv";
constexpr int kPatience = 4000;    // rounds of the pump; after these the user closes the program
constexpr int kRoundsToEnd = 200;  // after the close, everything must have returned within these
constexpr double kTickMs = 10.0;   // a coarse clock: no sleep is shorter
constexpr int kLongestSleepMs = 1000;

// A clock that only advances while the program waits, with the user's clicks. After kPatience rounds it drops
// the other clicks and closes the program.
class DrivePump : public MessagePump {
public:
    explicit DrivePump(std::function<void()> endProgram) : m_endProgram(std::move(endProgram)) {}

    double NowMs() override { return m_nowMs; }

    void SleepAndDispatch(int ms) override {
        Require(ms >= 0 && ms <= kLongestSleepMs, "no sleep is longer than a second");
        ++m_rounds;
        Require(m_rounds <= kPatience + kRoundsToEnd, "a closed program ends");
        if (m_rounds >= kPatience) {
            m_clicks.clear();
            m_endProgram();
        }
        if (ms > 0) m_nowMs += SleepFor(ms);
        while (!m_clicks.empty() && m_clicks.front().first <= m_nowMs) {
            const auto click = std::move(m_clicks.front().second);
            m_clicks.pop_front();
            click();
        }
    }

    void At(double ms, std::function<void()> click) { m_clicks.emplace_back(ms, std::move(click)); }
    void DropClicks() { m_clicks.clear(); }
    bool HasClicks() const { return !m_clicks.empty(); }

private:
    // A click ends the sleep, as a message would.
    double SleepFor(int ms) const {
        const double untilClick = m_clicks.empty() ? ms : m_clicks.front().first - m_nowMs;
        return std::max(kTickMs, std::min<double>(ms, untilClick));
    }

    std::function<void()> m_endProgram;
    std::deque<std::pair<double, std::function<void()>>> m_clicks;
    double m_nowMs = 1000.0;
    int m_rounds = 0;
};

// The working folder while the program runs, with the files that exist before it starts.
class WorkingFolder {
public:
    explicit WorkingFolder(const DriveScript& script) {
        Clear();
        std::filesystem::current_path(ScratchPath());
        const std::string key = ScalingFileNameOf(kFirstModule);
        const std::string labels = LabelFileNameOf(KeyStemOf(key), LabelForm::Full);
        Write(kExchangeFileName, script.exchangeFile);
        Write(kLogName, script.log);
        Write("Scaling/Defaults.cfg", script.defaults);
        Write("Scaling/Prefs.cfg", script.prefs);
        Write("Scaling/" + key, script.ranges);
        Write("labels/" + labels, script.labels);
    }
    ~WorkingFolder() {
        std::error_code ignored;
        std::filesystem::current_path(m_before, ignored);
        Clear();
    }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

    // The folder must hold nothing that the program may not create.
    static void RequireTidy() {
        for (const auto& entry : std::filesystem::directory_iterator(ScratchPath())) {
            const auto name = entry.path().filename();
            Require(name == kExchangeFileName || name == kLogName || name == "Scaling" || name == "labels",
                    "nothing is written outside the Scaling folder");
        }
        if (!std::filesystem::exists(ScratchPath() / "Scaling")) return;
        for (const auto& entry : std::filesystem::directory_iterator(ScratchPath() / "Scaling")) {
            const std::string name = entry.path().filename().string();
            Require(entry.is_regular_file() && (name.ends_with(kScalingExtension) || name == "Defaults.cfg" ||
                                                name == kPrefsFileName),
                    "only settings are written, and whole");
        }
    }

private:
    static void Write(const std::filesystem::path& name, std::string_view text) {
        if (text.empty()) return;
        const auto path = ScratchPath() / name;
        std::filesystem::create_directories(path.parent_path());
        test::WriteBytes(path, text);
    }
    static void Clear() {
        for (const auto& entry : std::filesystem::directory_iterator(ScratchPath()))
            std::filesystem::remove_all(entry.path());
    }

    std::filesystem::path m_before = std::filesystem::current_path();
};

// One run of the program, from its start to its close.
class Drive {
public:
    // The script must outlive the drive.
    explicit Drive(const DriveScript& script) {
        m_dialog.control = &m_acquisition.control;
        m_chart.onSample = [this](const TraceValues& values) { m_check(values); };
        m_dialog.choice = ScratchPath() / kLogName;
        m_data.state.hostRunning = script.hostRuns;
        LoadPrefs(m_data.PrefsFile(), m_data.prefs);
        for (const std::string& portion : script.portions) m_pipe.Write(portion);
        m_pipe.closed = true;
        for (const auto& click : script.clicks) {
            m_pump.At(m_pump.NowMs() + click.atMs, [this, &click] { Perform(click.what); });
        }
    }

    void Run() {
        constexpr int kIdleMs = 10;
        if (m_data.state.hostRunning) m_acquisition.control.StartLive();
        while (m_pump.HasClicks()) m_pump.SleepAndDispatch(kIdleMs);
        m_dialog.Close();
        RequireSane();
        RequireSettingsSurvive();
        RequireRecordingCanBeSeen();
    }

private:
    void EndProgram() {
        if (m_dialog.closes == 0) m_dialog.Close();
        m_dialog.Stop();
    }

    // Ignores clicks after the close; one of the clicks may have closed the program.
    void Perform(std::string_view clicks) {
        for (std::size_t i = 0; i < clicks.size() && m_dialog.closes == 0; ++i) {
            if (clicks[i] == 'M') {
                m_acquisition.loop.Selection().SetMinimum(clicks.substr(i + 1));
                m_acquisition.loop.Selection().SetMaximum(clicks.substr(i + 1, 3));
                return;
            }
            Click(clicks[i]);
        }
    }

    void Click(char button) {
        RunState& state = m_data.state;
        switch (button) {
            case 'S':
                m_dialog.Stop();
                break;
            case 'P':
                m_dialog.Pause();
                break;
            case 'L':
                m_acquisition.control.LoadLog();
                break;
            case '+':
                state.pixelShift = std::min(state.pixelShift + 1, kPixelShiftMax);
                break;
            case '-':
                state.pixelShift = std::max(state.pixelShift - 1, kPixelShiftMin);
                break;
            case '*':
                if (state.replayPeriodMs > kReplayPeriodMinMs) state.replayPeriodMs /= 2;
                break;
            case '/':
                if (state.replayPeriodMs < kReplayPeriodMaxMs) state.replayPeriodMs *= 2;
                break;
            case '>':
                m_acquisition.loop.Selection().SelectNext();
                break;
            case '<':
                m_acquisition.loop.Selection().SelectPrevious();
                break;
            case 'A':
                for (bool& on : m_panel.airFuelOn) on = !on;
                break;
            default:
                if (button < '0' || button > '9') break;
                const int box = button - '0';
                m_panel.shown[box] = !m_panel.shown[box];
                m_panel.channelsShown[box] = !m_panel.channelsShown[box];
                break;
        }
    }

    void RequireSane() {
        const RunState& state = m_data.state;
        Require(state.stopped, "a closed program has stopped");
        Require(state.pixelShift >= kPixelShiftMin && state.pixelShift <= kPixelShiftMax,
                "the pixel shift is 1..15");
        Require(std::isfinite(m_acquisition.loop.Fuel().Consumption()) &&
                    std::isfinite(m_acquisition.loop.Fuel().Mileage()),
                "a fuel figure is finite");
        for (const std::string& text : m_panel.values) {
            constexpr std::size_t kLongest = 100 + 15;  // a "%g" number and a unit
            Require(text.size() <= kLongest, "a value box is bounded");
        }
        for (const auto& [text, caption] : m_dialog.messages)
            Require(text > 0 && caption > 0, "a message has texts");
        WorkingFolder::RequireTidy();
    }

    void RequireSettingsSurvive() {
        const std::string& name = m_data.ranges.LoadedName();
        if (m_data.ranges.IsLoadedWhole() && name == m_acquisition.module.Key()) {
            RunState state;
            state.obdFile = m_data.state.obdFile;
            DefaultScaling defaults(m_data.folder);
            ModuleScaling reloaded(m_data.folder, defaults, state);
            Require(m_data.ranges.SaveModuleScaling(name) == 0, "the ranges are saved");
            Require(reloaded.LoadModuleScaling(name) == ModuleLoad::Loaded, "the ranges are loaded again");
            for (int group = ModuleScaling::kFirstGroup; group <= ModuleScaling::kLastGroup; ++group)
                Require(m_data.ranges.RangeOf(group, 0) == reloaded.RangeOf(group, 0),
                        "the ranges survive the program");
        }
        const auto path = ScratchPath() / "prefs-of-the-drive";
        Require(SavePrefs(path, m_data.prefs, 634, 433) == 0, "the preferences are saved");
        std::filesystem::remove(path);
    }

    void RequireRecordingCanBeSeen() const {
        double before = -Recording::kFarthestSeconds;
        for (auto sample = m_recording.Begin(); sample < m_recording.End(); ++sample) {
            Require(m_recording.Seconds(sample) >= before, "recorded time never goes back");
            before = m_recording.Seconds(sample);
            for (int trace = 0; trace < kSlotCount; ++trace)
                Require(std::isfinite(m_recording.Value(trace, sample)), "a recorded value is finite");
        }
        LookBack state(m_recording);
        state.Refresh();
        state.ShowAll();
        Require(ListOf(state).size() <= kSlotCount, "the list has a trace for each slot at most");
        std::string csv;
        CsvExport samples(m_recording, m_recording.Begin(), m_recording.End());
        Require(samples.Append(csv, Recording::kMostPieces * SamplePiece::kSamples) == CsvExport::Next::Done,
                "all samples can be saved");
    }

    ProgramData m_data{ScratchPath() / "Scaling"};
    test::FakePanel m_panel;
    LineChart m_chart{m_data.prefs, m_data.state, m_data.slots};
    OpenMeters m_meters;
    test::ScriptedPipe m_pipe;
    test::FakeDialog m_dialog;
    DrivePump m_pump{[this] { EndProgram(); }};
    Recording m_recording;
    ChartColumns m_columns;
    DriveRecorder m_recorder{m_recording, m_columns, "Field#"};
    Acquisition m_acquisition{m_data,
                              {{m_chart, m_panel, m_meters}, m_dialog, m_dialog, &m_recorder},
                              m_pipe,
                              m_pump,
                              {"Plotvane  -  Live Data  -  ", {"MPG", "L/100km", "Gal. per Hour"}}};
    SampleCheck m_check{m_data, m_panel, m_acquisition.loop.Fuel()};
};

}  // namespace

int FuzzDrive(Bytes input) {
    const DriveScript script(AsText(input));
    const WorkingFolder folder(script);
    Drive(script).Run();
    return 0;
}

}  // namespace plotvane::fuzz
