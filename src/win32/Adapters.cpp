#include "win32/Adapters.h"

#include "runtime/Text.h"
#include "win32/Dialogs.h"
#include "win32/Utf16.h"

#include <array>
#include <mmsystem.h>
#include <shellapi.h>
#include <shlobj.h>

namespace quillon {

TimePoint WinClock::Now() {
    SYSTEMTIME local;
    GetLocalTime(&local);
    FILETIME since_1601;
    SystemTimeToFileTime(&local, &since_1601);
    const std::uint64_t ticks = std::uint64_t{since_1601.dwHighDateTime} << 32U | since_1601.dwLowDateTime;
    constexpr std::uint64_t Epoch1970 = 116444736000000000U; // in the same 100 ns ticks
    return TimePoint(std::chrono::milliseconds((ticks - Epoch1970) / 10000));
}

void WinClock::Sleep(std::chrono::milliseconds time) {
    ::Sleep(static_cast<DWORD>(time.count()));
}

namespace {

UINT StyleOf(Icon icon) {
    switch (icon) {
    case Icon::Information:
        return MB_ICONINFORMATION;
    case Icon::Exclamation:
        return MB_ICONEXCLAMATION;
    case Icon::Critical:
        return MB_ICONERROR;
    case Icon::None:
        break;
    }
    return 0;
}

/// A report can quote a whole line of a broken file; a box as long as that could not be closed.
std::wstring FitForBox(const std::string& text) {
    constexpr std::size_t Most = 1500;
    const bool fits = text.size() <= Most;
    const std::wstring wide = Wide(fits ? text : Left(text, Most / 2) + "\r...\r" + Right(text, Most / 2));
    std::wstring lines;
    for (const wchar_t unit : wide) {
        if (unit != L'\0') lines += unit;
        if (unit == L'\r') lines += L'\n';
    }
    return lines;
}

} // namespace

void WinPrompts::Message(const std::string& title, const std::string& text, Icon icon) {
    HWND owner = owner_();
    MessageBoxW(owner, FitForBox(text).c_str(), Wide(title).c_str(), MB_OK | StyleOf(icon) | MB_SETFOREGROUND);
}

std::string WinPrompts::InputBox(const std::string& title, const std::string& prompt,
                                 const std::string& default_answer) {
    return AskForText(owner_(), title, prompt, default_answer);
}

int WinPrompts::MuteKeyDialog(int option) {
    return AskForMuteKey(owner_(), option);
}

std::string WinShell::ApplicationDataFolder() {
    PWSTR path = nullptr;
    std::string folder;
    if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_RoamingAppData, 0, nullptr, &path))) folder = Narrow(path);
    CoTaskMemFree(path);
    return folder;
}

void WinShell::OpenAddress(const std::string& address) {
    ShellExecuteW(nullptr, L"open", Wide(address).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

void WinShell::PlaySoundFile(const std::string& path) {
    sndPlaySoundW(Wide(path).c_str(), SND_ASYNC);
}

bool WinKeyboard::IsDown(int virtual_key) {
    return (GetAsyncKeyState(virtual_key) & 0x8000) != 0;
}

namespace {

LCTYPE TypeOf(RegionalSettings::Separator separator) {
    return separator == RegionalSettings::Separator::Decimal ? LOCALE_SDECIMAL : LOCALE_STHOUSAND;
}

} // namespace

std::string WinRegionalSettings::Read(Separator separator) {
    std::array<wchar_t, 16> text{};
    const int length = GetLocaleInfoW(GetUserDefaultLCID(), TypeOf(separator), text.data(), text.size());
    return length > 0 ? Narrow(text.data()) : "";
}

void WinRegionalSettings::Write(Separator separator, const std::string& text) {
    SetLocaleInfoW(GetUserDefaultLCID(), TypeOf(separator), Wide(text).c_str());
}

std::string WinCodePage::Decode(std::string_view bytes) {
    const int size = static_cast<int>(bytes.size());
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, wide.data(), static_cast<int>(wide.size()));
    return Narrow(wide);
}

std::optional<std::string> WinCodePage::Encode(std::string_view text) {
    const std::wstring wide = Wide(text);
    const int units = static_cast<int>(wide.size());
    std::string bytes(wide.size() * 4, '\0');
    BOOL lost = FALSE;
    const int length = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), units, bytes.data(),
                                           static_cast<int>(bytes.size()), nullptr, &lost);
    if (lost || (length == 0 && units > 0)) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

} // namespace quillon
