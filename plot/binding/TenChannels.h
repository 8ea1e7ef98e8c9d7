#pragma once

#include <string>

#include "plot/binding/Sample.h"
#include "plot/binding/SlotSelection.h"
#include "plot/binding/Views.h"

namespace plotvane {

// The ten channels: values of 0..255 from a record in the ten-channel form, which take the place of row A.
class TenChannels {
public:
    // The range of each: one below and one above what a byte can hold.
    static constexpr int kLowest = -1;
    static constexpr int kHighest = 256;

    TenChannels(Sample& sample, const Views& views, SlotSelection& selection)
        : m_sample(sample), m_views(views), m_selection(selection) {}

    // Changes the layout if the record has the other form.
    void PrepareSlots();

    // One sample in the ten-channel layout.
    void UpdateChannels();

private:
    void Enter();
    void Leave();

    Sample& m_sample;
    Views m_views;
    SlotSelection& m_selection;
    bool m_applied = false;  // the layout that the dialog shows
    std::string m_text;
};

}  // namespace plotvane
