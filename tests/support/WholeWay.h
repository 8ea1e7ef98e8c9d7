#pragma once

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/DriveRecorder.h"
#include "link/ExchangeFile.h"
#include "tests/support/DriveViews.h"
#include "tests/support/FakeDialog.h"
#include "tests/support/ScriptedPipe.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {

// A pipe that repeats a list of blocks until it has given a number of them; then the host stops.
class EndlessPipe : public HostPipe {
public:
    EndlessPipe(std::vector<std::string> blocks, int count) : m_blocks(std::move(blocks)), m_left(count) {}

    void Attach(int) override {}

    int TryRead(std::span<char> buffer) override {
        if (m_left == 0) {
            buffer[0] = '\xFE';
            return 1;
        }
        const std::string& block = m_blocks[m_next];
        const std::size_t count = std::min(buffer.size(), block.size() - m_given);
        std::copy_n(block.begin() + static_cast<std::ptrdiff_t>(m_given), count, buffer.begin());
        m_given += count;
        if (m_given == block.size()) {
            m_given = 0;
            m_next = (m_next + 1) % m_blocks.size();
            --m_left;
        }
        return static_cast<int>(count);
    }

private:
    std::vector<std::string> m_blocks;
    int m_left;
    std::size_t m_next = 0;
    std::size_t m_given = 0;  // of the block that is next
};

// The whole portable way from bytes to slots, texts, traces, meters, fuel figures and the recording, in a
// working folder of its own and on views without pixels. It calls `onSample` with each sample on the way to
// the chart.
class WholeWay {
public:
    enum class Meters {
        Closed,
        Open  // every one, down to its needle and text
    };

    WholeWay(HostPipe& pipe, Meters meters, std::function<void(const TraceValues&)> onSample)
        : m_acquisition(m_data, {{m_chart, m_panel, Board(meters)}, m_dialog, m_dialog, &m_recorder}, pipe,
                        m_pump, {"Plotvane  -  Live Data  -  ", {"MPG", "L/100km", "Gal. per Hour"}}) {
        std::filesystem::current_path(m_folder.Path());
        m_dialog.control = &m_acquisition.control;
        m_chart.onSample = std::move(onSample);
        m_data.prefs.autorun = true;
    }
    ~WholeWay() { std::filesystem::current_path(m_before); }
    WholeWay(const WholeWay&) = delete;
    WholeWay& operator=(const WholeWay&) = delete;

    // Returns when the host stops.
    void RunLive() {
        WriteBytes(m_folder / kExchangeFileName, "5\n");
        m_data.state.hostRunning = true;
        m_acquisition.control.StartLive();
    }

    const Recording& Recorded() const { return m_recording; }

    // Returns when the log is over.
    void Replay(std::string_view log) {
        WriteBytes(m_folder / "drive.csv", log);
        ReplayFile(m_folder / "drive.csv");
    }
    void ReplayFile(const std::filesystem::path& log) {
        m_dialog.choice = log;
        m_acquisition.control.LoadLog();
    }

private:
    MeterBoard& Board(Meters meters) {
        if (meters == Meters::Open) return m_openMeters;
        return m_closedMeters;
    }

    const std::filesystem::path m_before = std::filesystem::current_path();
    TempFolder m_folder;
    ProgramData m_data{m_folder / "Scaling"};
    test::LineChart m_chart{m_data.prefs, m_data.state, m_data.slots};
    FakePanel m_panel;
    test::OpenMeters m_openMeters;
    FakeMeters m_closedMeters;
    FakePump m_pump;
    FakeDialog m_dialog;
    Recording m_recording;
    ChartColumns m_columns;
    DriveRecorder m_recorder{m_recording, m_columns, "Field#"};
    Acquisition m_acquisition;
};

}  // namespace plotvane::test
