#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace quillon {

/// Why a feed gives no sound, in the order of a try.
enum class SilenceCause {
    None,
    // its address
    NoAddress,
    UnknownProtocol,
    BadAddress,
    UnplayableProtocol,
    NoSuchFile,
    NoSuchFolder, ///< or one that cannot be reached
    NoRecordings,
    // its server
    ServerNotFound,
    ConnectionRefused,
    NoConnectionInTime,
    UselessAnswer,
    NoAnswerInTime,
    NoAnswer,
    UnknownIssuer,
    CertificateExpired,
    CertificateOfAnother,
    CertificateInvalid,
    // what the server answers, with its status
    RedirectsInCircles,
    WantsPassword,
    Refused,
    NoSuchFeed,
    GoneForGood,
    ServerTrouble,
    OtherStatus,
    // what is there
    WebPage,
    SendsNothing,
    NotPlayable,
    NoDecoder,
    EmptyPlaylist,
    PlaylistsTooDeep,
    // on the way to the ear
    Dropped,
    Stalled,
    TooSlow,
    NoSoundDevice,
    NoRoom,
};

struct SilenceReason {
    SilenceCause Cause = SilenceCause::None;
    std::string About; ///< a folder, the server's status, or a form of sound; empty for the other causes

    explicit operator bool() const { return Cause != SilenceCause::None; }
    bool operator==(const SilenceReason&) const = default;
};

/// What there is to know of a feed's address besides the player's state.
struct FeedCondition {
    SilenceReason Silence; ///< none while it is heard, or when it is tried for the first time
    std::optional<std::chrono::seconds> NextTry; ///< from now; at least 1; nothing if no try is planned

    bool operator==(const FeedCondition&) const = default;
};

/// For the user, without a full stop; empty for no reason.
std::string WordsOf(const SilenceReason& reason);

/// The reason's words and those of the next try, as far as there are any.
std::string WordsOf(const FeedCondition& condition);

} // namespace quillon
