#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/FakeDialog.h"
#include "tests/support/Records.h"
#include "tests/support/ScriptedPipe.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {

// Passes samples on to the keeper that a test sets.
struct AnyKeeper : SampleKeeper {
    void MarkGap() override {
        if (keeper) keeper->MarkGap();
    }
    void Take(double seconds, const Sample& sample, const CurrentModule& module) override {
        if (keeper) keeper->Take(seconds, sample, module);
    }
    SampleKeeper* keeper = nullptr;
};

// The whole acquisition on fake views, with a scripted pipe and a fake clock, in a working folder of its own.
class AcquisitionFixture : public testing::Test {
protected:
    AcquisitionFixture() {
        std::filesystem::current_path(folder.Path());
        dialog.control = &acquisition.control;
    }
    ~AcquisitionFixture() override { std::filesystem::current_path(m_before); }

    std::filesystem::path ScalingFile(std::string_view name) { return folder / "Scaling" / name; }

    // Runs a click some milliseconds from now, in whatever wait is on then.
    void After(double ms, std::function<void()> click) { pump.At(pump.NowMs() + ms, std::move(click)); }

private:
    const std::filesystem::path m_before = std::filesystem::current_path();

protected:
    TempFolder folder;
    ProgramData data{folder / "Scaling"};
    RunState& state = data.state;
    FakeChart chart;
    FakePanel panel;
    FakeMeters meters;
    FakePump pump;
    ScriptedPipe pipe;
    FakeDialog dialog;
    AnyKeeper keeper;
    Acquisition acquisition{data,
                            {{chart, panel, meters}, dialog, dialog, &keeper},
                            pipe,
                            pump,
                            {"Plotvane  -  Live Data  -  ", {"MPG", "L/100km", "Gal. per Hour"}}};
};

}  // namespace plotvane::test
