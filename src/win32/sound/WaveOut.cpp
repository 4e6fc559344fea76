#include "win32/sound/WaveOut.h"

#include <algorithm>

namespace quillon {

using namespace std::chrono_literals;

namespace {

constexpr auto LongestQueue = 400ms; // outlasts a fade, and bridges delays
constexpr auto Piece = 10ms;

/// A device that begins with less runs dry at once.
constexpr auto FirstBlock = 70ms;

/// Silence in front of the sound, of which a device that has been at rest swallows some.
constexpr auto LeadIn = 10ms;

/// Silence behind the sound. A sound server may keep the last of what it gets to itself.
constexpr auto Tail = 100ms;

constexpr auto LongestClose = 600ms; // a fade and the tail
constexpr auto CheckInterval = 1s;
constexpr auto LongestReturn = 200ms; // of blocks, by a device that was reset

std::chrono::microseconds Now() {
    using namespace std::chrono;
    return duration_cast<microseconds>(steady_clock::now().time_since_epoch());
}

} // namespace

/// The device's own thread clears the flag.
bool WaveOut::Block::IsQueued() const {
    const volatile DWORD& flags = header.dwFlags;
    return (flags & WHDR_INQUEUE) != 0;
}

std::unique_ptr<WaveOut> WaveOut::Open(UINT number, const PcmFormat& format, HANDLE wake) {
    WAVEFORMATEX wave{};
    wave.wFormatTag = WAVE_FORMAT_PCM;
    wave.nChannels = format.channels;
    wave.nSamplesPerSec = format.sample_rate;
    wave.wBitsPerSample = 16;
    wave.nBlockAlign = static_cast<WORD>(format.channels * 2);
    wave.nAvgBytesPerSec = format.sample_rate * wave.nBlockAlign;
    HANDLE due = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    HWAVEOUT device = nullptr;
    if (wave::Open(&device, number, &wave, reinterpret_cast<DWORD_PTR>(due), 0, CALLBACK_EVENT) ==
        MMSYSERR_NOERROR)
        return std::make_unique<WaveOut>(device, due, format, wake);
    CloseHandle(due);
    return nullptr;
}

WaveOut::WaveOut(HWAVEOUT device, HANDLE due, const PcmFormat& format, HANDLE wake)
    : format_(format), wake_(wake), due_(due), device_(device), sound_(format), thread_([this] { Feed(); }) {}

WaveOut::~WaveOut() {
    {
        const std::lock_guard lock(mutex_);
        closing_ = true;
        close_by_ = Now() + LongestClose;
        if (!sound_.IsPaused()) sound_.SetPaused(true);
    }
    SetEvent(due_.Get());
    thread_.join();
    wave::Reset(device_.Get());
    if (GetsBlocksBack()) {
        for (Block& block : *blocks_) Release(block);
        return;
    }
    // It may still play them, so they stay, with the event that it sets.
    static_cast<void>(blocks_.release());
    device_.Release();
    due_.Release();
}

/// Resetting a device gives them back, but a faulty one may take its time, or for ever.
bool WaveOut::GetsBlocksBack() const {
    const auto deadline = Now() + LongestReturn;
    while (QueuedBlocks() > 0 && Now() < deadline) Sleep(1);
    return QueuedBlocks() == 0;
}

bool WaveOut::HasRoom() {
    const std::lock_guard lock(mutex_);
    is_full_ = sound_.Length() >= LongestQueue;
    return !is_full_;
}

bool WaveOut::IsIdle() {
    const std::lock_guard lock(mutex_);
    return sound_.Length() == 0us && Now() >= sound_until_;
}

bool WaveOut::Write(const Samples& samples) {
    const std::lock_guard lock(mutex_);
    const bool was_silent = sound_.IsSilent();
    sound_.Push(samples);
    if (was_silent) SetEvent(due_.Get());
    return !has_failed_;
}

void WaveOut::SetVolume(int volume) {
    const std::lock_guard lock(mutex_);
    sound_.SetVolume(volume);
}

void WaveOut::SetPaused(bool paused, std::chrono::milliseconds ramp) {
    const std::lock_guard lock(mutex_);
    sound_.SetPaused(paused, ramp);
    SetEvent(due_.Get());
}

void WaveOut::Feed() {
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_TIME_CRITICAL);
    std::unique_lock lock(mutex_);
    for (Time now = Now(); !IsOver(now); now = Now()) {
        GiveWhatIsDue(now);
        const auto pause = std::chrono::ceil<std::chrono::milliseconds>(NextLook(now));
        lock.unlock();
        WaitForSingleObject(due_.Get(), static_cast<DWORD>(pause.count()));
        lock.lock();
    }
}

