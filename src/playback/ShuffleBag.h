#pragma once

#include "state/PlaybackState.h"

#include <optional>
#include <string>

namespace quillon {

// A folder of recordings as a shuffle bag: each is drawn once before any is drawn again.

/// Fills the bag with every "*.wav" of a folder, sorted by name. A folder that is missing, or given by a
/// relative path, counts as empty. `startup_step` says what is being done.
void FillShuffleBag(ChatterState& chatter, const std::string& folder, std::string& startup_step);

/// Lists the bag's folder again and refills the bag.
void RefillShuffleBag(ChatterState& chatter, std::string& startup_step);

/// Moves one recording from the bag to the played list and returns its path; returns nothing if the bag is
/// empty. `r` in [0, 1) picks it.
std::optional<std::string> DrawRecording(ChatterState& chatter, double r);

} // namespace quillon
