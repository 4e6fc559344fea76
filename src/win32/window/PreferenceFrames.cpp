#include "win32/window/PreferenceFrames.h"

#include "app/Commands.h"
#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"
#include "win32/window/Controls.h"

#include <algorithm>
#include <commctrl.h>

namespace quillon {

namespace {

constexpr std::array<const wchar_t*, 4> RadioNames{L"Com &1", L"Com1 St&by", L"Com &2", L"Com2 S&tby"};

HWND AddCombo(HWND parent, int id, const wchar_t* name) {
    HWND combo = AddControl(parent, WC_COMBOBOXW, name, CBS_DROPDOWN | WS_VSCROLL | WS_TABSTOP, id);
    ShowWindow(combo, SW_HIDE);
    return combo;
}

void Fill(HWND combo, const ComboBox& data) {
    for (const std::string& item : data.Items)
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item).c_str()));
}

} // namespace

void PreferenceFrames::Make(const frmATC& form) {
    radio_group_ = AddGroup(parent_, L"Com Radio");
    for (std::size_t i = 0; i < radios_.size(); ++i)
        radios_[i] = AddControl(parent_, WC_BUTTONW, RadioNames[i],
                                BS_AUTORADIOBUTTON | WS_TABSTOP | (i == 0 ? WS_GROUP : 0U),
                                Command::optCom1 + static_cast<int>(i));
    radio_close_ = AddControl(parent_, WC_BUTTONW, L"&Close", WS_TABSTOP | WS_GROUP, Command::cmdComClose);
    chatter_group_ = AddGroup(parent_, L"Recorded Chatter Options");
    interval_ = AddControl(parent_, WC_STATICW, L"&Interval  Between Chatter is", SS_CENTERIMAGE, -1);
    min_ = AddCombo(parent_, IdCboMin, L"Shortest interval between chatter");
    to_ = AddControl(parent_, WC_STATICW, L"t&o", SS_CENTERIMAGE, -1);
    max_ = AddCombo(parent_, IdCboMax, L"Longest interval between chatter");
    seconds_ = AddControl(parent_, WC_STATICW, L"Seconds", SS_CENTERIMAGE, -1);
    chatter_close_ = AddControl(parent_, WC_BUTTONW, L"C&lose", // another letter, as both frames may be open
                                WS_TABSTOP | WS_GROUP, Command::cmdClose2);
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

std::vector<Row> PreferenceFrames::Rows() const {
    constexpr int Gap = 10;
    constexpr int ButtonPadding = 24;
    std::vector<Cell> radios;
    for (HWND radio : radios_) radios.insert(radios.end(), {Fitted(radio, CheckMark), Gap});
    radios.push_back(Fitted(radio_close_, ButtonPadding));
    std::vector<Cell> chatter;
    for (const auto& [before, combo] : {std::pair(interval_, min_), std::pair(to_, max_)}) {
        chatter.insert(chatter.end(), {Fitted(before), Gap, {combo, 60}, Gap});
        chatter[chatter.size() - 2].list_height = 240;
    }
    chatter.insert(chatter.end(), {Fitted(seconds_), Gap, Fitted(chatter_close_, ButtonPadding)});
    std::vector<Row> rows;
    const auto add = [&](HWND group, const std::vector<Cell>& members) {
        rows.insert(rows.end(), {{36, {Margin, {group, members}}, 24}, 4});
    };
    if (radios_shown_) add(radio_group_, radios);
    if (chatter_shown_) add(chatter_group_, chatter);
    return rows;
}

bool PreferenceFrames::Sync(const frmATC& form, const Theme& theme) {
    if (radio_group_ == nullptr) {
        if (!form.Frame1Visible && !form.frmRandomChatterVisible) return false;
        Make(form);
        SetTheme(theme);
    }
    if (shown_min_ != form.cboMin.Text) SetWindowTextW(min_, Wide(shown_min_ = form.cboMin.Text).c_str());
    if (shown_max_ != form.cboMax.Text) SetWindowTextW(max_, Wide(shown_max_ = form.cboMax.Text).c_str());
    if (shown_radio_ != form.ComRadio.Value) {
        shown_radio_ = form.ComRadio.Value;
        for (std::size_t i = 0; i < radios_.size(); ++i)
            SendMessageW(radios_[i], BM_SETCHECK,
                         static_cast<int>(i) + 1 == shown_radio_ ? BST_CHECKED : BST_UNCHECKED, 0);
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
