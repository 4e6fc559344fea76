#include "win32/sound/AacDecoder.h"

#include "player/Limits.h"
#include "win32/system/LateFunction.h"

#include <algorithm>
#include <initguid.h>
#include <mfapi.h>
#include <mferror.h>
#include <mftransform.h>

namespace quillon {

namespace {

DEFINE_GUID(SystemAacDecoder, 0x32d186a7, 0x218f, 0x4c75, 0x88, 0x76, 0xdd, 0x77, 0x27, 0x3a, 0x89, 0x99);

constexpr UINT32 AdtsPayload = 1;
constexpr UINT32 AnyProfile = 0xFE;
constexpr DWORD LeastOutput = 65536;

/// What follows the wave format in the type of the input: payload, profile, and no more.
constexpr UINT8 UserData[12] = {AdtsPayload, 0, AnyProfile};

/// The functions that make what a transform takes. Loaded late: most runs of the program hear no AAC.
struct MediaFoundation {
    decltype(MFStartup)* startup = Find<decltype(MFStartup)>("MFStartup");
    decltype(MFCreateMediaType)* create_media_type = Find<decltype(MFCreateMediaType)>("MFCreateMediaType");
    decltype(MFCreateSample)* create_sample = Find<decltype(MFCreateSample)>("MFCreateSample");
    decltype(MFCreateMemoryBuffer)* create_buffer =
        Find<decltype(MFCreateMemoryBuffer)>("MFCreateMemoryBuffer");

    template <typename Function>
    static Function* Find(const char* name) {
        return LateFunction<Function>(L"mfplat.dll", name);
    }

    /// Whether it can be used. It is then never shut down, as another session may be using it.
    bool Start() const {
        return startup != nullptr && create_media_type != nullptr && create_sample != nullptr &&
               create_buffer != nullptr && SUCCEEDED(startup(MF_VERSION, MFSTARTUP_LITE));
    }
};

const MediaFoundation& Functions() {
    static const MediaFoundation Loaded;
    return Loaded;
}

bool IsStarted() {
    static const bool Started = Functions().Start();
    return Started;
}

/// A sample of that size, and its buffer.
ComPtr<IMFSample> NewSample(DWORD bytes, ComPtr<IMFMediaBuffer>& buffer) {
    ComPtr<IMFSample> sample;
    if (FAILED(Functions().create_buffer(bytes, buffer.Out())) ||
        FAILED(Functions().create_sample(sample.Out())) || FAILED(sample->AddBuffer(buffer.Get())))
        return {};
    return sample;
}

ComPtr<IMFSample> SampleOf(ByteView bytes) {
    const auto size = static_cast<DWORD>(bytes.size());
    ComPtr<IMFMediaBuffer> buffer;
    ComPtr<IMFSample> sample = NewSample(size, buffer);
    BYTE* room = nullptr;
    if (!sample || FAILED(buffer->Lock(&room, nullptr, nullptr))) return {};
    std::copy(bytes.begin(), bytes.end(), room);
    buffer->Unlock();
    buffer->SetCurrentLength(size);
    return sample;
}

void AppendSamples(IMFMediaBuffer& buffer, Samples& samples) {
    BYTE* bytes = nullptr;
    DWORD size = 0;
    if (FAILED(buffer.Lock(&bytes, nullptr, &size))) return;
    AppendAs16Bit({bytes, size}, 16, samples);
    buffer.Unlock();
}

UINT32 Number(IMFMediaType& type, const GUID& key) {
    UINT32 value = 0;
    type.GetUINT32(key, &value);
    return value;
}

bool IsPlayable(IMFMediaType& type) {
    GUID coding{};
    const UINT32 channels = Number(type, MF_MT_AUDIO_NUM_CHANNELS);
    return SUCCEEDED(type.GetGUID(MF_MT_SUBTYPE, &coding)) && coding == MFAudioFormat_PCM &&
           Number(type, MF_MT_AUDIO_BITS_PER_SAMPLE) == 16 && (channels == 1 || channels == 2);
}

} // namespace

std::unique_ptr<AacDecoder> AacDecoder::Open(const FrameFormat& format) {
    auto decoder = std::make_unique<AacDecoder>();
    return decoder->Start(format) ? std::move(decoder) : nullptr;
}

AacDecoder::~AacDecoder() = default;

bool AacDecoder::Start(const FrameFormat& format) {
    return IsStarted() &&
           SUCCEEDED(CoCreateInstance(SystemAacDecoder, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IMFTransform),
                                      reinterpret_cast<void**>(transform_.Out()))) &&
           SetInput(format) && ChooseOutput();
}

