#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "framework/Wnd.h"
#include "meter/ColorChooser.h"
#include "meter/Gauge.h"
#include "meter/GaugePainter.h"

namespace plotvane {

// A tool window that shows one value on a gauge. Its owner makes it with `new`, keeps the pointer in a
// variable and never deletes it: the meter lives until its window is destroyed; then it clears the owner's
// variable and deletes itself. Texts are Windows-1252 bytes.
class CMeterWnd : public CWnd {
public:
    // `ownerSlot` is the address of the owner's variable; null in there means that no meter is open. The
    // variable has to outlive the window.
    explicit CMeterWnd(CMeterWnd** ownerSlot);

    // The name of a window class for meters, registered when first asked for.
    static const wchar_t* WindowClass();

    // Creates the window and paints it at once. False if Windows refuses; the object stays as it is then,
    // without a window, and may be told anything.
    bool Create(const wchar_t* className, DWORD style, const RECT& rect, HWND parent);

    void SetValue(double value);  // is seen at once; the dial is kept. What is no finite number is dropped.
    void SetRange(double minimum, double maximum);  // restarts both markers if it differs
    void SetValueDecimals(int decimals);
    void SetRangeDecimalsZero();
    void SetUnits(std::string_view units);
    void SetTitle(std::string_view title);
    void SetNeedleColor(COLORREF colour);
    void SetBackColor(COLORREF colour);
    void SetFaceColor(COLORREF colour);
    void SetTicksColor(COLORREF colour);

    // What is shown, markers and colours included.
    const Gauge& Shown() const { return m_gauge; }

private:
    void OnContextMenu(HWND window, POINT place);
    void OnDestroy();
    LRESULT OnDisplayChange(WPARAM, LPARAM);
    LRESULT OnMove(WPARAM, LPARAM);
    void OnPaint();
    void OnSize(UINT type, int width, int height);

    void OnEnableMaxMarker();
    void OnEnableMinMarker();
    void OnDisplayPeak();
    void OnSwapColors();
    void OnSelectNeedleColor();
    void OnSelectBackColor();
    void OnSelectFaceColor();
    void OnSelectTicksColor();
    void OnResetPeak();

    struct OpenChooser {
        void (CMeterWnd::*set)(COLORREF);  // takes its colour
        ColorChooser* chooser;
    };

    void Apply(GaugeChange change);
    void InvalidateBackground();
    void ShowValue();
    void LetUserChoose(void (CMeterWnd::*set)(COLORREF));

    Gauge m_gauge;           // what is shown
    GaugePainter m_painter;  // how
    // Kept from value to value, because to get one takes long, but only while the window stays where it is:
    // elsewhere the screen may have another density.
    std::optional<CClientDC> m_windowDc;
    bool m_isPaintDue = false;  // the window is invalid
    CMeterWnd** const m_ownerSlot;
    std::vector<OpenChooser> m_choosers;  // the innermost last; on the stack of LetUserChoose
    DECLARE_MESSAGE_MAP()
};

}  // namespace plotvane
