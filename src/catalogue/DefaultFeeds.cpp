#include "catalogue/DefaultFeeds.h"

#include "catalogue/FeedFile.h"
#include "ports/TextFile.h"

namespace quillon {

void AddDefaultFeeds(const Folders& folders, std::string& startup_step, AnsiCodePage& page) {
    const std::string path = folders.DataPath + CatalogueName;
    const std::string waves =
        folders.Portable ? "ATC\\" : folders.WavePath; // drive letters differ between computers
    const std::string toronto = "CYYZ|Wav - Toronto ON - Tower Pearson Intl|" + waves + "CYYZ_T|";
    startup_step = "Opening " + path;
    if (ReadText(path, page).find(toronto) != std::string::npos) return;

    startup_step = "Adding Waves to " + path;
    AppendLines(path,
                {"//", "// Pre-Recorded Wave Files", toronto,
                 "YPPH|Wav - Perth Australia - Approach|" + waves + "Kestrune - YPPH_A|",
                 "KLAX|Wav - Los Angeles - Tower|" + waves + "Kestrune-Los Angeles-Tower|"},
                page);
}

} // namespace quillon
