#include <gtest/gtest.h>

#include <new>

#include "tests/memory/FailingNew.h"
#include "tests/support/ChartFixture.h"

namespace plotvane::test {
namespace {

class ChartOutOfMemory : public ChartFixture {
protected:
    ChartOutOfMemory() {
        for (int slot = 0; slot < kSlotCount; ++slot) {
            slots[slot].group = 1;
            slots[slot].unit = "a unit that is too long for the string itself";
        }
        prefs.showUnits = true;
    }

    // Redraws everything while that request for memory fails. False if there are fewer requests.
    bool RedrawFails(std::size_t request) {
        const RequestFails fails(request);
        try {
            chart.InvalidateCtrl();
        } catch (const std::bad_alloc&) {
        }
        return fails.HasFailed();
    }

    void ExpectTheSamePixels(const Canvas& one, const Canvas& other) {
        int differing = 0;
        for (int y = 0; y < 310; ++y) {
            for (int x = 0; x < 620; ++x) differing += one.At(x, y) != other.At(x, y);
        }
        EXPECT_EQ(differing, 0);
    }
};

// Grid and labels are where they were, and none of their pixels scroll with the traces.
TEST_F(ChartOutOfMemory, AFullRedrawThatFailsIsMadeUpForByTheNextSample) {
    Append(100);
    chart.InvalidateCtrl();
    Append(50);
    const Shown whole(chart);

    std::size_t request = 1;
    for (bool failed = true; failed; ++request) {
        SCOPED_TRACE(request);
        chart.InvalidateCtrl();
        Append(100);
        failed = RedrawFails(request);
        Append(50);
        ExpectTheSamePixels(Shown(chart), whole);
    }
    EXPECT_GT(request, 10u);
}

TEST_F(ChartOutOfMemory, AFullRedrawThatFailsIsMadeUpForByTheNextPaint) {
    chart.InvalidateCtrl();
    const Shown whole(chart);
    Append(100);
    for (std::size_t request = 1; RedrawFails(request); ++request) {
        SCOPED_TRACE(request);
        EXPECT_NE(::GetUpdateRect(chart.m_hWnd, nullptr, FALSE), FALSE);
        ExpectTheSamePixels(Shown(chart), whole);
        Append(100);
    }
}

}  // namespace
}  // namespace plotvane::test
