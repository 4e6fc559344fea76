#pragma once

#include "ports/MediaPlayer.h"

#include <memory>
#include <string>

namespace quillon {

class Session;
class SessionThreads;

/// The built-in player: MP3 streams over HTTP, and MP3 and WAV files. Each address is played by a session on a
/// thread of its own; one that has been replaced is silent at once and ends when it can, however long the
/// system keeps it.
class StreamPlayer : public MediaPlayer {
  public:
    /// `program_version` is what servers are told.
    explicit StreamPlayer(std::string program_version);

    /// Silence; then waits for the sessions' threads, but not for one that hangs.
    ~StreamPlayer() override;

    StreamPlayer(const StreamPlayer&) = delete;
    StreamPlayer& operator=(const StreamPlayer&) = delete;

    void SetUrl(const std::string& url) override;
    PlayState State() override;
    void Play() override;
    void Pause() override;
    void Stop() override;
    void SetVolume(int volume) override;

  private:
    void Start();
    void EndSession();

    std::string program_version_;
    std::string url_;
    int volume_ = 100;
    PlayState idle_state_ = Undefined; // while there is no session
    bool paused_ = false;
    std::shared_ptr<Session> session_;
    std::shared_ptr<SessionThreads> threads_;
};

} // namespace quillon
