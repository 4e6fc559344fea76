#include "../InjectedFault.h"
#include "../Offsets.h"
#include "../Units.h"
#include "Commands.h"
#include "radio/Channel.h"
#include "runtime/Number.h"
#include "simlink/FsuipcClient.h"
#include "win32/system/Handle.h"
#include "win32/system/WinMessageLink.h"

#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <future>
#include <thread>

namespace practice {

namespace {

using quillon::FsuipcClient;

class SleepingClock : public quillon::Clock {
  public:
    quillon::TimePoint Now() override {
        return std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
    }
    std::chrono::milliseconds Uptime() override { return std::chrono::milliseconds(GetTickCount64()); }
    void Sleep(std::chrono::milliseconds time) override { ::Sleep(static_cast<DWORD>(time.count())); }
    bool ServeEvents(std::chrono::milliseconds time) override { return Sleep(time), true; }
};

/// One for the whole run: a simulator may hold on to its shared area.
FsuipcClient& Client() {
    static quillon::WinMessageLink messages;
    static quillon::WinSharedMemory memory;
    static SleepingClock clock;
    static FsuipcClient client(messages, memory, clock);
    return client;
}

/// Reopens the link and runs one round of the requests that `queue` adds. Raises Failure.
template <typename Queue>
void OverTheLink(Queue queue) {
    FsuipcClient& client = Client();
    std::uint32_t result = 0;
    if (client.FsuipcReopen(result) && queue(client, result) && client.FsuipcProcess(result)) return;
    throw Failure(result == 0 ? "0 The reply is damaged"
                              : std::to_string(result) + " " + quillon::ResultTexts.at(result));
}

template <typename Value>
void WriteValue(std::uint32_t offset, const Value& value) {
    OverTheLink([&](FsuipcClient& client, std::uint32_t& result) {
        return client.FsuipcWrite(offset, sizeof value, &value, result);
    });
}

std::uint32_t HexArgument(const std::string& text) {
    return NumberArgument("0x" + text);
}

double DegreesArgument(const std::string& text, double limit) {
    const auto degrees = DecimalOf(text);
    if (!degrees || std::abs(*degrees) > limit) throw Failure(text + " is not an angle within range");
    return *degrees;
}

std::string Tune(const Words& words) {
    const auto* radio =
        std::find_if(Radios.begin(), Radios.end(), [&](const Radio& known) { return words[0] == known.name; });
    if (radio == Radios.end()) throw Failure(words[0] + " is not a radio");
    const auto word = RadioWord(words[1]);
    if (!word) throw Failure(words[1] + " is not a frequency");
    const auto channel = quillon::Channel::Named(words[1]);
    const std::int32_t hertz = channel ? channel->Hertz() : 0;
    OverTheLink([&](FsuipcClient& client, std::uint32_t& result) {
        return client.FsuipcWrite(radio->word, sizeof *word, &*word, result) &&
               (!channel || client.FsuipcWrite(radio->hertz, sizeof hertz, &hertz, result));
    });
    return "ok";
}

std::string Fly(const Words& words) {
    const Angle latitude = AngleOf(DegreesArgument(words[0], 90), LatitudeUnits);
    const Angle longitude = AngleOf(DegreesArgument(words[1], 180), LongitudeUnits);
    OverTheLink([&](FsuipcClient& client, std::uint32_t& result) {
        return client.FsuipcWrite(LatitudeOffset, sizeof latitude, &latitude, result) &&
               client.FsuipcWrite(LongitudeOffset, sizeof longitude, &longitude, result);
    });
    return "ok";
}

std::string PauseSimulator(const Words& words) {
    WriteValue(PauseOffset, static_cast<std::uint16_t>(NumberArgument(words[0])));
    return "ok";
}

constexpr unsigned LargestValue = 4096;

std::vector<std::uint8_t> BytesArgument(const std::string& size) {
    const unsigned bytes = NumberArgument(size);
    if (bytes == 0 || bytes > LargestValue) throw Failure(size + " is not a valid size");
    return std::vector<std::uint8_t>(bytes);
}

std::string Read(const Words& words) {
    std::vector<std::uint8_t> bytes = BytesArgument(words[1]);
    const std::uint32_t offset = HexArgument(words[0]);
    OverTheLink([&](FsuipcClient& client, std::uint32_t& result) {
        return client.FsuipcRead(offset, static_cast<std::uint32_t>(bytes.size()), bytes.data(), result);
    });
    std::string digits;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte)
        digits += quillon::Hex(0x100U + *byte).substr(1);
    return digits;
}

/// Too many digits for the size are an error; missing leading digits are zeros.
std::string Write(const Words& words) {
    std::vector<std::uint8_t> bytes = BytesArgument(words[1]);
    const std::uint32_t offset = HexArgument(words[0]);
    std::string digits = words[2];
    if (digits.size() > 2 * bytes.size()) throw Failure(digits + " does not fit");
    digits.insert(0, 2 * bytes.size() - digits.size(), '0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[bytes.size() - 1 - i] = static_cast<std::uint8_t>(HexArgument(digits.substr(2 * i, 2)));
    OverTheLink([&](FsuipcClient& client, std::uint32_t& result) {
        return client.FsuipcWrite(offset, static_cast<std::uint32_t>(bytes.size()), bytes.data(), result);
    });
    return "ok";
}

/// Sends one round without the link's checks, which may reject a faulty simulator, and ignores the reply.
void WriteUnchecked(std::uint32_t offset, const InjectedFault& injected) {
    constexpr UINT PatienceMs = 10000;
    quillon::WinMessageLink messages;
    quillon::WinSharedMemory memory;
    quillon::NativeHandle window = messages.FindPeerWindow("UIPCMAIN");
    if (window == 0) window = messages.FindPeerWindow("FS98MAIN");
    if (window == 0) throw Failure("no simulator");

    const std::string name = "practice:" + std::to_string(messages.ProcessId());
    const quillon::Handle<HANDLE, CloseHandle> mapping(
        reinterpret_cast<HANDLE>(memory.CreateMapping(name, quillon::RequestArea::Length).Handle));
    const quillon::Handle<void*, UnmapViewOfFile> view(MapViewOfFile(mapping.Get(), FILE_MAP_WRITE, 0, 0, 0));
    const quillon::Handle<ATOM, GlobalDeleteAtom> atom(GlobalAddAtomA(name.c_str()));
    if (!view || !atom) throw Failure("no shared memory");
    quillon::RequestArea area;
    area.Attach(static_cast<std::uint8_t*>(view.Get()));
    area.QueueWrite(offset, sizeof injected, &injected);
    area.Seal();
    if (!messages.Send(window, messages.RegisterMessage("FSASMLIB:IPC"), atom.Get(), PatienceMs).Delivered)
        throw Failure("the simulator does not answer");
}

std::string InjectFault(const Words& words) {
    const auto injected = ParseFault(words[0]);
    if (!injected) throw Failure(words[0] + " is not a fault");
    WriteUnchecked(InjectedFaultOffset, *injected);
    return "ok";
}

/// Calls back whoever asks it; 1 if that call was served meanwhile, else 2.
LRESULT CALLBACK CallBack(HWND window, UINT message, WPARAM asker, LPARAM lparam) {
    constexpr UINT PatienceMs = 300;
    if (message != WM_APP) return DefWindowProcW(window, message, asker, lparam);
    DWORD_PTR ignored = 0;
    return SendMessageTimeoutW(reinterpret_cast<HWND>(asker), WM_NULL, 0, 0, SMTO_NORMAL, PatienceMs, &ignored)
               ? 1
               : 2;
}

/// Returns null on failure.
HWND MessageWindow(WNDPROC procedure) {
    const HWND window =
        CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    if (window && procedure) SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    return window;
}

/// What becomes of a call to a window whose thread waits for the link's answer: "served" or "blocked".
std::string CallWhileWaiting(const Words&) {
    const HWND asker = MessageWindow(nullptr);
    if (!asker) throw Failure("no window");
    std::promise<HWND> made;
    std::thread peer([&made] {
        const HWND window = MessageWindow(CallBack);
        made.set_value(window);
        for (MSG message; window && GetMessageW(&message, nullptr, 0, 0) > 0;) DispatchMessageW(&message);
        DestroyWindow(window);
    });
    const HWND asked = made.get_future().get();
    const auto sent =
        quillon::WinMessageLink().Send(reinterpret_cast<quillon::NativeHandle>(asked), WM_APP,
                                       static_cast<std::uint32_t>(reinterpret_cast<ULONG_PTR>(asker)), 2000);
    DestroyWindow(asker);
    PostMessageW(asked, WM_QUIT, 0, 0);
    peer.join();
    return !sent.Delivered ? "no answer" : sent.Reply == 1 ? "served" : "blocked";
}

} // namespace

const std::vector<Command> LinkCommands = {
    {"tune", 2, 2, Tune},
    {"fly", 2, 2, Fly},
    {"pause", 1, 1, PauseSimulator},
    {"read", 2, 2, Read},
    {"write", 3, 3, Write},
    {"fault", 1, 1, InjectFault},
    {"call-while-waiting", 0, 0, CallWhileWaiting},
};

} // namespace practice
