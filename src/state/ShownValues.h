#pragma once

#include "state/FeedCondition.h"

#include <cstdint>
#include <string>

namespace quillon {

// What the user is shown, as values; playback/ScreenTexts turns them into texts. Logic that depends on what is
// on screen reads these.

/// What the player does.
enum class Activity {
    None,
    Stopped,
    Paused,
    OutOfRange, ///< paused because of it
    Playing,
    NetRadio, ///< plays a station, which has no range
    Buffering,
    Connecting,
    NoConnection,
    Muted,
    RecordingPlays,
    Gap, ///< between two recordings
};

/// Whether the user hears it.
inline bool IsHeard(Activity what) {
    return what == Activity::Playing || what == Activity::NetRadio || what == Activity::RecordingPlays;
}

struct PlayerStatus {
    Activity What = Activity::None;
    std::int64_t SecondsLeft = 0; ///< of a gap
};

/// What `Label2` says: the distance to the feed's airport, or what plays instead.
enum class DistanceKind {
    None,
    Stopped,
    ManualMode,
    NetRadio,
    PlayList,
    WaveFile,
    UnknownAirport,
    InRange,
    OutOfRange,
    OutOfRangeInManualMode, ///< where the range does not matter
};

struct DistanceValue {
    DistanceKind Kind = DistanceKind::None;
    std::int32_t NauticalMiles = 0; ///< of the kinds that have a distance
};

/// What the feed's panel says of the simulator link, before all else.
enum class LinkNews { None, Looking };

/// What the feed's panel says in passing.
enum class NoticeKind { None, RadioRefused, SoundDeviceGone, SeparatorsKept, FeedsMissing, FirstSteps };

struct Notice {
    NoticeKind What = NoticeKind::None;
    std::string About; ///< the frequency that the radio did not take, the device, or what is missing
};

struct ShownValues {
    PlayerStatus Status; ///< the first panel
    DistanceValue Distance;
    LinkNews Link = LinkNews::None;
    std::string Station;     ///< what the station says it plays
    FeedCondition Condition; ///< why the current feed is silent
    bool Waiting = false;    ///< for an answer of the simulator's
    Notice Passing;
};

} // namespace quillon