bool AacDecoder::SetInput(const FrameFormat& format) {
    ComPtr<IMFMediaType> type;
    if (FAILED(Functions().create_media_type(type.Out()))) return false;
    type->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Audio);
    type->SetGUID(MF_MT_SUBTYPE, MFAudioFormat_AAC);
    type->SetUINT32(MF_MT_AUDIO_SAMPLES_PER_SECOND, format.sample_rate);
    type->SetUINT32(MF_MT_AUDIO_NUM_CHANNELS, format.channels);
    type->SetUINT32(MF_MT_AUDIO_BITS_PER_SAMPLE, 16);
    type->SetUINT32(MF_MT_AAC_PAYLOAD_TYPE, AdtsPayload);
    type->SetUINT32(MF_MT_AAC_AUDIO_PROFILE_LEVEL_INDICATION, AnyProfile);
    type->SetBlob(MF_MT_USER_DATA, UserData, sizeof UserData);
    return SUCCEEDED(transform_->SetInputType(0, type.Get(), 0));
}

bool AacDecoder::ChooseOutput() {
    for (DWORD index = 0;; ++index) {
        ComPtr<IMFMediaType> type;
        if (FAILED(transform_->GetOutputAvailableType(0, index, type.Out()))) return false;
        if (IsPlayable(*type.Get()) && SUCCEEDED(transform_->SetOutputType(0, type.Get(), 0)))
            return ReadOutputFormat();
    }
}

bool AacDecoder::ReadOutputFormat() {
    ComPtr<IMFMediaType> type;
    if (FAILED(transform_->GetOutputCurrentType(0, type.Out())) || !IsPlayable(*type.Get())) return false;
    format_.sample_rate = Number(*type.Get(), MF_MT_AUDIO_SAMPLES_PER_SECOND);
    format_.channels = static_cast<std::uint16_t>(Number(*type.Get(), MF_MT_AUDIO_NUM_CHANNELS));
    return format_.sample_rate > 0;
}

bool AacDecoder::Decode(ByteView bytes, Samples& samples) {
    const ComPtr<IMFSample> sample = SampleOf(bytes);
    if (!sample) return false;
    if (FAILED(transform_->ProcessInput(0, sample.Get(), 0))) return ++failures_ < MostDecodingFailures;
    return Drain(samples);
}

/// Takes all that is decoded. Only decoding shows whether the sound has twice the rate, or two channels.
bool AacDecoder::Drain(Samples& samples) {
    while (true) {
        MFT_OUTPUT_STREAM_INFO info{};
        transform_->GetOutputStreamInfo(0, &info);
        ComPtr<IMFMediaBuffer> buffer;
        const ComPtr<IMFSample> sample = NewSample(std::max(info.cbSize, LeastOutput), buffer);
        if (!sample) return false;
        MFT_OUTPUT_DATA_BUFFER output{0, sample.Get(), 0, nullptr};
        DWORD status = 0;
        const HRESULT result = transform_->ProcessOutput(0, 1, &output, &status);
        if (output.pEvents != nullptr) output.pEvents->Release();
        if (result == MF_E_TRANSFORM_NEED_MORE_INPUT) return true;
        if (result == MF_E_TRANSFORM_STREAM_CHANGE) {
            if (!ChooseOutput()) return false;
            continue;
        }
        if (FAILED(result)) return ++failures_ < MostDecodingFailures;
        if (!has_output_ && !ReadOutputFormat()) return false;
        has_output_ = true;
        failures_ = 0;
        AppendSamples(*buffer.Get(), samples);
    }
}

} // namespace quillon
