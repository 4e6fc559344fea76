#pragma once

#include "player/PlayerSystem.h"
#include "player/SmoothSound.h"
#include "ports/LiveFeed.h"

#include <functional>
#include <memory>
#include <string>

namespace quillon {

class RetrySchedule;
class Session;

/// The built-in player: streams and playlists over HTTP, and files. Each address is played by its own session.
/// A session that is replaced falls silent at once and ends in its own time, as system calls may hold it up.
class SessionPlayer : public FeedPlayer {
  public:
    using MakeSystem = std::function<std::unique_ptr<PlayerSystem>()>;
    using RunSession = std::function<void(std::shared_ptr<Session>)>;

    /// How long a feed that leaves its range takes to fall silent.
    static constexpr std::chrono::milliseconds Fade{300};

    /// The user agent is "Quillon/" and `program_version` unless SetUserAgent changes it. `run` starts a
    /// session without waiting for it; it throws std::system_error if it cannot.
    SessionPlayer(const std::string& program_version, MakeSystem make_system, RunSession run);

    /// Cancels the current session.
    ~SessionPlayer() override;

    SessionPlayer(const SessionPlayer&) = delete;
    SessionPlayer& operator=(const SessionPlayer&) = delete;

    /// Setting the same address again does not shorten a wait for it.
    void SetUrl(const std::string& url) override;

    PlayState State() override;
    void Play() override;
    void Pause() override { PauseAlong(SmoothSound::Ramp); }
    void FadeOut() override { PauseAlong(Fade); }
    void Stop() override;
    void SetVolume(int volume) override;

    std::string Title() const override;
    FeedCondition Condition() const override;
    void Reload() override;
    void SetUserAgent(const std::string& user_agent) override;
    void SetFileServers(const FileServers& servers) override { servers_ = servers; }

    /// Whether it has given the current address up because only another player could play what is there.
    bool IsUnsupported() const;

  private:
    void PauseAlong(std::chrono::milliseconds ramp);
    void Start();
    void EndSession();

    std::string user_agent_;
    FileServers servers_;
    MakeSystem make_system_;
    RunSession run_;
    std::string url_;
    int volume_ = 100;
    PlayState idle_state_ = Undefined; // while there is no session
    bool paused_ = false;
    bool wants_pause_ = false; // paused last, though there may have been nothing to pause
    std::shared_ptr<Session> session_;
    const std::shared_ptr<RetrySchedule> retries_;
};

} // namespace quillon
