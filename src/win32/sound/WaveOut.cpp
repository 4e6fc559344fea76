#include "win32/sound/WaveOut.h"

#include <algorithm>

namespace quillon {

/// The device's own thread clears the flag.
bool WaveOut::Block::IsQueued() const {
    const volatile DWORD& flags = header.dwFlags;
    return (flags & WHDR_INQUEUE) != 0;
}

std::unique_ptr<WaveOut> WaveOut::Open(const PcmFormat& format, HANDLE wake) {
    WAVEFORMATEX wave{};
    wave.wFormatTag = WAVE_FORMAT_PCM;
    wave.nChannels = format.channels;
    wave.nSamplesPerSec = format.sample_rate;
    wave.wBitsPerSample = 16;
    wave.nBlockAlign = static_cast<WORD>(format.channels * 2);
    wave.nAvgBytesPerSec = format.sample_rate * wave.nBlockAlign;
    HWAVEOUT device = nullptr;
    if (waveOutOpen(&device, WAVE_MAPPER, &wave, reinterpret_cast<DWORD_PTR>(wake), 0, CALLBACK_EVENT) !=
        MMSYSERR_NOERROR)
        return nullptr;
    return std::make_unique<WaveOut>(device, format);
}

WaveOut::~WaveOut() {
    waveOutReset(device_.Get());
    for (Block& block : blocks_) Release(block);
}

bool WaveOut::HasRoom() {
    std::size_t queued = 0;
    std::size_t free = blocks_.size();
    for (const Block& block : blocks_) {
        if (!block.IsQueued()) continue;
        queued += block.samples.size();
        --free;
    }
    return free > 0 && queued < longest_queue_;
}

bool WaveOut::IsIdle() {
    return std::none_of(blocks_.begin(), blocks_.end(), [](const Block& block) { return block.IsQueued(); });
}

bool WaveOut::Write(const Samples& samples) {
    const auto block =
        std::find_if(blocks_.begin(), blocks_.end(), [](const Block& b) { return !b.IsQueued(); });
    if (block == blocks_.end()) return false;
    Release(*block);
    block->samples = samples;
    block->header.lpData = reinterpret_cast<LPSTR>(block->samples.data());
    block->header.dwBufferLength = static_cast<DWORD>(block->samples.size() * sizeof(std::int16_t));
    return waveOutPrepareHeader(device_.Get(), &block->header, sizeof block->header) == MMSYSERR_NOERROR &&
           waveOutWrite(device_.Get(), &block->header, sizeof block->header) == MMSYSERR_NOERROR;
}

void WaveOut::Release(Block& block) {
    if ((block.header.dwFlags & WHDR_PREPARED) != 0)
        waveOutUnprepareHeader(device_.Get(), &block.header, sizeof block.header);
    block.header = {};
}

void WaveOut::SetPaused(bool paused) {
    if (paused)
        waveOutPause(device_.Get());
    else
        waveOutRestart(device_.Get());
}

} // namespace quillon
