#include "win32/sound/AcmDecoder.h"

#include "player/Limits.h"

#include <algorithm>
#include <cstring>

namespace quillon {

namespace {

constexpr std::size_t LeastInput = 8192;
constexpr DWORD LeastOutput = 16384;
constexpr DWORD MostOutput = 4 << 20;

MPEGLAYER3WAVEFORMAT SourceFormat(const FrameFormat& format) {
    MPEGLAYER3WAVEFORMAT source{};
    source.wfx.wFormatTag = WAVE_FORMAT_MPEGLAYER3;
    source.wfx.nChannels = format.channels;
    source.wfx.nSamplesPerSec = format.sample_rate;
    source.wfx.nAvgBytesPerSec = format.bit_rate / 8;
    source.wfx.nBlockAlign = 1;
    source.wfx.cbSize = MPEGLAYER3_WFX_EXTRA_BYTES;
    source.wID = MPEGLAYER3_ID_MPEG;
    source.fdwFlags = MPEGLAYER3_FLAG_PADDING_ISO;
    source.nBlockSize = static_cast<WORD>(format.frame_bytes);
    source.nFramesPerBlock = 1;
    return source;
}

/// The source's rate and channels, which every codec offers, in 16 bits.
WAVEFORMATEX TargetFormat(const WAVEFORMATEX& source) {
    WAVEFORMATEX target{};
    target.wFormatTag = WAVE_FORMAT_PCM;
    target.nChannels = source.nChannels;
    target.nSamplesPerSec = source.nSamplesPerSec;
    target.wBitsPerSample = 16;
    target.nBlockAlign = static_cast<WORD>(source.nChannels * 2);
    target.nAvgBytesPerSec = source.nSamplesPerSec * target.nBlockAlign;
    return target;
}

} // namespace

std::unique_ptr<AcmDecoder> AcmDecoder::Open(const FrameFormat& format) {
    MPEGLAYER3WAVEFORMAT source = SourceFormat(format);
    return Open(source.wfx);
}

std::unique_ptr<AcmDecoder> AcmDecoder::Open(const WaveFormat& format) {
    std::vector<std::uint8_t> header = format.header; // a copy, because its memory is aligned for any structure
    return Open(*reinterpret_cast<WAVEFORMATEX*>(header.data()));
}

std::unique_ptr<AcmDecoder> AcmDecoder::Open(WAVEFORMATEX& source) {
    WAVEFORMATEX target = TargetFormat(source);
    HACMSTREAM stream = nullptr;
    if (codec::Open(&stream, nullptr, &source, &target, nullptr, 0, 0, 0) != MMSYSERR_NOERROR) return nullptr;
    auto decoder = std::make_unique<AcmDecoder>(stream, PcmFormat{target.nSamplesPerSec, target.nChannels});
    return decoder->Prepare(std::max<std::size_t>(LeastInput, source.nBlockAlign)) ? std::move(decoder)
                                                                                   : nullptr;
}

bool AcmDecoder::Prepare(std::size_t input_bytes) {
    DWORD output_bytes = 0;
    codec::Size(stream_.Get(), static_cast<DWORD>(input_bytes), &output_bytes, ACM_STREAMSIZEF_SOURCE);
    input_.resize(input_bytes);
    output_.resize(std::clamp(output_bytes, LeastOutput, MostOutput) / sizeof(std::int16_t));
    header_.cbStruct = sizeof header_;
    header_.pbSrc = input_.data();
    header_.cbSrcLength = static_cast<DWORD>(input_.size());
    header_.pbDst = reinterpret_cast<BYTE*>(output_.data());
    header_.cbDstLength = static_cast<DWORD>(output_.size() * sizeof(std::int16_t));
    return codec::PrepareHeader(stream_.Get(), &header_, 0) == MMSYSERR_NOERROR;
}

AcmDecoder::~AcmDecoder() {
    if ((header_.fdwStatus & ACMSTREAMHEADER_STATUSF_PREPARED) == 0) return;
    header_.cbSrcLength = static_cast<DWORD>(input_.size());
    codec::UnprepareHeader(stream_.Get(), &header_, 0);
}

bool AcmDecoder::Decode(ByteView bytes, Samples& samples) {
    while (!bytes.empty()) {
        const std::size_t count = std::min(bytes.size(), input_.size() - pending_);
        if (count == 0) return false; // the codec accepts nothing
        std::copy_n(bytes.begin(), count, input_.begin() + static_cast<std::ptrdiff_t>(pending_));
        pending_ += count;
        bytes = bytes.subspan(count);
        if (!Convert(samples)) return false;
    }
    return true;
}

bool AcmDecoder::Convert(Samples& samples) {
    header_.cbSrcLength = static_cast<DWORD>(pending_);
    if (codec::Convert(stream_.Get(), &header_, ACM_STREAMCONVERTF_BLOCKALIGN) != MMSYSERR_NOERROR) {
        pending_ = 0;
        return ++failures_ < MostDecodingFailures;
    }
    failures_ = 0;
    const std::size_t used = std::min<std::size_t>(header_.cbSrcLengthUsed, pending_);
    std::memmove(input_.data(), input_.data() + used, pending_ - used);
    pending_ -= used;
    const std::size_t made =
        std::min<std::size_t>(header_.cbDstLengthUsed / sizeof(std::int16_t), output_.size());
    samples.insert(samples.end(), output_.begin(), output_.begin() + static_cast<std::ptrdiff_t>(made));
    return true;
}

} // namespace quillon
