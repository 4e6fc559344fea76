#include "player/SoundReader.h"

#include "player/Playlists.h"

#include <string_view>

namespace quillon {

namespace {

/// In bytes. Data without a frame for this long is not MP3.
constexpr std::size_t LongestGap = 65536;

} // namespace

bool SoundReader::Feed(ByteView bytes, PcmQueue& queue) {
    if (kind_ == ContentKind::Unknown) {
        preamble_.insert(preamble_.end(), bytes.begin(), bytes.end());
        kind_ = KindOf(preamble_, expects_playlist_);
        if (kind_ == ContentKind::Unknown) return preamble_.size() < LongestGap;
        bytes = preamble_;
    }
    switch (kind_) {
    case ContentKind::Wav:
        return FeedWav(bytes, queue);
    case ContentKind::Mp3:
        return FeedMp3(bytes, queue);
    case ContentKind::Playlist:
        return FeedPlaylist(bytes);
    default:
        return false;
    }
}

bool SoundReader::FeedPlaylist(ByteView bytes) {
    playlist_.append(bytes.begin(), bytes.end());
    return playlist_.size() <= LongestPlaylist;
}

bool SoundReader::FeedWav(ByteView bytes, PcmQueue& queue) {
    Samples samples;
    const bool good = wav_.Feed(bytes, samples);
    has_found_sound_ = has_found_sound_ || !samples.empty();
    queue.Push(wav_.Format(), std::move(samples));
    return good;
}

bool SoundReader::FeedMp3(ByteView bytes, PcmQueue& queue) {
    frames_.Feed(bytes);
    while (const auto frame = frames_.Next()) {
        has_found_sound_ = true;
        Samples samples;
        if (!DecodeFrame(*frame, samples)) return false;
        queue.Push({decoded_.sample_rate, decoded_.channels}, std::move(samples));
    }
    return frames_.Skipped() < LongestGap;
}

bool SoundReader::DecodeFrame(const Mp3Frame& frame, Samples& samples) {
    if (!decoder_ || !frame.format.SharesDecoderWith(decoded_)) {
        decoder_.reset();
        decoder_ = system_.OpenMp3Decoder(frame.format);
        decoded_ = frame.format;
    }
    return decoder_ && decoder_->Decode(frame.bytes, samples);
}

} // namespace quillon
