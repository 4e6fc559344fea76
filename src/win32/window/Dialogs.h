#pragma once

#include "state/Folders.h"
#include "state/Forms.h"
#include "win32/window/ModelessDialog.h"

#include <windows.h>

#include <functional>
#include <string>

namespace quillon {

/// Gives a dialog's title bar the user's colours and centres the dialog over its owner, if it has one.
void PrepareDialog(HWND dialog);

/// Asks for a line of text in a modal dialog. Returns an empty text if the user cancelled.
std::string AskForText(HWND owner, const std::string& title, const std::string& prompt,
                       const std::string& default_answer);

/// The modal dialog of the program's version and licence. Returns whether the user asked for system
/// information.
bool ShowAbout(HWND owner);

/// The modal dialog of the program's folders. Returns the folder to open, empty for none.
std::string ShowFolders(HWND owner, const Folders& folders);

/// The text with CR LF for each CR, which alone ends a line in the program's texts.
std::wstring WithLineFeeds(const std::string& text);

/// Makes a label as high as its text and moves what is below it, the dialog's lower edge included.
void FitToText(HWND dialog, int label_id);

/// The text of a dialog's control, in UTF-8.
std::string TextOfItem(HWND dialog, int id);

/// The window of the simulator link's status.
class FsuipcStatusWindow : public ModelessDialog {
  public:
    /// `closed` is called when the user closes the window.
    explicit FsuipcStatusWindow(std::function<void()> closed) : closed_(std::move(closed)) {}

    /// Opens, updates or closes the window to match the data.
    void Sync(HWND owner, const frmShow_FSUIPC& form);

  private:
    INT_PTR Handle(UINT message, WPARAM wparam, LPARAM lparam) override;
    COLORREF TextColor() const;
    void Draw(const DRAWITEMSTRUCT& item) const;

    std::function<void()> closed_;
    std::string caption_;
    bool red_ = false;
};

} // namespace quillon
