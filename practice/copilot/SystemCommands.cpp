#include "Commands.h"
#include "Windows.h"
#include "win32/system/Handle.h"
#include "win32/system/Utf16.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <mutex>
#include <thread>
#include <utility>
#include <winternl.h>

namespace practice {

namespace {

/// Keeps other programs from opening a file; without a path, releases all files.
std::string Lock(const Words& words) {
    static std::vector<quillon::Handle<HANDLE, CloseHandle>> locked;
    if (words.empty()) return locked.clear(), "ok";
    HANDLE file = CreateFileW(quillon::Wide(Rest(words, 0)).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) throw Failure("cannot lock " + Rest(words, 0));
    locked.emplace_back(file);
    return "ok";
}

BOOL CALLBACK CountWindows(HWND window, LPARAM counted) {
    auto& [process, count] = *reinterpret_cast<std::pair<DWORD, std::size_t>*>(counted);
    if (ProcessOf(window) == process) count += 1 + Descendants(window).size();
    return TRUE;
}

std::size_t WindowCount(DWORD process) {
    std::pair<DWORD, std::size_t> counted{process, 0};
    EnumWindows(CountWindows, reinterpret_cast<LPARAM>(&counted));
    return counted.second;
}

/// The system's list of handles, which the toolchain does not declare.
struct HandleList {
    ULONG count;
    struct {
        ULONG process;
        BYTE type, flags;
        USHORT value;
        void* object;
        ULONG access;
    } entry[1];
};

std::size_t HandleCount(DWORD process) {
    constexpr auto AllHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    std::vector<std::uint64_t> room(1U << 16U);
    ULONG needed = 0;
    while (NtQuerySystemInformation(AllHandles, room.data(), static_cast<ULONG>(room.size() * sizeof room[0]),
                                    &needed) != 0) {
        if (room.size() > 1U << 24U) throw Failure("cannot list the handles");
        room.resize(room.size() * 2);
    }
    const auto* list = reinterpret_cast<const HandleList*>(room.data());
    return static_cast<std::size_t>(std::count_if(list->entry, list->entry + list->count,
                                                  [&](const auto& entry) { return entry.process == process; }));
}

/// An entry of a process' table of GDI objects.
struct DrawingObject {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type, flags;
    std::uint64_t user;
};

std::size_t DrawingObjectCount(HANDLE process) {
    constexpr std::size_t TableInBlock = 0xF8; // GdiSharedHandleTable of a 64-bit process' environment block
    constexpr std::size_t Most = 0x4000;
    PROCESS_BASIC_INFORMATION basic{};
    NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, nullptr);
    const char* table = nullptr;
    std::vector<DrawingObject> objects(Most);
    if (!ReadProcessMemory(process, reinterpret_cast<const char*>(basic.PebBaseAddress) + TableInBlock, &table,
                           sizeof table, nullptr) ||
        !ReadProcessMemory(process, table, objects.data(), Most * sizeof objects[0], nullptr))
        throw Failure("cannot read the table of drawing objects");
    return static_cast<std::size_t>(
        std::count_if(objects.begin(), objects.end(), [](const DrawingObject& one) { return one.type != 0; }));
}

std::string Objects(const Words&) {
    const DWORD id = ProcessOf(TheMainWindow());
    const quillon::Handle<HANDLE, CloseHandle> process(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id));
    return std::to_string(HandleCount(id)) + " " + std::to_string(WindowCount(id)) + " " +
           std::to_string(DrawingObjectCount(process.Get()));
}

std::mutex said_mutex;
std::string said;

void CALLBACK NoteAnnouncement(HWINEVENTHOOK, DWORD, HWND window, LONG, LONG, DWORD, DWORD) {
    const std::lock_guard lock(said_mutex);
    said += (said.empty() ? "" : " | ") + TextOf(window);
}

/// As a screen reader does; the system calls back while its thread waits for messages.
void Listen(DWORD process) {
    SetWinEventHook(EVENT_OBJECT_LIVEREGIONCHANGED, EVENT_OBJECT_LIVEREGIONCHANGED, nullptr, NoteAnnouncement,
                    process, 0, WINEVENT_OUTOFCONTEXT);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
}

/// What Quillon has announced since the previous call; the first call only starts to listen.
std::string Said(const Words&) {
    static std::thread listener(Listen, ProcessOf(TheMainWindow()));
    if (listener.joinable()) listener.detach();
    const std::lock_guard lock(said_mutex);
    return std::exchange(said, "");
}

} // namespace

const std::vector<Command> SystemCommands = {
    {"lock", 0, 99, Lock}, {"objects", 0, 0, Objects}, {"said", 0, 0, Said}};

} // namespace practice
