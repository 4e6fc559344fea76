#include "win32/window/PreferenceFrames.h"

#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"
#include "win32/window/Controls.h"

#include <algorithm>
#include <commctrl.h>

namespace quillon {

namespace {

constexpr int Gap = 10; // all lengths at 96 dpi
constexpr int RowHeight = 24;
constexpr int ComboWidth = 60;
constexpr int ComboDrop = 240;

constexpr std::array<const wchar_t*, 4> RadioNames{L"Com &1", L"Com1 St&by", L"Com &2", L"Com2 S&tby"};
constexpr const wchar_t* IntervalText = L"Interval  Between Chatter is";
constexpr const wchar_t* ToText = L"to";
constexpr const wchar_t* SecondsText = L"Seconds";
constexpr const wchar_t* CloseText = L"&Close";
constexpr const wchar_t* OtherCloseText = L"C&lose"; // both frames may be open

int TextWidth(const Theme& theme, const wchar_t* text) {
    return theme.Measure(theme.Text(), text).cx;
}

HWND AddCombo(HWND parent, int id, const wchar_t* name) {
    HWND combo = AddControl(parent, WC_COMBOBOXW, name, CBS_DROPDOWN | WS_VSCROLL | WS_TABSTOP, id);
    ShowWindow(combo, SW_HIDE);
    return combo;
}

/// A combo box takes its height from its font, and is given that of its list.
int ClosedHeight(HWND combo) {
    RECT area{};
    GetWindowRect(combo, &area);
    return area.bottom - area.top;
}

void Fill(HWND combo, const ComboBox& data) {
    for (const std::string& item : data.Items)
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item).c_str()));
}

} // namespace

void PreferenceFrames::Make(const frmATC& form) {
    radio_group_ = AddControl(parent_, WC_BUTTONW, L"Com Radio", BS_GROUPBOX | WS_GROUP, -1);
    for (std::size_t i = 0; i < radios_.size(); ++i)
        radios_[i] = AddControl(parent_, WC_BUTTONW, RadioNames[i],
                                BS_AUTORADIOBUTTON | WS_TABSTOP | (i == 0 ? WS_GROUP : 0U),
                                IdOptCom1 + static_cast<int>(i));
    radio_close_ = AddControl(parent_, WC_BUTTONW, CloseText, WS_TABSTOP | WS_GROUP, IdComClose);
    chatter_group_ = AddControl(parent_, WC_BUTTONW, L"Recorded Chatter Options", BS_GROUPBOX | WS_GROUP, -1);
    interval_ = AddControl(parent_, WC_STATICW, IntervalText, SS_CENTERIMAGE, -1);
    min_ = AddCombo(parent_, IdCboMin, L"Shortest interval between chatter");
    to_ = AddControl(parent_, WC_STATICW, ToText, SS_CENTERIMAGE, -1);
    max_ = AddCombo(parent_, IdCboMax, L"Longest interval between chatter");
    seconds_ = AddControl(parent_, WC_STATICW, SecondsText, SS_CENTERIMAGE, -1);
    chatter_close_ = AddControl(parent_, WC_BUTTONW, OtherCloseText, WS_TABSTOP | WS_GROUP, IdClose2);
    ShowControls({radio_group_, radios_[0], radios_[1], radios_[2], radios_[3], radio_close_, chatter_group_,
                  interval_, min_, to_, max_, seconds_, chatter_close_},
                 false);
    Fill(min_, form.cboMin);
    Fill(max_, form.cboMax);
}

void PreferenceFrames::SetTheme(const Theme& theme) {
    if (radio_group_ == nullptr) return;
    SetFonts({radio_group_, radios_[0], radios_[1], radios_[2], radios_[3], radio_close_, chatter_group_,
              interval_, min_, to_, max_, seconds_, chatter_close_},
             theme.Text());
}

std::vector<HWND> PreferenceFrames::Panes() const {
    std::vector<HWND> panes;
    if (radios_shown_) panes.push_back(radios_[static_cast<std::size_t>(std::clamp(shown_radio_, 1, 4)) - 1]);
    if (chatter_shown_) panes.push_back(min_);
    return panes;
}

