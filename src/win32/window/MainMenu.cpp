#include "win32/window/MainMenu.h"

#include "app/Commands.h"
#include "win32/system/Handle.h"
#include "win32/system/Utf16.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace quillon {

namespace {

UINT EnabledFlag(const Command& command, const ProgramState& state) {
    return command.Enabled(state) ? MF_ENABLED : MF_GRAYED;
}

UINT CheckedFlag(const Command& command, const ProgramState& state) {
    return command.Checked != nullptr && command.Checked(state) ? MF_CHECKED : MF_UNCHECKED;
}

HMENU MakePopup(std::span<const Command> entries) {
    HMENU popup = CreatePopupMenu();
    for (const Command& entry : entries)
        AppendMenuW(popup, entry.Number == 0 ? MF_SEPARATOR : MF_STRING, static_cast<UINT_PTR>(entry.Number),
                    Wide(entry.Text).c_str());
    return popup;
}

/// A single one would underline the next letter.
std::wstring DoubledAmpersands(std::wstring text) {
    for (std::size_t at = 0; (at = text.find(L'&', at)) != text.npos; at += 2) text.insert(at, 1, L'&');
    return text;
}

HMENU MakeBar() {
    HMENU bar = CreateMenu();
    for (const Menu& menu : MenuBar())
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(MakePopup(menu.Entries)),
                    Wide(menu.Title).c_str());
    return bar;
}

/// The key that the entry's text names behind its tab: a letter or F1 to F9. Alt+F4 is Windows' own.
std::optional<ACCEL> KeyOf(const Command& command) {
    const std::string_view text = command.Text;
    const std::size_t tab = text.find('\t');
    if (tab == std::string_view::npos || text.find("Alt+", tab) != std::string_view::npos) return std::nullopt;
    ACCEL key{FVIRTKEY, 0, static_cast<WORD>(command.Number)};
    if (text.find("Ctrl+", tab) != std::string_view::npos) key.fVirt |= FCONTROL;
    if (text.find("Shift+", tab) != std::string_view::npos) key.fVirt |= FSHIFT;
    const char last = text.back();
    key.key = static_cast<WORD>(last <= '9' ? VK_F1 + (last - '1') : last);
    return key;
}

HACCEL MakeKeys() {
    std::vector<ACCEL> keys;
    for (const Menu& menu : MenuBar())
        for (const Command& entry : menu.Entries)
            if (const auto key = KeyOf(entry)) keys.push_back(*key);
    return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

} // namespace

MainMenu::MainMenu() : bar_(MakeBar()), devices_(CreatePopupMenu()), keys_(MakeKeys()) {
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_SUBMENU;
    item.hSubMenu = devices_;
    SetMenuItemInfoW(bar_, Command::SoundDevices, FALSE, &item);
}

void MainMenu::SyncSoundDevices(const SoundDeviceMenu& menu) {
    if (shown_devices_ == menu) return;
    shown_devices_ = menu;
    while (DeleteMenu(devices_, 0, MF_BYPOSITION) != FALSE) continue;
    const std::size_t count = std::min(menu.Names.size(), Command::MostSoundDevices - 1);
    AppendMenuW(devices_, MF_STRING, Command::DefaultSoundDevice, L"&Default device");
    for (std::size_t at = 0; at < count; ++at)
        AppendMenuW(devices_, MF_STRING, Command::DefaultSoundDevice + at + 1,
                    DoubledAmpersands(Wide(menu.Names[at])).c_str());
    CheckMenuRadioItem(devices_, 0, static_cast<UINT>(count), static_cast<UINT>(menu.Checked), MF_BYPOSITION);
    AppendMenuW(devices_, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(devices_, MF_STRING | MF_GRAYED, Command::SoundDevicesNote,
                L"Windows Media Player always uses the default device");
}

void MainMenu::Sync(const ProgramState& state) {
    if (range_caption_ != state.form.mnuRangeCaption) {
        range_caption_ = state.form.mnuRangeCaption;
        std::wstring text = Wide(range_caption_);
        MENUITEMINFOW item{};
        item.cbSize = sizeof item;
        item.fMask = MIIM_STRING;
        item.dwTypeData = text.data();
        SetMenuItemInfoW(bar_, Command::mnuRange, FALSE, &item);
    }
    SyncSoundDevices(state.form.SoundDevices);
    // Asked several times a second, so the menus are only touched when one of their entries has changed.
    std::vector<UINT> flags;
    for (const Menu& menu : MenuBar())
        for (const Command& entry : menu.Entries)
            flags.insert(flags.end(), {EnabledFlag(entry, state), CheckedFlag(entry, state)});
    if (flags_ == flags) return;
    flags_ = std::move(flags);
    for (const Menu& menu : MenuBar())
        for (const Command& entry : menu.Entries) {
            EnableMenuItem(bar_, static_cast<UINT>(entry.Number), EnabledFlag(entry, state));
            CheckMenuItem(bar_, static_cast<UINT>(entry.Number), CheckedFlag(entry, state));
        }
}

int MainMenu::AskForRow(HWND window, POINT where, const ProgramState& state) {
    const Handle<HMENU, DestroyMenu> menu(MakePopup(RowMenu()));
    SetMenuDefaultItem(menu.Get(), 0, TRUE);
    for (const Command& entry : RowMenu())
        EnableMenuItem(menu.Get(), static_cast<UINT>(entry.Number), EnabledFlag(entry, state));
    return TrackPopupMenu(menu.Get(), TPM_RIGHTBUTTON | TPM_RETURNCMD, where.x, where.y, 0, window, nullptr);
}

int MainMenu::AskForIcon(HWND window, POINT where, const Program& program) {
    const Handle<HMENU, DestroyMenu> menu(MakePopup(IconMenu()));
    SetMenuDefaultItem(menu.Get(), 0, TRUE);
    for (const Command& entry : IconMenu()) {
        const auto id = static_cast<UINT>(entry.Number);
        EnableMenuItem(menu.Get(), id, program.CanRun(entry.Number) ? MF_ENABLED : MF_GRAYED);
        CheckMenuItem(menu.Get(), id, CheckedFlag(entry, program.State()));
    }
    SetForegroundWindow(window); // otherwise a click beside the menu would not close it
    const int chosen =
        TrackPopupMenu(menu.Get(), TPM_RIGHTBUTTON | TPM_RETURNCMD, where.x, where.y, 0, window, nullptr);
    PostMessageW(window, WM_NULL, 0, 0); // Windows' advice for menus of icons
    return chosen;
}

bool MainMenu::Translate(HWND window, MSG& message) const {
    return TranslateAcceleratorW(window, keys_, &message) != 0;
}

} // namespace quillon
