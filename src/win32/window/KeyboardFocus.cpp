#include "win32/window/KeyboardFocus.h"

#include <vector>

namespace quillon {

namespace {

/// Whether a control, or its parent, is in the dialog group that starts with `pane`.
bool IsInPane(HWND window, HWND pane, HWND control) {
    HWND member = pane;
    do {
        if (member == control || IsChild(member, control)) return true;
        member = GetNextDlgGroupItem(window, member, FALSE);
    } while (member != nullptr && member != pane);
    return false;
}

} // namespace

void KeyboardFocus::Save() {
    if (HWND focus = GetFocus(); IsChild(window_, focus)) saved_ = focus;
}

/// The control may be hidden by now, as a preference frame is after its Close button.
void KeyboardFocus::Restore() const {
    HWND first = IsWindowVisible(list_.Window()) ? list_.Window() : controls_.PlayerPane();
    SetFocus(saved_ != nullptr && IsWindowVisible(saved_) ? saved_ : first);
}

void KeyboardFocus::Move(WPARAM wparam, LPARAM lparam) const {
    HWND next = LOWORD(lparam) != 0 ? reinterpret_cast<HWND>(wparam)
                                    : GetNextDlgTabItem(window_, GetFocus(), wparam != 0 ? TRUE : FALSE);
    SetFocus(next);
}

void KeyboardFocus::NextPane(bool back) const {
    std::vector<HWND> panes{list_.Window(), controls_.ModePane(), controls_.PlayerPane()};
    for (HWND frame : frames_.Panes()) panes.push_back(frame);
    std::erase_if(panes, [](HWND pane) { return !IsWindowVisible(pane); });
    const HWND focus = GetFocus();
    std::size_t current = 0;
    for (std::size_t i = 0; i < panes.size(); ++i)
        if (IsInPane(window_, panes[i], focus)) current = i;
    SetFocus(panes[(current + (back ? panes.size() - 1 : 1)) % panes.size()]);
}

} // namespace quillon
