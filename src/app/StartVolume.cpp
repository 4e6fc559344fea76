#include "app/StartVolume.h"

#include "runtime/Number.h"
#include "runtime/RuntimeError.h"

namespace quillon {

std::optional<int> StartVolume(const std::string& command_line) {
    try {
        const double volume = Val(command_line);
        if (volume > 0 && volume < 101) return CInt(volume);
    } catch (const RuntimeError&) {
        // A number too large for any volume is ignored like the others.
    }
    return std::nullopt;
}

} // namespace quillon
