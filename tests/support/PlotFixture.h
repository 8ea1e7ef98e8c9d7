#pragma once

#include <gtest/gtest.h>

#include "plot/binding/Sample.h"
#include "plot/binding/Views.h"
#include "tests/support/DegreeSign.h"
#include "tests/support/FakePump.h"
#include "tests/support/FakeViews.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {

// Slots, tables and views as at the program's start, in a folder of the test's own.
class PlotFixture : public testing::Test {
protected:
    void Fill(int slot, int group, int field, double value, std::string_view unit) {
        FieldSlot& target = slots[slot];
        target.group = group;
        target.field = field;
        target.value = value;
        target.unit = unit;
    }

    // What a record does that leaves the slot empty.
    void Empty(int slot) { Fill(slot, 0, 0, 0.0, ""); }

    // A first record of one group; the other slots are empty.
    void FillEngineGroup() {
        Fill(0, 1, 0, 780.0, "/min");
        Fill(1, 1, 1, 90.0, DEGREES_C);
        Fill(2, 1, 2, 50.0, "km/h");
        Fill(3, 1, 3, 4.2, "l/h");
        for (int slot = 4; slot < kSlotCount; ++slot) Empty(slot);
    }

    void LoadModule(const std::string& fileName) {
        ASSERT_EQ(ranges.LoadModuleScaling(fileName), ModuleLoad::Loaded);
    }

    TempFolder folder;
    RunState state;
    Prefs prefs;
    SlotTable slots;
    DefaultScaling defaults{folder.Path()};
    ModuleScaling ranges{folder.Path(), defaults, state};
    FakeChart chart;
    FakePanel panel;
    FakeMeters meters;
    FakePump pump;
    Sample sample{state, prefs, slots, defaults, ranges};
    Views views{chart, panel, meters};
};

}  // namespace plotvane::test
