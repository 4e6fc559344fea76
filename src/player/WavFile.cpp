#include "player/WavFile.h"

#include <algorithm>
#include <string_view>

namespace quillon {

namespace {

constexpr unsigned LinearSamples = 1;
constexpr unsigned ExtensibleFormat = 0xFFFE; // the real one then starts at byte 24
constexpr std::size_t PlainFormatBytes = 16;
constexpr std::size_t ExtensibleFormatBytes = 40;

unsigned Word(ByteView bytes, std::size_t at) {
    return bytes[at] | static_cast<unsigned>(bytes[at + 1]) << 8U;
}

std::uint32_t DoubleWord(ByteView bytes, std::size_t at) {
    return Word(bytes, at) | Word(bytes, at + 2) << 16U;
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
    if (part_ == Part::Data) TakeData(samples);
    return true;
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

/// Drops the part that was just read, and what is to be skipped behind it as far as it is there.
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
        return bits_ != 0;
    }
    if (Is(buffer_, 0, "fmt ")) {
        if (size < PlainFormatBytes) return false;
        const std::size_t read = size < ExtensibleFormatBytes ? PlainFormatBytes : ExtensibleFormatBytes;
        chunk_left_ = padded - read;
        Expect(Part::FormatChunk, read);
        return true;
    }
    to_skip_ = padded;
    Expect(Part::Chunk, 8);
    return true;
}

bool WavFile::TakeFormat() {
    unsigned kind = Word(buffer_, 0);
    if (kind == ExtensibleFormat && needed_ == ExtensibleFormatBytes) kind = Word(buffer_, 24);
    format_.channels = static_cast<std::uint16_t>(Word(buffer_, 2));
    format_.sample_rate = DoubleWord(buffer_, 4);
    const unsigned block = Word(buffer_, 12);
    bits_ = Word(buffer_, 14);
    to_skip_ = chunk_left_;
    Expect(Part::Chunk, 8);
    return kind == LinearSamples && (format_.channels == 1 || format_.channels == 2) &&
           (bits_ == 8 || bits_ == 16 || bits_ == 24) && block == format_.channels * bits_ / 8 &&
           format_.sample_rate >= 4000 && format_.sample_rate <= 192000;
}

void WavFile::TakeData(Samples& samples) {
    const std::size_t block = format_.channels * bits_ / 8;
    const auto present = static_cast<std::size_t>(std::min<std::uint64_t>(buffer_.size(), chunk_left_));
    const std::size_t whole = present / block * block;
    AppendAs16Bit(ByteView(buffer_).first(whole), bits_, samples);
    chunk_left_ -= whole;
    buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(whole));
    if (chunk_left_ < block) buffer_.clear(); // other chunks may follow; they are no sound
}

} // namespace quillon
