#pragma once

#include "app/Preferences.h"
#include "settings/RememberedState.h"
#include "state/ProgramState.h"

#include <string>

namespace quillon {

/// How the main window is shown: full or compact, in front or only as an icon.
class WindowView {
  public:
    WindowView(ProgramState& state, RememberedState& remembered, Preferences& preferences)
        : state_(state), remembered_(remembered), preferences_(preferences) {}

    /// Changes to the compact view, for which open preference frames are closed, or back; shows the window.
    void TurnCompact();

    /// Leaves the compact view for a command that needs the list.
    void ShowList() { state_.form.Compact = false; }

    /// Brings the window to the front, also from the notification area.
    void Show();

  private:
    ProgramState& state_;
    RememberedState& remembered_;
    Preferences& preferences_;
};

/// The icon in the notification area.
struct NotificationIcon {
    enum class Picture { Silent, Playing, Muted, NoLink };

    bool Visible = false;
    Picture Shown = Picture::Silent;
    std::string Tip; ///< the window's title and, in a second line, the feed

    bool operator==(const NotificationIcon&) const = default;
};

/// The icon as it ought to be now.
NotificationIcon IconFor(const ProgramState& state);

} // namespace quillon
