#include "player/WavFile.h"

#include <algorithm>
#include <string_view>

namespace quillon {

namespace {

constexpr std::uint32_t MostFormatBytes = 1024; // more than any coding needs

std::uint32_t DoubleWord(ByteView bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) value = value << 8U | bytes[at + i];
    return value;
}

bool Is(ByteView bytes, std::size_t at, std::string_view mark) {
    return std::equal(mark.begin(), mark.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
}

} // namespace

bool WavFile::Feed(ByteView bytes, Samples& samples) {
    const auto skipped = static_cast<std::size_t>(std::min<std::uint64_t>(to_skip_, bytes.size()));
    to_skip_ -= skipped;
    bytes = bytes.subspan(skipped);
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
    while (part_ != Part::Data && to_skip_ == 0 && buffer_.size() >= needed_)
        if (!TakePart()) return false;
    return part_ != Part::Data || TakeData(samples);
}

bool WavFile::TakePart() {
    switch (part_) {
    case Part::File:
        if (!Is(buffer_, 0, "RIFF") || !Is(buffer_, 8, "WAVE")) return false;
        Expect(Part::Chunk, 8);
        return true;
    case Part::Chunk:
        return TakeChunkHeader();
    case Part::FormatChunk:
        return TakeFormat();
    case Part::Data:
        break;
    }
    return true;
}

/// Drops the part just read, and what is to be skipped after it as far as it has arrived.
void WavFile::Expect(Part part, std::size_t bytes) {
    const auto present = static_cast<std::size_t>(std::min<std::uint64_t>(to_skip_, buffer_.size() - needed_));
    buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(needed_ + present));
    to_skip_ -= present;
    part_ = part;
    needed_ = bytes;
}

bool WavFile::TakeChunkHeader() {
    const std::uint32_t size = DoubleWord(buffer_, 4);
    const std::uint64_t padded = std::uint64_t{size} + size % 2;
    if (Is(buffer_, 0, "data")) {
        chunk_left_ = size;
        Expect(Part::Data, 0);
        return format_.block_bytes != 0;
    }
    if (Is(buffer_, 0, "fmt ")) {
        const std::uint32_t read = std::min(size, MostFormatBytes);
        chunk_left_ = padded - read;
        Expect(Part::FormatChunk, read);
        return true;
    }
    to_skip_ = padded;
    Expect(Part::Chunk, 8);
    return true;
}

bool WavFile::TakeFormat() {
    const auto format = ReadWaveFormat(ByteView(buffer_).first(needed_));
    if (!format) return false;
    format_ = *format;
    decoder_ = format_.IsLinear() || !open_ ? nullptr : open_(format_);
    to_skip_ = chunk_left_;
    Expect(Part::Chunk, 8);
    return format_.IsLinear() || decoder_;
}

bool WavFile::TakeData(Samples& samples) {
    const std::size_t block = format_.block_bytes;
    const auto present = static_cast<std::size_t>(std::min<std::uint64_t>(buffer_.size(), chunk_left_));
    const ByteView whole = ByteView(buffer_).first(present / block * block);
    if (decoder_) {
        if (!decoder_->Decode(whole, samples)) return false;
    } else {
        AppendAs16Bit(whole, format_.bits, samples);
    }
    chunk_left_ -= whole.size();
    buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(whole.size()));
    if (chunk_left_ < block) buffer_.clear(); // other chunks may follow; they hold no sound
    return true;
}

} // namespace quillon
