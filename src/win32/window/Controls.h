#pragma once

#include "win32/window/Theme.h"

#include <windows.h>

#include <initializer_list>

namespace quillon {

// Lengths at 96 dpi that the parts of the main window share.
inline constexpr int Margin = 8;
inline constexpr int CheckMark = 22;

/// Makes a visible child control; it is placed later.
HWND AddControl(HWND parent, const wchar_t* control_class, const wchar_t* text, DWORD style, int id);

void MoveControl(HWND control, int x, int y, int width, int height);
void ShowControls(std::initializer_list<HWND> controls, bool visible);
void SetFonts(std::initializer_list<HWND> controls, HFONT font);

/// Passes a change of the system's colours on, of which Windows tells only top-level windows.
void TellSystemColors(HWND window);

/// Height of one line of the window's text.
int LineHeight(const Theme& theme);

} // namespace quillon
