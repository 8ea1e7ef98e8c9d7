#pragma once

#include "base/Colour.h"
#include "framework/Gdi.h"
#include "framework/NamedControl.h"

namespace plotvane {

// A colour swatch: a filled rectangle in a frame of one pixel, both black until set.
class CColorBox : public CNamedControl {
public:
    CColorBox();

    // A sunken child window over the rectangle, in the parent's client pixels. False if Windows refuses.
    bool Create(DWORD style, const RECT& rect, HWND parent, UINT id);

    // Repaints. Callers that set colours with every sample compare first.
    void SetFillColor(Colour colour);
    void SetFrameColor(Colour colour);

    Colour GetFillColor() const { return m_fillColour; }

private:
    void OnPaint();
    void OnSize(UINT type, int width, int height);

    DECLARE_MESSAGE_MAP()

    Colour m_fillColour = kBlack;
    Colour m_frameColour = kBlack;
    CBrush m_fillBrush;
    CBrush m_frameBrush;
    CRect m_client;
};

}  // namespace plotvane
