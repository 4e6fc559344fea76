#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

namespace quillon {

// Bytes as servers and files deliver them, for the player's tests.

/// Silent frames of an MPEG 1 layer III stream, 44.1 kHz stereo at 128 kbit/s; each lasts 26.1 ms.
inline std::string Frames(int count) {
    std::string frames;
    for (; count > 0; --count) frames += std::string("\xFF\xFB\x90\x00", 4) + std::string(413, '\0');
    return frames;
}

/// The same in MPEG 2, 22.05 kHz mono at 32 kbit/s; each lasts 26.1 ms.
inline std::string SlowFrames(int count) {
    std::string frames;
    for (; count > 0; --count) frames += std::string("\xFF\xF3\x40\xC0", 4) + std::string(100, '\0');
    return frames;
}

/// Frames of AAC in ADTS, 48 kHz stereo; each lasts 21.3 ms.
inline std::string AacFrames(int count) {
    std::string frames;
    for (; count > 0; --count)
        frames += std::string("\xFF\xF1\x4C\x80\x20\x1F\xFC", 7) + std::string(249, '\0');
    return frames;
}

inline std::string LittleEndian(std::uint32_t number, int bytes) {
    std::string text;
    for (; bytes > 0; --bytes, number >>= 8U) text += static_cast<char>(number & 0xFFU);
    return text;
}

inline std::string Chunk(const std::string& id, const std::string& content) {
    const std::string padding(content.size() % 2, '\0');
    return id + LittleEndian(static_cast<std::uint32_t>(content.size()), 4) + content + padding;
}

inline std::string FormatChunk(unsigned kind, unsigned channels, unsigned rate, unsigned bits) {
    const unsigned block = channels * bits / 8;
    return Chunk("fmt ", LittleEndian(kind, 2) + LittleEndian(channels, 2) + LittleEndian(rate, 4) +
                             LittleEndian(rate * block, 4) + LittleEndian(block, 2) + LittleEndian(bits, 2));
}

inline std::string Riff(const std::string& chunks) {
    return "RIFF" + LittleEndian(static_cast<std::uint32_t>(chunks.size() + 4), 4) + "WAVE" + chunks;
}

} // namespace quillon
