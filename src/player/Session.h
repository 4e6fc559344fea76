#pragma once

#include "player/Attempt.h"
#include "player/RetryPolicy.h"

#include <mutex>

namespace quillon {

/// The playing of one address, until its end or until it is given up: a stream that drops or stalls is asked
/// for again, and the entries of a playlist are tried in their order. Run does all the work on a thread of its
/// own; the other public members may be called on any thread and return at once.
class Session {
  public:
    /// A playlist may list playlists, so many deep with itself.
    static constexpr int DeepestPlaylist = 3;

    /// An address that was given up may be asked again after so long.
    static constexpr std::chrono::seconds Grudge{60};

    /// `url` is the address of a stream or the path of a file; `volume` 0 to 100. Nothing is asked for before
    /// `not_before`, a moment of the system's clock.
    Session(std::string url, std::string user_agent, int volume, std::unique_ptr<PlayerSystem> system,
            std::chrono::milliseconds not_before = {});

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
    /// Stopped. Ready when nothing can be played: after giving up, before `not_before`, and while there is no
    /// sound device, which is looked for again. A pause does not show here.
    PlayState State() const { return state_; }

    /// What the server says is to be heard now; empty without.
    std::string Title() const;

    bool HasEnded() const { return has_ended_; }

    /// Whether it waits before it asks again.
    bool IsWaiting() const { return is_waiting_; }

    /// Before that moment the address must not be asked again, by whomever; 0 when it may be at any time.
    std::chrono::milliseconds NotBefore() const { return not_before_; }

  private:
    PlayState PlayUntilDone();
    Ending PlayAddress(const std::string& address, int depth);
    Ending PlayEntries(const std::string& playlist, const std::string& from, int depth);
    Ending Drive(Attempt& attempt);
    std::unique_ptr<ByteSource> Open(const std::string& address);
    bool AwaitNextTry(Ending ending);
    void WaitUntil(std::chrono::milliseconds moment, PlayState shown);
    void ShowTitle(const std::string& title);

    const std::string url_;
    const std::string user_agent_;
    const std::unique_ptr<PlayerSystem> system_;
    Wishes wishes_;
    std::atomic<PlayState> state_ = Transitioning;
    std::atomic<bool> has_ended_ = false;
    std::atomic<bool> is_waiting_ = false;
    std::atomic<std::chrono::milliseconds> not_before_;
    mutable std::mutex title_mutex_;
    std::string title_;

    // On Run's thread only.
    RetryPolicy policy_;
    std::chrono::milliseconds heard_{0}; // since the address itself was asked last
    int tries_left_ = 0;                 // of a playlist's entries
    bool is_online_ = false;             // something on the network was asked
};

} // namespace quillon
