#pragma once

#include "player/Pcm.h"

#include <cstddef>

namespace quillon {

/// Reads a RIFF/WAVE file whose bytes come in pieces of any size: linear samples of 8, 16 or 24 bits, one or
/// two channels. Sizes inside the file are never believed beyond the bytes that really come.
class WavFile {
  public:
    /// Takes bytes and adds the whole samples that are complete to `samples`. False: it is no such file, or
    /// holds another kind of sound.
    bool Feed(ByteView bytes, Samples& samples);

    /// Known when the first samples come.
    const PcmFormat& Format() const { return format_; }

  private:
    enum class Part { File, Chunk, FormatChunk, Data };

    bool TakePart();
    bool TakeChunkHeader();
    bool TakeFormat();
    void TakeData(Samples& samples);
    void Expect(Part part, std::size_t bytes);

    std::vector<std::uint8_t> buffer_;
    Part part_ = Part::File;
    std::size_t needed_ = 12;      // bytes of the part that is next
    std::uint64_t to_skip_ = 0;    // bytes before it that say nothing
    std::uint64_t chunk_left_ = 0; // bytes of the chunk behind what was read
    PcmFormat format_;
    unsigned bits_ = 0;
};

} // namespace quillon
