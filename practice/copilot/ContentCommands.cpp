#include "Commands.h"
#include "Windows.h"
#include "win32/system/Handle.h"
#include "win32/system/Utf16.h"

#include <commctrl.h>

namespace practice {

namespace {

constexpr std::size_t MaxText = 4096; // characters

/// Memory in the process that owns a window: Windows does not marshal the pointers in messages to status bars
/// and lists.
class RemoteMemory {
  public:
    RemoteMemory(HWND window, std::size_t size)
        : process_(
              OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, ProcessOf(window))),
          start_(VirtualAllocEx(process_.Get(), nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE)) {
        if (!start_) throw Failure("no access to the program");
    }
    ~RemoteMemory() { VirtualFreeEx(process_.Get(), start_, 0, MEM_RELEASE); }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    char* Start() const { return static_cast<char*>(start_); }

    void Put(const void* from, std::size_t size) {
        if (!WriteProcessMemory(process_.Get(), start_, from, size, nullptr))
            throw Failure("no access to the program");
    }

    /// The NUL-terminated text at `offset`.
    std::string Text(std::size_t offset) const {
        std::wstring text(MaxText, L'\0');
        if (!ReadProcessMemory(process_.Get(), Start() + offset, text.data(), MaxText * sizeof(wchar_t),
                               nullptr))
            throw Failure("no access to the program");
        return quillon::Narrow(text.substr(0, text.find(L'\0')));
    }

    template <typename Value>
    Value Get() const {
        Value value;
        if (!ReadProcessMemory(process_.Get(), start_, &value, sizeof value, nullptr))
            throw Failure("no access to the program");
        return value;
    }

  private:
    quillon::Handle<HANDLE, CloseHandle> process_;
    void* start_;
};

HWND TheControl(const wchar_t* window_class) {
    return TheChild(
        TheMainWindow(), [&](HWND child) { return ClassOf(child) == window_class; },
        quillon::Narrow(window_class));
}

WPARAM PanelArgument(HWND bar, const std::string& text) {
    const unsigned panel = NumberArgument(text);
    const LRESULT panels = Ask(bar, SB_GETPARTS, 0, 0);
    if (panel < 1 || panel > panels) throw Failure("no panel " + text);
    return panel - 1;
}

std::string Panel(const Words& words) {
    HWND bar = TheControl(STATUSCLASSNAMEW);
    const WPARAM panel = PanelArgument(bar, words[0]);
    if (LOWORD(Ask(bar, SB_GETTEXTLENGTHW, panel, 0)) >= MaxText) throw Failure("the text is too long");
    RemoteMemory memory(bar, MaxText * sizeof(wchar_t));
    Ask(bar, SB_GETTEXTW, panel, reinterpret_cast<LPARAM>(memory.Start()));
    return memory.Text(0);
}

/// The control with that id in any box.
HWND BoxControl(const std::string& id) {
    for (HWND box : Boxes())
        if (HWND control = GetDlgItem(box, static_cast<int>(NumberArgument(id)))) return control;
    throw Failure("no control " + id);
}

/// The main window's list or, if there is an argument at `at`, the list with that id in a box.
HWND ListArgument(const Words& words, std::size_t at) {
    return words.size() <= at ? TheControl(WC_LISTVIEWW) : BoxControl(words[at]);
}

std::string Rows(const Words& words) {
    return std::to_string(Ask(ListArgument(words, 0), LVM_GETITEMCOUNT, 0, 0));
}

std::string CellText(HWND list, WPARAM row, int column) {
    RemoteMemory memory(list, sizeof(LVITEMW) + MaxText * sizeof(wchar_t));
    LVITEMW item{};
    item.iSubItem = column;
    item.cchTextMax = static_cast<int>(MaxText);
    item.pszText = reinterpret_cast<wchar_t*>(memory.Start() + sizeof item);
    memory.Put(&item, sizeof item);
    Ask(list, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(memory.Start()));
    return memory.Text(sizeof item);
}

std::string Row(const Words& words) {
    HWND list = ListArgument(words, 1);
    HWND header = reinterpret_cast<HWND>(Ask(list, LVM_GETHEADER, 0, 0));
    const LRESULT columns = Ask(header, HDM_GETITEMCOUNT, 0, 0);
    const unsigned row = NumberArgument(words[0]);
    if (row < 1 || row > Ask(list, LVM_GETITEMCOUNT, 0, 0)) throw Failure("no row " + words[0]);
    std::string texts = CellText(list, row - 1, 0);
    for (int column = 1; column < columns; ++column) texts += "|" + CellText(list, row - 1, column);
    return texts;
}

/// The middle of the rectangle with which a control answers a message; `left_code` is that message's argument.
LPARAM MiddleOf(HWND control, UINT message, WPARAM index, LONG left_code) {
    RemoteMemory memory(control, sizeof(RECT));
    RECT area{left_code, 0, 0, 0};
    memory.Put(&area, sizeof area);
    if (!Ask(control, message, index, reinterpret_cast<LPARAM>(memory.Start()))) throw Failure("not on screen");
    area = memory.Get<RECT>();
    return MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
}

std::string Mouse(HWND control, LPARAM at, std::initializer_list<UINT> messages) {
    for (const UINT message : messages)
        if (!PostMessageW(control, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, at))
            throw Failure("the window is gone");
    return "ok";
}

LPARAM RowArgument(HWND list, const std::string& row) {
    return MiddleOf(list, LVM_GETITEMRECT, NumberArgument(row) - 1, LVIR_LABEL);
}

std::string RowClick(const Words& words) {
    HWND list = ListArgument(words, 1);
    return Mouse(list, RowArgument(list, words[0]), {WM_LBUTTONDOWN, WM_LBUTTONUP});
}

std::string Middle(const Words& words) {
    HWND control = BoxControl(words[0]);
    RECT area{};
    if (!GetWindowRect(control, &area)) throw Failure("the window is gone");
    return Mouse(control, MAKELPARAM((area.right - area.left) / 2, (area.bottom - area.top) / 2),
                 {WM_LBUTTONDOWN, WM_LBUTTONUP});
}

std::string RowDouble(const Words& words) {
    HWND list = ListArgument(words, 1);
    return Mouse(list, RowArgument(list, words[0]),
                 {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP});
}

std::string HeaderClick(const Words& words) {
    HWND header = TheControl(WC_HEADERW);
    return Mouse(header, MiddleOf(header, HDM_GETITEMRECT, NumberArgument(words[0]) - 1, 0),
                 {WM_LBUTTONDOWN, WM_LBUTTONUP});
}

std::string ListKey(const Words& words) {
    if (!PostMessageW(TheControl(WC_LISTVIEWW), WM_KEYDOWN, NumberArgument(words[0]), 0))
        throw Failure("the window is gone");
    return "ok";
}

} // namespace

const std::vector<Command> ContentCommands = {
    {"panel", 1, 1, Panel},       {"rows", 0, 1, Rows},           {"row", 1, 2, Row},
    {"rowclick", 1, 2, RowClick}, {"rowdouble", 1, 2, RowDouble}, {"header", 1, 1, HeaderClick},
    {"listkey", 1, 1, ListKey},   {"middle", 1, 1, Middle},
};

} // namespace practice
