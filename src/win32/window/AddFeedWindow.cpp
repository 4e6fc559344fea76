#include "win32/window/AddFeedWindow.h"

#include "app/AddFeedKeys.h"
#include "runtime/Text.h"
#include "win32/system/Utf16.h"
#include "win32/window/DialogIds.h"
#include "win32/window/Dialogs.h"

#include <commctrl.h>
#include <utility>

namespace quillon {

namespace {

constexpr AddBox Boxes[] = {AddBox::txtICAO, AddBox::txtCity, AddBox::txtURL, AddBox::txtFreq};

constexpr UINT PollMs = 100; // of the notes and of an address that is tried

int IdOf(AddBox box) {
    return IDC_TXT_ICAO + static_cast<int>(box);
}

/// The number of UTF-16 units in the first `characters` characters.
WPARAM UnitsBefore(const std::string& text, std::ptrdiff_t characters) {
    return Wide(Left(text, characters)).size();
}

} // namespace

void AddFeedWindow::Sync(HWND owner, Program& program) {
    program_ = &program;
    const bool visible = program.State().add_feed.Visible;
    if (visible && Window() == nullptr) Open(owner);
    if (!visible && Window() != nullptr) Close(owner);
    if (Window() != nullptr) Show();
}

void AddFeedWindow::Open(HWND owner) {
    OpenWindow(IDD_ADD_FEED, owner);
    if (Window() == nullptr) return;
    focus_served_ = 0; // the form begins anew
    for (const AddBox box : Boxes)
        SetWindowSubclass(GetDlgItem(Window(), IdOf(box)), EditProcedure, static_cast<UINT_PTR>(box),
                          reinterpret_cast<DWORD_PTR>(this));
    Show();
    SetTimer(Window(), 1, PollMs, nullptr);
    EnableWindow(owner, FALSE);
    ShowWindow(Window(), SW_SHOW);
}

/// Enables the owner first: Windows activates another window if the owner is still disabled.
void AddFeedWindow::Close(HWND owner) {
    EnableWindow(owner, TRUE);
    CloseWindow();
}

void AddFeedWindow::Show() {
    const frmAddATC& form = program_->State().add_feed;
    for (const AddBox box : Boxes) ShowText(IdOf(box), form[box]);
    ShowText(IDC_URL_PROMPT, form.PromptCaption);
    ShowNotes();
    ShowBrowse(form.cmdBrowseVisible);
    ShowKind(form.Kind);
    if (std::exchange(focus_served_, form.FocusRequest) != form.FocusRequest) TakeFocus(form.WantedFocus);
}

void AddFeedWindow::ShowNotes() {
    const frmAddATC& form = program_->State().add_feed;
    ShowText(IDC_AIRPORT_NOTE, form.AirportNote);
    ShowText(IDC_TEST_RESULT, form.TestCaption);
    ShowText(IDC_ADDED, form.AddedCaption);
}

void AddFeedWindow::ShowText(int id, const std::string& text) {
    if (TextOfItem(Window(), id) != text) SetDlgItemTextW(Window(), id, Wide(text).c_str());
}

/// The address box takes the button's place while that is hidden.
void AddFeedWindow::ShowBrowse(bool visible) {
    ShowWindow(GetDlgItem(Window(), IDC_BROWSE), visible ? SW_SHOW : SW_HIDE);
    RECT size{0, 0, visible ? 148 : 202, 14};
    MapDialogRect(Window(), &size);
    SetWindowPos(GetDlgItem(Window(), IDC_TXT_URL), nullptr, 0, 0, size.right, size.bottom,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void AddFeedWindow::ShowKind(SourceKind kind) {
    const int chosen = IDC_KIND1 + static_cast<int>(kind) - 1;
    if (IsDlgButtonChecked(Window(), chosen) != BST_CHECKED)
        CheckRadioButton(Window(), IDC_KIND1, IDC_KIND4, chosen);
}

void AddFeedWindow::TakeFocus(frmAddATC::Focus focus) {
    HWND edit = GetDlgItem(Window(), IdOf(focus.Box));
    if (GetFocus() != edit) SendMessageW(Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(edit), TRUE);
    const std::string& text = program_->State().add_feed[focus.Box];
    SendMessageW(edit, EM_SETSEL, UnitsBefore(text, focus.SelStart),
                 static_cast<LPARAM>(UnitsBefore(text, focus.SelStart + focus.SelLength)));
}

INT_PTR AddFeedWindow::Handle(UINT message, WPARAM wparam, LPARAM) {
    if (message == WM_INITDIALOG) PrepareDialog(Window());
    if (message == WM_TIMER) {
        program_->AddFeedEvent([](AddFeed& dialog) { dialog.Poll(); });
        ShowNotes();
    }
    if (message != WM_COMMAND) return FALSE; // leaves the focus alone
    Command(LOWORD(wparam), HIWORD(wparam));
    return TRUE;
}

void AddFeedWindow::Command(int id, int code) {
    const SourceKind chosen = program_->State().add_feed.Kind;
    if (id >= IDC_TXT_ICAO && id <= IDC_TXT_FREQ) {
        const AddBox box = Boxes[id - IDC_TXT_ICAO];
        if (code == EN_CHANGE)
            program_->AddFeedEvent([&](AddFeed& dialog) { dialog.SetText(box, TextOfItem(Window(), id)); });
        if (code == EN_SETFOCUS && box == AddBox::txtURL)
            Event([](AddFeed& dialog) { dialog.txtURL_GotFocus(); });
        return;
    }
    if (code != BN_CLICKED) return;
    // A radio button also reports a click when it only gets the focus.
    const auto kind = static_cast<SourceKind>(id - IDC_KIND1 + 1);
    if (id >= IDC_KIND1 && id <= IDC_KIND4 && kind != chosen)
        Event([kind](AddFeed& dialog) { dialog.ChooseKind(kind); });
    if (id == IDC_BROWSE) Event([](AddFeed& dialog) { dialog.cmdBrowse_Click(); });
    if (id == IDC_TEST) Event([](AddFeed& dialog) { dialog.TestAddress(); });
    if (id == IDOK) Event([](AddFeed& dialog) { dialog.cmdAdd_Click(); });
    if (id == IDCANCEL) Event([](AddFeed& dialog) { dialog.cmdCancel_Click(); });
}

void AddFeedWindow::Event(const std::function<void(AddFeed&)>& event) {
    program_->AddFeedEvent(event);
    sync_();
}

LRESULT CALLBACK AddFeedWindow::EditProcedure(HWND edit, UINT message, WPARAM wparam, LPARAM lparam,
                                              UINT_PTR id, DWORD_PTR self) {
    if (message == WM_CHAR) {
        auto* dialog = reinterpret_cast<AddFeedWindow*>(self);
        int key = static_cast<int>(wparam);
        dialog->program_->AddFeedEvent(
            [&](AddFeed& form) { key = form.TypeKey(static_cast<AddBox>(id), key); });
        if (key == RefusedKey) {
            MessageBeep(MB_OK);
            return 0;
        }
        wparam = static_cast<WPARAM>(key);
    }
    return DefSubclassProc(edit, message, wparam, lparam);
}

} // namespace quillon
