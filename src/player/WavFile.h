#pragma once

#include "player/PlayerSystem.h"

#include <functional>

namespace quillon {

/// Reads a RIFF/WAVE file whose bytes come in pieces of any size. Sizes inside the file are never believed
/// beyond the bytes that really come.
class WavFile {
  public:
    using OpenDecoder = std::function<std::unique_ptr<SoundDecoder>(const WaveFormat& format)>;

    /// Without `open` only linear samples are read.
    explicit WavFile(OpenDecoder open = {}) : open_(std::move(open)) {}

    /// Takes bytes and adds the whole samples that are complete to `samples`. False: it is no such file, or
    /// holds sound that cannot be decoded.
    bool Feed(ByteView bytes, Samples& samples);

    /// Known when the first samples come.
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
    std::size_t needed_ = 12;      // bytes of the part that is next
    std::uint64_t to_skip_ = 0;    // bytes before it that say nothing
    std::uint64_t chunk_left_ = 0; // bytes of the chunk behind what was read
    WaveFormat format_;
    std::unique_ptr<SoundDecoder> decoder_; // of sound that is not linear
};

} // namespace quillon