/// A device that hangs or has failed is not waited for.
bool WaveOut::IsOver(Time now) const {
    if (!closing_) return false;
    return has_failed_ || now >= close_by_ ||
           (sound_.IsSilent() && now >= std::min(given_until_, sound_until_ + Tail));
}

/// How long the device can do without more.
WaveOut::Time WaveOut::NextLook(Time now) const {
    const bool rests = sound_.IsSilent() && now >= sound_until_ + Tail;
    if (rests && !closing_) return 1s;
    return std::clamp<Time>(given_until_ - now - headroom_.Length(), 1ms, Piece);
}

void WaveOut::GiveWhatIsDue(Time now) {
    const bool runs_dry = now >= given_until_;
    if (sound_.IsSilent() && (runs_dry || given_until_ >= sound_until_ + Tail)) return;
    const bool has_none = QueuedBlocks() == 0 && given_until_ == sound_until_; // whatever the clock says
    if (runs_dry)
        Begin(now);
    else if (has_none)
        headroom_.RanDry(now);
    else if (given_until_ == sound_until_)
        headroom_.FoundLeft(given_until_ - now, now);
    headroom_.PlaysOn(now);
    while (!has_failed_ && given_until_ - now < headroom_.Length()) {
        if (QueuedBlocks() > headroom_.Length() / Piece + 1)
            given_until_ = now + headroom_.Length(); // its clock is the slower one
        else
            Give(Piece, 0ms);
    }
    CheckPosition(now);
    if (!is_full_ || sound_.Length() > LongestQueue - SoundOutput::BlockLength) return;
    is_full_ = false;
    SetEvent(wake_);
}

/// If it was in the midst of sound, this thread came late and may do so again.
void WaveOut::Begin(Time now) {
    const bool is_late = given_until_ > 0us && given_until_ == sound_until_;
    if (is_late)
        headroom_.RanDry(now);
    else
        StartCheck(now);
    given_until_ = now;
    Give(FirstBlock, is_late ? 0ms : LeadIn);
}

/// Counts a little less than the block lasts, because the device's clock may be the faster one. Its
/// length comes from its samples: 10 ms are not a whole number of them at every rate.
void WaveOut::Give(Time length, Time lead_in) {
    const auto block =
        std::find_if(blocks_->begin(), blocks_->end(), [](const Block& b) { return !b.IsQueued(); });
    const std::size_t samples = SamplesIn(length);
    length = Duration(format_, samples);
    given_until_ += length - length / 10'000;
    if (block == blocks_->end()) return;
    given_ += length;
    Release(*block);
    block->samples.assign(samples, 0);
    if (!sound_.IsSilent()) sound_until_ = given_until_;
    sound_.Take(std::span(block->samples).subspan(SamplesIn(lead_in)));
    block->header.lpData = reinterpret_cast<LPSTR>(block->samples.data());
    block->header.dwBufferLength = static_cast<DWORD>(block->samples.size() * sizeof(std::int16_t));
    has_failed_ =
        wave::PrepareHeader(device_.Get(), &block->header, sizeof block->header) != MMSYSERR_NOERROR ||
        wave::Write(device_.Get(), &block->header, sizeof block->header) != MMSYSERR_NOERROR;
}

/// A device that is gone may return blocks at once, unplayed, or keep them.
void WaveOut::CheckPosition(Time now) {
    if (now - checked_ < CheckInterval) return;
    const auto played = Duration(format_, (PlayedBytes() - checked_bytes_) / sizeof(std::int16_t));
    has_failed_ = has_failed_ || played < given_ / 4;
    StartCheck(now);
}

void WaveOut::StartCheck(Time now) {
    checked_ = now;
    checked_bytes_ = PlayedBytes();
    given_ = 0us;
}

std::size_t WaveOut::SamplesIn(Time length) const {
    const auto frames = static_cast<std::uint64_t>(length.count()) * format_.sample_rate / 1'000'000;
    return static_cast<std::size_t>(frames * format_.channels);
}

DWORD WaveOut::PlayedBytes() const {
    MMTIME time{};
    time.wType = TIME_BYTES;
    wave::GetPosition(device_.Get(), &time, sizeof time);
    return time.u.cb;
}

long WaveOut::QueuedBlocks() const {
    return static_cast<long>(
        std::count_if(blocks_->begin(), blocks_->end(), [](const Block& block) { return block.IsQueued(); }));
}

void WaveOut::Release(Block& block) {
    if (block.IsQueued()) return;
    if ((block.header.dwFlags & WHDR_PREPARED) != 0)
        wave::UnprepareHeader(device_.Get(), &block.header, sizeof block.header);
    block.header = {};
}

} // namespace quillon
