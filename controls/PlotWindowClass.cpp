#include "controls/PlotWindowClass.h"

#include "framework/Wnd.h"

namespace plotvane {

bool RegisterPlotWindowClass() {
    return RegisterWindowClass(kPlotWindowClass, CS_HREDRAW | CS_VREDRAW);
}

}  // namespace plotvane
