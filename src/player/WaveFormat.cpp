#include "player/WaveFormat.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr unsigned MicrosoftAdpcm = 2;
constexpr unsigned ALaw = 6;
constexpr unsigned MuLaw = 7;
constexpr unsigned ImaAdpcm = 0x11;
constexpr unsigned Gsm610 = 0x31;
constexpr unsigned Mp3 = 0x55;
constexpr unsigned Extensible = 0xFFFE; // the actual tag is then at byte 24

constexpr std::size_t PlainBytes = 16;
constexpr std::size_t HeaderBytes = 18; // with the number of extra bytes
constexpr std::size_t ExtensibleBytes = 40;
constexpr std::size_t Mp3ExtraBytes = 12;

unsigned Word(ByteView bytes, std::size_t at) {
    return at + 2 <= bytes.size() ? bytes[at] | static_cast<unsigned>(bytes[at + 1]) << 8U : 0;
}

void SetWord(std::vector<std::uint8_t>& bytes, std::size_t at, std::size_t value) {
    bytes[at] = static_cast<std::uint8_t>(value);
    bytes[at + 1] = static_cast<std::uint8_t>(value >> 8U);
}

/// A WAVEFORMATEX whose count of extra bytes is no more than it has.
std::vector<std::uint8_t> Header(ByteView chunk, unsigned coding) {
    std::vector<std::uint8_t> header(chunk.begin(), chunk.end());
    header.resize(std::max(header.size(), HeaderBytes));
    const std::size_t announced = coding == Word(chunk, 0) ? Word(header, PlainBytes) : 0;
    const std::size_t extra = std::min(announced, header.size() - HeaderBytes);
    header.resize(HeaderBytes + extra);
    SetWord(header, 0, coding);
    SetWord(header, PlainBytes, extra);
    return header;
}

/// Whether an ADPCM block holds as many samples as the first word after the header says. A block starts with
/// `lead_bytes` per channel, worth `lead_samples`; each sample after that takes four bits.
bool BlockHoldsItsSamples(const WaveFormat& format, std::size_t lead_bytes, std::size_t lead_samples) {
    const std::size_t channels = format.sound.channels;
    if (format.bits != 4 || format.block_bytes <= lead_bytes * channels) return false;
    const std::size_t rest = format.block_bytes - lead_bytes * channels;
    return Word(format.header, HeaderBytes) == rest * 2 / channels + lead_samples;
}

/// Blocks refer to coefficient pairs by number; the first seven are prescribed.
bool HasCoefficients(const WaveFormat& format) {
    const std::size_t pairs = Word(format.header, HeaderBytes + 2);
    return pairs >= 7 && format.header.size() >= HeaderBytes + 4 + pairs * 4;
}

bool IsKnown(unsigned coding) {
    for (const unsigned known : {WaveFormat::LinearSamples, MicrosoftAdpcm, ALaw, MuLaw, ImaAdpcm, Gsm610, Mp3})
        if (coding == known) return true;
    return false;
}

bool IsConsistent(const WaveFormat& format) {
    const std::size_t block = format.block_bytes;
    const unsigned channels = format.sound.channels;
    switch (format.coding) {
    case WaveFormat::LinearSamples:
        return format.bits >= 8 && format.bits <= 32 && format.bits % 8 == 0 &&
               block == channels * format.bits / 8;
    case ALaw:
    case MuLaw:
        return format.bits == 8 && block == channels;
    case MicrosoftAdpcm:
        return HasCoefficients(format) && BlockHoldsItsSamples(format, 7, 2);
    case ImaAdpcm:
        return block % (4 * channels) == 0 && BlockHoldsItsSamples(format, 4, 1);
    case Gsm610:
        return channels == 1 && block == 65 && Word(format.header, HeaderBytes) == 320;
    case Mp3:
        return format.header.size() >= HeaderBytes + Mp3ExtraBytes;
    default:
        return true;
    }
}

} // namespace

std::optional<WaveFormat> ReadWaveFormat(ByteView chunk) {
    if (chunk.size() < PlainBytes) return {};
    WaveFormat format;
    format.coding = Word(chunk, 0);
    if (format.coding == Extensible && chunk.size() >= ExtensibleBytes) format.coding = Word(chunk, 24);
    format.sound.channels = static_cast<std::uint16_t>(Word(chunk, 2));
    format.sound.sample_rate = Word(chunk, 4) | Word(chunk, 6) << 16U;
    format.block_bytes = Word(chunk, 12);
    format.bits = Word(chunk, 14);
    format.header = Header(chunk, format.coding);
    const bool fits = (format.sound.channels == 1 || format.sound.channels == 2) &&
                      format.sound.sample_rate >= 1000 && format.sound.sample_rate <= 192000 &&
                      format.block_bytes > 0 && IsConsistent(format);
    if (!fits) return {};
    format.is_checked = IsKnown(format.coding);
    if (format.coding == Mp3) format.block_bytes = 1; // the size in the file is not a unit of decoding
    return format;
}

} // namespace quillon
