#pragma once

#include <windows.h>

#include <string>

namespace quillon {

/// A tool tip window for the tools of one window and of what lies in it. It dies with that window.
HWND CreateToolTips(HWND owner);

/// Gives a control a tip, or changes it; an empty text takes it away.
void SetControlTip(HWND tips, HWND control, const std::string& text);

/// A tip for a rectangle of a window, told apart by number; it starts empty.
void AddRectangleTip(HWND tips, HWND window, UINT_PTR number);
void SetTipRectangle(HWND tips, HWND window, UINT_PTR number, const RECT& area);
void SetTipText(HWND tips, HWND window, UINT_PTR number, const std::string& text);

} // namespace quillon
