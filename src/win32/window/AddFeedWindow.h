#pragma once

#include "app/Program.h"
#include "win32/window/ModelessDialog.h"

#include <windows.h>

#include <functional>
#include <string>

namespace quillon {

/// The add-feed dialog on the screen. The main window is disabled while it is shown.
class AddFeedWindow : public ModelessDialog {
  public:
    /// `sync` updates all windows; it is called after each event.
    explicit AddFeedWindow(std::function<void()> sync) : sync_(std::move(sync)) {}

    /// Opens, updates or closes the dialog to match the data.
    void Sync(HWND owner, Program& program);

  private:
    INT_PTR Handle(UINT message, WPARAM wparam, LPARAM lparam) override;
    static LRESULT CALLBACK EditProcedure(HWND edit, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id,
                                          DWORD_PTR self);
    void Open(HWND owner);
    void Close(HWND owner);
    void Show();
    void ShowNotes();
    void ShowText(int id, const std::string& text);
    void ShowBrowse(bool visible);
    void ShowKind(SourceKind kind);
    void TakeFocus(frmAddATC::Focus focus);
    void Command(int id, int code);
    void Event(const std::function<void(AddFeed&)>& event);

    std::function<void()> sync_;
    Program* program_ = nullptr;
    ViewRequest focus_served_ = 0;
};

} // namespace quillon
