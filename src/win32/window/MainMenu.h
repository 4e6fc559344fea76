#pragma once

#include "app/Program.h"

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace quillon {

/// The main window's menu bar and the keys that stand for its commands.
class MainMenu {
  public:
    MainMenu();

    /// For the window that will own it.
    HMENU Bar() const { return bar_; }

    /// Whether the menu is the one in which the sound device is chosen.
    bool HasSoundDevices(HMENU menu) const { return menu == devices_; }

    /// Shows captions, enabled states and check marks as the data say.
    void Sync(const ProgramState& state);

    /// Shows the menu of a row of the list at a point of the screen and returns the command that is chosen, 0
    /// for none. Serves window events meanwhile.
    static int AskForRow(HWND window, POINT where, const ProgramState& state);

    /// The same for the icon in the notification area.
    static int AskForIcon(HWND window, POINT where, const Program& program);

    /// Turns a key press for the window into its command.
    bool Translate(HWND window, MSG& message) const;

  private:
    void SyncSoundDevices(const SoundDeviceMenu& menu);

    HMENU bar_;
    HMENU devices_; // part of the bar
    HACCEL keys_;   // lives as long as the program
    std::string range_caption_;
    std::optional<SoundDeviceMenu> shown_devices_;
    std::vector<UINT> flags_; // of all entries
};

} // namespace quillon
