#pragma once

#include "player/PlayerSystem.h"
#include "player/SoundReader.h"
#include "ports/MediaPlayer.h"

#include <atomic>
#include <memory>
#include <optional>
#include <string>

namespace quillon {

/// One playing of one address, from connecting to its end. Run does all the work on a thread of its own; the
/// other public members may be called on any thread and return at once.
class Session {
  public:
    /// Without bytes for so long, the source is given up.
    static constexpr std::chrono::seconds LongestWait{10};

    /// `url` is the address of a stream or the path of a file; `volume` 0 to 100.
    Session(std::string url, std::string program_version, int volume, std::unique_ptr<PlayerSystem> system);

    /// Plays; returns when there is no more to play, when that has failed, or soon after Cancel.
    void Run();

    /// Silence at once, and for good.
    void Cancel();

    /// Silence at once. A file keeps its place; a live stream is listened to meanwhile, to go on at the
    /// present.
    void Pause();
    void Resume();
    void SetVolume(int volume);

    /// Transitioning, Buffering or Playing while it runs, then MediaEnded for a moment and Stopped, or Ready
    /// after a failure. A pause does not show here.
    PlayState State() const { return state_; }

    bool HasEnded() const;

  private:
    void OpenSource();
    PlayState Step();
    void ObeyPause();
    bool ReadAhead();
    bool WantsBytes() const;
    bool TakeSupply(Supply supply);
    bool WaitIsOver();
    PlayState PlayAhead();
    PlayState AfterSilence();
    bool FillOutput();
    bool OpenOutput();

    const std::string url_;
    const std::string program_version_;
    const std::unique_ptr<PlayerSystem> system_;
    std::atomic<bool> cancelled_ = false;
    std::atomic<bool> paused_ = false;
    std::atomic<int> volume_;
    std::atomic<PlayState> state_ = Transitioning;

    // On Run's thread only.
    std::unique_ptr<ByteSource> source_;
    SoundReader reader_;
    PcmQueue queue_;
    std::unique_ptr<SoundOutput> output_;
    PcmFormat output_format_;
    std::chrono::milliseconds last_write_{0};
    std::chrono::milliseconds lead_;                         // sound to have ready before it is heard
    std::optional<std::chrono::milliseconds> waiting_since_; // when the bytes stopped coming
    std::optional<PlayState> outcome_;                       // how it ends once the queue is empty
    bool held_ = false;                                      // the pause has been carried out
    bool sounding_ = false;
    bool has_sounded_ = false;
};

} // namespace quillon
