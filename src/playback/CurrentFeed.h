#pragma once

#include "state/ProgramState.h"

#include <string>

namespace quillon {

/// Makes a feed the current one: its fields and markers, the label of an internet radio station, and the range
/// not yet known.
void MakeCurrent(ProgramState& state, const FeedRecord& record);

/// No feed is current.
void ClearCurrentFeed(ProgramState& state);

/// Position of "http://" (else of "https://") in an address, 0 if it holds neither.
std::ptrdiff_t StreamMarker(const std::string& url);

/// Points the list of recordings at a folder: every "*.wav" of it, sorted by name, none of them played yet. A
/// missing folder is an empty one.
void FillShuffleBag(ProgramState& state, const std::string& folder);

/// Puts one of the four cycle timers in charge; the other three stop.
void PutInCharge(ProgramState& state, std::int16_t timer_id);

} // namespace quillon
