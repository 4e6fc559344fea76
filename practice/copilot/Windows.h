#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace practice {

// Finding windows of other programs. "The" window raises Failure when there is none.

std::wstring ClassOf(HWND window);
DWORD ProcessOf(HWND window);

/// The first top-level window of a class, null if there is none.
HWND FindTopLevel(const std::wstring& window_class);
HWND TheTopLevel(const std::wstring& window_class);

/// Quillon's main window, and the first descendant of a window that fits.
HWND TheMainWindow();
HWND TheChild(HWND parent, const std::function<bool(HWND)>& fits, const std::string& what);

/// Visible dialog and message boxes of Quillon and its installer, the topmost first. They may be there before
/// the main window is.
std::vector<HWND> Boxes();

/// Descendants in the order of the tab key.
std::vector<HWND> Descendants(HWND parent);

/// A message that waits for the answer, but not for ever: a hung program raises Failure.
LRESULT Ask(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

/// The text of a control of any program, in UTF-8.
std::string TextOf(HWND control);

} // namespace practice
