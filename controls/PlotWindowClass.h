#pragma once

namespace plotvane {

// The window class of the chart and of the colour swatches. Both are drawn completely by their own paint
// handlers, so it has no background, and a change of size redraws them whole.
constexpr wchar_t kPlotWindowClass[] = L"PlotvanePlot";

// Once per process; asking again is harmless. False if Windows refuses.
bool RegisterPlotWindowClass();

}  // namespace plotvane
