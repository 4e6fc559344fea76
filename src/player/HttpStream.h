#pragma once

#include "player/Address.h"
#include "player/HttpReply.h"
#include "player/PlayerSystem.h"

#include <cstdint>
#include <optional>

namespace quillon {

/// The body of what a web server sends for an address, live or a file. Follows redirects; any answer but 200, a
/// web page, and a connection that ends before its time are failures.
class HttpStream : public ByteSource {
  public:
    static constexpr int MaximumRedirects = 8;

    HttpStream(StreamAddress address, std::string program_version, PlayerSystem& system);

    Got Read(std::span<std::uint8_t> room) override;

    /// A reply that tells its length is a file.
    bool IsLive() const override { return !body_left_.has_value(); }

  private:
    Supply Ask();
    Supply SendRequest();
    Supply ReadHead();
    Supply AcceptHead();
    Supply Redirect();
    Got ReadBody(std::span<std::uint8_t> room);

    StreamAddress address_;
    std::string program_version_;
    PlayerSystem& system_;
    std::unique_ptr<Connection> connection_;
    std::string unsent_;
    HttpReply reply_;
    bool in_body_ = false;
    std::string early_body_; // came in one piece with the head
    std::optional<std::uint64_t> body_left_;
    int redirects_ = 0;
};

} // namespace quillon
