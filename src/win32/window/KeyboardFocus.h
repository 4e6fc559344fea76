#pragma once

#include "win32/window/FeedList.h"
#include "win32/window/MainControls.h"
#include "win32/window/PreferenceFrames.h"

#include <windows.h>

namespace quillon {

/// Keyboard focus among the main window's controls.
class KeyboardFocus {
  public:
    KeyboardFocus(HWND window, const FeedList& list, const MainControls& controls,
                  const PreferenceFrames& frames)
        : window_(window), list_(list), controls_(controls), frames_(frames) {}

    /// Remembers which control has the focus, if one does.
    void Save();

    /// Returns the focus to that control, or to the list if it is hidden or none is remembered.
    void Restore() const;

    /// Handles WM_NEXTDLGCTL, which labels' mnemonics send and only dialogs handle by default.
    void Move(WPARAM wparam, LPARAM lparam) const;

    /// Cycles through the list, the selection mode, the player and the visible preference frames.
    void NextPane(bool back) const;

  private:
    HWND window_;
    const FeedList& list_;
    const MainControls& controls_;
    const PreferenceFrames& frames_;
    HWND saved_ = nullptr;
};

} // namespace quillon
