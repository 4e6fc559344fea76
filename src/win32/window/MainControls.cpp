#include "win32/window/MainControls.h"

#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"
#include "win32/window/Controls.h"
#include "win32/window/ToolTips.h"

#include <algorithm>
#include <commctrl.h>

namespace quillon {

namespace {

constexpr int Gap = 6; // all lengths at 96 dpi
constexpr int ButtonWidth = 34;
constexpr int GlyphSize = 14;
constexpr int SliderWidth = 110;
constexpr int PictureSize = 22;
constexpr int LabelHeight = 32;

constexpr const wchar_t* AutoText = L"&Automatic";
constexpr const wchar_t* ManualText = L"&Manual";
constexpr const wchar_t* VolumeText = L"&Volume";
constexpr const wchar_t* CountdownText = L"of";
constexpr const wchar_t* QuitText = L"Quit";
constexpr const wchar_t* LiveAtcText = L"Live ATC";

struct ButtonKind {
    int Id;
    const wchar_t* Name;
    Glyph Picture;
};
constexpr std::array<ButtonKind, 3> Buttons{{
    {IdPlay, L"Play", Glyph::Play},
    {IdPause, L"Pause", Glyph::Pause},
    {IdStop, L"Stop", Glyph::Stop},
}};

} // namespace

MainControls::MainControls(HWND parent, HWND tips, const Theme& theme) : tips_(tips) {
    mode_group_ = AddControl(parent, WC_BUTTONW, L"Selection mode", BS_GROUPBOX | WS_GROUP, -1);
    auto_ = AddControl(parent, WC_BUTTONW, AutoText, BS_AUTORADIOBUTTON | WS_TABSTOP | WS_GROUP, IdOptAuto);
    manual_ = AddControl(parent, WC_BUTTONW, ManualText, BS_AUTORADIOBUTTON, IdOptManual);
    player_group_ = AddControl(parent, WC_BUTTONW, L"Player", BS_GROUPBOX | WS_GROUP, -1);
    for (std::size_t i = 0; i < Buttons.size(); ++i) {
        buttons_[i] = AddControl(parent, WC_BUTTONW, Buttons[i].Name,
                                 BS_ICON | WS_TABSTOP | (i == 0 ? WS_GROUP : 0U), Buttons[i].Id);
        SetControlTip(tips_, buttons_[i], Narrow(Buttons[i].Name));
    }
    volume_label_ = AddControl(parent, WC_STATICW, VolumeText, SS_CENTERIMAGE, -1);
    volume_ = AddControl(parent, TRACKBAR_CLASSW, L"Volume", TBS_HORZ | TBS_NOTICKS | WS_TABSTOP, IdVolume);
    SendMessageW(volume_, TBM_SETRANGE, FALSE, MAKELPARAM(0, 100));
    SendMessageW(volume_, TBM_SETPAGESIZE, 0, 10);
    SetControlTip(tips_, volume_, "Volume of the feed");
    quit_ = AddControl(parent, WC_BUTTONW, QuitText, WS_TABSTOP | WS_GROUP, IdQuit);
    distance_ = AddControl(parent, WC_STATICW, L"", SS_NOPREFIX | SS_ENDELLIPSIS | SS_NOTIFY | SS_CENTERIMAGE,
                           IdLabel2);
    elapsed_ = AddControl(parent, WC_STATICW, L"", SS_RIGHT | SS_CENTERIMAGE | SS_NOTIFY, IdLabel3);
    of_ = AddControl(parent, WC_STATICW, CountdownText, SS_CENTER | SS_CENTERIMAGE, -1);
    gap_ = AddControl(parent, WC_STATICW, L"", SS_CENTERIMAGE | SS_NOTIFY, IdLabel4);
    SetControlTip(tips_, elapsed_, "Seconds since the last recording");
    SetControlTip(tips_, gap_, "Seconds from the last recording to the next");
    ShowControls({elapsed_, of_, gap_}, false);
    picture_ =
        AddControl(parent, WC_BUTTONW, L"Live ATC web site", BS_ICON | WS_TABSTOP | WS_GROUP, IdLiveAtcPicture);
    picture_label_ = AddControl(parent, WC_STATICW, LiveAtcText, SS_NOTIFY | SS_CENTERIMAGE, IdLiveAtcLabel);
    for (HWND control : {picture_, picture_label_}) SetControlTip(tips_, control, "Open the live ATC web site");
    ShowControls({picture_, picture_label_}, false);
    SetTheme(theme);
}

void MainControls::SetTheme(const Theme& theme) {
    SetFonts(
        {mode_group_, auto_, manual_, player_group_, volume_label_, picture_label_, quit_, elapsed_, of_, gap_},
        theme.Text());
    SendMessageW(distance_, WM_SETFONT, reinterpret_cast<WPARAM>(theme.Large()), FALSE);
    for (std::size_t i = 0; i < Buttons.size(); ++i) {
        glyphs_[i] = DrawGlyph(Buttons[i].Picture, theme.Px(GlyphSize), GetSysColor(COLOR_BTNTEXT));
        SendMessageW(buttons_[i], BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(glyphs_[i].Get()));
    }
    picture_icon_ = DrawGlyph(Glyph::Headset, theme.Px(PictureSize), GetSysColor(COLOR_HIGHLIGHT));
    SendMessageW(picture_, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(picture_icon_.Get()));
}

int MainControls::ModeGroupWidth(const Theme& theme) const {
    const int texts = theme.Measure(theme.Text(), AutoText).cx + theme.Measure(theme.Text(), ManualText).cx;
    return texts + theme.Px(2 * CheckMark + Gap + 2 * Margin);
}

int MainControls::PlayerGroupWidth(const Theme& theme) const {
    return theme.Measure(theme.Text(), VolumeText).cx +
           theme.Px(3 * (ButtonWidth + Gap) + SliderWidth + 2 * Margin + Gap);
}

int MainControls::QuitWidth(const Theme& theme) const {
    return theme.Measure(theme.Text(), QuitText).cx + theme.Px(32);
}

int MainControls::LeastWidth(const Theme& theme) const {
    return ModeGroupWidth(theme) + PlayerGroupWidth(theme) + QuitWidth(theme) + theme.Px(4 * Margin);
}

int MainControls::Place(const Theme& theme, int width) {
    const int line = LineHeight(theme);
    const int group_height = line + theme.Px(ButtonWidth);
    const int mode_width = ModeGroupWidth(theme);
    const int top = theme.Px(4);
    PlaceModes(theme, theme.Px(Margin), top, group_height);
    const int player_x = mode_width + theme.Px(2 * Margin);
    PlacePlayer(theme, player_x, top, PlayerGroupWidth(theme), group_height);
    const int quit_width = QuitWidth(theme);
    const int quit_height = theme.Px(26);
    MoveControl(quit_, width - theme.Px(Margin) - quit_width, top + group_height - quit_height - theme.Px(6),
                quit_width, quit_height);
    const int labels_y = top + group_height + theme.Px(Gap);
    PlaceLabels(theme, labels_y, width);
    return labels_y + theme.Px(LabelHeight + Gap);
}

void MainControls::PlaceModes(const Theme& theme, int x, int y, int height) {
    MoveControl(mode_group_, x, y, ModeGroupWidth(theme), height);
    const int line = LineHeight(theme);
    const int button_height = line + theme.Px(4);
    const int button_y = y + line + (height - line - button_height) / 2 - theme.Px(2);
    int left = x + theme.Px(Margin);
    const int auto_width = theme.Measure(theme.Text(), AutoText).cx + theme.Px(CheckMark);
    MoveControl(auto_, left, button_y, auto_width, button_height);
    left += auto_width + theme.Px(Gap);
    MoveControl(manual_, left, button_y, theme.Measure(theme.Text(), ManualText).cx + theme.Px(CheckMark),
                button_height);
}

void MainControls::PlacePlayer(const Theme& theme, int x, int y, int width, int height) {
    MoveControl(player_group_, x, y, width, height);
    const int line = LineHeight(theme);
    const int row_height = theme.Px(26);
    const int row_y = y + line + (height - line - row_height) / 2 - theme.Px(2);
    int left = x + theme.Px(Margin);
    for (HWND button : buttons_) {
        MoveControl(button, left, row_y, theme.Px(ButtonWidth), row_height);
        left += theme.Px(ButtonWidth + Gap);
    }
    left += theme.Px(Gap);
    const int label_width = theme.Measure(theme.Text(), VolumeText).cx;
    MoveControl(volume_label_, left, row_y, label_width, row_height);
    left += label_width;
    // A slider without ticks draws its thumb in the upper part of its area.
    const int drop = theme.Px(3);
    MoveControl(volume_, left, row_y + drop, x + width - theme.Px(Margin) - left, row_height - drop);
}

void MainControls::PlaceLabels(const Theme& theme, int y, int width) {
    const int height = theme.Px(LabelHeight);
    const int site_width = theme.Measure(theme.Text(), LiveAtcText).cx + theme.Px(Gap);
    const int site_x = width - theme.Px(Margin) - site_width;
    MoveControl(picture_label_, site_x, y, site_width, height);
    const int picture_x = site_x - theme.Px(LabelHeight + Gap);
    MoveControl(picture_, picture_x, y, height, height);
    const int number_width = theme.Measure(theme.Text(), L"00000").cx;
    const int of_width = theme.Measure(theme.Text(), CountdownText).cx + theme.Px(Gap);
    const int gap_x = picture_x - theme.Px(Gap) - number_width;
    const int elapsed_x = gap_x - of_width - number_width;
    MoveControl(elapsed_, elapsed_x, y, number_width, height);
    MoveControl(of_, elapsed_x + number_width, y, of_width, height);
    MoveControl(gap_, gap_x, y, number_width, height);
    const int distance_x = theme.Px(Margin + 2);
    MoveControl(distance_, distance_x, y, std::max(0, elapsed_x - theme.Px(Gap) - distance_x), height);
}

void MainControls::Sync(const frmATC& form, const CycleState& cycle) {
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
    SyncCountdown(form, cycle);
    if (shown_volume_ != form.Volume) {
        shown_volume_ = form.Volume;
        if (VolumePosition() != form.Volume) SendMessageW(volume_, TBM_SETPOS, TRUE, form.Volume);
    }
    if (picture_shown_ != form.picATCNetVisible) {
        picture_shown_ = form.picATCNetVisible;
        ShowControls({picture_, picture_label_}, picture_shown_);
    }
}

void MainControls::SyncCountdown(const frmATC& form, const CycleState& cycle) {
    if (shown_elapsed_ != form.Label3.Caption)
        SetWindowTextW(elapsed_, Wide(shown_elapsed_ = form.Label3.Caption).c_str());
    if (shown_gap_ != form.Label4.Caption) SetWindowTextW(gap_, Wide(shown_gap_ = form.Label4.Caption).c_str());
    const bool chatter = cycle.Timer(3).Enabled || cycle.Timer(4).Enabled;
    if (chatter == countdown_shown_) return;
    countdown_shown_ = chatter;
    ShowControls({elapsed_, of_, gap_}, chatter);
}

int MainControls::VolumePosition() const {
    return static_cast<int>(SendMessageW(volume_, TBM_GETPOS, 0, 0));
}

} // namespace quillon
