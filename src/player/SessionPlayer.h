#pragma once

#include "player/PlayerSystem.h"
#include "ports/MediaPlayer.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace quillon {

class Session;

/// The built-in player: streams and playlists over HTTP, and files. Each address is played by a session of its
/// own; one that has been replaced is silent at once and ends when it can, however long the system keeps it.
class SessionPlayer : public MediaPlayer {
  public:
    using MakeSystem = std::function<std::unique_ptr<PlayerSystem>()>;
    using RunSession = std::function<void(std::shared_ptr<Session>)>;

    /// `program_version` is what servers are told. `run` runs a session at once without waiting for it; it
    /// raises std::system_error when it cannot.
    SessionPlayer(std::string program_version, MakeSystem make_system, RunSession run);

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

    /// Connects anew at once, even to an address that was given up; does nothing with an empty address.
    void Reload();

    /// What the server says is to be heard now; empty without.
    std::string Title() const;

  private:
    void Start();
    void EndSession();

    std::string program_version_;
    MakeSystem make_system_;
    RunSession run_;
    std::string url_;
    int volume_ = 100;
    PlayState idle_state_ = Undefined; // while there is no session
    bool paused_ = false;
    std::shared_ptr<Session> session_;
    std::map<std::string, std::chrono::milliseconds> not_before_; // of addresses that were given up
};

} // namespace quillon
