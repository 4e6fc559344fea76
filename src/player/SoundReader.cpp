#include "player/SoundReader.h"

#include <algorithm>
#include <string_view>

namespace quillon {

namespace {

constexpr std::string_view WavMark = "RIFF";

/// More than lies between two frames of any MP3 stream; what has no frame in so many bytes is something else.
constexpr std::size_t MostSkipped = 65536;

} // namespace

bool SoundReader::Feed(ByteView bytes, PcmQueue& queue) {
    if (kind_ == Kind::Unknown) {
        first_bytes_.insert(first_bytes_.end(), bytes.begin(), bytes.end());
        if (first_bytes_.size() < WavMark.size()) return true;
        kind_ = std::equal(WavMark.begin(), WavMark.end(), first_bytes_.begin()) ? Kind::Wav : Kind::Mp3;
        bytes = first_bytes_;
    }
    return kind_ == Kind::Wav ? FeedWav(bytes, queue) : FeedMp3(bytes, queue);
}

bool SoundReader::FeedWav(ByteView bytes, PcmQueue& queue) {
    Samples samples;
    const bool good = wav_.Feed(bytes, samples);
    queue.Push(wav_.Format(), std::move(samples));
    return good;
}

bool SoundReader::FeedMp3(ByteView bytes, PcmQueue& queue) {
    frames_.Feed(bytes);
    while (const auto frame = frames_.Next()) {
        Samples samples;
        if (!DecodeFrame(*frame, samples)) return false;
        queue.Push({decoded_.sample_rate, decoded_.channels}, std::move(samples));
    }
    return frames_.Skipped() < MostSkipped;
}

bool SoundReader::DecodeFrame(const Mp3Frame& frame, Samples& samples) {
    if (!decoder_ || !frame.format.SoundsLike(decoded_)) {
        decoder_.reset();
        decoder_ = system_.OpenMp3Decoder(frame.format);
        decoded_ = frame.format;
    }
    return decoder_ && decoder_->Decode(frame.bytes, samples);
}

} // namespace quillon
