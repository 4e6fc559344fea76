#include "app/StartVolume.h"

#include "runtime/Number.h"
#include "runtime/RuntimeError.h"

#include <algorithm>

namespace quillon {

std::optional<int> StartVolume(const std::string& command_line) {
    try {
        const double volume = Val(command_line);
        if (volume > 0 && volume < 101) return std::min<int>(CInt(volume), 100);
    } catch (const RuntimeError&) {
        // The number is too large even to be read: ignored, too.
    }
    return std::nullopt;
}

} // namespace quillon
