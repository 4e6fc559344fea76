#include "win32/system/Adapters.h"

#include "runtime/RuntimeError.h"
#include "win32/system/Handle.h"
#include "win32/system/KeptFolder.h"
#include "win32/system/LateFunction.h"
#include "win32/system/Utf16.h"

#include <array>
#include <mmsystem.h>
#include <shellapi.h>
#include <shlobj.h>

namespace quillon {

namespace {

constexpr std::uint64_t Epoch1970 = 116444736000000000U; // since 1601, in 100 ns ticks

FILETIME FileTimeOf(TimePoint time) {
    const auto since_1970 = static_cast<std::uint64_t>(time.time_since_epoch() / std::chrono::milliseconds(1));
    const std::uint64_t ticks = since_1970 * 10000 + Epoch1970;
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32U)};
}

} // namespace

TimePoint WinClock::Now() {
    SYSTEMTIME local;
    GetLocalTime(&local);
    FILETIME since_1601;
    SystemTimeToFileTime(&local, &since_1601);
    const std::uint64_t ticks = std::uint64_t{since_1601.dwHighDateTime} << 32U | since_1601.dwLowDateTime;
    return TimePoint(std::chrono::milliseconds((ticks - Epoch1970) / 10000));
}

std::chrono::milliseconds WinClock::Uptime() {
    return std::chrono::milliseconds(GetTickCount64());
}

void WinClock::Sleep(std::chrono::milliseconds time) {
    ::Sleep(static_cast<DWORD>(time.count()));
}

void WinUserFiles::Delete2Recycle(const std::string& path) {
    const std::wstring from = Wide(path) + L'\0'; // a list of paths, ended by an empty one
    SHFILEOPSTRUCTW operation{};
    operation.hwnd = owner_();
    operation.wFunc = FO_DELETE;
    operation.pFrom = from.c_str();
    operation.fFlags = FOF_ALLOWUNDO;
    SHFileOperationW(&operation);
}

bool WinUserFiles::SetFileDateTime(const std::string& path, TimePoint local) {
    HANDLE opened = CreateFileW(Wide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return false;
    const Handle<HANDLE, CloseHandle> file(opened);
    const FILETIME local_time = FileTimeOf(std::chrono::floor<std::chrono::seconds>(local));
    FILETIME written;
    return LocalFileTimeToFileTime(&local_time, &written) &&
           SetFileTime(file.Get(), nullptr, nullptr, &written);
}

std::string WinShell::ApplicationDataFolder() {
    std::array<wchar_t, MAX_PATH> path{};
    return SHGetSpecialFolderPathW(nullptr, path.data(), CSIDL_APPDATA, FALSE) ? Narrow(path.data()) : "";
}

std::string WinShell::ProgramFolder() {
    std::array<wchar_t, 32768> path{};
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), path.size());
    const std::wstring program(path.data(), length);
    return Narrow(program.substr(0, program.rfind(L'\\') + 1));
}

bool WinShell::OpenAddress(const std::string& address) {
    const std::wstring file = Wide(address);
    SHELLEXECUTEINFOW order{};
    order.cbSize = sizeof order;
    order.fMask = SEE_MASK_FLAG_NO_UI; // the caller reports the failure
    order.lpFile = file.c_str();
    order.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&order) != FALSE;
}

namespace {

class WinStartedProgram : public StartedProgram {
  public:
    explicit WinStartedProgram(HANDLE process) : process_(process) {}

    /// Also if the shell has handed the file to a program that runs already, and gives no process.
    bool HasEnded() override { return WaitForSingleObject(process_.Get(), 0) != WAIT_TIMEOUT; }

  private:
    Handle<HANDLE, CloseHandle> process_;
};

std::wstring SystemFolder() {
    std::array<wchar_t, MAX_PATH> folder{};
    GetSystemDirectoryW(folder.data(), folder.size());
    return folder.data();
}

/// Null if there is no such program.
HANDLE StartFromSystem(const std::string& program, const std::wstring& quoted_file) {
    const std::wstring path = SystemFolder() + L"\\" + Wide(program);
    std::wstring command = Wide(program) + L" " + quoted_file;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(path.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &started))
        return nullptr;
    CloseHandle(started.hThread);
    return started.hProcess;
}

/// Null if there is no process to wait for. Raises error 53 if there is no such program.
HANDLE StartFromShell(const std::string& program, const std::wstring& quoted_file) {
    const KeptFolder kept;
    SetCurrentDirectoryW(SystemFolder().c_str()); // it looks there first
    const std::wstring name = Wide(program);
    SHELLEXECUTEINFOW order{};
    order.cbSize = sizeof order;
    order.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOCLOSEPROCESS;
    order.lpFile = name.c_str();
    order.lpParameters = quoted_file.c_str();
    order.nShow = SW_SHOWNORMAL;
    if (!ShellExecuteExW(&order)) Raise(FileNotFound);
    return order.hProcess;
}

} // namespace

