#include "win32/StreamPlayer.h"

#include "player/Session.h"
#include "win32/SessionThreads.h"
#include "win32/WinPlayerSystem.h"

#include <algorithm>
#include <system_error>

namespace quillon {

StreamPlayer::StreamPlayer(std::string program_version)
    : program_version_(std::move(program_version)), threads_(std::make_shared<SessionThreads>()) {}

StreamPlayer::~StreamPlayer() {
    EndSession();
    threads_->Close();
}

void StreamPlayer::SetUrl(const std::string& url) {
    url_ = url;
    EndSession();
    idle_state_ = Stopped;
    if (!url_.empty()) Start();
}

void StreamPlayer::Start() {
    EndSession();
    auto session =
        std::make_shared<Session>(url_, program_version_, volume_, std::make_unique<WinPlayerSystem>());
    try {
        threads_->Run(session);
        session_ = std::move(session);
    } catch (const std::system_error&) {
        idle_state_ = Ready; // the system gives no more threads
    }
}

void StreamPlayer::EndSession() {
    if (session_) session_->Cancel();
    session_.reset();
    paused_ = false;
}

PlayState StreamPlayer::State() {
    if (paused_) return Paused;
    return session_ ? session_->State() : idle_state_;
}

void StreamPlayer::Play() {
    if (url_.empty()) return;
    if (!session_ || session_->HasEnded()) {
        Start();
    } else if (paused_) {
        paused_ = false;
        session_->Resume();
    }
}

void StreamPlayer::Pause() {
    if (!session_ || session_->HasEnded()) return;
    paused_ = true;
    session_->Pause();
}

void StreamPlayer::Stop() {
    EndSession();
    idle_state_ = Stopped;
}

void StreamPlayer::SetVolume(int volume) {
    volume_ = std::clamp(volume, 0, 100);
    if (session_) session_->SetVolume(volume_);
}

} // namespace quillon
