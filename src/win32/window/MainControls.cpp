#include "win32/window/MainControls.h"

#include "app/Commands.h"
#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"
#include "win32/window/Controls.h"
#include "win32/window/ToolTips.h"

#include <commctrl.h>

namespace quillon {

namespace {

constexpr int Gap = 6; // all lengths at 96 dpi
constexpr int GlyphSize = 14;
constexpr int PictureSize = 22;
constexpr int LabelHeight = 32;

struct ButtonKind {
    int Id;
    const wchar_t* Name;
    Glyph Picture;
};
constexpr std::array<ButtonKind, 4> Buttons{{
    {Command::StripPlay, L"Play", Glyph::Play},
    {Command::StripPause, L"Pause", Glyph::Pause},
    {Command::StripStop, L"Stop", Glyph::Stop},
    {Command::StripMute, L"Mute", Glyph::Mute},
}};

} // namespace

MainControls::MainControls(HWND parent, HWND tips, const Theme& theme) : tips_(tips) {
    mode_group_ = AddGroup(parent, L"Selection mode");
    auto_ = AddControl(parent, WC_BUTTONW, L"&Automatic", BS_AUTORADIOBUTTON | WS_TABSTOP | WS_GROUP,
                       Command::optAuto);
    manual_ = AddControl(parent, WC_BUTTONW, L"&Manual", BS_AUTORADIOBUTTON, Command::optManual);
    player_group_ = AddGroup(parent, L"Player");
    for (std::size_t i = 0; i < Buttons.size(); ++i) {
        const DWORD toggle = Buttons[i].Id == Command::StripMute ? BS_CHECKBOX | BS_PUSHLIKE : 0U;
        buttons_[i] = AddControl(parent, WC_BUTTONW, Buttons[i].Name,
                                 BS_ICON | toggle | WS_TABSTOP | (i == 0 ? WS_GROUP : 0U), Buttons[i].Id);
        SetControlTip(tips_, buttons_[i], Narrow(Buttons[i].Name));
    }
    volume_label_ = AddControl(parent, WC_STATICW, L"&Volume", SS_CENTERIMAGE, -1);
    volume_ = AddControl(parent, TRACKBAR_CLASSW, L"Volume", TBS_HORZ | TBS_NOTICKS | WS_TABSTOP, IdVolume);
    SendMessageW(volume_, TBM_SETRANGE, FALSE, MAKELPARAM(0, 100));
    SendMessageW(volume_, TBM_SETPAGESIZE, 0, 10);
    SetControlTip(tips_, volume_, "Volume of the feed");
    quit_ = AddControl(parent, WC_BUTTONW, L"Quit", WS_TABSTOP | WS_GROUP, Command::mnuQuit);
    distance_ = AddControl(parent, WC_STATICW, L"", SS_NOPREFIX | SS_ENDELLIPSIS | SS_NOTIFY | SS_CENTERIMAGE,
                           IdLabel2);
    elapsed_ = AddControl(parent, WC_STATICW, L"", SS_RIGHT | SS_CENTERIMAGE | SS_NOTIFY, IdLabel3);
    of_ = AddControl(parent, WC_STATICW, L"of", SS_CENTER | SS_CENTERIMAGE, -1);
    interval_ = AddControl(parent, WC_STATICW, L"", SS_CENTERIMAGE | SS_NOTIFY, IdLabel4);
    SetControlTip(tips_, elapsed_, "Seconds since the last recording");
    SetControlTip(tips_, interval_, "Seconds from the last recording to the next");
    ShowControls({elapsed_, of_, interval_}, false);
    site_button_ = AddControl(parent, WC_BUTTONW, L"Live ATC web site", BS_ICON | WS_TABSTOP | WS_GROUP,
                              Command::picATCNet);
    site_label_ = AddControl(parent, WC_STATICW, L"Live ATC", SS_NOTIFY | SS_CENTERIMAGE, Command::picATCNet);
    for (HWND control : {site_button_, site_label_})
        SetControlTip(tips_, control, "Open the live ATC web site");
    ShowControls({site_button_, site_label_}, false);
    SetTheme(theme);
}

void MainControls::SetTheme(const Theme& theme) {
    SetFonts({mode_group_, auto_, manual_, player_group_, volume_label_, site_label_, quit_, elapsed_, of_,
              interval_},
             theme.Text());
    SendMessageW(distance_, WM_SETFONT, reinterpret_cast<WPARAM>(theme.Large()), FALSE);
    for (std::size_t i = 0; i < Buttons.size(); ++i) {
        glyphs_[i] = DrawGlyph(Buttons[i].Picture, theme.Px(GlyphSize), GetSysColor(COLOR_BTNTEXT));
        SendMessageW(buttons_[i], BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(glyphs_[i].Get()));
    }
    site_icon_ = DrawGlyph(Glyph::Headset, theme.Px(PictureSize), GetSysColor(COLOR_HIGHLIGHT));
    SendMessageW(site_button_, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(site_icon_.Get()));
}

std::vector<Row> MainControls::Rows() const {
    const std::vector<Cell> modes{Fitted(auto_, CheckMark), Gap, Fitted(manual_, CheckMark)};
    std::vector<Cell> player = PlayerCells();
    player.insert(player.end() - 1, {Gap, Fitted(volume_label_)});
    const std::vector<Cell> upper{
        Margin,           {mode_group_, modes}, Margin, {player_group_, player}, Margin,
        {nullptr, Grows}, Fitted(quit_, 32),    Margin};
    const std::wstring longest_time = L"00000";
    const std::vector<Cell> lower{Margin + 2,
                                  {distance_, Grows},
                                  Gap,
                                  {elapsed_, longest_time, 0},
                                  Fitted(of_, Gap),
                                  {interval_, longest_time, 0},
                                  Gap,
                                  {site_button_, LabelHeight},
                                  Gap,
                                  Fitted(site_label_, Gap),
                                  Margin};
    return {4, {34, upper, 26}, Gap, {LabelHeight, lower}, Gap};
}

std::vector<Cell> MainControls::PlayerCells() const {
    std::vector<Cell> player;
    for (HWND button : buttons_) player.insert(player.end(), {{button, 34}, Gap});
    player.emplace_back(volume_, 110).drop =
        3; // a slider without ticks draws its thumb in the upper part of its area
    return player;
}

void MainControls::SetCompact(bool compact) {
    compact_ = compact;
    ShowControls({mode_group_, auto_, manual_, player_group_, volume_label_, quit_}, !compact);
    ShowControls({site_button_, site_label_}, site_shown_ && !compact);
    ShowControls({elapsed_, of_, interval_}, countdown_shown_ && !compact);
}

void MainControls::Sync(const ProgramState& state) {
    const frmATC& form = state.form;
    const CycleState& cycle = state.cycle;
    if (muted_ != state.mute.Muted) {
        muted_ = state.mute.Muted;
        SendMessageW(buttons_.back(), BM_SETCHECK, muted_ ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    if (!mode_shown_ || shown_mode_ != cycle.Mode) {
        mode_shown_ = true;
        shown_mode_ = cycle.Mode;
        SendMessageW(auto_, BM_SETCHECK, cycle.optManual() ? BST_UNCHECKED : BST_CHECKED, 0);
        SendMessageW(manual_, BM_SETCHECK, cycle.optManual() ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    if (!(shown_distance_ == form.Label2)) {
        if (shown_distance_.Caption != form.Label2.Caption)
            SetWindowTextW(distance_, Wide(form.Label2.Caption).c_str());
        if (shown_distance_.ToolTipText != form.Label2.ToolTipText)
            SetControlTip(tips_, distance_, form.Label2.ToolTipText);
        shown_distance_ = form.Label2;
    }
    SyncCountdown(state);
    if (shown_volume_ != form.Volume) {
        shown_volume_ = form.Volume;
        if (VolumePosition() != form.Volume) SendMessageW(volume_, TBM_SETPOS, TRUE, form.Volume);
    }
    if (site_shown_ != form.picATCNetVisible) {
        site_shown_ = form.picATCNetVisible;
        ShowControls({site_button_, site_label_}, site_shown_ && !compact_);
    }
}

/// Hidden while a recording plays: the seconds then run past the gap.
void MainControls::SyncCountdown(const ProgramState& state) {
    const frmATC& form = state.form;
    if (shown_elapsed_ != form.Label3.Caption)
        SetWindowTextW(elapsed_, Wide(shown_elapsed_ = form.Label3.Caption).c_str());
    if (shown_interval_ != form.Label4.Caption)
        SetWindowTextW(interval_, Wide(shown_interval_ = form.Label4.Caption).c_str());
    const bool gap = state.shown.Status.What == Activity::Gap;
    if (gap == countdown_shown_) return;
    countdown_shown_ = gap;
    ShowControls({elapsed_, of_, interval_}, gap && !compact_);
}

int MainControls::VolumePosition() const {
    return static_cast<int>(SendMessageW(volume_, TBM_GETPOS, 0, 0));
}

std::optional<int> MainControls::WantedVolume(const MSG& message) const {
    constexpr int Step = 5;
    constexpr int Page = 10;
    if (message.hwnd != volume_) return std::nullopt;
    if (message.message == WM_MOUSEWHEEL)
        return VolumePosition() + (static_cast<short>(HIWORD(message.wParam)) > 0 ? Step : -Step);
    if (message.message != WM_KEYDOWN) return std::nullopt;
    switch (message.wParam) {
    case VK_UP:
        return VolumePosition() + Step;
    case VK_DOWN:
        return VolumePosition() - Step;
    case VK_PRIOR:
        return VolumePosition() + Page;
    case VK_NEXT:
        return VolumePosition() - Page;
    default:
        return std::nullopt;
    }
}

void MainControls::ShowVolumeTip(bool shown) const {
    RECT thumb{};
    SendMessageW(volume_, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
    POINT below{thumb.left, thumb.bottom};
    ClientToScreen(volume_, &below);
    TrackTip(tips_, volume_, shown ? std::to_string(VolumePosition()) + " %" : "", below);
}

} // namespace quillon
