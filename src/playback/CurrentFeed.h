#pragma once

#include "playback/ScreenTexts.h"
#include "ports/MediaPlayer.h"
#include "state/ListView.h"
#include "state/PlaybackState.h"

namespace quillon {

/// Makes a feed the current one: its fields and markers, the label of an internet radio station, and the range
/// not yet known.
void MakeCurrent(PlaybackState& state, ScreenTexts& texts, const FeedRecord& record);

/// Whether it is the record's feed that is the current one.
bool IsCurrent(const FeedState& feed, const FeedRecord& record);

/// Whether the feed is a stream or a playlist: there is one, and it is no folder of recordings.
bool IsStream(const FeedState& feed);

/// No feed is current.
void ClearCurrentFeed(PlaybackState& state, ScreenTexts& texts);

/// Empties the player, so that nothing of the feed before can start again.
void EmptyPlayer(MediaPlayer& player);

/// Puts one of the four cycle timers in charge; the other three stop.
void PutInCharge(CycleState& cycle, std::int16_t timer_id);

/// Stops the four cycle timers; the one in charge stays so. Returns whether it ran: while the sound is muted it
/// does not.
bool StopCycle(CycleState& cycle);

} // namespace quillon
