#pragma once

#include "state/PlaybackState.h"

#include <optional>
#include <string>

namespace quillon {

// A folder of recordings as a bag: each is drawn once before any is drawn again.

/// Fills the bag with a folder: every "*.wav" of it, sorted by name, none of them played yet. A folder that is
/// missing, or not named by its whole path, is an empty one. `startup_step` follows what it does.
void FillShuffleBag(ChatterState& chatter, const std::string& folder, std::string& startup_step);

/// Fills the bag with its folder once more, as the folder is by now.
void RefillShuffleBag(ChatterState& chatter, std::string& startup_step);

/// Moves one recording from the bag to the played ones and returns its path; nothing when the bag is empty. `r`
/// in [0, 1) says how far down the bag it lies.
std::optional<std::string> DrawRecording(ChatterState& chatter, double r);

} // namespace quillon
