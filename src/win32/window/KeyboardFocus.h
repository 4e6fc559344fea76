#pragma once

#include "win32/window/FeedList.h"
#include "win32/window/MainControls.h"
#include "win32/window/PreferenceFrames.h"

#include <windows.h>

namespace quillon {

/// Where the keyboard is among the main window's controls.
class KeyboardFocus {
  public:
    KeyboardFocus(HWND window, const FeedList& list, const MainControls& controls,
                  const PreferenceFrames& frames)
        : window_(window), list_(list), controls_(controls), frames_(frames) {}

    /// Remembers which control has the keyboard, if one does, before it is taken away.
    void Keep();

    /// Gives it back.
    void Restore() const;

    /// What a label's mnemonic asks for by WM_NEXTDLGCTL, which only dialogs answer by themselves.
    void Move(WPARAM wparam, LPARAM lparam) const;

    /// To the list, the selection mode, the player, and the preference frames that are shown, in a circle.
    void NextPane(bool back) const;

  private:
    HWND window_;
    const FeedList& list_;
    const MainControls& controls_;
    const PreferenceFrames& frames_;
    HWND kept_ = nullptr;
};

} // namespace quillon
