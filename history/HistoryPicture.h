#pragma once

#include <string>
#include <vector>

#include "base/Colour.h"
#include "history/HistoryLayout.h"
#include "history/HistoryLook.h"
#include "history/HistoryTexts.h"
#include "history/LookBack.h"
#include "history/PlotRaster.h"
#include "history/TraceList.h"
#include "history/TracePlotter.h"

namespace plotvane {

// What the window that looks back shows, at one moment. It stays as it is while the recording goes on, so two
// of them can be compared.
class HistoryPicture {
public:
    // The state must have been refreshed. `note` stands in the last line, after what the cursors tell. The
    // plotter may have plotted pictures before; this one does not need it any more.
    HistoryPicture(const LookBack& state, const HistoryLook& look, const HistoryLayout& layout,
                   const std::vector<ListedTrace>& list, const std::string& note, TracePlotter& plotter);

    // The whole window.
    const PixelRect& Client() const { return m_layout.Client(); }

    // Parts of the window, in which all lies that does not look as in an earlier picture. None if nothing has
    // changed.
    std::vector<PixelRect> ChangesSince(const HistoryPicture& earlier) const;

    // Paints what lies in `part` and is no text. The pixels are those of the whole window.
    void Paint(const ChartPixels& pixels, const PixelRect& part) const;

    const std::vector<PlacedText>& Texts() const { return m_texts; }

private:
    // From the top to the bottom of the plot.
    struct VerticalLine {
        int column;
        Colour colour;

        bool operator==(const VerticalLine&) const = default;
    };
    struct Entry {
        bool isHidden;
        Colour colour;

        bool operator==(const Entry&) const = default;
    };

    void AddLines(const LookBack& state);
    PixelRect PlaceOf(const VerticalLine& line) const;
    void PaintLines(const ChartPixels& pixels, const PixelRect& part) const;
    void PaintList(const ChartPixels& pixels, const PixelRect& part) const;

    const HistoryLook m_look;
    const HistoryLayout m_layout;
    TracePlot m_plot;
    std::vector<VerticalLine> m_lines;
    std::vector<Entry> m_list;
    std::vector<PlacedText> m_texts;
};

}  // namespace plotvane
