#pragma once

#include "player/PlayerSystem.h"
#include "ports/LiveFeed.h"
#include "ports/MediaPlayer.h"

#include <functional>
#include <memory>
#include <string>

namespace quillon {

class RetrySchedule;
class Session;

/// The built-in player: streams and playlists over HTTP, and files. Each address is played by a session of its
/// own; one that has been replaced is silent at once and ends when it can, however long the system keeps it.
class SessionPlayer : public MediaPlayer, public LiveFeed {
  public:
    using MakeSystem = std::function<std::unique_ptr<PlayerSystem>()>;
    using RunSession = std::function<void(std::shared_ptr<Session>)>;

    /// Servers are told "Quillon/" and `program_version` unless SetUserAgent says otherwise. `run` runs a
    /// session at once without waiting for it; it raises std::system_error when it cannot.
    SessionPlayer(const std::string& program_version, MakeSystem make_system, RunSession run);

    /// Cancels what plays.
    ~SessionPlayer() override;

    SessionPlayer(const SessionPlayer&) = delete;
    SessionPlayer& operator=(const SessionPlayer&) = delete;

    /// The same address again leaves a wait for it as it is.
    void SetUrl(const std::string& url) override;

    PlayState State() override;
    void Play() override;
    void Pause() override;
    void Stop() override;
    void SetVolume(int volume) override;

    std::string Title() const override;
    void Reload() override;
    void SetUserAgent(const std::string& user_agent) override;

  private:
    void Start();
    void EndSession();

    std::string user_agent_;
    MakeSystem make_system_;
    RunSession run_;
    std::string url_;
    int volume_ = 100;
    PlayState idle_state_ = Undefined; // while there is no session
    bool paused_ = false;
    bool held_ = false; // pause was the last word, though there may have been nothing to pause
    std::shared_ptr<Session> session_;
    const std::shared_ptr<RetrySchedule> retries_;
};

} // namespace quillon
