#include "win32/AcmDecoder.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr int MostFailures = 100; // a codec may refuse a damaged frame, but not every one

MPEGLAYER3WAVEFORMAT SourceFormat(const Mp3Format& format) {
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

WAVEFORMATEX TargetFormat(const Mp3Format& format) {
    WAVEFORMATEX target{};
    target.wFormatTag = WAVE_FORMAT_PCM;
    target.nChannels = format.channels;
    target.nSamplesPerSec = format.sample_rate;
    target.wBitsPerSample = 16;
    target.nBlockAlign = static_cast<WORD>(format.channels * 2);
    target.nAvgBytesPerSec = format.sample_rate * target.nBlockAlign;
    return target;
}

} // namespace

std::unique_ptr<AcmDecoder> AcmDecoder::Open(const Mp3Format& format) {
    MPEGLAYER3WAVEFORMAT source = SourceFormat(format);
    WAVEFORMATEX target = TargetFormat(format);
    HACMSTREAM stream = nullptr;
    if (acmStreamOpen(&stream, nullptr, &source.wfx, &target, nullptr, 0, 0, 0) != MMSYSERR_NOERROR)
        return nullptr;
    auto decoder = std::make_unique<AcmDecoder>(stream);
    return decoder->Prepare() ? std::move(decoder) : nullptr;
}

bool AcmDecoder::Prepare() {
    header_.cbStruct = sizeof header_;
    header_.pbSrc = input_.data();
    header_.cbSrcLength = static_cast<DWORD>(input_.size());
    header_.pbDst = reinterpret_cast<BYTE*>(output_.data());
    header_.cbDstLength = static_cast<DWORD>(sizeof output_);
    return acmStreamPrepareHeader(stream_.Get(), &header_, 0) == MMSYSERR_NOERROR;
}

AcmDecoder::~AcmDecoder() {
    if ((header_.fdwStatus & ACMSTREAMHEADER_STATUSF_PREPARED) == 0) return;
    header_.cbSrcLength = static_cast<DWORD>(input_.size());
    acmStreamUnprepareHeader(stream_.Get(), &header_, 0);
}

bool AcmDecoder::Decode(ByteView frame, Samples& samples) {
    if (frame.size() > input_.size() - waiting_) return false;
    std::copy(frame.begin(), frame.end(), input_.data() + waiting_);
    waiting_ += frame.size();
    header_.cbSrcLength = static_cast<DWORD>(waiting_);
    if (acmStreamConvert(stream_.Get(), &header_, ACM_STREAMCONVERTF_BLOCKALIGN) != MMSYSERR_NOERROR) {
        waiting_ = 0;
        return ++failures_ < MostFailures;
    }
    failures_ = 0;
    const std::size_t used = std::min<std::size_t>(header_.cbSrcLengthUsed, waiting_);
    std::copy(input_.data() + used, input_.data() + waiting_, input_.data());
    waiting_ -= used;
    const std::size_t made = std::min(header_.cbDstLengthUsed / sizeof(std::int16_t), output_.size());
    samples.insert(samples.end(), output_.begin(), output_.begin() + static_cast<std::ptrdiff_t>(made));
    return true;
}

} // namespace quillon
