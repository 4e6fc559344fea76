#include "player/SessionPlayer.h"

#include "player/Session.h"

#include <algorithm>
#include <system_error>

namespace quillon {

SessionPlayer::SessionPlayer(const std::string& program_version, MakeSystem make_system, RunSession run)
    : user_agent_("Quillon/" + program_version),
      make_system_(std::move(make_system)),
      run_(std::move(run)),
      retries_(std::make_shared<RetrySchedule>()) {}

SessionPlayer::~SessionPlayer() {
    EndSession();
}

void SessionPlayer::SetUrl(const std::string& url) {
    if (url == url_ && session_ && session_->IsWaiting()) return Play();
    EndSession();
    wants_pause_ = false;
    url_ = url;
    idle_state_ = Stopped;
    if (!url_.empty()) Start();
}

void SessionPlayer::Reload() {
    if (url_.empty()) return;
    const bool is_stopped = !session_ && idle_state_ == Stopped;
    EndSession();
    retries_->Forgive(url_);
    if (is_stopped) return;
    Start();
    if (wants_pause_) Pause();
}

void SessionPlayer::SetUserAgent(const std::string& user_agent) {
    if (IsUserAgent(user_agent)) user_agent_ = user_agent;
}

void SessionPlayer::Start() {
    EndSession();
    auto session = std::make_shared<Session>(url_, user_agent_, servers_, volume_, make_system_(), retries_);
    try {
        run_(session);
        session_ = std::move(session);
    } catch (const std::system_error&) {
        idle_state_ = Ready; // no thread to run it on
    }
}

void SessionPlayer::EndSession() {
    paused_ = false;
    if (!session_) return;
    session_->Cancel();
    session_.reset();
}

PlayState SessionPlayer::State() {
    if (paused_) return Paused;
    return session_ ? session_->State() : idle_state_;
}

void SessionPlayer::Play() {
    wants_pause_ = false;
    if (url_.empty()) return;
    if (!session_ || session_->HasEnded()) {
        Start();
    } else if (paused_) {
        paused_ = false;
        session_->Resume();
    }
}

void SessionPlayer::PauseAlong(std::chrono::milliseconds ramp) {
    wants_pause_ = true;
    if (paused_ || !session_ || session_->HasEnded()) return;
    paused_ = true;
    session_->Pause(ramp);
}

void SessionPlayer::Stop() {
    EndSession();
    idle_state_ = Stopped;
}

void SessionPlayer::SetVolume(int volume) {
    volume_ = std::clamp(volume, 0, 100);
    if (session_) session_->SetVolume(volume_);
}

bool SessionPlayer::IsUnsupported() const {
    return session_ && session_->LatestOutcome() == Outcome::Unsupported;
}

FeedCondition SessionPlayer::Condition() const {
    if (!session_) return {{idle_state_ == Ready ? SilenceCause::NoRoom : SilenceCause::None, ""}, {}, false};
    FeedCondition condition{retries_->Problem(url_), {}, session_->IsNotEncrypted()};
    if (const auto time = session_->TimeToNextTry())
        condition.NextTry = std::max(std::chrono::ceil<std::chrono::seconds>(*time), std::chrono::seconds(1));
    return condition;
}

std::string SessionPlayer::Title() const {
    return session_ ? session_->Title() : std::string();
}

} // namespace quillon
