#pragma once

#include "framework/Gdi.h"
#include "framework/Wnd.h"
#include "model/MainWindow.h"
#include "plot/chart/MultiPlotCtrl.h"

namespace plotvane {

// Gives away what the chart shows at the moment: to the clipboard, and as a PNG file. The picture is a copy
// of the one that the chart has, so nothing of the traces is lost.
class ChartExport {
public:
    // All must outlive this object; `dialog` owns what is asked, and `window` tells what has failed.
    ChartExport(CWnd& dialog, CMultiPlotCtrl& chart, MainWindow& window)
        : m_dialog(dialog), m_chart(chart), m_window(window) {}

    void Copy();

    // Asks where to. Returns when the user has chosen, or has cancelled.
    void Save();

private:
    CWnd& m_dialog;
    CMultiPlotCtrl& m_chart;
    MainWindow& m_window;
};

}  // namespace plotvane
