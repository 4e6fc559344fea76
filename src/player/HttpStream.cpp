#include "player/HttpStream.h"

#include "player/ContentKind.h"
#include "player/Limits.h"
#include "runtime/Text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quillon {

namespace {

std::optional<std::uint64_t> ParseLength(const std::string& text) {
    std::uint64_t length = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), length);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size()) return {};
    return length;
}

constexpr int Unauthorised = 401;
constexpr int Gone = 410;

} // namespace

HttpStream::HttpStream(StreamAddress address, std::string user_agent, PlayerSystem& system)
    : address_(std::move(address)), user_agent_(std::move(user_agent)), system_(system) {}

Got HttpStream::Read(std::span<std::uint8_t> room) {
    while (!in_body_)
        if (const Supply supply = Ask(); supply != Supply::Bytes) return {supply};
    return ReadBody(room);
}

/// One step on the way to the body; Supply::Bytes when it got somewhere.
Supply HttpStream::Ask() {
    if (!connection_) {
        connection_ = system_.Connect(address_);
        if (!connection_) return Supply::Failed;
        unsent_ = RequestText(address_, user_agent_);
        reply_ = {};
    }
    return unsent_.empty() ? ReadHead() : SendRequest();
}

Supply HttpStream::SendRequest() {
    const Got sent = connection_->Write(unsent_);
    if (sent.supply == Supply::Bytes) unsent_.erase(0, sent.count);
    return sent.supply == Supply::NothingYet ? Supply::Connecting : sent.supply;
}

Supply HttpStream::ReadHead() {
    std::array<std::uint8_t, ReadSize> bytes{};
    const Got got = connection_->Read(bytes);
    if (got.supply == Supply::NothingYet) return Supply::Connecting;
    if (got.supply != Supply::Bytes) return got.supply == Supply::End ? Supply::Failed : got.supply;
    switch (reply_.Feed({reinterpret_cast<const char*>(bytes.data()), got.count})) {
    case HttpReply::Progress::Head:
        return Supply::Bytes;
    case HttpReply::Progress::Complete:
        return AcceptHead();
    case HttpReply::Progress::Malformed:
        break;
    }
    return Supply::Failed;
}

Supply HttpStream::AcceptHead() {
    if (reply_.Status() / 100 == 3) return Redirect();
    if (reply_.Status() == Unauthorised || reply_.Status() == Gone) return Supply::Refused;
    if (reply_.Status() != 200) return Supply::Failed;
    if (reply_.ContentType() == "text/html") return Supply::NotAudio;
    PrepareBody();
    return Supply::Bytes;
}

void HttpStream::PrepareBody() {
    if (LCase(reply_.Header("transfer-encoding")).ends_with("chunked"))
        chunks_.emplace();
    else
        body_left_ = ParseLength(reply_.Header("content-length"));
    const auto interval = ParseLength(reply_.Header("icy-metaint"));
    if (interval && *interval > 0 && *interval <= IcyDemuxer::LargestInterval)
        titles_.emplace(static_cast<std::size_t>(*interval));
    early_body_ = reply_.TakeBody();
    in_body_ = true;
}

bool HttpStream::AnnouncesPlaylist() const {
    return quillon::AnnouncesPlaylist(reply_.ContentType(), address_.target);
}

HttpStream::Stage HttpStream::Reached() const {
    if (!connection_) return Stage::NoServer;
    if (!unsent_.empty()) return Stage::NoConnection;
    return reply_.Status() == 0 ? Stage::NoAnswer : Stage::Answered;
}

Supply HttpStream::Redirect() {
    const std::string location = reply_.Header("location");
    const auto target = ResolveLocation(address_, location);
    if (location.empty() || !target || ++redirects_ > MaximumRedirects) return Supply::Failed;
    address_ = *target;
    connection_.reset();
    return Supply::Bytes;
}

Got HttpStream::ReadBody(std::span<std::uint8_t> room) {
    if (chunks_ && (chunks_->HasEnded() || chunks_->IsMalformed())) return {Supply::Failed};
    Got got = ReadRaw(room);
    if (got.supply != Supply::Bytes) return got;
    if (chunks_) got.count = chunks_->Strip(room.first(got.count));
    if (titles_) got.count = titles_->Strip(room.first(got.count));
    return got;
}

Got HttpStream::ReadRaw(std::span<std::uint8_t> room) {
    if (body_left_)
        room = room.first(static_cast<std::size_t>(std::min<std::uint64_t>(room.size(), *body_left_)));
    if (room.empty()) return {Supply::End};
    Got got{Supply::Bytes};
    if (!early_body_.empty()) {
        got.count = std::min(early_body_.size(), room.size());
        std::copy_n(early_body_.begin(), got.count, room.begin());
        early_body_.erase(0, got.count);
    } else {
        got = connection_->Read(room);
    }
    if (got.supply == Supply::End) return {Supply::Failed}; // a live stream has no end, and a file would say so
    if (body_left_ && got.supply == Supply::Bytes) *body_left_ -= got.count;
    return got;
}

} // namespace quillon
