#include "player/TwoPlayers.h"

#include <utility>

namespace quillon {

TwoPlayers::TwoPlayers(SessionPlayer& built_in, MakeControl make_control)
    : built_in_(built_in), make_control_(std::move(make_control)), active_(&built_in) {}

FeedPlayer* TwoPlayers::Control() {
    if (const MakeControl make = std::exchange(make_control_, nullptr)) {
        control_ = make();
        if (control_) control_->SetVolume(volume_);
    }
    return control_.get();
}

FeedPlayer& TwoPlayers::PlayerFor(const std::string& url) {
    const bool wants_control =
        forced_ == ForcedPlayer::None ? unsupported_.contains(url) : forced_ == ForcedPlayer::Control;
    FeedPlayer* const control = wants_control ? Control() : nullptr;
    return control != nullptr ? *control : built_in_;
}

void TwoPlayers::Learn() {
    if (active_ == &built_in_ && built_in_.IsUnsupported()) unsupported_[url_] = built_in_.Condition().Silence;
}

/// Starts the current address on its own player, if that is not the active one.
void TwoPlayers::HandOver() {
    Learn();
    if (!url_.empty() && &PlayerFor(url_) != active_) SetUrl(url_);
}

void TwoPlayers::SetUrl(const std::string& url) {
    Learn();
    url_ = url;
    FeedPlayer& next = url_.empty() ? *active_ : PlayerFor(url_);
    if (&next != active_) active_->SetUrl("");
    active_ = &next;
    active_->SetUrl(url_);
}

/// While paused, the other player waits for Play, too.
PlayState TwoPlayers::State() {
    const PlayState state = active_->State();
    if (state == Paused || !built_in_.IsUnsupported()) return state;
    HandOver();
    return active_->State();
}

void TwoPlayers::Play() {
    HandOver();
    active_->Play();
}

void TwoPlayers::Pause() {
    if (State() != Paused) active_->Pause();
}

void TwoPlayers::FadeOut() {
    if (State() != Paused) active_->FadeOut();
}

void TwoPlayers::Stop() {
    Learn();
    active_->Stop();
}

void TwoPlayers::SetVolume(int volume) {
    volume_ = volume;
    built_in_.SetVolume(volume);
    if (control_) control_->SetVolume(volume);
}

/// The control does not say why it plays nothing.
FeedCondition TwoPlayers::Condition() const {
    if (active_ == &built_in_) return built_in_.Condition();
    if (url_.empty() || active_->State() != Ready) return {};
    const auto found = unsupported_.find(url_);
    return {
        found == unsupported_.end() ? SilenceReason{SilenceCause::NotPlayable, ""} : found->second, {}, false};
}

void TwoPlayers::Reload() {
    State(); // may hand over
    active_->Reload();
}

} // namespace quillon
