#pragma once

#include "player/FrameFormat.h"

#include <optional>
#include <vector>

namespace quillon {

struct AudioFrame {
    FrameFormat format;
    ByteView bytes;
};

/// Finds MP3 and AAC frames in a stream that may be joined anywhere and contain other data. Bytes that look
/// like a header are accepted right after a frame, or if another header follows where the first says that its
/// frame ends.
class AudioFrames {
  public:
    void Feed(ByteView bytes);

    /// The next frame, once all of it has been fed. Its bytes are valid until the next call.
    std::optional<AudioFrame> Next();

    /// Bytes skipped since the last frame, apart from tags; large if this is neither.
    std::size_t Skipped() const { return skipped_; }

  private:
    ByteView Rest() const { return ByteView(buffer_).subspan(consumed_); }
    void SkipTagBytes();
    bool StartTag();
    bool FollowsLast(const FrameFormat& format) const;

    std::vector<std::uint8_t> buffer_;
    std::size_t consumed_ = 0;        // bytes of the buffer that are no longer needed
    std::size_t tag_left_ = 0;        // bytes of a tag still to be skipped
    std::optional<FrameFormat> last_; // of the frame that ended where Rest starts
    bool at_start_ = true;
    std::size_t skipped_ = 0;
};

} // namespace quillon
