#pragma once

#include "player/Address.h"
#include "player/ByteSource.h"
#include "player/FrameFormat.h"
#include "player/Pcm.h"
#include "player/WaveFormat.h"

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

namespace quillon {

/// A connection to a server. No call waits for the network or works for long: IoStatus::Ok with a count of 0
/// means that the next call may get further at once.
class Connection {
  public:
    virtual ~Connection() = default;

    /// Fills the front of `room`. IoStatus::Connecting until the server has accepted, EndOfStream when it has
    /// closed.
    virtual IoResult Read(std::span<std::uint8_t> room) = 0;

    /// Sends as much of the front of `bytes` as fits; the result says how much.
    virtual IoResult Write(std::string_view bytes) = 0;

    /// Whether the other side is on this machine or in a private network. Valid once it has accepted.
    virtual bool IsPrivate() const = 0;

    /// The reason after IoStatus::Refused.
    virtual SilenceReason Problem() const { return {}; }
};

class SoundDecoder {
  public:
    virtual ~SoundDecoder() = default;

    /// Decodes a frame, or whole blocks of a wave, and appends the samples, which may lag some frames
    /// behind. Returns false when the decoder has failed for good.
    virtual bool Decode(ByteView bytes, Samples& samples) = 0;

    /// The format of the samples that were decoded last; it may differ from what was announced.
    virtual PcmFormat Format() const = 0;
};

/// A sound device playing one format, without clicks (see SmoothSound). No call waits for sound to be played,
/// but destroying it waits until it has been silenced, by a ramp unless it is paused.
class SoundOutput {
  public:
    virtual ~SoundOutput() = default;

    /// Longest block for one Write.
    static constexpr std::chrono::milliseconds BlockLength{100};

    /// Whether Write would accept a block now; false while about 400 ms are queued.
    virtual bool HasRoom() = 0;

    /// Queues a block. Returns false if the device has failed.
    virtual bool Write(const Samples& samples) = 0;

    /// Whether everything queued has been played.
    virtual bool IsIdle() = 0;

    /// 0 to 100; also of what is queued.
    virtual void SetVolume(int volume) = 0;

    /// Pauses at the end of a ramp, or resumes where it paused.
    virtual void SetPaused(bool paused, std::chrono::milliseconds ramp) = 0;
};

/// What a session needs of the operating system. Used on the session's own thread, except Now and Wake.
class PlayerSystem {
  public:
    virtual ~PlayerSystem() = default;

    /// Looks the host up, which may take several seconds, and starts connecting. Null if the host is unknown. A
    /// connection returns IoStatus::Refused if the host has no address within `reach`, or if it is a secure one
    /// and the server's certificate is not trusted.
    virtual std::unique_ptr<Connection> Connect(const StreamAddress& address, Reach reach) = 0;

    /// Null if the system has no decoder for the format.
    virtual std::unique_ptr<SoundDecoder> OpenFrameDecoder(const FrameFormat& format) = 0;
    virtual std::unique_ptr<SoundDecoder> OpenWaveDecoder(const WaveFormat& format) = 0;

    /// Changes whenever OpenOutput would open another device than before, because the user has chosen it.
    virtual int OutputChoice() = 0;

    /// Null if there is no sound device for the format.
    virtual std::unique_ptr<SoundOutput> OpenOutput(const PcmFormat& format) = 0;

    /// Time since some fixed point; never goes back. May be called on any thread.
    virtual std::chrono::milliseconds Now() = 0;

    /// Returns when a connection or the output becomes ready, when woken, or after `at_most`.
    virtual void Wait(std::chrono::milliseconds at_most) = 0;

    /// Ends the current Wait, or else the next one. May be called on any thread.
    virtual void Wake() = 0;
};

} // namespace quillon
