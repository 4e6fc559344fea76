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
constexpr int Forbidden = 403;
constexpr int NotFound = 404;
constexpr int Gone = 410;

SilenceCause CauseOfStatus(int status) {
    if (status / 100 == 3) return SilenceCause::RedirectsInCircles;
    if (status == Unauthorised) return SilenceCause::WantsPassword;
    if (status == Forbidden) return SilenceCause::Refused;
    if (status == NotFound) return SilenceCause::NoSuchFeed;
    if (status == Gone) return SilenceCause::GoneForGood;
    return status >= 500 ? SilenceCause::ServerTrouble : SilenceCause::OtherStatus;
}

} // namespace

HttpStream::HttpStream(StreamAddress address, std::string user_agent, PlayerSystem& system, Origin origin)
    : address_(std::move(address)), user_agent_(std::move(user_agent)), system_(system), origin_(origin) {}

IoResult HttpStream::Read(std::span<std::uint8_t> room) {
    if (in_body_) return ReadBody(room);
    latest_ = Advance();
    if (latest_ == IoStatus::Refused && reply_.Status() == 0) problem_ = connection_->Problem();
    return {latest_};
}

/// One step towards the body; IoStatus::Ok if another can follow.
IoStatus HttpStream::Advance() {
    if (!connection_) {
        connection_ = system_.Connect(address_, origin_.reach);
        if (!connection_) return IoStatus::Failed;
        unsent_ = RequestText(address_, user_agent_);
        reply_ = {};
    }
    return unsent_.empty() ? ReadHead() : SendRequest();
}

IoStatus HttpStream::SendRequest() {
    const IoResult sent = connection_->Write(unsent_);
    if (sent.status == IoStatus::Ok) unsent_.erase(0, sent.count);
    return sent.status == IoStatus::WouldBlock ? IoStatus::Connecting : sent.status;
}

IoStatus HttpStream::ReadHead() {
    std::array<std::uint8_t, ReadSize> bytes{};
    const IoResult result = connection_->Read(bytes);
    if (result.status == IoStatus::WouldBlock) return IoStatus::Connecting;
    if (result.status != IoStatus::Ok)
        return result.status == IoStatus::EndOfStream ? IoStatus::Failed : result.status;
    switch (reply_.Feed({reinterpret_cast<const char*>(bytes.data()), result.count})) {
    case HttpReply::Progress::Head:
        return IoStatus::Ok;
    case HttpReply::Progress::Complete:
        return AcceptHead();
    case HttpReply::Progress::Malformed:
        break;
    }
    return IoStatus::Failed;
}

IoStatus HttpStream::AcceptHead() {
    if (reply_.Status() / 100 == 3) return Redirect();
    if (reply_.Status() == Unauthorised || reply_.Status() == Gone) return IoStatus::Refused;
    if (reply_.Status() != 200) return IoStatus::Failed;
    if (reply_.ContentType() == "text/html") return IoStatus::NotAudio;
    PrepareBody();
    return IoStatus::Ok;
}

void HttpStream::PrepareBody() {
    if (LCase(reply_.Header("transfer-encoding")).ends_with("chunked"))
        chunks_.emplace();
    else
        body_left_ = ParseLength(reply_.Header("content-length"));
    const auto interval = ParseLength(reply_.Header("icy-metaint"));
    if (interval && *interval > 0 && *interval <= IcyDemuxer::LargestInterval)
        icy_.emplace(static_cast<std::size_t>(*interval));
    early_body_ = reply_.TakeBody();
    in_body_ = true;
}

bool HttpStream::AnnouncesPlaylist() const {
    return quillon::AnnouncesPlaylist(reply_.ContentType(), address_.target);
}

Origin HttpStream::Onward() const {
    const bool is_private = origin_.reach == Reach::Everywhere && connection_ && connection_->IsPrivate();
    return {is_private ? Reach::Everywhere : Reach::Public, origin_.encrypted || address_.secure};
}

SilenceReason HttpStream::Problem() const {
    if (problem_) return problem_;
    if (reply_.Status() == 0) return ProblemWithoutAnswer();
    if (reply_.Status() != 200) return {CauseOfStatus(reply_.Status()), std::to_string(reply_.Status())};
    return {latest_ == IoStatus::NotAudio ? SilenceCause::WebPage : SilenceCause::None, ""};
}

SilenceReason HttpStream::ProblemWithoutAnswer() const {
    using enum SilenceCause;
    if (!connection_) return {ServerNotFound, ""};
    const bool in_time = latest_ != IoStatus::Connecting;
    if (!unsent_.empty()) return {in_time ? ConnectionRefused : NoConnectionInTime, ""};
    return {in_time ? UselessAnswer : NoAnswerInTime, ""};
}

IoStatus HttpStream::Redirect() {
    const std::string location = reply_.Header("location");
    const auto target = ResolveLocation(address_, location);
    if (!target && IsMediaProtocol(location)) {
        problem_ = {SilenceCause::UnplayableProtocol, ""};
        return IoStatus::Unsupported;
    }
    if (location.empty() || !target || ++redirects_ > MaximumRedirects) return IoStatus::Failed;
    if (address_.secure && !target->secure) {
        problem_ = {SilenceCause::LeavesEncryption, ""};
        return IoStatus::Refused;
    }
    origin_ = Onward();
    address_ = *target;
    connection_.reset();
    return IoStatus::Ok;
}

IoResult HttpStream::ReadBody(std::span<std::uint8_t> room) {
    if (chunks_ && (chunks_->HasEnded() || chunks_->IsMalformed())) return {IoStatus::Failed};
    IoResult result = ReadRaw(room);
    if (result.status != IoStatus::Ok) return result;
    if (chunks_) result.count = chunks_->Strip(room.first(result.count));
    if (icy_) result.count = icy_->Strip(room.first(result.count));
    return result;
}

IoResult HttpStream::ReadRaw(std::span<std::uint8_t> room) {
    if (body_left_)
        room = room.first(static_cast<std::size_t>(std::min<std::uint64_t>(room.size(), *body_left_)));
    if (room.empty()) return {IoStatus::EndOfStream};
    IoResult result{IoStatus::Ok};
    if (!early_body_.empty()) {
        result.count = std::min(early_body_.size(), room.size());
        std::copy_n(early_body_.begin(), result.count, room.begin());
        early_body_.erase(0, result.count);
    } else {
        result = connection_->Read(room);
    }
    if (result.status == IoStatus::EndOfStream)
        return {IoStatus::Failed}; // a live stream has no end, and a file's length is known
    if (body_left_ && result.status == IoStatus::Ok) *body_left_ -= result.count;
    return result;
}

} // namespace quillon
