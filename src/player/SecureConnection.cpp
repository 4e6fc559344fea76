#include "player/SecureConnection.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

/// More than any message of the protocol, in bytes.
constexpr std::size_t LargestBacklog = 262144;

} // namespace

SecureConnection::SecureConnection(std::unique_ptr<Connection> carrier, std::unique_ptr<SecurityLayer> layer)
    : carrier_(std::move(carrier)), layer_(std::move(layer)) {}

IoResult SecureConnection::Read(std::span<std::uint8_t> room) {
    if (data_.empty()) {
        const IoStatus status = is_established_ ? ReadRecord() : ShakeHands();
        if (status != IoStatus::Ok) return {status};
    }
    const std::size_t count = std::min(room.size(), data_.size());
    std::copy_n(data_.begin(), count, room.begin());
    data_.erase(data_.begin(), data_.begin() + static_cast<std::ptrdiff_t>(count));
    return {IoStatus::Ok, count};
}

IoResult SecureConnection::Write(std::string_view bytes) {
    if (!is_established_) return {ShakeHands()};
    if (ended_) return {*ended_};
    if (const IoStatus status = Flush(); status != IoStatus::Ok) return {status};
    const std::size_t count = layer_->Encrypt(bytes, unsent_);
    if (count == 0) return {Fail(IoStatus::Failed)};
    Flush(); // the next call reports a failure
    return {IoStatus::Ok, count};
}

SilenceReason SecureConnection::Problem() const {
    const SilenceCause fault = layer_->Fault();
    return fault == SilenceCause::None ? carrier_->Problem() : SilenceReason{fault, ""};
}

/// Takes one step; IoStatus::Ok if more can be done at once.
IoStatus SecureConnection::ShakeHands() {
    if (ended_) return *ended_;
    IoStatus status = Flush();
    if (status == IoStatus::Ok && needs_input_) status = Receive();
    if (status == IoStatus::WouldBlock) return IoStatus::Connecting;
    if (status == IoStatus::EndOfStream) return Fail(IoStatus::Failed);
    if (status != IoStatus::Ok) return status == IoStatus::Connecting ? status : Fail(status);
    const auto progress = layer_->ShakeHands(received_, unsent_);
    needs_input_ = progress == SecurityLayer::Progress::Incomplete || received_.empty();
    is_established_ = progress == SecurityLayer::Progress::Done;
    if (is_established_ || progress == SecurityLayer::Progress::Incomplete) return IoStatus::Ok;
    if (progress == SecurityLayer::Progress::Untrusted) return Fail(IoStatus::Refused);
    const bool goes_on =
        progress == SecurityLayer::Progress::Step && ++steps_without_data_ < MostStepsWithoutData;
    return goes_on ? IoStatus::Ok : Fail(IoStatus::Failed);
}

/// Decrypts at most one record; IoStatus::Ok if more can be done at once.
IoStatus SecureConnection::ReadRecord() {
    using enum SecurityLayer::Progress;
    if (ended_) return *ended_;
    Flush(); // Receive reports a failure
    auto progress = received_.empty() ? Incomplete : layer_->Decrypt(received_, data_);
    if (progress == Incomplete) return Receive();
    if (progress == Closed && data_.empty()) return Fail(IoStatus::EndOfStream);
    if (progress == Closed) ended_ = IoStatus::EndOfStream;
    if (progress == Failed) {
        data_.clear(); // of a damaged record
        return Fail(IoStatus::Failed);
    }
    is_established_ = progress != Handshake;
    needs_input_ = received_.empty();
    steps_without_data_ = data_.empty() ? steps_without_data_ + 1 : 0;
    return steps_without_data_ < MostStepsWithoutData ? IoStatus::Ok : Fail(IoStatus::Failed);
}

IoStatus SecureConnection::Receive() {
    std::array<std::uint8_t, 16384> bytes;
    if (received_.size() > LargestBacklog) return Fail(IoStatus::Failed);
    const IoResult result = carrier_->Read(bytes);
    if (result.status == IoStatus::Ok)
        received_.insert(received_.end(), bytes.begin(),
                         bytes.begin() + static_cast<std::ptrdiff_t>(result.count));
    return result.status;
}

IoStatus SecureConnection::Flush() {
    while (!unsent_.empty()) {
        const IoResult sent = carrier_->Write(unsent_);
        if (sent.status != IoStatus::Ok) return sent.status;
        unsent_.erase(0, sent.count);
    }
    return IoStatus::Ok;
}

IoStatus SecureConnection::Fail(IoStatus status) {
    ended_ = status;
    return status;
}

} // namespace quillon
