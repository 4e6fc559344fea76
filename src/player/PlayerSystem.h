#pragma once

#include "player/Address.h"
#include "player/ByteSource.h"
#include "player/Mp3Frames.h"
#include "player/Pcm.h"
#include "player/WaveFormat.h"

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

namespace quillon {

/// A connection to a server. No call waits.
class Connection {
  public:
    virtual ~Connection() = default;

    /// Fills the front of `room`. Supply::Connecting until the server has accepted; End when it has closed.
    virtual Got Read(std::span<std::uint8_t> room) = 0;

    /// Sends the front of `bytes`; the count says how many.
    virtual Got Write(std::string_view bytes) = 0;
};

class SoundDecoder {
  public:
    virtual ~SoundDecoder() = default;

    /// Adds what the bytes sound like (a frame, or whole blocks of a wave), which may be some frames behind.
    /// False when the decoder has failed for good.
    virtual bool Decode(ByteView bytes, Samples& samples) = 0;
};

/// A sound device playing one format. No call waits for sound to be played. Destroying it is silence at once.
class SoundOutput {
  public:
    virtual ~SoundOutput() = default;

    /// The longest sound that one Write takes.
    static constexpr std::chrono::milliseconds BlockLength{100};

    /// Whether Write would take a block now; false while about 200 ms are waiting in the device.
    virtual bool HasRoom() = 0;

    /// Queues a block behind what is playing. False when the device has failed.
    virtual bool Write(const Samples& samples) = 0;

    /// Whether all that was queued has been played.
    virtual bool IsIdle() = 0;

    /// Silence at once, to go on later in the same place; ends with `held` false.
    virtual void Hold(bool held) = 0;
};

/// What a session needs of the system. Used on the session's own thread, except Wake.
class PlayerSystem {
  public:
    virtual ~PlayerSystem() = default;

    /// Null when the host's name is unknown. Looking it up may take long. A connection to a secure address
    /// is Supply::Refused when the server cannot prove that it is that host.
    virtual std::unique_ptr<Connection> Connect(const StreamAddress& address) = 0;

    /// Null when the system cannot decode that.
    virtual std::unique_ptr<SoundDecoder> OpenMp3Decoder(const Mp3Format& format) = 0;
    virtual std::unique_ptr<SoundDecoder> OpenWaveDecoder(const WaveFormat& format) = 0;

    /// Null when there is no sound device, or none that plays the format.
    virtual std::unique_ptr<SoundOutput> OpenOutput(const PcmFormat& format) = 0;

    /// Time since some fixed moment; never goes back.
    virtual std::chrono::milliseconds Now() = 0;

    /// Returns when a connection or the output has something new, when woken, or after that long.
    virtual void Wait(std::chrono::milliseconds at_most) = 0;

    /// Ends the Wait that runs, or else the next one. May be called on any thread.
    virtual void Wake() = 0;
};

} // namespace quillon
