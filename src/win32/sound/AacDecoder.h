#pragma once

#include "player/PlayerSystem.h"
#include "win32/system/ComPtr.h"

struct IMFMediaType;
struct IMFSample;
struct IMFTransform;

namespace quillon {

/// Decodes AAC frames with ADTS headers by the Media Foundation transform that comes with Windows. Works on the
/// thread that opens it.
class AacDecoder : public SoundDecoder {
  public:
    /// Null if the system has no such decoder.
    static std::unique_ptr<AacDecoder> Open(const FrameFormat& format);

    ~AacDecoder() override;

    bool Decode(ByteView bytes, Samples& samples) override;
    PcmFormat Format() const override { return format_; }

  private:
    bool Start(const FrameFormat& format);
    bool SetInput(const FrameFormat& format);
    bool ChooseOutput();
    bool ReadOutputFormat();
    bool Drain(Samples& samples);

    ComApartment apartment_; // before what lives in it
    ComPtr<IMFTransform> transform_;
    PcmFormat format_;
    bool has_output_ = false;
    int failures_ = 0; // in a row
};

} // namespace quillon
