#include "player/SoundReader.h"

#include "player/Playlists.h"

#include <string_view>

namespace quillon {

namespace {

/// In bytes. Data without a frame for this long is not sound.
constexpr std::size_t LongestGap = 65536;

} // namespace

bool SoundReader::Feed(ByteView bytes, PcmQueue& queue) {
    if (kind_ == ContentKind::Unknown) {
        preamble_.insert(preamble_.end(), bytes.begin(), bytes.end());
        kind_ = KindOf(preamble_, expects_playlist_);
        if (kind_ == ContentKind::Unknown) return preamble_.size() < LongestGap;
        bytes = preamble_;
        if (kind_ == ContentKind::Unsupported) unsupported_ = UnsupportedForm(bytes);
    }
    switch (kind_) {
    case ContentKind::Wav:
        return FeedWav(bytes, queue);
    case ContentKind::Frames:
        return FeedFrames(bytes, queue);
    case ContentKind::Playlist:
        return FeedPlaylist(bytes);
    default:
        return false;
    }
}

std::unique_ptr<SoundDecoder> SoundReader::OpenWaveDecoder(const WaveFormat& format) {
    refuses_coding_ = from_network_ && !format.is_checked;
    return refuses_coding_ ? nullptr : system_.OpenWaveDecoder(format);
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

bool SoundReader::FeedFrames(ByteView bytes, PcmQueue& queue) {
    frames_.Feed(bytes);
    while (const auto frame = frames_.Next()) {
        has_found_sound_ = true;
        Samples samples;
        if (!DecodeFrame(*frame, samples)) return false;
        queue.Push(decoder_->Format(), std::move(samples));
    }
    return frames_.Skipped() < LongestGap;
}

bool SoundReader::DecodeFrame(const AudioFrame& frame, Samples& samples) {
    if (!decoded_ || !frame.format.SharesDecoderWith(*decoded_)) {
        decoder_.reset();
        decoder_ = system_.OpenFrameDecoder(frame.format);
        decoded_ = frame.format;
    }
    return decoder_ && decoder_->Decode(frame.bytes, samples);
}

SilenceReason SoundReader::Problem() const {
    std::string form = unsupported_;
    if (refuses_coding_) return {SilenceCause::CodingRefused, ""};
    if (wav_.LacksDecoder()) form = "this coding of waves";
    if (decoded_ && !decoder_) form = decoded_->coding == FrameCoding::Aac ? "AAC" : "MP3";
    if (!form.empty()) return {SilenceCause::NoDecoder, form};
    if (has_found_sound_) return {};
    if (kind_ == ContentKind::WebPage) return {SilenceCause::WebPage, ""};
    const bool got_none = kind_ == ContentKind::Unknown && preamble_.empty();
    return {got_none ? SilenceCause::SendsNothing : SilenceCause::NotPlayable, ""};
}

} // namespace quillon
