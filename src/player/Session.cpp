#include "player/Session.h"

#include "player/Address.h"
#include "player/FileSource.h"
#include "player/HttpStream.h"

#include <algorithm>
#include <array>

namespace quillon {

using namespace std::chrono_literals;

namespace {

constexpr auto FirstLead = 120ms;
constexpr auto LongestLead = 2000ms;
constexpr auto KeptWhilePaused = 2s;
constexpr auto LongestSleep = 100ms;
constexpr auto EndedShownFor = 100ms;

/// A device that plays nothing of what it holds for so long is gone, though it may not say so.
constexpr auto LongestSilentDevice = 2s;

} // namespace

Session::Session(std::string url, std::string program_version, int volume, std::unique_ptr<PlayerSystem> system)
    : url_(std::move(url)),
      program_version_(std::move(program_version)),
      system_(std::move(system)),
      volume_(volume),
      reader_(*system_),
      lead_(FirstLead) {}

void Session::Run() {
    PlayState state = Ready;
    try {
        OpenSource();
        while (!cancelled_) {
            state = Step();
            if (state == MediaEnded || state == Ready) break;
            state_ = state;
            system_->Wait(LongestSleep);
        }
    } catch (...) {
        state = Ready; // out of memory, or a path that is none
    }
    output_.reset();
    source_.reset();
    state_ = state;
    if (state != MediaEnded) return;
    const auto until = system_->Now() + EndedShownFor;
    while (!cancelled_ && system_->Now() < until) system_->Wait(EndedShownFor);
    state_ = Stopped;
}

void Session::Cancel() {
    cancelled_ = true;
    system_->Wake();
}

void Session::Pause() {
    paused_ = true;
    system_->Wake();
}

void Session::Resume() {
    paused_ = false;
    system_->Wake();
}

void Session::SetVolume(int volume) {
    volume_ = volume;
}

bool Session::HasEnded() const {
    const PlayState state = state_;
    return state == MediaEnded || state == Stopped || state == Ready;
}

void Session::OpenSource() {
    if (!IsStreamAddress(url_))
        source_ = std::make_unique<FileSource>(url_);
    else if (const auto address = ParseAddress(url_))
        source_ = std::make_unique<HttpStream>(*address, program_version_, *system_);
}

PlayState Session::Step() {
    if (!source_) return Ready;
    ObeyPause();
    if (!ReadAhead()) return Ready;
    if (!held_) return PlayAhead();
    return outcome_ == Ready ? Ready : state_.load();
}

void Session::ObeyPause() {
    const bool paused = paused_;
    if (paused == held_) return;
    held_ = paused;
    if (!output_) return;
    if (source_->IsLive()) {
        output_.reset();
        sounding_ = false;
    } else {
        output_->Hold(held_);
        last_write_ = system_->Now();
    }
}

/// While a live stream is paused all of it is read, so that the server does not keep old sound for us.
bool Session::WantsBytes() const {
    if (cancelled_ || outcome_) return false;
    return queue_.Length() < lead_ || (held_ && paused_ && source_->IsLive());
}

bool Session::ReadAhead() {
    std::array<std::uint8_t, 4096> bytes;
    while (WantsBytes()) {
        const Got got = source_->Read(bytes);
        if (got.supply != Supply::Bytes) return TakeSupply(got.supply);
        waiting_since_.reset();
        if (state_ == Transitioning) state_ = Buffering;
        if (!reader_.Feed(ByteView(bytes).first(got.count), queue_)) return false;
        if (held_ && source_->IsLive()) queue_.KeepLatest(KeptWhilePaused);
    }
    waiting_since_.reset();
    return true;
}

/// What to make of no bytes; false when it is time to give up.
bool Session::TakeSupply(Supply supply) {
    if (supply == Supply::End) outcome_ = has_sounded_ || !queue_.Empty() ? MediaEnded : Ready;
    if (supply == Supply::Failed) outcome_ = Ready;
    if (supply == Supply::NothingYet && state_ == Transitioning) state_ = Buffering;
    return outcome_ || !WaitIsOver();
}

bool Session::WaitIsOver() {
    const auto now = system_->Now();
    if (!waiting_since_) waiting_since_ = now;
    return now - *waiting_since_ >= LongestWait;
}

PlayState Session::PlayAhead() {
    if (!sounding_ && !outcome_ && queue_.Length() < lead_)
        return state_ == Transitioning ? Transitioning : Buffering;
    if (!FillOutput()) return Ready;
    if (output_ && !output_->IsIdle())
        return system_->Now() - last_write_ < LongestSilentDevice ? Playing : Ready;
    return AfterSilence();
}

PlayState Session::AfterSilence() {
    if (outcome_ && queue_.Empty()) return *outcome_;
    if (sounding_)
        lead_ = std::min<std::chrono::milliseconds>(lead_ * 2, LongestLead); // once bitten, twice shy
    sounding_ = false;
    return Buffering;
}

bool Session::FillOutput() {
    while (!queue_.Empty() && !cancelled_ && !paused_) {
        if (!output_ || queue_.NextFormat() != output_format_) {
            if (output_ && !output_->IsIdle()) return true; // plays out the sound of the format before
            if (!OpenOutput()) return false;
            continue; // for that may have taken a while
        }
        if (!output_->HasRoom()) return true;
        Samples block = queue_.Take(SoundOutput::BlockLength);
        Scale(block, volume_);
        if (!output_->Write(block)) return false;
        last_write_ = system_->Now();
        sounding_ = has_sounded_ = true;
    }
    return true;
}

bool Session::OpenOutput() {
    output_.reset();
    output_format_ = queue_.NextFormat();
    output_ = system_->OpenOutput(output_format_);
    return output_ != nullptr;
}

} // namespace quillon
