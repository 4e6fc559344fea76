#pragma once

#include "player/AudioFrames.h"
#include "player/ContentKind.h"
#include "player/PlayerSystem.h"
#include "player/WavFile.h"

#include <memory>
#include <string>

namespace quillon {

/// Detects what kind of data a source sends and decodes it, or collects it if it is a playlist.
class SoundReader {
  public:
    /// A server must not choose any codec that is installed: waves from the network may only be of the codings
    /// whose headers are checked.
    SoundReader(PlayerSystem& system, bool from_network)
        : system_(system),
          from_network_(from_network),
          wav_([this](const WaveFormat& format) { return OpenWaveDecoder(format); }) {}

    /// The bytes were announced as a playlist. To be called before Feed.
    void ExpectPlaylist() { expects_playlist_ = true; }

    /// Takes bytes as they arrive and appends the decoded sound to the queue. Returns false if they are neither
    /// sound that can be played nor a playlist.
    bool Feed(ByteView bytes, PcmQueue& queue);

    bool IsPlaylist() const { return kind_ == ContentKind::Playlist; }

    /// All bytes so far, if they are a playlist.
    const std::string& Playlist() const { return playlist_; }

    /// Why the bytes give no sound: there were none, nothing here decodes them, or they are something else.
    /// None once sound was found, unless nothing decodes it.
    SilenceReason Problem() const;

    /// Whether any sound was found.
    bool HasFoundSound() const { return has_found_sound_; }

  private:
    std::unique_ptr<SoundDecoder> OpenWaveDecoder(const WaveFormat& format);
    bool FeedPlaylist(ByteView bytes);
    bool FeedWav(ByteView bytes, PcmQueue& queue);
    bool FeedFrames(ByteView bytes, PcmQueue& queue);
    bool DecodeFrame(const AudioFrame& frame, Samples& samples);

    PlayerSystem& system_;
    const bool from_network_;
    bool refuses_coding_ = false;
    std::vector<std::uint8_t> preamble_; // until the kind is known
    std::string unsupported_;            // the form's name
    ContentKind kind_ = ContentKind::Unknown;
    bool expects_playlist_ = false;
    bool has_found_sound_ = false;
    std::string playlist_;
    WavFile wav_;
    AudioFrames frames_;
    std::unique_ptr<SoundDecoder> decoder_;
    std::optional<FrameFormat> decoded_; // of `decoder_`
};

} // namespace quillon
