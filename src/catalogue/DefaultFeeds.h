#pragma once

#include "ports/AnsiCodePage.h"
#include "state/Folders.h"

#include <string>

namespace quillon {

/// Makes sure that the catalogue lists the three folders of recordings that come with the program. If the
/// Toronto feed is missing, all three are appended under their title. Raises the errors of ReadText and
/// AppendLines, also for a missing catalogue.
void AddDefaultFeeds(const Folders& folders, std::string& startup_step, AnsiCodePage& page);

} // namespace quillon
