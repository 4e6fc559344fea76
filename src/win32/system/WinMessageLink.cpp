#include "win32/system/WinMessageLink.h"

#include <windows.h>

namespace quillon {

namespace {

template <typename Handle>
NativeHandle NativeOf(Handle handle) {
    return reinterpret_cast<NativeHandle>(handle);
}

} // namespace

NativeHandle WinMessageLink::FindPeerWindow(const std::string& window_class) {
    return NativeOf(FindWindowExA(nullptr, nullptr, window_class.c_str(), nullptr));
}

std::uint32_t WinMessageLink::RegisterMessage(const std::string& name) {
    return RegisterWindowMessageA(name.c_str());
}

MessageLink::Sent WinMessageLink::Send(NativeHandle window, std::uint32_t message, std::uint32_t wparam,
                                       std::uint32_t timeout_ms) {
    const auto hwnd = reinterpret_cast<HWND>(window);
    DWORD_PTR reply = 0;
    SetLastError(ERROR_SUCCESS); // some systems do not set it on a timeout
    if (SendMessageTimeoutA(hwnd, message, wparam, 0, SMTO_BLOCK, timeout_ms, &reply))
        return {true, static_cast<std::uint32_t>(reply), 0};
    const DWORD error = GetLastError();
    return {false, 0, error == ERROR_TIMEOUT ? ERROR_SUCCESS : error};
}

std::uint32_t WinMessageLink::ProcessId() {
    return GetCurrentProcessId();
}

std::uint32_t WinSharedMemory::AddNameAtom(const std::string& name) {
    return GlobalAddAtomA(name.c_str());
}

void WinSharedMemory::DeleteAtom(std::uint32_t atom) {
    GlobalDeleteAtom(static_cast<ATOM>(atom));
}

SharedMemory::Mapping WinSharedMemory::CreateMapping(const std::string& name, std::size_t size) {
    SetLastError(ERROR_SUCCESS);
    const HANDLE mapping = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                              static_cast<DWORD>(size), name.c_str());
    const DWORD error = GetLastError();
    return {NativeOf(mapping), error == ERROR_ALREADY_EXISTS};
}

void WinSharedMemory::CloseMapping(NativeHandle mapping) {
    CloseHandle(reinterpret_cast<HANDLE>(mapping));
}

std::uint8_t* WinSharedMemory::MapView(NativeHandle mapping) {
    return static_cast<std::uint8_t*>(
        MapViewOfFile(reinterpret_cast<HANDLE>(mapping), FILE_MAP_WRITE, 0, 0, 0));
}

void WinSharedMemory::UnmapView(std::uint8_t* view) {
    UnmapViewOfFile(view);
}

} // namespace quillon
