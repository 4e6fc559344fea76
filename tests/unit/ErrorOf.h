#pragma once

#include "runtime/RuntimeError.h"

#include <cstdint>

namespace quillon {

/// Number of the error that a call raises, 0 if it raises none.
template <typename Call>
std::int32_t ErrorOf(Call call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

} // namespace quillon
