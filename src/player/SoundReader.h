#pragma once

#include "player/Mp3Frames.h"
#include "player/PlayerSystem.h"
#include "player/WavFile.h"

#include <memory>

namespace quillon {

/// Turns the bytes of a source into sound, as the kind of sound they hold demands.
class SoundReader {
  public:
    explicit SoundReader(PlayerSystem& system) : system_(system) {}

    /// Takes bytes as they come and adds what they sound like to the queue. False when they are no sound that
    /// can be played.
    bool Feed(ByteView bytes, PcmQueue& queue);

  private:
    enum class Kind { Unknown, Wav, Mp3 };

    bool FeedWav(ByteView bytes, PcmQueue& queue);
    bool FeedMp3(ByteView bytes, PcmQueue& queue);
    bool DecodeFrame(const Mp3Frame& frame, Samples& samples);

    PlayerSystem& system_;
    std::vector<std::uint8_t> first_bytes_; // until the kind is known
    Kind kind_ = Kind::Unknown;
    WavFile wav_;
    Mp3Frames frames_;
    std::unique_ptr<Mp3Decoder> decoder_;
    Mp3Format decoded_{};
};

} // namespace quillon
