#pragma once

#include "framework/Wnd.h"

namespace plotvane {

// Moves the child controls with ids firstId..lastId down by some pixels, without repainting.
void MoveControlsDown(CWnd& dialog, int firstId, int lastId, int pixels);

// Makes a child control larger by some pixels; its upper left corner stays. Negative: smaller.
void GrowControl(CWnd& dialog, int id, int width, int height);

// A control's rectangle in the dialog's client pixels.
CRect PlaceOfControl(const CWnd& dialog, int id);

// Gives the window an outer size, as far as the screen holds it, without moving it, and puts it on top.
void ResizeOnTop(CWnd& dialog, int width, int height);

// Below this outer height in pixels the window is not laid out.
constexpr int kLeastHeight = 200;

}  // namespace plotvane
