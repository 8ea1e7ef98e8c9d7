#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "framework/Dc.h"
#include "framework/Gdi.h"
#include "framework/Wnd.h"
#include "history/HistoryCanvas.h"
#include "history/HistoryLayout.h"
#include "history/HistorySaves.h"
#include "history/LookBack.h"
#include "history/Recording.h"
#include "scaling/Prefs.h"

namespace plotvane {

// The window that looks back: the drive so far, with exact values under the pointer. Keys and mouse
// move it. A timer of its own looks at the recording ten times a second, so a sample costs nothing here.
//
// Opened and closed as often as its user likes; the object stays. An owner that closes its owned windows
// closes this one too.
class CHistoryWnd : public CWnd {
public:
    // Both are read when they are needed, and must outlive this.
    CHistoryWnd(const Recording& recording, const Prefs& prefs) : m_recording(recording), m_prefs(prefs) {}

    // Shows the window, over a part of its owner, or brings it to the front. At the axis stands the scale of
    // that trace, if it is shown. False if Windows refuses.
    bool Open(HWND owner, int trace);

private:
    struct Drag {
        int first;
        int last;
        bool hasMoved = false;
    };

    void OnDestroy();
    void OnPaint();
    void OnSize(UINT type, int width, int height);
    void OnTimer(UINT_PTR timer);
    LRESULT OnErase(WPARAM, LPARAM) { return TRUE; }  // the paint covers everything
    LRESULT OnPlaceChange(WPARAM, LPARAM);

    // Keys and mouse, in HistoryInput.cpp.
    LRESULT OnKey(WPARAM key, LPARAM);
    LRESULT OnButtonDown(WPARAM keys, LPARAM place);
    LRESULT OnButtonUp(WPARAM keys, LPARAM place);
    LRESULT OnMouseMove(WPARAM keys, LPARAM place);
    LRESULT OnMouseLeave(WPARAM, LPARAM);
    void AskForLeave() const;
    LRESULT OnCaptureLost(WPARAM, LPARAM);
    LRESULT OnWheel(WPARAM turn, LPARAM place);
    bool HandlePlainKey(WPARAM key, bool isShifted);
    void HandleArrow(int step, bool isShifted);
    bool HandleControlKey(WPARAM key, bool isShifted);
    void ClickList(int x, int y);
    int ColumnAt(int x) const { return x - m_layout->Plot().left; }
    bool IsOverPlot(int x, int y) const;

    void TakeWhatIsNew();
    void ShowWhatIsNew();
    void CopyToWindow(const std::vector<PixelRect>& parts);
    std::vector<PixelRect> Draw();
    void CopyPicture();
    void Save(bool samples);
    void ShowTitle();
    DECLARE_MESSAGE_MAP()

    const Recording& m_recording;
    const Prefs& m_prefs;

    // While there is a window.
    std::optional<LookBack> m_state;
    std::optional<HistoryLayout> m_layout;
    std::vector<ListedTrace> m_list;
    CFont m_font;
    std::optional<HistoryCanvas> m_canvas;
    bool m_isDrawDue = false;  // there was no memory for it
    // Kept from picture to picture, because to get one takes long, but only while the window stays where it
    // is: elsewhere the screen may have another density.
    std::optional<CClientDC> m_windowDc;
    int m_lineHeight = 1;
    std::uint32_t m_titledRun = 0;  // of the recording; the title tells it
    std::optional<Drag> m_drag;
    HistorySaves m_saves;
};

}  // namespace plotvane
