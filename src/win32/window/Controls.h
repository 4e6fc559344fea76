#pragma once

#include "win32/window/Theme.h"

#include <windows.h>

#include <initializer_list>
#include <string>

namespace quillon {

/// Creates a visible child control without a size.
HWND AddControl(HWND parent, const wchar_t* control_class, const wchar_t* text, DWORD style, int id,
                DWORD extended_style = 0);

/// Creates a visible group box, through which its parent's background is seen.
HWND AddGroup(HWND parent, const wchar_t* text);

void MoveControl(HWND control, int x, int y, int width, int height);
void ShowControls(std::initializer_list<HWND> controls, bool visible);
void SetFonts(std::initializer_list<HWND> controls, HFONT font);

/// Passes on WM_SYSCOLORCHANGE, which Windows sends only to top-level windows.
void ForwardSystemColors(HWND window);

std::wstring TextOf(HWND control);
HFONT FontOf(HWND control);

/// Current height of a window in pixels; of a combo box without its list.
int HeightOf(HWND control);

/// Height of a line of text in pixels.
int LineHeight(const Theme& theme);

} // namespace quillon
