#include "win32/sound/WinPlayerSystem.h"

#include "runtime/RuntimeError.h"
#include "win32/net/SchannelLayer.h"
#include "win32/net/Socket.h"
#include "win32/sound/AacDecoder.h"
#include "win32/sound/AcmDecoder.h"
#include "win32/sound/WaveOut.h"

namespace quillon {

WinPlayerSystem::WinPlayerSystem(std::shared_ptr<ChosenDevice> device)
    : device_(std::move(device)), event_(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {
    if (!event_) Raise(OutOfMemory); // Wait would not wait
}

std::unique_ptr<Connection> WinPlayerSystem::Connect(const StreamAddress& address, Reach reach) {
    std::unique_ptr<Connection> socket = Socket::Open(address.host, address.port, reach, event_.Get());
    if (!socket || !address.secure) return socket;
    return std::make_unique<SecureConnection>(std::move(socket), std::make_unique<SchannelLayer>(address.host));
}

std::unique_ptr<SoundDecoder> WinPlayerSystem::OpenFrameDecoder(const FrameFormat& format) {
    if (format.coding == FrameCoding::Aac) return AacDecoder::Open(format);
    return AcmDecoder::Open(format);
}

std::unique_ptr<SoundDecoder> WinPlayerSystem::OpenWaveDecoder(const WaveFormat& format) {
    return AcmDecoder::Open(format);
}

std::unique_ptr<SoundOutput> WinPlayerSystem::OpenOutput(const PcmFormat& format) {
    return WaveOut::Open(device_->Number(), format, event_.Get());
}

std::chrono::milliseconds WinPlayerSystem::Now() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch());
}

void WinPlayerSystem::Wait(std::chrono::milliseconds at_most) {
    WaitForSingleObject(event_.Get(), static_cast<DWORD>(at_most.count()));
}

void WinPlayerSystem::Wake() {
    SetEvent(event_.Get());
}

} // namespace quillon
