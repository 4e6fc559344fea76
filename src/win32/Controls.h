#pragma once

#include "win32/Theme.h"

#include <windows.h>

#include <initializer_list>

namespace quillon {

/// Makes a visible child control; it is placed later.
HWND AddControl(HWND parent, const wchar_t* control_class, const wchar_t* text, DWORD style, int id);

void MoveControl(HWND control, int x, int y, int width, int height);
void ShowControls(std::initializer_list<HWND> controls, bool visible);
void SetFonts(std::initializer_list<HWND> controls, HFONT font);

/// Height of one line of the window's text.
int LineHeight(const Theme& theme);

} // namespace quillon
