#include "win32/window/MainMenu.h"

#include "win32/system/Handle.h"
#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"

#include <initializer_list>

namespace quillon {

namespace {

struct Entry {
    int id; // 0: a separator
    const wchar_t* text;
};

HMENU MakePopup(std::initializer_list<Entry> entries) {
    HMENU popup = CreatePopupMenu();
    for (const Entry& entry : entries)
        AppendMenuW(popup, entry.id == 0 ? MF_SEPARATOR : MF_STRING, static_cast<UINT_PTR>(entry.id),
                    entry.text);
    return popup;
}

void AddPopup(HMENU bar, const wchar_t* title, std::initializer_list<Entry> entries) {
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(MakePopup(entries)), title);
}

HMENU MakeBar() {
    HMENU bar = CreateMenu();
    AddPopup(bar, L"&File",
             {{IdMnuReload, L"Re&load Feed\tF5"},
              {0, nullptr},
              {IdMnuAddAtc, L"&Add Feed ...\tCtrl+N"},
              {0, nullptr},
              {IdMnuBackup, L"&Back Up Feeds ..."},
              {IdMnuRestore, L"&Restore Feeds ..."},
              {IdMnuEditData, L"&Edit Feeds in Notepad"},
              {IdMnuCheckFeeds, L"Check &Feeds"},
              {0, nullptr},
              {IdMnuPrint, L"&Print Master List\tCtrl+P"},
              {0, nullptr},
              {IdMnuQuit, L"&Quit\tAlt+F4"}});
    AddPopup(bar, L"&Search",
             {{IdMnuSearch, L"By &ICAO ...\tCtrl+F"},
              {IdMnuCitySearch, L"By &City ...\tCtrl+Shift+F"},
              {0, nullptr},
              {IdMnuSearchAgain, L"Search A&gain\tF3"}});
    AddPopup(bar, L"&Preferences",
             {{IdMnuSelComm, L"&Select Com Radio"},
              {0, nullptr},
              {IdMnuRange, L"Set &Range"},
              {0, nullptr},
              {IdMnuRecordedChatter, L"&Recorded Chatter Options"},
              {0, nullptr},
              {IdMnuSetMute, L"Set Default &Mute Key"},
              {0, nullptr},
              {IdMnuPlaylist, L"&Enable Playlists"}});
    AddPopup(bar, L"&Help",
             {{IdMnuContents, L"&Help Pages\tF1"},
              {IdMnuFolders, L"&Program Folders"},
              {IdMnuFsuipc, L"&FSUIPC Status"},
              {0, nullptr},
              {IdMnuAbout, L"&About Quillon"}});
    return bar;
}

/// Which commands there are to use; quitting is always one.
struct Rule {
    int id;
    bool frmATC::*enabled; // null: always
};
constexpr Rule Rules[] = {
    {IdMnuAddAtc, &frmATC::mnuAddATCEnabled},
    {IdMnuBackup, &frmATC::mnuBackupEnabled},
    {IdMnuRestore, &frmATC::mnuRestoreEnabled},
    {IdMnuEditData, nullptr},
    {IdMnuCheckFeeds, nullptr},
    {IdMnuPrint, &frmATC::mnuPrintEnabled},
    {IdMnuReload, &frmATC::mnuReloadEnabled},
    {IdMnuSearch, &frmATC::mnuSearchMenuEnabled},
    {IdMnuCitySearch, &frmATC::mnuSearchMenuEnabled},
    {IdMnuSearchAgain, &frmATC::mnuSearchMenuEnabled},
    {IdMnuSelComm, nullptr},
    {IdMnuRange, nullptr},
    {IdMnuRecordedChatter, nullptr},
    {IdMnuSetMute, nullptr},
    {IdMnuPlaylist, nullptr},
    {IdMnuContents, nullptr},
    {IdMnuFolders, nullptr},
    {IdMnuFsuipc, nullptr},
    {IdMnuAbout, nullptr},
};

std::uint32_t Enabled(const frmATC& form) {
    static_assert(std::size(Rules) <= 32);
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < std::size(Rules); ++i)
        if (Rules[i].enabled == nullptr || form.*Rules[i].enabled) bits |= 1U << i;
    return bits;
}

HACCEL MakeKeys() {
    ACCEL keys[] = {
        {FVIRTKEY | FCONTROL, 'F', IdMnuSearch}, {FVIRTKEY | FCONTROL | FSHIFT, 'F', IdMnuCitySearch},
        {FVIRTKEY, VK_F3, IdMnuSearchAgain},     {FVIRTKEY | FCONTROL, 'N', IdMnuAddAtc},
        {FVIRTKEY, VK_F1, IdMnuContents},        {FVIRTKEY | FCONTROL, 'P', IdMnuPrint},
        {FVIRTKEY, VK_F5, IdMnuReload},
    };
    return CreateAcceleratorTableW(keys, static_cast<int>(std::size(keys)));
}

} // namespace

MainMenu::MainMenu() : bar_(MakeBar()), keys_(MakeKeys()) {}

void MainMenu::Sync(const frmATC& form, bool busy) {
    if (range_caption_ != form.mnuRangeCaption) {
        range_caption_ = form.mnuRangeCaption;
        std::wstring text = Wide(range_caption_);
        MENUITEMINFOW item{};
        item.cbSize = sizeof item;
        item.fMask = MIIM_STRING;
        item.dwTypeData = text.data();
        SetMenuItemInfoW(bar_, IdMnuRange, FALSE, &item);
    }
    const std::uint32_t enabled = busy ? 0 : Enabled(form);
    if (enabled_ == enabled) return; // asked several times a second
    enabled_ = enabled;
    for (std::size_t i = 0; i < std::size(Rules); ++i)
        EnableMenuItem(bar_, static_cast<UINT>(Rules[i].id), (enabled >> i & 1U) != 0 ? MF_ENABLED : MF_GRAYED);
}

int MainMenu::AskForRow(HWND window, POINT where, bool can_tune) {
    const Handle<HMENU, DestroyMenu> menu(MakePopup({{IdMnuPlayFeed, L"&Play"},
                                                     {IdMnuTuneFeed, L"&Tune the Simulator"},
                                                     {0, nullptr},
                                                     {IdMnuCopyAddress, L"&Copy Address"},
                                                     {IdMnuEditData, L"&Edit Feeds in Notepad"}}));
    SetMenuDefaultItem(menu.Get(), IdMnuPlayFeed, FALSE);
    if (!can_tune) EnableMenuItem(menu.Get(), IdMnuTuneFeed, MF_GRAYED);
    return TrackPopupMenu(menu.Get(), TPM_RIGHTBUTTON | TPM_RETURNCMD, where.x, where.y, 0, window, nullptr);
}

bool MainMenu::Translate(HWND window, MSG& message) const {
    return TranslateAcceleratorW(window, keys_, &message) != 0;
}

} // namespace quillon
