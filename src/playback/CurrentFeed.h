#pragma once

#include "ports/MediaPlayer.h"
#include "state/ProgramState.h"

#include <string>

namespace quillon {

/// Makes a feed the current one: its fields and markers, the label of an internet radio station, and the range
/// not yet known.
void MakeCurrent(ProgramState& state, const FeedRecord& record);

/// No feed is current.
void ClearCurrentFeed(ProgramState& state);

/// Points the list of recordings at a folder: every "*.wav" of it, sorted by name, none of them played yet. A
/// missing folder is an empty one.
void FillShuffleBag(ProgramState& state, const std::string& folder);

/// Empties the player, so that nothing of the feed before can start again.
void EmptyPlayer(MediaPlayer& player);

/// Puts one of the four cycle timers in charge; the other three stop.
void PutInCharge(ProgramState& state, std::int16_t timer_id);

} // namespace quillon
