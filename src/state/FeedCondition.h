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
    ControlCharacters, ///< in an entry of a local playlist
    Device,            ///< the same
    ForeignServer,     ///< an entry leads to one that the user has not named
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
    LeavesEncryption, ///< a redirect from https to http
    PrivateAddress,   ///< a public server leads to this machine or a private network
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
    CodingRefused, ///< of waves from a server
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
    std::string About; ///< a folder, a server, its status, or a form of sound; empty for the other causes

    explicit operator bool() const { return Cause != SilenceCause::None; }
    bool operator==(const SilenceReason&) const = default;
};

/// What there is to know of a feed's address besides the player's state.
struct FeedCondition {
    SilenceReason Silence; ///< none while it is heard, or when it is tried for the first time
    std::optional<std::chrono::seconds> NextTry; ///< from now; at least 1; nothing if no try is planned
    bool NotEncrypted = false; ///< it is heard without encryption, though a playlist came with https

    bool operator==(const FeedCondition&) const = default;
};

inline constexpr const char* NotEncryptedWords = "not encrypted";

/// For the user, without a full stop; empty for no reason.
std::string WordsOf(const SilenceReason& reason);

/// The reason's words, those of the next try and `NotEncryptedWords`, as far as they apply.
std::string WordsOf(const FeedCondition& condition);

} // namespace quillon
