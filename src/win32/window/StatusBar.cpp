#include "win32/window/StatusBar.h"

#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"
#include "win32/window/Controls.h"
#include "win32/window/ScreenReader.h"
#include "win32/window/ToolTips.h"

#include <algorithm>
#include <commctrl.h>

namespace quillon {

namespace {

/// Width in pixels of the longest player state, which must not be cut off.
int LongestState(const Theme& theme) {
    int longest = 0;
    for (const wchar_t* text : {L"No Connection", L"ATC in 300 sec"})
        longest = std::max(longest, static_cast<int>(theme.Measure(theme.Text(), text).cx));
    return longest;
}

} // namespace

StatusBar::StatusBar(HWND parent, HWND tips)
    : window_(AddControl(parent, STATUSCLASSNAMEW, L"", SBARS_SIZEGRIP, IdStatusBar)), tips_(tips) {
    for (UINT_PTR index = 0; index < shown_.size(); ++index) AddRectangleTip(tips_, window_, index);
}

void StatusBar::SetTheme(const Theme& theme) {
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(theme.Text()), FALSE);
}

void StatusBar::Place(const Theme& theme) {
    SendMessageW(window_, WM_SIZE, 0, 0);
    std::array<int, PanelWidths.size()> edges{};
    int edge = 0;
    for (std::size_t index = 0; index < edges.size(); ++index) {
        const int least =
            static_cast<StatusPanel>(index) == StatusPanel::Player ? LongestState(theme) + theme.Px(12) : 0;
        edge += std::max(theme.TwipsToPx(shown_[index].WidthTwips), least);
        edges[index] = edge;
    }
    RECT bar{};
    GetClientRect(window_, &bar);
    const int surplus = std::max(0L, bar.right - edges.back());
    edges.at(static_cast<std::size_t>(StatusPanel::Feed)) += surplus * 2 / 3; // the address takes the rest
    edges.back() = -1;
    SendMessageW(window_, SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
    for (std::size_t index = 0; index < edges.size(); ++index) {
        RECT area{};
        SendMessageW(window_, SB_GETRECT, index, reinterpret_cast<LPARAM>(&area));
        SetTipRectangle(tips_, window_, index, area);
    }
}

void StatusBar::Sync(const frmATC& form, const Theme& theme) {
    const auto& panels = form.StatusBar1;
    SyncWidths(panels, theme);
    for (std::size_t index = 0; index < panels.size(); ++index) {
        if (shown_[index] == panels[index]) continue;
        const bool text_changed = shown_[index].Text != panels[index].Text;
        shown_[index] = panels[index];
        if (text_changed)
            SendMessageW(window_, SB_SETTEXTW, index,
                         reinterpret_cast<LPARAM>(Wide(panels[index].Text).c_str()));
        SetTip(index, panels[index]);
    }
    if (color_ == form.StatusBarColor) return;
    color_ = form.StatusBarColor;
    if (!HighContrast())
        SendMessageW(window_, SB_SETBKCOLOR, 0, static_cast<LPARAM>(color_.value_or(CLR_DEFAULT)));
}

/// Before the texts: one for a part that the bar does not have yet is lost.
void StatusBar::SyncWidths(const std::array<Panel, 4>& panels, const Theme& theme) {
    bool changed = false;
    for (std::size_t index = 0; index < panels.size(); ++index) {
        changed |= shown_[index].WidthTwips != panels[index].WidthTwips;
        shown_[index].WidthTwips = panels[index].WidthTwips;
    }
    if (changed) Place(theme);
}

void StatusBar::SetTip(std::size_t index, const Panel& panel) {
    // The default tip is the panel's text, which the panel may cut off.
    SetTipText(tips_, window_, index, panel.ToolTipText.empty() ? panel.Text : panel.ToolTipText);
    if (static_cast<StatusPanel>(index) != StatusPanel::Frequency) return;
    const bool names_radio = !panel.ToolTipText.empty() && panel.ToolTipText != panel.Text;
    ScreenReader::NamePart(window_, index, panel.Text + (names_radio ? ", " + panel.ToolTipText : ""));
}

} // namespace quillon
