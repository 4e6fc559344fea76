#pragma once

#include "player/Address.h"
#include "player/ChunkedBody.h"
#include "player/HttpReply.h"
#include "player/IcyDemuxer.h"
#include "player/PlayerSystem.h"

#include <cstdint>
#include <optional>

namespace quillon {

/// The body of what a web server sends for an address, live or a file, without chunks and announced titles.
/// Follows redirects; any other answer but 200, a web page, and a connection that ends before its time are
/// failures.
class HttpStream : public ByteSource {
  public:
    static constexpr int MaximumRedirects = 8;

    HttpStream(StreamAddress address, std::string user_agent, PlayerSystem& system);

    Got Read(std::span<std::uint8_t> room) override;

    /// A reply that tells its length is a file.
    bool IsLive() const override { return !body_left_.has_value(); }

    std::string Address() const override { return AddressText(address_); }
    bool AnnouncesPlaylist() const override;
    /// How far the asking has come.
    enum class Stage { NoServer, NoConnection, NoAnswer, Answered };
    Stage Reached() const;

    /// Of the answer.
    int Status() const { return reply_.Status(); }

    std::string Title() const override { return titles_ ? titles_->Title() : std::string(); }

  private:
    Supply Ask();
    Supply SendRequest();
    Supply ReadHead();
    Supply AcceptHead();
    Supply Redirect();
    void PrepareBody();
    Got ReadBody(std::span<std::uint8_t> room);
    Got ReadRaw(std::span<std::uint8_t> room);

    StreamAddress address_;
    std::string user_agent_;
    PlayerSystem& system_;
    std::unique_ptr<Connection> connection_;
    std::string unsent_;
    HttpReply reply_;
    bool in_body_ = false;
    std::string early_body_; // came in one piece with the head
    std::optional<std::uint64_t> body_left_;
    std::optional<ChunkedBody> chunks_;
    std::optional<IcyDemuxer> titles_;
    int redirects_ = 0;
};

} // namespace quillon
