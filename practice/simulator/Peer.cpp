#include "Peer.h"

#include "../InjectedFault.h"
#include "../Offsets.h"
#include "Radios.h"
#include "win32/system/Handle.h"

#include <windows.h>

namespace practice {

namespace {

/// Header of a record: identifier, offset, size and, of a read only, the destination.
struct Header {
    std::uint32_t field[4] = {};
};

constexpr std::uint32_t ReadRequest = 1;
constexpr std::uint32_t WriteRequest = 2;

/// What a fault changes in a reply.
struct Damage {
    std::uint32_t shown_offset = 0; ///< four bytes there read as `shown` instead; 0: none do
    std::uint32_t shown = 0;
    std::size_t field = 0;
    std::uint32_t flipped = 0; ///< bits of that header field
};

Damage DamageOf(std::uint32_t fault) {
    switch (fault) {
    case WrongVersion:
        return {VersionOffset, 0x19980004, 0, 0};
    case OldVersion:
        return {VersionOffset, 0x28300000, 0, 0};
    case NoMark:
        return {SimulatorOffset, 8, 0, 0};
    case UnknownId:
        return {0, 0, 0, 0x76};
    case OtherOffset:
        return {0, 0, 1, 0x10};
    case Overrun:
        return {0, 0, 2, 0x10000};
    case OtherSize:
        return {0, 0, 2, 8};
    case OtherDestination:
        return {0, 0, 3, 0x10};
    default:
        return {};
    }
}

void Falsify(const Damage& damage, std::uint32_t offset, std::span<std::uint8_t> reply) {
    if (damage.shown_offset == 0) return;
    for (std::size_t i = 0; i < reply.size(); ++i) {
        const std::uint64_t byte = std::uint64_t{offset} + i - damage.shown_offset;
        if (byte < sizeof damage.shown) reply[i] = static_cast<std::uint8_t>(damage.shown >> (8 * byte));
    }
}

using Mapping = quillon::Handle<HANDLE, CloseHandle>;

/// A mapping lasts as long as a view of it.
View ViewOf(const char* name) {
    const Mapping mapping(OpenFileMappingA(FILE_MAP_WRITE, FALSE, name));
    return View(mapping ? MapViewOfFile(mapping.Get(), FILE_MAP_WRITE, 0, 0, 0) : nullptr);
}

std::span<std::uint8_t> BytesOf(const View& view) {
    MEMORY_BASIC_INFORMATION information{};
    VirtualQuery(view.Get(), &information, sizeof information);
    return {static_cast<std::uint8_t*>(view.Get()), information.RegionSize};
}

[[noreturn]] void EndAtOnce() {
    TerminateProcess(GetCurrentProcess(), 0);
    std::abort();
}

} // namespace

/// A round that injects another fault is itself still answered with the old one, but a hang ends at once.
std::uint32_t Peer::Answer(std::uintptr_t atom) {
    const auto injected = memory_.Get<InjectedFault>(InjectedFaultOffset);
    if (injected.fault == VanishInFlight) EndAtOnce();
    const bool served = ServeMapping(atom);
    if (served) ++answered_;
    if (injected.fault == Hang) HangFor(injected.argument);
    const std::uint32_t reply = served && injected.fault != ZeroReply ? 1 : 0;
    if (CurrentFault() == Vanish) {
        ReplyMessage(static_cast<LRESULT>(reply));
        EndAtOnce();
    }
    return reply;
}

/// Serves further rounds meanwhile, or nothing could end the hang; their answers are delayed too.
void Peer::HangFor(std::uint32_t time_ms) {
    const ULONGLONG start = GetTickCount64();
    for (ULONGLONG passed = 0; CurrentFault() == Hang && passed < time_ms; passed = GetTickCount64() - start) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(time_ms - passed), QS_SENDMESSAGE);
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}

std::uint32_t Peer::CurrentFault() const {
    return memory_.Get<std::uint32_t>(InjectedFaultOffset);
}

bool Peer::ServeMapping(std::uintptr_t atom) {
    char name[256];
    if (!GlobalGetAtomNameA(static_cast<ATOM>(atom), name, sizeof name)) return false;
    if (CurrentFault() != KeepMapping) kept_.clear();
    View& view = kept_[name];
    if (!view) view = ViewOf(name);
    const bool served = view && Serve(BytesOf(view));
    if (CurrentFault() != KeepMapping) kept_.clear();
    return served;
}

bool Peer::Serve(std::span<std::uint8_t> area) {
    const Damage damage = DamageOf(CurrentFault());
    while (area.size() >= sizeof(std::uint32_t)) {
        Header header;
        std::memcpy(header.field, area.data(), std::min(sizeof header, area.size()));
        const auto [identifier, offset, size, destination] = header.field;
        if (identifier == 0) return true;
        const std::size_t header_size = identifier == ReadRequest ? 16 : 12;
        if (identifier > WriteRequest || area.size() < header_size || area.size() - header_size < size)
            return false;

        const auto data = area.subspan(header_size, size);
        if (identifier == WriteRequest) {
            memory_.Write(offset, data);
            FollowWrite(memory_, offset, size);
        }
        if (identifier == ReadRequest) {
            memory_.Read(offset, data);
            Falsify(damage, offset, data);
        }
        header.field[damage.field] ^= damage.flipped;
        std::memcpy(area.data(), header.field, header_size);
        area = area.subspan(header_size + size);
    }
    return false;
}

} // namespace practice
