#pragma once

#include "playback/Mute.h"
#include "ports/LiveFeed.h"
#include "state/PlaybackState.h"

namespace quillon {

/// The play, pause and stop buttons and the volume of the main window, and the command that reloads the feed.
class PlayerStrip {
  public:
    /// `volume` is the one shown, 0 to 100.
    PlayerStrip(PlaybackState& state, int& volume, MediaPlayer& player, LiveFeed& live, Mute& mute)
        : state_(state), volume_(volume), player_(player), live_(live), mute_(mute) {}

    // In Automatic mode, where the cycle would undo a pause or stop within a second, they mute and un-mute.
    void Play();
    void Pause();
    void Stop();
    void SetVolume(int volume);
    void ChangeVolume(int steps) { SetVolume(volume_ + steps); }

    /// Mutes or un-mutes at once, in either mode and without a simulator.
    void TurnMute();

    /// Stops what can be heard, or plays.
    void PlayOrStop();

    /// Reconnects the current stream; a paused or stopped one stays silent.
    void ReloadFeed();

  private:
    bool PlaysRecordingsByHand() const;

    PlaybackState& state_;
    int& volume_;
    MediaPlayer& player_;
    LiveFeed& live_;
    Mute& mute_;
};

} // namespace quillon
