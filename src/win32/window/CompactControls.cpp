#include "win32/window/CompactControls.h"

#include "app/Commands.h"
#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"
#include "win32/window/Controls.h"

#include <commctrl.h>

namespace quillon {

namespace {

constexpr DWORD LabelStyle = SS_NOPREFIX | SS_ENDELLIPSIS | SS_CENTERIMAGE;

const Panel& PanelOf(const frmATC& form, StatusPanel panel) {
    return form.StatusBar1[static_cast<std::size_t>(panel)];
}

void Update(HWND label, std::string& shown, const std::string& text) {
    if (shown != text) SetWindowTextW(label, Wide(shown = text).c_str());
}

} // namespace

CompactControls::CompactControls(HWND parent)
    : feed_(AddControl(parent, WC_STATICW, L"", LabelStyle, IdCompactFeed)),
      state_(AddControl(parent, WC_STATICW, L"", LabelStyle, IdCompactState)),
      frequency_(AddControl(parent, WC_STATICW, L"", LabelStyle | SS_RIGHT, IdCompactFrequency)),
      back_(AddControl(parent, WC_BUTTONW, L"&Full View", WS_TABSTOP | WS_GROUP, Command::CompactView)) {
    Show(false);
}

void CompactControls::SetTheme(const Theme& theme) {
    SetFonts({feed_, back_}, theme.Text());
    SetFonts({state_, frequency_}, theme.Text());
}

std::vector<Row> CompactControls::Rows(const MainControls& shared) const {
    std::vector<Cell> player{Margin};
    for (const Cell& cell : shared.PlayerCells()) player.push_back(cell);
    player.insert(player.end(), {{nullptr, Grows}, Fitted(back_, 20), Margin});
    const std::vector<Cell> now{Margin + 2, {state_, 110},     Margin, shared.DistanceCell(),
                                Margin,     {frequency_, 120}, Margin};
    return {2, {16, {Margin + 2, {feed_, Grows}, Margin}}, {24, now}, {28, player, 26}, 4};
}

void CompactControls::Show(bool visible) {
    ShowControls({feed_, state_, frequency_, back_}, visible);
}

/// The frequency's tip names the radio.
void CompactControls::Sync(const frmATC& form) {
    const Panel& frequency = PanelOf(form, StatusPanel::Frequency);
    const bool named = !frequency.ToolTipText.empty() && frequency.ToolTipText != frequency.Text;
    Update(feed_, shown_feed_, PanelOf(form, StatusPanel::Feed).Text);
    Update(state_, shown_state_, PanelOf(form, StatusPanel::Player).Text);
    Update(frequency_, shown_frequency_, frequency.Text + (named ? "  " + frequency.ToolTipText : ""));
}

} // namespace quillon
