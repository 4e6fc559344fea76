#pragma once

#include <string>

namespace quillon {

/// The player's states; the status bar shows them as texts.
enum PlayState : int {
    Undefined = 0,
    Stopped = 1,
    Paused = 2,
    Playing = 3,
    ScanForward = 4,
    ScanReverse = 5,
    Buffering = 6, ///< connected, but not enough sound yet
    Waiting = 7,
    MediaEnded = 8,
    Transitioning = 9, ///< connecting
    Ready = 10,        ///< given up, or no sound device
    Reconnecting = 11,
};

/// Plays one source at a time. No call waits for the network or the sound device, or serves window events.
class MediaPlayer {
  public:
    virtual ~MediaPlayer() = default;

    /// Starts playing a stream's address or a file's path instead of the current source; an empty text only
    /// ends the current source.
    virtual void SetUrl(const std::string& url) = 0;

    virtual PlayState State() = 0;

    /// Resumes after a pause, restarts after a stop or a failure. Does nothing while playing or connecting, or
    /// without an address.
    virtual void Play() = 0;

    /// Silence at once; a file keeps its position, a live stream resumes live.
    virtual void Pause() = 0;

    /// Pauses like a radio that leaves its range, if the player can; Play then comes back likewise.
    virtual void FadeOut() { Pause(); }

    /// Stops at once, keeping the address.
    virtual void Stop() = 0;

    /// Volume of this program's own sound; clamped to 0 to 100.
    virtual void SetVolume(int volume) = 0;
};

} // namespace quillon
