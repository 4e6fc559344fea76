#pragma once

#include "ports/AnsiCodePage.h"
#include "state/Folders.h"

#include <string>

namespace quillon {

/// Makes sure that the catalogue holds the three folders of recordings that come with the program. Only the
/// Toronto feed is looked for: without it, all three are appended under their title. Raises the errors of
/// ReadText and AppendLines; a missing catalogue is one.
void AddDefaultFeeds(const Folders& folders, std::string& startup_step, AnsiCodePage& page);

} // namespace quillon
