#pragma once

#include "win32/window/Theme.h"

#include <windows.h>

#include <initializer_list>
#include <string>

namespace quillon {

/// Makes a visible child control; a layout places it.
HWND AddControl(HWND parent, const wchar_t* control_class, const wchar_t* text, DWORD style, int id,
                DWORD extended_style = 0);

void MoveControl(HWND control, int x, int y, int width, int height);
void ShowControls(std::initializer_list<HWND> controls, bool visible);
void SetFonts(std::initializer_list<HWND> controls, HFONT font);

/// Passes a change of the system's colours on, of which Windows tells only top-level windows.
void TellSystemColors(HWND window);

std::wstring TextOf(HWND control);
HFONT FontOf(HWND control);

/// Height of a control as it is now, in pixels; of a combo box without its list.
int HeightOf(HWND control);

/// Height of one line of the window's text, in pixels.
int LineHeight(const Theme& theme);

} // namespace quillon
