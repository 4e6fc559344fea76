#pragma once

#include "state/Folders.h"
#include "state/Forms.h"
#include "win32/window/ModelessDialog.h"

#include <windows.h>

#include <functional>
#include <string>

namespace quillon {

/// Gives a dialog's title the user's colours, and moves it to the middle of the window that owns it, if there
/// is one.
void PrepareDialog(HWND dialog);

/// Asks for a line of text in a modal dialog; empty when the user cancelled.
std::string AskForText(HWND owner, const std::string& title, const std::string& prompt,
                       const std::string& default_answer);

/// The modal dialog of the mute key: shows one of its four options selected (0: none) and returns the one that
/// was set, 0 when it was closed without.
int AskForMuteKey(HWND owner, int option);

/// The modal dialog of the program's version and licence. Returns whether the system's information is wanted.
bool ShowAbout(HWND owner);

/// The modal dialog of the program's folders. Returns the one to be opened, empty for none.
std::string ShowFolders(HWND owner, const Folders& folders);

/// A carriage return ends a line in the program's texts; Windows wants a line feed behind it.
std::wstring WithLineFeeds(const std::string& text);

/// Makes a label as high as its text; what lies below it and the dialog's edge follow.
void FitToText(HWND dialog, int label_id);

/// The text of a dialog's control.
std::string TextOfItem(HWND dialog, int id);

/// The window of the simulator link's status.
class FsuipcStatusWindow : public ModelessDialog {
  public:
    /// `closed` is called when the user closes it.
    explicit FsuipcStatusWindow(std::function<void()> closed) : closed_(std::move(closed)) {}

    /// Shows, updates or closes it as the data say.
    void Sync(HWND owner, const frmShow_FSUIPC& form);

  private:
    INT_PTR Handle(UINT message, WPARAM wparam, LPARAM lparam) override;
    COLORREF TextColor() const;

    std::function<void()> closed_;
    std::string caption_;
    bool red_ = false;
};

} // namespace quillon