int PreferenceFrames::Place(const Theme& theme, int y) {
    const int height = LineHeight(theme) + theme.Px(RowHeight + 12);
    int taken = 0;
    if (radios_shown_) {
        PlaceRadios(theme, y, height);
        taken += height + theme.Px(4);
    }
    if (chatter_shown_) {
        PlaceChatter(theme, y + taken, height);
        taken += height + theme.Px(4);
    }
    return taken;
}

void PreferenceFrames::PlaceRadios(const Theme& theme, int y, int height) {
    const int row = y + LineHeight(theme) + theme.Px(4);
    int x = theme.Px(2 * Margin);
    for (std::size_t i = 0; i < radios_.size(); ++i) {
        const int width = TextWidth(theme, RadioNames[i]) + theme.Px(CheckMark);
        MoveControl(radios_[i], x, row, width, theme.Px(RowHeight));
        x += width + theme.Px(Gap);
    }
    const int close_width = TextWidth(theme, CloseText) + theme.Px(24);
    MoveControl(radio_close_, x, row, close_width, theme.Px(RowHeight));
    MoveControl(radio_group_, theme.Px(Margin), y, x + close_width, height);
}

void PreferenceFrames::PlaceChatter(const Theme& theme, int y, int height) {
    const int row = y + LineHeight(theme) + theme.Px(4);
    int x = theme.Px(2 * Margin);
    const int row_height = theme.Px(RowHeight);
    const auto put = [&](HWND control, int width) {
        MoveControl(control, x, row, width, row_height);
        x += width + theme.Px(Gap);
    };
    const auto put_combo = [&](HWND combo) {
        const int drop = (row_height - ClosedHeight(combo)) / 2;
        MoveControl(combo, x, row + drop, theme.Px(ComboWidth), theme.Px(ComboDrop));
        x += theme.Px(ComboWidth + Gap);
    };
    put(interval_, TextWidth(theme, IntervalText));
    put_combo(min_);
    put(to_, TextWidth(theme, ToText));
    put_combo(max_);
    put(seconds_, TextWidth(theme, SecondsText));
    put(chatter_close_, TextWidth(theme, CloseText) + theme.Px(24));
    MoveControl(chatter_group_, theme.Px(Margin), y, x - theme.Px(Gap), height);
}

bool PreferenceFrames::Sync(const frmATC& form, const Theme& theme) {
    if (radio_group_ == nullptr) {
        if (!form.Frame1Visible && !form.frmRandomChatterVisible) return false;
        Make(form);
        SetTheme(theme);
    }
    if (shown_min_ != form.cboMin.Text) SetWindowTextW(min_, Wide(shown_min_ = form.cboMin.Text).c_str());
    if (shown_max_ != form.cboMax.Text) SetWindowTextW(max_, Wide(shown_max_ = form.cboMax.Text).c_str());
    if (shown_radio_ != form.optCom.Value) {
        shown_radio_ = form.optCom.Value;
        for (int number = 1; number <= 4; ++number)
            SendMessageW(radios_[static_cast<std::size_t>(number) - 1], BM_SETCHECK,
                         number == shown_radio_ ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    const bool changed = radios_shown_ != form.Frame1Visible || chatter_shown_ != form.frmRandomChatterVisible;
    if (!changed) return false;
    radios_shown_ = form.Frame1Visible;
    chatter_shown_ = form.frmRandomChatterVisible;
    ShowControls({radio_group_, radios_[0], radios_[1], radios_[2], radios_[3], radio_close_}, radios_shown_);
    ShowControls({chatter_group_, interval_, min_, to_, max_, seconds_, chatter_close_}, chatter_shown_);
    return true;
}

std::optional<std::size_t> PreferenceFrames::PickedEntry(int combo_id) const {
    const LRESULT entry = SendMessageW(combo_id == IdCboMin ? min_ : max_, CB_GETCURSEL, 0, 0);
    return entry < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(entry));
}

} // namespace quillon
