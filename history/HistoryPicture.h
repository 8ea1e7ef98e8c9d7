#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/Colour.h"
#include "history/HistoryLayout.h"
#include "history/LookBack.h"
#include "history/PlotRaster.h"
#include "history/TraceList.h"
#include "scaling/Prefs.h"

namespace plotvane {

// What the window that looks back takes over from the chart.
struct HistoryLook {
    Colour background = kBlack;
    Colour foreground = kWhite;  // grid, frame and texts
    std::array<Colour, kSlotCount> traces{};
    int thickness = 1;  // of the traces, in pixels
};
HistoryLook LookOf(const Prefs& prefs);

// A text, cut off where it leaves its place.
struct PlacedText {
    enum class Side { Left, Centre, Right };

    std::string text;  // Windows-1252
    PixelRect place;   // one line
    Side side = Side::Left;
    Colour colour = kBlack;
};

// What the window that looks back shows, at one moment. The state must have been refreshed, and neither it
// nor its recording may change while this lives.
class HistoryPicture {
public:
    // `note` stands in the last line, after what the cursors tell.
    HistoryPicture(const LookBack& state, const HistoryLook& look, const HistoryLayout& layout,
                   std::vector<ListedTrace> list, std::string note);

    // Everything but the texts. The picture has the size of the layout.
    void Paint(const ChartPixels& picture) const;

    std::vector<PlacedText> Texts() const;

private:
    void PlotTraces();
    PlottedTrace Plotted(int trace, const TraceColumns& columns) const;
    Colour ColourOf(int trace) const;
    Colour Faded(Colour colour) const;
    PlotGround Ground() const;
    void PaintLines(const ChartPixels& picture) const;
    void PaintList(const ChartPixels& picture) const;
    void AddScale(std::vector<PlacedText>& texts) const;
    void AddTimes(std::vector<PlacedText>& texts) const;
    void AddMarks(std::vector<PlacedText>& texts) const;
    void AddList(std::vector<PlacedText>& texts) const;
    void AddStatus(std::vector<PlacedText>& texts) const;

    const LookBack& m_state;
    const HistoryLook m_look;
    const HistoryLayout m_layout;
    const std::vector<ListedTrace> m_list;
    const std::string m_note;
    std::vector<PlottedTrace> m_traces;
};

}  // namespace plotvane
