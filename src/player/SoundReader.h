#pragma once

#include "player/ContentKind.h"
#include "player/Mp3Frames.h"
#include "player/PlayerSystem.h"
#include "player/WavFile.h"

#include <memory>
#include <string>

namespace quillon {

/// Turns the bytes of a source into sound, as the kind of sound they hold demands. A playlist is collected.
class SoundReader {
  public:
    explicit SoundReader(PlayerSystem& system)
        : system_(system),
          wav_([&system](const WaveFormat& format) { return system.OpenWaveDecoder(format); }) {}

    /// Says beforehand that the bytes were announced as a playlist.
    void ExpectPlaylist() { expects_playlist_ = true; }

    /// Takes bytes as they come and adds what they sound like to the queue. False when they are neither sound
    /// that can be played nor a playlist.
    bool Feed(ByteView bytes, PcmQueue& queue);

    bool IsPlaylist() const { return kind_ == ContentKind::Playlist; }

    /// All bytes that came, when they are a playlist.
    const std::string& Playlist() const { return playlist_; }

    /// Whether any sound was found.
    bool HasFoundSound() const { return has_found_sound_; }

  private:
    bool FeedPlaylist(ByteView bytes);
    bool FeedWav(ByteView bytes, PcmQueue& queue);
    bool FeedMp3(ByteView bytes, PcmQueue& queue);
    bool DecodeFrame(const Mp3Frame& frame, Samples& samples);

    PlayerSystem& system_;
    std::vector<std::uint8_t> first_bytes_; // until the kind is known
    ContentKind kind_ = ContentKind::Unknown;
    bool expects_playlist_ = false;
    bool has_found_sound_ = false;
    std::string playlist_;
    WavFile wav_;
    Mp3Frames frames_;
    std::unique_ptr<SoundDecoder> decoder_;
    Mp3Format decoded_{};
};

} // namespace quillon
