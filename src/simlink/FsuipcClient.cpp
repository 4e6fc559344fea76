#include "simlink/FsuipcClient.h"

#include "runtime/Number.h"

#include <string>
#include <utility>

namespace quillon {

namespace {

constexpr const char* LinkName = "FSASMLIB:IPC";
constexpr std::chrono::milliseconds RetryPause{100};
constexpr int MaxRetries = 10;
constexpr std::chrono::seconds LongestSeries{30};
constexpr int MaxVersionPasses = 5;
constexpr std::uint32_t SendTimeoutMs = 2000;
constexpr std::uint32_t Accepted = 1; // the peer's answer to a round it has served
constexpr std::int32_t LowestVersion = 0x19980005;
constexpr std::uint32_t ValidMark = 0xFADE; // high half of the simulator's code

bool Fail(std::uint32_t& result, LinkResult reason) {
    result = reason;
    return false;
}

bool Report(bool queued, std::uint32_t& result) {
    result = queued ? LinkConnected : LinkQueueFull;
    return queued;
}

} // namespace

bool FsuipcClient::FsuipcOpen(std::uint32_t requested, std::uint32_t& result) {
    link_.FsuipcVersion = 0;
    link_.SimVersion = 0;
    owing_since_ = OwesNothing;
    if (IsOpen()) return Fail(result, LinkAlreadyOpen);
    if (FindPeer(result) && ShareArea(result) && AskVersions(result) && CheckVersions(requested, result))
        return true;
    FsuipcReset();
    return false;
}

bool FsuipcClient::FindPeer(std::uint32_t& result) {
    link_.FsuipcWindow = messages_.FindPeerWindow("UIPCMAIN");
    wide_client_ = link_.FsuipcWindow == 0;
    if (wide_client_) link_.FsuipcWindow = messages_.FindPeerWindow("FS98MAIN");
    if (link_.FsuipcWindow == 0) return Fail(result, LinkNoWindow);
    link_.FsuipcMessage = messages_.RegisterMessage(LinkName);
    return link_.FsuipcMessage != 0 || Fail(result, LinkNoMessage);
}

bool FsuipcClient::ShareArea(std::uint32_t& result) {
    if (!shared_.view && !MakeArea(result)) {
        ReleaseArea();
        return false;
    }
    link_.FsuipcAtom = shared_.atom;
    link_.FsuipcMapping = shared_.mapping;
    link_.FsuipcView = shared_.view;
    area_.Attach(link_.FsuipcView);
    return true;
}

bool FsuipcClient::MakeArea(std::uint32_t& result) {
    const std::string name = std::string(LinkName) + ":" + Hex(messages_.ProcessId()) + ":1";
    shared_.atom = memory_.AddNameAtom(name);
    if (shared_.atom == 0) return Fail(result, LinkNoAtom);
    const SharedMemory::Mapping mapping = memory_.CreateMapping(name, RequestArea::Length);
    shared_.mapping = mapping.Handle;
    if (mapping.AlreadyExisted) return Fail(result, LinkMappingTaken);
    shared_.view = mapping.Handle ? memory_.MapView(mapping.Handle) : nullptr;
    return shared_.view || Fail(result, LinkNoView);
}

/// A simulator that is still starting answers with zeros, so it is asked again a few times.
bool FsuipcClient::AskVersions(std::uint32_t& result) {
    for (int pass = 0; pass < MaxVersionPasses && (link_.FsuipcVersion == 0 || link_.SimVersion == 0); ++pass) {
        const bool answered = FsuipcRead(0x3304, 4, &link_.FsuipcVersion, result) &&
                              FsuipcRead(0x3308, 4, &link_.SimVersion, result) &&
                              FsuipcRead(0x330A, 4, &link_.FsuipcLibWord, result) && FsuipcProcess(result);
        if (!answered) return false;
        clock_.Sleep(RetryPause);
    }
    return true;
}

bool FsuipcClient::CheckVersions(std::uint32_t requested, std::uint32_t& result) {
    if (link_.FsuipcVersion < LowestVersion || link_.SimVersion >> 16 != ValidMark)
        return Fail(result, wide_client_ ? LinkWideClientAlone : LinkWrongVersion);
    link_.SimVersion &= 0xFFFF;
    if (requested != 0 && requested != link_.SimVersion) return Fail(result, LinkOtherSimulator);
    result = LinkConnected;
    return true;
}

bool FsuipcClient::FsuipcRead(std::uint32_t offset, std::uint32_t size, void* destination,
                              std::uint32_t& result) {
    if (!IsOpen()) return Fail(result, LinkNotOpen);
    return Report(area_.QueueRead(offset, size, destination), result);
}

bool FsuipcClient::FsuipcWrite(std::uint32_t offset, std::uint32_t size, const void* source,
                               std::uint32_t& result) {
    if (!IsOpen()) return Fail(result, LinkNotOpen);
    return Report(area_.QueueWrite(offset, size, source), result);
}

bool FsuipcClient::FsuipcProcess(std::uint32_t& result) {
    if (!IsOpen()) return Fail(result, LinkNotOpen);
    if (area_.Empty()) return Fail(result, LinkNothingQueued);
    const Round round = area_.Seal();
    std::uint32_t reply = 0;
    if (!SendRound(reply, result)) return false;
    if (reply != Accepted) return Fail(result, LinkBadData);
    // The other process can change the area at any moment, so a copy is checked.
    const std::vector<std::uint8_t> replies(link_.FsuipcView, link_.FsuipcView + round.length);
    if (!DeliverReplies(round, replies)) return false;
    result = LinkConnected;
    return true;
}

/// A success on the last retry still counts as a failure.
bool FsuipcClient::SendRound(std::uint32_t& reply, std::uint32_t& result) {
    last_error_ = 0;
    if (SinceBegin() > LongestSeries) return Fail(result, LinkTimedOut);
    for (int retries = 0; !cancelled_; ++retries) {
        const MessageLink::Sent sent = SendOnce();
        if (!sent.Delivered) last_error_ = sent.LastError;
        reply = sent.Reply;
        if (sent.Delivered && retries < MaxRetries) return true;
        if (retries == MaxRetries) return Fail(result, last_error_ != 0 ? LinkSendFailed : LinkTimedOut);
        clock_.Sleep(RetryPause);
    }
    return Fail(result, LinkTimedOut);
}

MessageLink::Sent FsuipcClient::SendOnce() {
    if (owing_since_ == OwesNothing) owing_since_ = clock_.Uptime().count();
    const MessageLink::Sent sent =
        messages_.Send(link_.FsuipcWindow, link_.FsuipcMessage, link_.FsuipcAtom, SendTimeoutMs);
    if (sent.Delivered) owing_since_ = OwesNothing;
    return sent;
}

std::chrono::milliseconds FsuipcClient::Unanswered() const {
    const auto since = owing_since_.load();
    return since == OwesNothing ? std::chrono::milliseconds(0)
                                : clock_.Uptime() - std::chrono::milliseconds(since);
}

void FsuipcClient::FsuipcReset() {
    area_.Attach(nullptr);
    link_ = {};
}

void FsuipcClient::FsuipcClose() {
    FsuipcReset();
    ReleaseArea();
}

void FsuipcClient::ReleaseArea() {
    const SharedArea held = std::exchange(shared_, {});
    if (held.atom) memory_.DeleteAtom(held.atom);
    if (held.view) memory_.UnmapView(held.view);
    if (held.mapping) memory_.CloseMapping(held.mapping);
}

} // namespace quillon
