#pragma once

#include <windows.h>

#include <string>

namespace quillon {

/// Creates a tool tip window for the main window and its controls; it lives as long as the thread. Nobody owns
/// it: under Wine, a window that owns another cannot be put on top of all others.
HWND CreateToolTips();

/// Sets a control's tip; an empty text removes it.
void SetControlTip(HWND tips, HWND control, const std::string& text);

/// Adds a tip, empty at first, for a rectangle of a window; `number` identifies it.
void AddRectangleTip(HWND tips, HWND window, UINT_PTR number);
void SetTipRectangle(HWND tips, HWND window, UINT_PTR number, const RECT& area);
void SetTipText(HWND tips, HWND window, UINT_PTR number, const std::string& text);

/// Shows a tip of its own for a control at a point of the screen; an empty text hides it.
void TrackTip(HWND tips, HWND control, const std::string& text, POINT where);

} // namespace quillon
