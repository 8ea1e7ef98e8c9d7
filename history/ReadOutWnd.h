#pragma once

#include "framework/Gdi.h"
#include "framework/Wnd.h"
#include "history/HistoryLook.h"
#include "history/ReadOut.h"

namespace plotvane {

// The tip that tells the values of a column of the chart. It has no window while it is not shown, takes
// neither focus nor mouse, and closes with its owner. Its text is the window's text too, so that screen
// readers find it.
class CReadOutWnd : public CWnd {
public:
    // Shows it beside a point of the screen, on the point's screen, in the colours of the chart.
    void Show(HWND owner, POINT pointer, const ReadOut& readOut, const HistoryLook& look);
    void Hide() { DestroyWindow(); }

private:
    void OnPaint();
    LRESULT OnErase(WPARAM, LPARAM) { return TRUE; }  // the paint covers everything
    LRESULT OnHitTest(WPARAM, LPARAM) { return HTTRANSPARENT; }
    SIZE Measure();
    DECLARE_MESSAGE_MAP()

    ReadOut m_readOut;
    HistoryLook m_look;
    CFont m_font;
    int m_lineHeight = 1;
    int m_nameWidth = 0;
};

}  // namespace plotvane
