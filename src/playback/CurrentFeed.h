#pragma once

#include "playback/ScreenTexts.h"
#include "ports/MediaPlayer.h"
#include "state/ListView.h"
#include "state/PlaybackState.h"

namespace quillon {

/// Makes the record's feed the current one: sets its fields and markers and resets the range to unknown.
void MakeCurrent(PlaybackState& state, ScreenTexts& texts, const FeedRecord& record);

/// Whether the record's feed is the current one.
bool IsCurrent(const FeedState& feed, const FeedRecord& record);

/// Whether the feed is a stream or a playlist. False for a folder of recordings, and without a feed.
bool IsStream(const FeedState& feed);

/// Whether the followed radio is on another channel than a tick ago.
bool IsRetuned(const RadioState& radio);

/// Leaves no feed current.
void ClearCurrentFeed(PlaybackState& state, ScreenTexts& texts);

/// Clears the player's address, so that the previous feed cannot start again.
void EmptyPlayer(MediaPlayer& player);

/// Puts one of the four cycle timers in charge; the other three stop.
void PutInCharge(CycleState& cycle, std::int16_t timer_id);

/// Whether the cycle in charge runs; while muted it does not.
bool CycleRuns(const CycleState& cycle);

/// Begins the second of the cycle in charge anew.
void RestartCycle(CycleState& cycle);

/// Stops the four cycle timers without changing which one is in charge. Returns whether it was running; while
/// muted it is not.
bool StopCycle(CycleState& cycle);

} // namespace quillon