/// From Windows' own folder: with a bare name, our folder and the current one would be searched first. A
/// Windows whose Notepad comes from its store has none there, but the shell knows it.
std::unique_ptr<StartedProgram> WinShell::Start(const std::string& program, const std::string& file) {
    const std::wstring quoted_file = file.empty() ? L"" : L"\"" + Wide(file) + L"\"";
    HANDLE process = StartFromSystem(program, quoted_file);
    if (process == nullptr) process = StartFromShell(program, quoted_file);
    return std::make_unique<WinStartedProgram>(process);
}

namespace {

using GlobalMemory = Handle<HGLOBAL, GlobalFree>;

/// A copy of the text for the clipboard; empty if there is no memory.
GlobalMemory Share(const std::wstring& text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    GlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
    void* const room = memory ? GlobalLock(memory.Get()) : nullptr;
    if (room == nullptr) return {};
    CopyMemory(room, text.c_str(), bytes);
    GlobalUnlock(memory.Get());
    return memory;
}

} // namespace

/// Without a window as owner the clipboard refuses data.
void WinShell::CopyText(const std::string& text) {
    GlobalMemory memory = Share(Wide(text));
    if (!memory || !OpenClipboard(owner_())) return; // another program has it open
    EmptyClipboard();
    if (SetClipboardData(CF_UNICODETEXT, memory.Get()) != nullptr)
        memory.Release(); // now owned by the clipboard
    CloseClipboard();
}

void WinShell::PlaySoundFile(const std::string& path) {
    static constinit const LateCall<decltype(sndPlaySoundW)> Play(L"winmm.dll", "sndPlaySoundW", FALSE);
    Play(Wide(path).c_str(), SND_ASYNC);
}

bool WinKeyboard::IsDown(int virtual_key) {
    return (GetAsyncKeyState(virtual_key) & 0x8000) != 0;
}

/// The focus is one of this thread's windows only while a window of the program is active.
bool WinKeyboard::IsInBox() {
    std::array<wchar_t, 16> name{};
    if (GetClassNameW(GetFocus(), name.data(), name.size()) == 0) return false;
    return lstrcmpiW(name.data(), L"Edit") == 0 || lstrcmpiW(name.data(), L"ComboBox") == 0 ||
           lstrcmpiW(name.data(), L"ComboLBox") == 0;
}

bool WinKeyboard::IsOrWasDown(int virtual_key) {
    return GetAsyncKeyState(virtual_key) != 0;
}

namespace {

LCTYPE TypeOf(RegionalSettings::Separator separator) {
    return separator == RegionalSettings::Separator::Decimal ? LOCALE_SDECIMAL : LOCALE_STHOUSAND;
}

} // namespace

std::optional<std::string> WinRegionalSettings::Read(Separator separator) {
    std::array<wchar_t, 16> text{};
    const int length = GetLocaleInfoW(GetUserDefaultLCID(), TypeOf(separator), text.data(), text.size());
    return length > 0 ? std::optional(Narrow(text.data())) : std::nullopt;
}

void WinRegionalSettings::Write(Separator separator, const std::string& text) {
    SetLocaleInfoW(GetUserDefaultLCID(), TypeOf(separator), Wide(text).c_str());
}

namespace {

/// The code page of files that are not UTF-8: the ANSI code page or, where that has been set to UTF-8, the
/// usual one for the system's language, in which programs wrote before.
UINT LegacyPage() {
    constexpr UINT WesternEuropean = 1252; // maps every byte to a character
    if (const UINT ansi = GetACP(); ansi != CP_UTF8) return ansi;
    DWORD page = 0;
    GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                   reinterpret_cast<LPWSTR>(&page), sizeof page / sizeof(wchar_t));
    return page == CP_ACP || page == CP_UTF8 ? WesternEuropean : page;
}

} // namespace

std::string WinCodePage::Decode(std::string_view bytes) {
    const UINT page = LegacyPage();
    const int size = static_cast<int>(bytes.size());
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(page, 0, bytes.data(), size, nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(page, 0, bytes.data(), size, wide.data(), static_cast<int>(wide.size()));
    return Narrow(wide);
}

std::optional<std::string> WinCodePage::Encode(std::string_view text) {
    const UINT page = LegacyPage();
    const std::wstring wide = Wide(text);
    const int units = static_cast<int>(wide.size());
    std::string bytes(wide.size() * 4, '\0');
    BOOL lost = FALSE;
    const int length = WideCharToMultiByte(page, WC_NO_BEST_FIT_CHARS, wide.data(), units, bytes.data(),
                                           static_cast<int>(bytes.size()), nullptr, &lost);
    if (lost || (length == 0 && units > 0)) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

} // namespace quillon
