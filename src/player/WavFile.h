#pragma once

#include "player/PlayerSystem.h"

#include <functional>

namespace quillon {

/// Reads a RIFF/WAVE file in pieces of any size. Sizes in the file are not trusted: no memory is reserved for
/// bytes that have not arrived.
class WavFile {
  public:
    using OpenDecoder = std::function<std::unique_ptr<SoundDecoder>(const WaveFormat& format)>;

    /// Without `open` only linear PCM is read.
    explicit WavFile(OpenDecoder open = {}) : open_(std::move(open)) {}

    /// Takes bytes as they arrive and appends the samples that are complete. Returns false if it is not such a
    /// file, or its sound cannot be decoded.
    bool Feed(ByteView bytes, Samples& samples);

    /// Whether all is well but that there is no decoder for its coding.
    bool LacksDecoder() const { return format_.block_bytes != 0 && !format_.IsLinear() && !decoder_; }

    /// Valid once there are samples.
    const PcmFormat& Format() const { return format_.sound; }

  private:
    enum class Part { File, Chunk, FormatChunk, Data };

    bool TakePart();
    bool TakeChunkHeader();
    bool TakeFormat();
    bool TakeData(Samples& samples);
    void Expect(Part part, std::size_t bytes);

    OpenDecoder open_;
    std::vector<std::uint8_t> buffer_;
    Part part_ = Part::File;
    std::size_t needed_ = 12;      // bytes of the next part
    std::uint64_t to_skip_ = 0;    // bytes to skip before it
    std::uint64_t chunk_left_ = 0; // bytes of the chunk still to be read
    WaveFormat format_;
    std::unique_ptr<SoundDecoder> decoder_; // null for linear PCM
};

} // namespace quillon
