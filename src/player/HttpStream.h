#pragma once

#include "player/Address.h"
#include "player/ChunkedBody.h"
#include "player/HttpReply.h"
#include "player/IcyDemuxer.h"
#include "player/PlayerSystem.h"

#include <cstdint>
#include <optional>

namespace quillon {

/// The audio that a web server sends for an address, live or a file: its reply's body without chunking and ICY
/// metadata. Follows redirects, except from https to http. Any other status but 200, a web page, and a
/// connection that closes early are failures.
class HttpStream : public ByteSource {
  public:
    static constexpr int MaximumRedirects = 8;

    HttpStream(StreamAddress address, std::string user_agent, PlayerSystem& system, Origin origin = {});

    IoResult Read(std::span<std::uint8_t> room) override;

    /// A reply with a content length is a file.
    bool IsLive() const override { return !body_left_.has_value(); }

    std::string Address() const override { return AddressText(address_); }
    bool AnnouncesPlaylist() const override;

    SilenceReason Problem() const override;
    Origin Onward() const override;

    std::string Title() const override { return icy_ ? icy_->Title() : std::string(); }

  private:
    SilenceReason ProblemWithoutAnswer() const;
    IoStatus Advance();
    IoStatus SendRequest();
    IoStatus ReadHead();
    IoStatus AcceptHead();
    IoStatus Redirect();
    void PrepareBody();
    IoResult ReadBody(std::span<std::uint8_t> room);
    IoResult ReadRaw(std::span<std::uint8_t> room);

    StreamAddress address_;
    std::string user_agent_;
    PlayerSystem& system_;
    Origin origin_;
    std::unique_ptr<Connection> connection_;
    std::string unsent_;
    HttpReply reply_;
    bool in_body_ = false;
    std::string early_body_; // arrived together with the head
    std::optional<std::uint64_t> body_left_;
    std::optional<ChunkedBody> chunks_;
    std::optional<IcyDemuxer> icy_;
    int redirects_ = 0;
    IoStatus latest_ = IoStatus::Connecting; // of the reads before the body
    SilenceReason problem_;
};

} // namespace quillon
