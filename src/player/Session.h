#pragma once

#include "player/Attempt.h"
#include "player/RetrySchedule.h"

#include <memory>
#include <mutex>
#include <string>

namespace quillon {

class PlaylistWalk;

/// The playing of one address, until its end or until it is given up: a stream that drops or stalls is asked
/// for again, and the entries of a playlist are tried in their order. Run does all the work on a thread of its
/// own; the other public members may be called on any thread and return at once.
class Session {
  public:
    /// `url` is the address of a stream or the path of a file; `volume` 0 to 100. `retries` is kept on the
    /// system's clock and says when the address may be requested; it learns nothing more after Cancel.
    Session(std::string url, std::string user_agent, int volume, std::unique_ptr<PlayerSystem> system,
            std::shared_ptr<RetrySchedule> retries);

    /// Plays; returns when there is no more to play, when the address is given up, or soon after Cancel.
    void Run();

    /// Silence at once, and for good.
    void Cancel();

    /// Silence at once. A file keeps its place; a live stream is listened to meanwhile, to go on at the
    /// present, but is let go after a while.
    void Pause();
    void Resume();
    void SetVolume(int volume);

    /// Transitioning (also while it waits to ask again), Buffering or Playing, then MediaEnded for a moment and
    /// Stopped. Ready when nothing can be played: after giving up, during a cool-down, and while there is
    /// no sound device, which is looked for again. A pause does not show here.
    PlayState State() const { return state_; }

    /// What the server says is to be heard now; empty without.
    std::string Title() const;

    bool HasEnded() const { return has_ended_; }

    /// Whether it waits before it asks again.
    bool IsWaiting() const { return is_waiting_; }

  private:
    PlayState PlayUntilDone();
    bool AwaitCoolDown();
    Ending PlayOnce();
    Ending Play(const std::string& address, PlaylistWalk& walk);
    Ending Drive(Attempt& attempt);
    std::unique_ptr<ByteSource> Open(const std::string& address);
    bool AwaitNextTry(Ending ending);
    template <typename Call>
    void Tell(Call call);
    void WaitUntil(std::chrono::milliseconds moment, PlayState shown);
    void ShowTitle(const std::string& title);

    const std::string url_;
    const std::string user_agent_;
    const std::unique_ptr<PlayerSystem> system_;
    Wishes wishes_;
    std::atomic<PlayState> state_ = Transitioning;
    std::atomic<bool> has_ended_ = false;
    std::atomic<bool> is_waiting_ = false;
    const std::shared_ptr<RetrySchedule> retries_;
    mutable std::mutex mutex_; // of what follows, and of cancelling
    std::string title_;

    // On Run's thread only.
    std::chrono::milliseconds heard_{0}; // since `url_` itself was requested last
    bool is_online_ = false;             // something on the network was requested
};

} // namespace quillon
