#pragma once

#include "player/Attempt.h"
#include "player/PlaylistWalk.h"
#include "player/RetrySchedule.h"

#include <memory>
#include <mutex>
#include <string>

namespace quillon {

/// Plays one address until it ends or is given up. A stream that drops or stalls is requested again; the
/// entries of a playlist are tried in order. Run does all the work, on a thread of its own; the other public
/// members may be called on any thread and return at once.
class Session {
  public:
    /// `url` is the address of a stream or the path of a file; local playlists may lead to `servers`; `volume`
    /// 0 to 100. `retries` is kept on the system's clock and says when the address may be requested; it learns
    /// nothing more after Cancel.
    Session(std::string url, std::string user_agent, FileServers servers, int volume,
            std::unique_ptr<PlayerSystem> system, std::shared_ptr<RetrySchedule> retries);

    /// Plays. Returns at the end, when the address is given up, or soon after Cancel.
    void Run();

    /// Ends the session; silences it at once.
    void Cancel();

    /// Silences the session along a ramp; it resumes along one of the same length. A file resumes where it was,
    /// a live stream at its present; one that stays paused for long is disconnected until then.
    void Pause(std::chrono::milliseconds ramp);
    void Resume();
    void SetVolume(int volume);

    /// Transitioning (also between tries), Buffering or Playing, then MediaEnded briefly and Stopped. Ready if
    /// nothing can be played: after giving up, during a cool-down, and while it waits for a sound device. Never
    /// Paused.
    PlayState State() const { return state_; }

    /// The current stream title; empty if there is none.
    std::string Title() const;

    bool HasEnded() const { return has_ended_; }

    /// How the latest try ended; Outcome::Cancelled before that.
    Outcome LatestOutcome() const { return outcome_; }

    /// Whether it plays an unencrypted source that an encrypted playlist has led to.
    bool IsNotEncrypted() const { return is_not_encrypted_; }

    /// Whether it is waiting for the next try.
    bool IsWaiting() const { return is_waiting_; }

    /// How long it will still wait; nothing if it does not, or waits on because it is paused.
    std::optional<std::chrono::milliseconds> TimeToNextTry() const;

  private:
    PlayState PlayUntilDone();
    bool AwaitCoolDown();
    Outcome PlayOnce();
    Outcome Play(const PlaylistWalk::Stop& stop, PlaylistWalk& walk);
    Outcome Unplayable(const PlaylistWalk::Stop& stop);
    Outcome Drive(Attempt& attempt, bool expects_encryption);
    std::unique_ptr<ByteSource> Open(const PlaylistWalk::Stop& stop);
    bool AwaitNextTry(Outcome outcome);
    template <typename Call>
    void UpdateRetries(Call call);
    void WaitUntil(std::chrono::milliseconds time, PlayState shown);
    void ShowTitle(const std::string& title);

    const std::string url_;
    const std::string user_agent_;
    const FileServers servers_;
    const std::unique_ptr<PlayerSystem> system_;
    TransportControls controls_;
    std::atomic<PlayState> state_ = Transitioning;
    std::atomic<Outcome> outcome_ = Outcome::Cancelled;
    std::atomic<bool> has_ended_ = false;
    std::atomic<bool> is_not_encrypted_ = false;
    std::atomic<bool> is_waiting_ = false;
    std::atomic<std::chrono::milliseconds> waits_until_{};
    const std::shared_ptr<RetrySchedule> retries_;
    mutable std::mutex mutex_; // guards title_ and cancelling
    std::string title_;

    // Used on Run's thread only.
    std::chrono::milliseconds played_{0}; // since `url_` itself was requested last
    bool is_online_ = false;              // something on the network was requested
    SilenceReason problem_;               // of the latest address, then of the try
};

} // namespace quillon
