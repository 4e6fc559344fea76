#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace practice {

// Finds windows of other programs. Functions named The... raise Failure if there is none.

std::wstring ClassOf(HWND window);
DWORD ProcessOf(HWND window);

/// The first top-level window of a class; null if there is none.
HWND FindTopLevel(const std::wstring& window_class);
HWND TheTopLevel(const std::wstring& window_class);

/// Quillon's main window, and the first descendant of `parent` for which `fits` returns true; `what` names it
/// in the error.
HWND TheMainWindow();
HWND TheChild(HWND parent, const std::function<bool(HWND)>& fits, const std::string& what);

/// Visible dialogs and message boxes of Quillon and its installer, topmost first. They may appear before the
/// main window does.
std::vector<HWND> Boxes();

/// Descendants in tab order.
std::vector<HWND> Descendants(HWND parent);

/// Sends a message and returns the result. Raises Failure if that takes more than 10 seconds.
LRESULT Ask(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

/// The text of a control of any program, in UTF-8.
std::string TextOf(HWND control);

} // namespace practice
