#pragma once

#include "state/ShownValues.h"
#include "state/ViewRequest.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillon {

// Frequencies that no radio holds and no feed has; they only steer the test whether the frequency has changed.
inline constexpr const char* ForcedFrequency = "999.99"; ///< start of PreviousFrequency, and a forced retune
inline constexpr const char* UnreadFrequency = "999.98"; ///< start of MasterFrequency
inline constexpr const char* HandPickedFrequency = "999.00"; ///< PreviousFrequency after a pick by hand

inline bool IsSentinel(const std::string& frequency) {
    return frequency == ForcedFrequency || frequency == UnreadFrequency || frequency == HandPickedFrequency;
}

/// The simulator link and what was last read over it.
struct RadioState {
    std::string PreviousFrequency = ForcedFrequency;
    std::string MasterFrequency = UnreadFrequency;
    bool ReadInHertz = false;      ///< MasterFrequency was last read to its last digit
    std::int16_t SelectedComm = 0; ///< 1 COM1, 2 COM1 standby, 3 COM2, 4 COM2 standby
    std::uint32_t CommOffset =
        0; ///< where the followed radio stands in the simulator's memory; 0 is nowhere yet
    std::int16_t SimPauseState = 0; ///< 1 while the simulator is paused
    bool NoConnection = false;
    bool SimConnected = false;
    bool Connecting = false;        ///< the start of the program looks for the simulator; nothing else asks it
    bool SimLost = false;           ///< the simulator has ended and the program waits for another one
    std::uint32_t FsuipcResult = 0; ///< of the last link call
    std::string FsuipcVersionText;  ///< "3.456" or "3.456a"
    double AircraftLatitude = 0;    ///< degrees, north positive
    double AircraftLongitude = 0;   ///< degrees, east positive
    std::string AircraftLatitudeText;
    std::string AircraftLongitudeText;
};

/// A feed to which the radio was tuned by hand.
struct PickedFeed {
    std::string Icao;
    std::string Frequency;
    std::string Url;
};

/// The current feed and how it is played.
struct FeedState {
    std::string FeedIcao;
    std::string FeedCity;
    std::string FeedFrequency;
    std::string FeedUrl;
    std::string FeedUrlMarker = "0";  ///< "0": the address names a folder of recordings
    std::int32_t WplMarker = 0;       ///< above 0: a playlist
    std::int32_t RadioFeedMarker = 0; ///< above 0: an internet radio station, not bound to a range
    std::optional<PickedFeed> Picked{};
};

struct RangeState {
    std::int16_t ReceptionRange = 50; ///< nautical miles; 0 switches the range check off
    bool InRange = false;
    std::int32_t AirportSearchStart = 0;
};

/// What is known of a folder of recordings.
enum class ChatterFolder {
    BeingListed,
    HasRecordings, ///< or had some when it was last listed
    Empty,
    OutOfReach, ///< there is no such folder, or no way to it
};

/// Recorded chatter: the folder being played and the files of it not yet played in this round.
struct ChatterState {
    std::int16_t ChatterMinSeconds = 15;
    std::int16_t ChatterMaxSeconds = 25;
    bool FirstPick = false; ///< a folder has just been picked by hand: its first recording starts at once
    bool Held = false;      ///< stopped or paused by hand: no next one until play or another pick
    std::string File1Path;
    ChatterFolder Folder = ChatterFolder::Empty;
    bool IsRefill = false; ///< the folder is or was listed because all of its recordings had been played
    std::vector<std::string> List3; ///< not yet played
    std::vector<std::string> List4; ///< played

    std::int16_t NextChatterDelay = 0; ///< the gap before the next recording, s
    std::int64_t ChatterElapsed = 0;   ///< whole seconds of it that have passed

    std::chrono::sys_time<std::chrono::milliseconds> ChatterStartTime; ///< from which the gap is counted
    std::chrono::sys_time<std::chrono::milliseconds> ChatterNowTime;
};

struct MuteState {
    std::int32_t MuteKeyCode = 9; ///< 0: none
    bool Muted = false;
    bool FrameOpen = false;   ///< a preference frame is shown; the mute key is ignored
    PlayerStatus SavedStatus; ///< of the player's panel before it was muted
};

enum class SelectionMode { Automatic, Manual };

struct FormTimer {
    bool Enabled = false;
    int Interval = 1000;            ///< ms
    ViewRequest RestartRequest = 0; ///< to begin the interval anew

    bool operator==(const FormTimer&) const = default;
};

/// What the user has marked in the Preferences menu; nothing: the user has not said.
struct Marks {
    std::optional<bool> StayOpen;          ///< when the simulator ends
    std::optional<bool> SharedFrequencies; ///< between airports
    bool OnTop = false;                    ///< of all other windows
    bool HideWhenMinimised = false;        ///< in the notification area
    bool StartMinimised = false;
    std::optional<bool> SkipFaultyLines{}; ///< of the catalogue

    bool operator==(const Marks&) const = default;
};

/// The cycles, by the numbers of the timers that drive them.
enum Cycle : std::int16_t {
    AutomaticTuningCycle = 1,
    ManualMonitoringCycle = 2,
    AutomaticChatterCycle = 3,
    ManualChatterCycle = 4,
};

/// The form's timers, and which cycle is in charge.
struct CycleState {
    SelectionMode Mode = SelectionMode::Automatic;     ///< which of `optAuto` and `optManual` is on
    std::int16_t ActiveTimerId = AutomaticTuningCycle; ///< the Cycle in charge
    bool ForceRetune = false;                          ///< the next tick of `Timer1` searches anew
    std::string CaptionBase = "Quillon";

    std::array<FormTimer, 5> Timers{{{true, 1000}, {false, 1000}, {false, 1000}, {false, 1000}, {true, 100}}};

    bool optManual() const { return Mode == SelectionMode::Manual; }
    FormTimer& Timer(int id) { return Timers.at(static_cast<std::size_t>(id) - 1); }
    const FormTimer& Timer(int id) const { return Timers.at(static_cast<std::size_t>(id) - 1); }
};

/// What the cycles know and change. Forms, files and the catalogue are no part of it.
struct PlaybackState {
    RadioState radio;
    FeedState feed;
    RangeState range;
    ChatterState chatter;
    MuteState mute;
    CycleState cycle;
    ShownValues shown;
    Marks marks;
};

} // namespace quillon
