#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/TempFolder.h"
#include "tests/unit/support/FakeDialog.h"
#include "tests/unit/support/ScriptedPipe.h"

namespace plotvane::test {

// The whole acquisition on fake views, with a scripted pipe and a fake clock, in a working folder of its own.
class AcquisitionFixture : public testing::Test {
protected:
    AcquisitionFixture() {
        std::filesystem::current_path(folder.Path());
        dialog.control = &acquisition.control;
    }
    ~AcquisitionFixture() override { std::filesystem::current_path(m_before); }

    std::filesystem::path ScalingFile(std::string_view name) { return folder / "Scaling" / name; }

    // A click some milliseconds from now, from whatever pump is waiting then.
    void After(double ms, std::function<void()> click) { pump.At(pump.NowMs() + ms, std::move(click)); }

private:
    const std::filesystem::path m_before = std::filesystem::current_path();

protected:
    TempFolder folder;
    DriveData data{folder / "Scaling"};
    RunState& state = data.state;
    FakeChart chart;
    FakePanel panel;
    FakeMeters meters;
    FakePump pump;
    ScriptedPipe pipe;
    FakeDialog dialog;
    Acquisition acquisition{data,
                            {chart, panel, meters, dialog, dialog, dialog, dialog},
                            pipe,
                            pump,
                            {"Plotvane  -  Live Data  -  ", {"MPG", "L/100km", "Gal. per Hour"}}};
};

// A record of one group of four fields; the other slots are empty.
inline std::string EngineRecord(std::string_view module = "038 906 019 FT", std::string_view rpm = "780") {
    std::string record(module);
    record.append(",G001,F0,")
        .append(rpm)
        .append(
            ",/min,G001,F1,90.0,\xB0"
            "C,G001,F2,50, km/h,G001,F3,4.2,l/h,");
    for (int i = 0; i < 8; ++i) record += "G000,,,,";
    return record;
}

}  // namespace plotvane::test
