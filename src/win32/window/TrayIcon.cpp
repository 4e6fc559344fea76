#include "win32/window/TrayIcon.h"

#include "win32/system/Utf16.h"

#include <algorithm>
#include <iterator>
#include <shellapi.h>

namespace quillon {

namespace {

constexpr UINT IconId = 1;

struct PictureKind {
    Glyph Shape;
    COLORREF Tile; ///< stands out on light and dark task bars, behind white
};
constexpr PictureKind Pictures[] = {
    {Glyph::Headset, RGB(104, 120, 148)}, // silent
    {Glyph::Headset, RGB(40, 160, 72)},   // playing
    {Glyph::Mute, RGB(214, 128, 0)},      // muted
    {Glyph::NoHeadset, RGB(214, 64, 64)}, // no link
};

NOTIFYICONDATAW DataFor(HWND window) {
    NOTIFYICONDATAW data{};
    data.cbSize = sizeof data;
    data.hWnd = window;
    data.uID = IconId;
    return data;
}

} // namespace

void TrayIcon::Sync(HWND window, const Theme& theme, const NotificationIcon& icon) {
    if (!icon.Visible) return Remove();
    if (tried_ && (!added_ || shown_ == icon)) return;
    const PictureKind& kind = Pictures[static_cast<std::size_t>(icon.Shown)];
    const bool new_picture = !picture_ || shown_.Shown != icon.Shown;
    IconHandle picture = new_picture ? DrawTile(kind.Shape, theme.Px(16), kind.Tile) : std::move(picture_);
    NOTIFYICONDATAW data = DataFor(window);
    data.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP | NIF_SHOWTIP;
    data.uCallbackMessage = Message;
    data.hIcon = picture.Get();
    data.uVersion = NOTIFYICON_VERSION_4;
    const std::wstring tip = Wide(icon.Tip);
    std::copy_n(tip.begin(), std::min(tip.size(), std::size(data.szTip) - 1), data.szTip);
    window_ = window;
    const bool adds = !added_;
    tried_ = true;
    added_ = Shell_NotifyIconW(adds ? NIM_ADD : NIM_MODIFY, &data) != FALSE;
    if (adds && added_) Shell_NotifyIconW(NIM_SETVERSION, &data);
    picture_ = std::move(picture); // the old one may go only now
    shown_ = icon;
}

void TrayIcon::Remove() {
    NOTIFYICONDATAW data = DataFor(window_);
    if (added_) Shell_NotifyIconW(NIM_DELETE, &data);
    Renew();
}

} // namespace quillon
